// The chooser: each choice by OK and by a double-click, and the end of a station.
#include <gtest/gtest.h>

#include "tests/support/finished_station.hpp"

namespace kelp {

namespace {

// A finished station with the chooser in front; the next one, of two samples, is there already.
struct Choosing : FinishedStation {
  explicit Choosing(const std::string& procNum = "002") : FinishedStation(2) {
    if (procNum != "002") {
      run().ProcNum = form().txtStaInfo[kStaProcNum].Text = procNum;
      run().BaseFile = kChl + "chl" + procNum;
    }
    const std::string next = "chl" + PaddedProcNum(std::to_string(static_cast<int>(Val(procNum)) + 1));
    file(next) = Replaced(file("chl002"), "002   2", next.substr(3) + "   2");
    caption() = "What's Next";
    form().txtReading.Text = form().txtStats[1].Text = "1.0";
    Click("frmAcquire", "Command6");
  }
  void Ok(int option) {
    Click("frmWhatsNext", "Option1", option);
    Click("frmWhatsNext", "NextButton");
  }
};

constexpr const char* kStable = " then press <spacebar> or <click> when stable";

}  // namespace

TEST(Chooser, EveryChoiceLeadsToItsStep) {
  struct Row {
    int option;
    bool ok;
    std::vector<Answer> answers;
    const char* step;
    const char* caption;
    std::string text;
    int selected;
    const char* selectorCaption;  // of the option selected
    bool cleared;                 // the reading displays
    bool ended;
  };
  const Row rows[] = {
      {0, true, {}, "SAMPLE", "Load Sample", std::string("Load Sample") + kStable, 3, "Samples", true, false},
      {1,
       true,
       {},
       "ADDED",
       "Load Added Sample",
       "Load Sample, when stable <Click>",
       3,
       "Samples",
       false,
       false},
      {2, true, {}, "BLANK", "Load Blank", std::string("Load Blank") + kStable, 0, "End Blank", true, false},
      {3,
       true,
       {},
       "STANDARD",
       "Load Low Standard",
       std::string("Load Standard") + kStable,
       1,
       "EndStnd",
       true,
       false},
      {4,
       true,
       {},
       "COPROS",
       "Load Copro 3-1",
       std::string("Load Copro 3-1") + kStable,
       2,
       "EndCopr",
       true,
       false},
      {5, true, {}, "STANDBY", "&Start", "Click [Start] to begin", 0, "Begin Blank", true, true},
      {6, true, {}, "BLANK", "What's Next", "", 0, "Begin Blank", false, false},
      {0,
       false,
       {},
       "SAMPLE",
       "Load Sample",
       std::string("Load Sample") + kStable,
       3,
       "Samples",
       false,
       false},
      {1,
       false,
       {},
       "ADDED",
       "Load Added Sample",
       "Load Sample, when stable <Click>",
       3,
       "Samples",
       false,
       false},
      {2,
       false,
       {Answer::Yes},
       "BLANK",
       "Load Blank",
       std::string("Load Blank") + kStable,
       0,
       "Begin Blank",
       false,
       false},
      {2,
       false,
       {Answer::No},
       "BLANK",
       "Load Blank",
       std::string("Load Blank") + kStable,
       0,
       "End Blank",
       false,
       false},
      {3,
       false,
       {},
       "STANDARD",
       "Load Low Standard",
       std::string("Load Standard") + kStable,
       1,
       "EndStnd",
       false,
       false},
      {4,
       false,
       {Answer::Yes},
       "COPROS",
       "Load Copro 3-1",
       std::string("Load Copro 3-1") + kStable,
       2,
       "Copros",
       false,
       false},
      {4,
       false,
       {Answer::No},
       "COPROS",
       "Load Copro 3-1",
       std::string("Load Copro 3-1") + kStable,
       2,
       "EndCopr",
       false,
       false},
      {5, false, {}, "BLANK", "What's Next", "", 0, "Begin Blank", false, false},
      {6, false, {}, "STANDBY", "&Start", "Click [Start] to begin", 0, "Begin Blank", true, true}};
  for (const Row& row : rows) {
    const std::string name = std::to_string(row.option) + (row.ok ? " by OK" : " by double-click");
    Choosing program;
    program.form().Text4.Text.clear();
    for (const Answer answer : row.answers) program.platform.QueueAnswer(answer);
    if (row.ok)
      program.Ok(row.option);
    else
      program.DblClick("frmWhatsNext", "Option1", row.option);
    EXPECT_EQ(program.run().StepName, row.step) << name;
    EXPECT_EQ(program.caption(), row.caption) << name;
    EXPECT_EQ(program.form().Text4.Text, row.text) << name;
    EXPECT_TRUE(program.form().Option1[row.selected].Value) << name;
    EXPECT_EQ(program.form().Option1[row.selected].Caption, row.selectorCaption) << name;
    EXPECT_EQ(program.form().txtStats[1].Text.empty(), row.cleared) << name;
    EXPECT_EQ(program.kelp.Ended, row.ended) << name;
    EXPECT_EQ(program.kelp.frmWhatsNext.Form.Visible, row.ended) << name;
    const bool saves = row.option == 0 || row.option == 5 || (row.option == 6 && !row.ok);
    EXPECT_EQ(program.Has("chl002.prn"), saves) << name;
    EXPECT_EQ(program.platform.Printed.empty(), !saves) << name;
    const bool config = saves && (row.ok || row.option != 5);
    EXPECT_EQ(CfgValue(program.run(), kCfgProcNum), config ? "003" : "1") << name;
    EXPECT_EQ(program.run().ProcNum, row.option == 0 ? "003" : "002") << name;
    if (row.option == 0) {
      EXPECT_EQ(program.form().Option1[0].Caption, row.ok ? "End Blank" : "Begin Blank");
      EXPECT_EQ(program.form().Option1[2].Caption, row.ok ? "EndCopr" : "Copros");
    }
    EXPECT_EQ(program.kelp.frmWhatsNext.Option1[5].Value, row.option == 5 || (row.option == 2 && row.ok))
        << name;
    EXPECT_EQ(program.platform.AnswersWaiting(), 0U) << name;
  }
}

TEST(Chooser, NumbersFrom990OnAreNotAdvanced) {
  for (const char* number : {"989", "990"}) {
    Choosing program(number);
    program.run().TubeNum = 55;
    program.DblClick("frmWhatsNext", "Option1", 0);
    const bool advanced = number == std::string("989");
    EXPECT_EQ(CfgValue(program.run(), kCfgProcNum), advanced ? "990" : "1");
    EXPECT_EQ(CfgValue(program.run(), kCfgTube), advanced ? "55" : "1");
    EXPECT_EQ(CfgValue(program.run(), kCfgFiltration), advanced ? "11/23/2026 11:30:00 PM" : "");
    EXPECT_EQ(program.run().ProcNum, advanced ? "990" : "991") << "the next station is opened all the same";
    EXPECT_TRUE(program.Has(std::string("chl") + number));
  }
}

TEST(Chooser, ASaveThatFailsKeepsTheStationAndItsNumber) {
  for (const bool ok : {true, false}) {
    Choosing program;
    program.disk.FailBelow = "q:\\vault\\2007\\0707\\chl\\chl002.htm";
    program.kelp.frmProgress.Label1.Caption.clear();
    ok ? program.Ok(0) : static_cast<void>(program.DblClick("frmWhatsNext", "Option1", 6));
    EXPECT_TRUE(Contains(program.LastBox(), "chl002.htm")) << program.LastBox();
    EXPECT_EQ(program.run().ProcNum + CfgValue(program.run(), kCfgProcNum), "0021");
    EXPECT_FALSE(program.kelp.Ended || program.kelp.frmProgress.Form.Visible);
    EXPECT_TRUE(program.kelp.frmWhatsNext.NextButton.Enabled);
    program.disk.FailBelow = "c:\\kelp\\kelp.cfg";
    program.Click("frmAcquire", "Command6");
    program.Ok(5);
    EXPECT_FALSE(program.kelp.Ended) << "the running values are not saved yet";
    program.disk.FailBelow.clear();
    program.Click("frmAcquire", "Command6");
    program.Ok(5);
    EXPECT_TRUE(program.kelp.Ended);
    EXPECT_EQ(Lines(program.file("0707SLChldb.csv")).size(), 3U) << "no row is written twice";
  }
}

TEST(Chooser, OpensWithTheSettingsAndOnlyAYesCancels) {
  struct Row {
    const char* text;
    bool ticked;
  };
  static constexpr Row kRows[] = {
      {"01", true}, {"1 yes", true}, {"00", false}, {"", false}, {"         01", false}};
  for (const Row& row : kRows) {
    Program program;
    program.Configure(kCfgPrinter, row.text);
    program.Configure(kCfgDatabase, row.text);
    program.OpenStation(1);
    for (const int i : {0, 1}) EXPECT_EQ(program.kelp.frmWhatsNext.Check2[i].Value, row.ticked) << row.text;
    EXPECT_EQ(program.kelp.frmWhatsNext.Top, 4500);
  }
  Choosing program;
  for (const Answer answer : {Answer::No, Answer::Cancel, Answer::Yes}) {
    program.Answers({answer});
    program.Click("frmWhatsNext", "StopButton");
    EXPECT_EQ(program.kelp.frmWhatsNext.Form.Visible, answer != Answer::Yes);
    EXPECT_EQ(program.platform.Boxes.back().message.Title, "DUMPING DATA!!!");
  }
  EXPECT_EQ(program.kelp.Shown.front(), "frmAcquire");
  EXPECT_FALSE(program.Has("chl002.prn"));
  program.Click("frmAcquire", "Command6");
  program.Click("frmWhatsNext", "PrinterSelect");
  EXPECT_EQ(program.platform.PrinterChoices, 1);
}

}  // namespace kelp
