// SPDX-License-Identifier: GPL-3.0-or-later
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

constexpr bool kOk = true;
constexpr bool kDbl = false;

}  // namespace

TEST(Chooser, EveryChoiceLeadsToItsStep) {
  struct Row {
    int option;
    bool ok;
    char answer;  // 'Y', 'N' or 0
    const char *step, *caption;
    const char* item;  // that the instruction and the tooltip ask to load
    int selected;
    const char* selector;  // caption of the step selected
    bool cleared;          // the reading displays
  };
  static constexpr Row kRows[] = {
      {0, kOk, 0, "SAMPLE", "Load Sample", "Sample", 3, "Samples", true},
      {1, kOk, 0, "ADDED", "Load Added Sample", "", 3, "Samples", false},
      {2, kOk, 0, "BLANK", "Load Blank", "Blank", 0, "End Blank", true},
      {3, kOk, 0, "STANDARD", "Load Low Standard", "Standard", 1, "EndStnd", true},
      {4, kOk, 0, "COPROS", "Load Copro 3-1", "Copro 3-1", 2, "EndCopr", true},
      {5, kOk, 0, "STANDBY", "&Start", "", 0, "Begin Blank", true},
      {6, kOk, 0, "BLANK", "What's Next", "", 0, "Begin Blank", false},
      {0, kDbl, 0, "SAMPLE", "Load Sample", "Sample", 3, "Samples", false},
      {1, kDbl, 0, "ADDED", "Load Added Sample", "", 3, "Samples", false},
      {2, kDbl, 'Y', "BLANK", "Load Blank", "Blank", 0, "Begin Blank", false},
      {2, kDbl, 'N', "BLANK", "Load Blank", "Blank", 0, "End Blank", false},
      {3, kDbl, 0, "STANDARD", "Load Low Standard", "Standard", 1, "EndStnd", false},
      {4, kDbl, 'Y', "COPROS", "Load Copro 3-1", "Copro 3-1", 2, "Copros", false},
      {4, kDbl, 'N', "COPROS", "Load Copro 3-1", "Copro 3-1", 2, "EndCopr", false},
      {5, kDbl, 0, "BLANK", "What's Next", "", 0, "Begin Blank", false},
      {6, kDbl, 0, "STANDBY", "&Start", "", 0, "Begin Blank", true}};
  for (const Row& row : kRows) {
    SCOPED_TRACE(std::to_string(row.option) + (row.ok ? " by OK" : " by double-click"));
    Choosing program;
    if (row.answer != 0) program.Answers({row.answer == 'Y' ? Answer::Yes : Answer::No});
    if (row.ok)
      program.Ok(row.option);
    else
      program.DblClick("frmWhatsNext", "Option1", row.option);
    EXPECT_EQ(program.run().StepName, row.step);
    EXPECT_EQ(program.caption(), row.caption);
    if (*row.item != '\0') {
      const std::string load = std::string("Load ") + row.item;
      EXPECT_EQ(program.form().Text4.Text, load + " then press <spacebar> or <click> when stable");
      EXPECT_EQ(program.form().Command1.ToolTipText, load + " then click here when stable");
    }
    EXPECT_TRUE(program.form().Option1[row.selected].Value);
    EXPECT_EQ(program.form().Option1[row.selected].Caption, row.selector);
    EXPECT_EQ(program.form().txtStats[1].Text.empty(), row.cleared);
    const bool ended = row.step == std::string("STANDBY");
    EXPECT_EQ(program.kelp.Ended, ended);
    EXPECT_EQ(program.kelp.frmWhatsNext.Form.Visible, ended);
    const bool saves = row.option == 0 || row.option == 5 || ended;
    EXPECT_EQ(program.Has("chl002.prn"), saves);
    EXPECT_EQ(program.platform.Printed.empty(), !saves);
    EXPECT_EQ(CfgValue(program.run(), kCfgProcNum), saves && (row.ok || row.option != 5) ? "003" : "1");
    EXPECT_EQ(program.run().ProcNum, row.option == 0 ? "003" : "002");
    // Only OK captions the selector for end values after the next station was loaded.
    const std::string selectors = program.form().Option1[0].Caption + program.form().Option1[2].Caption;
    EXPECT_TRUE(row.option != 0 || selectors == (row.ok ? "End BlankEndCopr" : "Begin BlankCopros"));
    EXPECT_EQ(program.kelp.frmWhatsNext.Option1[5].Value, row.option == 5 || (row.option == 2 && row.ok));
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
  }
}

TEST(Chooser, ASaveThatFailsKeepsTheStationAndItsNumber) {
  for (const bool ok : {true, false}) {
    Choosing program;
    for (const char* place : {"q:\\vault\\2007\\0707\\chl\\chl002.htm", "c:\\kelp\\kelp.cfg"}) {
      program.disk.FailBelow = place;
      ok ? program.Ok(0) : static_cast<void>(program.DblClick("frmWhatsNext", "Option1", 6));
      EXPECT_TRUE(Contains(Lower(program.LastBox()), place)) << program.LastBox();
      EXPECT_EQ(program.run().ProcNum, "002");
      EXPECT_FALSE(program.kelp.Ended || program.kelp.frmProgress.Form.Visible);
      program.Click("frmAcquire", "Command6");
    }
    program.disk.FailBelow.clear();
    program.Ok(5);
    EXPECT_TRUE(program.kelp.Ended);
    EXPECT_EQ(Lines(program.file("0707SLChldb.csv")).size(), 3U) << "no row is written twice";
  }
}

TEST(Chooser, OpensWithTheSettingsAndOnlyAYesCancels) {
  for (const char* text : {"01", "1 yes", "00", "         01"}) {
    Program program;
    program.Configure(kCfgPrinter, text);
    program.Configure(kCfgDatabase, text);
    program.OpenStation(1);
    // Ten characters of these lines count, not thirty.
    const bool ticked = Val(std::string(text).substr(0, 10)) == 1;
    for (const int i : {0, 1}) EXPECT_EQ(program.kelp.frmWhatsNext.Check2[i].Value, ticked) << text;
  }
  Choosing program;
  for (const Answer answer : {Answer::No, Answer::Cancel, Answer::Yes}) {
    program.Answers({answer});
    program.Click("frmWhatsNext", "StopButton");
    EXPECT_EQ(program.kelp.frmWhatsNext.Form.Visible, answer != Answer::Yes);
    EXPECT_EQ(program.platform.Boxes.back().message.Title, "DUMPING DATA!!!");
  }
}

}  // namespace kelp
