// SPDX-License-Identifier: GPL-3.0-or-later
// What steers a run: keys, buttons, value transfer, relocation, change step, remarks.
#include <gtest/gtest.h>

#include <set>
#include <tuple>

#include "app/clicks.hpp"
#include "app/handlers.hpp"
#include "stage/program.hpp"
#include "tests/support/captions.hpp"

namespace kelp {

namespace {

constexpr const char* kValue = "7.7777";

struct Steering : Program {
  explicit Steering(const std::string& caption_ = "&Start") {
    OpenStation(4);
    run().SampNum = 3;
    run().BeginBlankText = "0.0050";
    for (int row = 1; row <= 4; ++row) {
      cell(row, kColRb) = "2.0000";
      cell(row, kColRa) = "1.0000";
    }
    caption() = caption_;
  }

  /// Where the value has gone, in the words of the table of captions.
  std::string Place() {
    std::string place;
    for (int box = 0; box < 10; ++box)
      if (form().txtBlank[box].Text == kValue) place += "box " + std::to_string(box);
    for (int row = 0; row < form().datalog.Rows; ++row) {
      if (cell(row, kColRb) == kValue) place += row == 3 ? "Rb" : "Rb?";
      if (cell(row, kColRa) == kValue) place += row == 3 ? "Ra" : row == 2 ? "Ra-1" : "Ra?";
    }
    return place + (disk.Files.contains("d:\\backup\\chl002.prn") ? " +" : "");
  }
};

}  // namespace

TEST(RunControls, EveryCaptionSendsAValueToItsPlaceAndHasItsWayBack) {
  for (const CaptionRow& row : kCaptions) {
    for (const char* screen : {"frmAcquire", "frmWhatsNext", "mean"}) {
      Steering program(row.caption);
      ShowScreen(program.kelp, program.kelp.frmWhatsNext.Form);
      program.form().txtReading.Text = program.form().txtMean[7].Text = kValue;
      const bool mean = screen == std::string("mean");
      mean ? program.Click("frmAcquire", "txtMean", 7) : program.Key(screen, kKeyF1 + 6);
      const char* expected = mean ? row.mean : screen == std::string("frmAcquire") ? row.key : row.chooser;
      EXPECT_EQ(program.Place(), expected) << row.caption << " on " << screen;
    }
    Steering program(row.caption);
    program.run().TraceColor = 0x123456;
    program.run().ReadFlag = true;
    program.Click("frmAcquire", "Command4");
    const bool stays = *row.back == '\0';
    EXPECT_EQ(program.caption(), stays ? row.caption : row.back);
    EXPECT_EQ(program.run().TraceColor, stays ? 0x123456 : row.trace) << row.caption;
    EXPECT_EQ(program.run().ReadFlag, program.caption() != "Reading Station Sample" || stays) << row.caption;
    EXPECT_EQ(program.kelp.Focus.Control, "Command1");
  }
}

TEST(RunControls, EveryButtonHasItsHandlerAndAClickThatNobodyKnowsIsTold) {
  Program program;
  std::set<std::string> names;
  VisitScreens(program.kelp, [&](const std::string& screen, auto& form) {
    names.insert(screen + ".");
    VisitEach(form, [&]<class Control>(std::string_view control, int index, const Control&) {
      const FocusPlace place{screen, std::string(control), index};
      names.insert(screen + "." + place.Control);
      const bool clicked = std::is_same_v<Control, Button> || requires(Control it) { it.Value; };
      EXPECT_TRUE(!clicked || HandlerOf(Doing::Click, place) != nullptr) << screen << "." << control;
    });
  });
  for (const HandlerRow& row : Handlers())
    EXPECT_TRUE(names.contains(std::string(row.Screen) + "." + std::string(row.Control))) << row.Control;
  EXPECT_THROW(ClickControl(program.kelp, {"frmMain", "Command9", 0}), RunTimeError);
  EXPECT_THROW(program.Click("frmMain", "Command1"), std::logic_error) << "there are six";
}

TEST(RunControls, F5TakesTheRawReadingAndTheChoosersF5TheBox) {
  Steering program("Acidify");
  program.run().LastRawText = kValue;
  program.form().txtStats[1].Text = "typed over";
  program.Key("frmAcquire", kKeyF1 + 4);
  EXPECT_EQ(program.Place() + program.form().txtStats[1].Text, std::string("Rb") + kValue);
  ShowScreen(program.kelp, program.kelp.frmWhatsNext.Form);
  program.form().txtStats[1].Text = "1.111";
  program.Key("frmWhatsNext", kKeyF1 + 4);
  EXPECT_EQ(program.cell(3, kColRb), "1.111");
}

TEST(RunControls, SkipMarksWhatIsLeftOutInEveryStep) {
  static constexpr std::tuple<const char*, const char*, const char*, const char*, const char*> kRows[] = {
      {"STANDARD", "Load Low Standard", "2345", "Load Station Sample", "SAMPLE"},
      {"COPROS", "Load Copro 3-1", "67", "Load Copro 2-5", "COPROS"},
      {"COPROS", "Load Copro 2-5", "89", "Load Station Sample", "SAMPLE"},
      {"COPROS", "Reading 2-5", "", "Load Station Sample", "SAMPLE"},
      {"BLANK", "Load Blank", "01", "Load Copro 3-1", "COPROS"},
      {"STANDBY", "What's Next?", "", "What's Next?", "STANDBY"},
  };
  for (const auto& [step, caption, boxes, nextCaption, nextStep] : kRows) {
    Steering program(caption);
    program.run().StepName = step;
    program.Click("frmAcquire", "Command5");
    std::string marked;
    for (int box = 0; box < 10; ++box)
      if (program.form().txtBlank[box].Text == "-99.00") marked += std::to_string(box);
    EXPECT_EQ(marked, boxes) << caption;
    EXPECT_EQ(program.caption(), nextCaption);
    EXPECT_EQ(program.run().StepName, nextStep) << caption;
  }
}

TEST(RunControls, SkippedSamplesAreMarkedAndAnRbThatWasReadStays) {
  Steering program("Load Next Sample");
  program.run().StepName = "SAMPLE";
  program.cell(3, kColRb) = program.cell(3, kColRa) = program.cell(4, kColRa) = "";
  program.Click("frmAcquire", "Command5");
  EXPECT_EQ(program.caption(), "Load Next Sample");
  program.Click("frmAcquire", "Command5");
  EXPECT_EQ(program.disk.Files["d:\\backup\\chl002.tmp"],
            ",2,09,3,138,8,,,-99.000,-99.000,,,,,,*\r\n,2,10,3,138,8,,,2.0000,-99.000,,,,,,*\r\n");
  EXPECT_EQ(program.run().SampNum, 4);
  EXPECT_EQ(program.caption(), "What's Next");
  EXPECT_TRUE(program.kelp.frmWhatsNext.Form.Visible);
}

TEST(RunControls, SpacePromptsTheSelectedStepAndOtherwiseClicksTheFocus) {
  static constexpr std::tuple<int, const char*, const char*, const char*> kRows[] = {
      {0, "BLANK", "Load Blank", "the blank"},
      {1, "STANDARD", "Load Low Standard", "the Standard"},
      {2, "COPROS", "Load Copro 1", "Copro 3-1"},
      {3, "SAMPLE", "Load Sample", "the Sample"}};
  for (const auto& [option, step, caption, item] : kRows) {
    for (const bool click : {false, true}) {
      Steering program;
      program.Click("frmAcquire", "Option1", option);
      program.run().StepName = "STANDBY";
      program.caption() = "S&tandby";
      program.Key("frmAcquire", kKeySpace);
      ASSERT_EQ(program.caption(), "&Start");
      click ? program.Click("frmAcquire", "Command1") : program.Key("frmAcquire", kKeySpace);
      EXPECT_EQ(program.caption(), caption);
      EXPECT_EQ(program.run().StepName, step);
      EXPECT_EQ(program.form().Text4.Text,
                std::string("Load ") + item + " and click [Start] or press <Spacebar>.");
      program.Key("frmAcquire", kKeySpace);
      EXPECT_TRUE(StartsWith(program.caption(), "Read")) << program.caption();
    }
  }
}

TEST(RunControls, KeysAskFirstAndOnlyYesActs) {
  struct Row {
    int key;
    const char *text, *title;
    const char* changed;  ///< the caption after a Yes
  };
  static constexpr Row kRows[] = {
      {2, "Do you want to save the datalog?", "Save Data?", "Load Blank"},
      {3, "Do you want to allow Ra > Rb?", "Override?", "Reading Ra"},
      {4, "Do you want to reset the current process to another? Y/N", "Change step?", "Acidified"},
      {6, "Recalculate all values? Y/N", "Recalculate?", "Acidified"},
      {8, "Restart? Y/N", "Do you want to start over?", "Load Blank"},
      {10, "This will reset the program! Y/N?", "Reset Program?", "&Start"}};
  for (const Row& row : kRows) {
    for (const Answer answer : {Answer::No, Answer::Yes}) {
      Steering program("Acidified");
      program.run().StepName = "SAMPLE";
      program.form().Option1[0].Value = false;
      program.form().Option1[3].Value = true;
      program.run().RbReading = 1;
      program.form().txtReading.Text = "1.5";
      program.Answers({answer});
      program.Key("frmAcquire", kKeyF1 + row.key - 1);
      EXPECT_EQ(program.LastBox(), row.text);
      EXPECT_EQ(program.platform.Boxes.back().message.Title, row.title);
      const bool yes = answer == Answer::Yes;
      EXPECT_EQ(program.caption(), yes ? row.changed : "Acidified") << row.key;
      EXPECT_EQ(program.kelp.frmChangeStep.Form.Visible, yes && row.key == 4);
      EXPECT_EQ(program.cell(2, kColAcidR), yes && row.key == 6 ? "2.01" : "");
      EXPECT_EQ(program.run().RaAccepted, yes && row.key == 3);
      EXPECT_TRUE(row.key != 8 || program.run().StepName == (yes ? "BLANK" : "SAMPLE"));
      EXPECT_EQ(program.kelp.frmLogin.Form.Visible, yes && row.key == 10);
    }
  }
}

TEST(RunControls, ChangeStepKeepsItsNumberingOfTen) {
  static constexpr std::tuple<int, const char*, const char*, std::uint32_t> kRows[] = {
      {0, "&Start", "STANDBY", kTraceMagenta},    {1, "Load Blank", "BLANK", kTraceMagenta},
      {2, "Reading Blank", "BLANK", kTraceGreen}, {3, "Load Copro 3-1", "COPROS", kTraceMagenta},
      {4, "Reading 3-1", "COPROS", kTraceGreen},  {5, "Load Copro 2-5", "COPROS", kTraceMagenta},
      {6, "Reading 2-5", "COPROS", kTraceGreen},  {7, "Load Station Sample", "SAMPLE", kTraceMagenta}};
  for (const auto& [option, caption, step, trace] : kRows) {
    Steering program("Acidify");
    program.Answers({Answer::Yes, Answer::Ok});
    program.Key("frmAcquire", kKeyF1 + 3);
    program.Click("frmChangeStep", "Command1", 0);
    EXPECT_EQ(program.caption(), "Acidify") << "nothing selected, nothing changed";
    ShowScreen(program.kelp, program.kelp.frmChangeStep.Form);
    program.Click("frmChangeStep", "Option1", option);
    program.Click("frmChangeStep", "Command1", 0);
    EXPECT_EQ(program.caption(), caption);
    EXPECT_EQ(program.run().StepName, step);
    EXPECT_EQ(program.run().TraceColor, trace) << option;
  }
}

TEST(RunControls, AHeaderBoxThatIsLeftIsCheckedAndTheRunGoesOn) {
  static constexpr std::tuple<int, const char*, bool> kRows[] = {
      {3, "0.109", true},       {3, "0,109", false}, {4, "1", false},        {5, "0", false},
      {6, "7", true},           {6, "x7", false},    {7, "", false},         {9, "11/24/2026", true},
      {9, "24.11.2026", false}, {10, "2359", false}, {10, "23:59:00", true}, {1, "anything", true}};
  for (const auto& [box, text, good] : kRows) {
    Steering program("Load Next Sample");
    program.run().StepName = "SAMPLE";
    program.Type("frmAcquire", "txtStaInfo", box, text);
    const TextBox& left = program.form().txtStaInfo[box];
    EXPECT_EQ(left.Problem.empty(), good) << box << " " << text;
    EXPECT_EQ(Contains(program.form().StatusBar1.Text, "The value stays as typed"), !good);
    EXPECT_EQ(left.Text, text);
    EXPECT_EQ(program.form().Text4.Text, "Load Sample then press <spacebar> twice.");
    EXPECT_EQ(program.caption(), "Load Next Sample");
  }
  Steering program("Load Next Sample");
  program.Type("frmAcquire", "txtStaInfo", 0, "801");
  EXPECT_EQ(program.caption(), "&Start");
  EXPECT_TRUE(program.run().ProcNumEdited);
}

}  // namespace kelp
