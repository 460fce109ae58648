// SPDX-License-Identifier: GPL-3.0-or-later
// What the screen says large: step, save state, age, alarms, sounds; and the colours that it says it in.
#include <gtest/gtest.h>

#include <set>

#include "acquire/stability.hpp"
#include "acquire/strip_chart_drawing.hpp"
#include "app/alarms.hpp"
#include "app/cues.hpp"
#include "app/glance.hpp"
#include "app/scheme.hpp"
#include "core/screens/editor.hpp"
#include "stage/program.hpp"

namespace kelp {
namespace {

struct Glancing : testing::Test {
  Program desk;
  CueListener cues{desk.kelp};
  AcidClock acid;
  std::string clock;
  std::string heard;

  void Press() { desk.Key("frmAcquire", kKeySpace); }
  // "Step | Last | Words | Beside" after everything that the front end would ask for.
  std::string Seen() {
    const Glance glance = GlanceAt(desk.kelp);
    clock = acid.Listen(desk.kelp);
    if (const auto cue = cues.Listen(false, glance.State))
      heard += std::string(heard.empty() ? "" : ", ") + NameOf(*cue);
    return glance.Step + " | " + glance.Last + " | " + glance.StateWords + " | " + glance.Beside;
  }
};

TEST_F(Glancing, TellsAStationFromTwoMetresAway) {
  desk.OpenStation(2);
  EXPECT_EQ(Seen(), "Start |  | START | ");
  Press();
  EXPECT_EQ(Seen(), "Begin Blank |  | LOAD | ");
  Press();
  desk.Read(0.0051, 9);
  EXPECT_EQ(Seen(), "Begin Blank |  | WAIT 9/10 | no average yet");
  EXPECT_TRUE(GlanceAt(desk.kelp).Faint);
  desk.Read(0.0052);
  EXPECT_EQ(Seen(), "Begin Blank |  | CAN BE SAVED | ");
  EXPECT_FALSE(GlanceAt(desk.kelp).Faint);
  Press();
  EXPECT_EQ(Seen(), "Copro 3-1 | Begin Blank: 0.0051 | SAVED - LOAD NEXT | no average yet")
      << "the blank's number is no value of the copro";
  for (int i = 0; i < 2; ++i) {
    desk.Click("frmAcquire", "Command5");
    Seen();
  }
  EXPECT_EQ(desk.caption(), "Load Station Sample");
  Press();
  desk.Read(2.1, 5);
  desk.Read(2.2, 5);
  EXPECT_EQ(Seen(), "Vial 2 - bottle 07 - Rb | Copro 2-5: skipped | NOT STEADY | ");
  desk.Read(2.2, 10);
  Press();
  desk.platform.Advance(61000);
  Seen();
  desk.platform.Advance(5000);
  EXPECT_EQ(Seen().substr(0, 24), "Vial 2 - bottle 07 - Ra ");
  EXPECT_EQ(clock, "0:05") << "counted from where it was first seen";
  desk.Click("frmAcquire", "Check1");
  desk.Read(1.1, 6);
  EXPECT_EQ(desk.caption(), "Reading Ra");
  EXPECT_EQ(GlanceAt(desk.kelp).NeedWords, "of 15") << "an Ra takes five reads more with Autoread";
  desk.Click("frmAcquire", "Check1");
  EXPECT_EQ(GlanceAt(desk.kelp).NeedWords, "of 10, Autoread 15");
  desk.Read(1.1, 12);
  Press();
  const std::string result = desk.cell(1, kColChla);
  EXPECT_EQ(Seen().substr(0, 26 + result.size()),
            "Vial 3 - bottle 08 - Rb | 07: " + result.substr(0, result.size() - 4));
  EXPECT_EQ(clock, "");
  desk.Click("frmAcquire", "Command5");
  EXPECT_EQ(GlanceAt(desk.kelp).StateWords, "WHAT'S NEXT") << "a skipped sample is not saved";
  EXPECT_EQ(heard,
            "A value can be saved, A value was saved, A value was saved, A value was saved, Acid is due, A "
            "value was saved");
}

TEST_F(Glancing, WarnsOfSamplesWithoutReading) {
  desk.OpenStation(9);
  struct Row {
    std::vector<std::pair<int, const char*>> filled;  ///< row, and the columns that hold something
    const char* told;
  };
  const Row rows[] = {
      {{}, "Samples 1 to 9 have no reading"},
      {{{1, "ba"}, {2, "ba"}, {7, "ba"}, {9, "ba"}}, "Samples 3 to 6 and 8 have no reading"},
      {{{3, "ba"}, {4, "b"}, {5, "ba"}, {6, "ba"}, {8, "ba"}}, "Sample 4 has no Ra"},
      {{{4, "a"}}, ""},
  };
  for (const Row& row : rows) {
    for (const auto& [at, columns] : row.filled)
      for (const char c : std::string(columns)) desk.cell(at, c == 'b' ? kColRb : kColRa) = "1.0000";
    EXPECT_EQ(UnreadSamples(desk.kelp), row.told);
  }
}

TEST_F(Glancing, AlarmsAreToldWorstFirstAndCallUntilTheyAreSeen) {
  AlarmCall call;
  const auto told = [&] {
    std::string all;
    for (const Alarm& alarm : AlarmsOf(desk.kelp)) all += alarm.Text.substr(0, alarm.Text.find(':')) + ";";
    return all;
  };
  const auto calls = [&] { return call.Listen(AlarmsOf(desk.kelp)); };
  desk.OpenStation(1);
  Press();
  Press();
  desk.Read(1.0, 12);
  EXPECT_EQ(told(), "");
  desk.platform.Advance(12000);
  Pass(desk.kelp);
  EXPECT_EQ(told(), "NO READINGS;");
  EXPECT_EQ(GlanceAt(desk.kelp).Beside, "12 s old");
  EXPECT_TRUE(GlanceAt(desk.kelp).Faint);
  EXPECT_TRUE(calls());
  call.Seen();
  EXPECT_FALSE(calls());
  desk.platform.LineDown();
  Pass(desk.kelp);
  EXPECT_EQ(told(), "SERIAL LINE LOST;");
  EXPECT_TRUE(calls()) << "another kind calls anew";
  SetWarning(desk.kelp, "READINGS ARE NOT SAFE ON THE DISK. ");
  desk.kelp.LogTrouble = "q is full";
  EXPECT_EQ(told(),
            "READINGS ARE NOT SAFE ON THE DISK. Free space on the disk or plug it in.;SERIAL LINE LOST;READ "
            "LOG NOT WRITTEN;");
  desk.Click("frmAcquire", "Command2");
  EXPECT_EQ(told().find("SERIAL"), std::string::npos) << "the line is not watched while paused";
  desk.Click("frmAcquire", "Command2");
  SetWarning(desk.kelp, "");
  desk.kelp.LogTrouble.clear();
  desk.platform.LineUp();
  desk.platform.Advance(2000);
  Pass(desk.kelp);
  desk.Read(46.9);
  EXPECT_EQ(told(), "");
  EXPECT_FALSE(calls());
  desk.Answers({Answer::Ok});
  desk.Read(47.1);
  EXPECT_EQ(told(), "OFF SCALE;") << "from the first one on";
  EXPECT_TRUE(calls());
  call.Seen();
  desk.Read(46.9);
  EXPECT_FALSE(calls());
  desk.Answers({Answer::Ok});
  desk.Read(47.1);
  EXPECT_TRUE(calls()) << "mended, and there again";
  desk.kelp.run.LabCalRun = true;
  EXPECT_EQ(told(), "") << "a calibration may go beyond the limit";
}

TEST_F(Glancing, TheTraceOfTheLastReadsFillsItsHeightButNotWithNoise) {
  desk.OpenStation(1);
  Press();
  Press();
  for (int i = 1; i <= 7; ++i) desk.Read(1 + 0.01 * i);
  StabilityTrace trace = StabilityOf(desk.kelp);
  EXPECT_EQ(trace.Reads.size(), 7U);
  EXPECT_FALSE(trace.Full);
  for (int i = 8; i <= 13; ++i) desk.Read(1 + 0.01 * i);
  trace = StabilityOf(desk.kelp);
  ASSERT_EQ(trace.Reads.size(), 10U);
  EXPECT_FLOAT_EQ(trace.Reads.front(), 1.04F) << "oldest first";
  EXPECT_FLOAT_EQ(trace.Reads.back(), 1.13F);
  EXPECT_NEAR(trace.High - trace.Low, 0.09 * 1.16, 0.001);
  desk.Read(2.0, 9);
  desk.Read(2.0001);
  trace = StabilityOf(desk.kelp);
  EXPECT_NEAR(trace.High - trace.Low, 0.006 * 1.16, 0.0005) << "six times the criterion";

  std::string scales;
  for (const double value : {0.9, 9.0, 15.0, 25.0, 8.0}) desk.Read(value);
  for (const ChartScale& scale : ChartScales(desk.kelp.run.Chart)) scales += ScaleText(scale.Divisor) + " ";
  EXPECT_EQ(scales, "/10 x1 /10 /20 /30 /10 ");
}

TEST(Sounds, AreToldApartWithoutKnowingThePitch) {
  std::set<std::string> shapes;
  for (const Cue cue : kCues) {
    const std::vector<Tone> tones = TonesOf(cue);
    std::string shape = std::to_string(tones.size());
    for (std::size_t i = 1; i < tones.size(); ++i)
      shape += tones[i].Hertz == tones[i - 1].Hertz ? "=" : tones[i].Hertz > tones[i - 1].Hertz ? "+" : "-";
    EXPECT_TRUE(shapes.insert(shape).second) << NameOf(cue) << " " << shape;
  }
}

TEST(Colours, StandOutInBothSchemes) {
  for (const bool dark : {false, true})
    for (const Pairing& pair : Pairings(dark))
      EXPECT_GE(Contrast(pair.Ink, pair.Ground), pair.Least) << (dark ? "dark: " : "light: ") << pair.Name;
  EXPECT_NEAR(Contrast(0x00FF00, 0xFFFFFF), 1.37, 0.005);
  EXPECT_NEAR(Contrast(0x000000, 0xFFFFFF), 21, 0.001);
  EXPECT_GT(Contrast(CellGround(0xFFFFFF, true), 0), Contrast(CellGround(kGreyCell, true), 0))
      << "the reading columns are lighter";
}

// Keys and typing that the screen brings with it.
TEST_F(Glancing, GridAutoreadAndDialogsAreAStrokeAway) {
  desk.OpenStation(3);
  desk.Key("frmAcquire", kKeyF12);
  EXPECT_TRUE(desk.form().Check1.Value);
  Press();
  desk.Key("frmAcquire", kKeyF1 + 10);
  EXPECT_EQ(desk.kelp.Focus.Control, "datalog");
  Grid& grid = desk.form().datalog;
  EXPECT_EQ(grid.Row * 100 + grid.Col, 103) << "at the current sample's readings";
  EXPECT_EQ(desk.caption(), "Load Blank");
  Press();
  EXPECT_EQ(desk.caption(), "Read Blank") << "a space in a cell with a number is the button's";
  EXPECT_EQ(desk.cell(1, kColRb), "");
  desk.Key("frmAcquire", kKeyF1 + 10);
  grid.Row = 1;
  grid.Col = kColReadCom;
  Press();
  EXPECT_EQ(desk.cell(1, kColReadCom), " ");

  const auto paste = [&](int row, int col, const std::string& text) {
    desk.Do({EventKind::Paste, {"frmAcquire", "datalog"}, text, 0, row, col});
    return desk.kelp.Status;
  };
  EXPECT_EQ(
      paste(2, kColDepth, "5\r\n10\r\n20\r\n"),
      "Pasted into Dpt of samples 2 to 3; the rest of the block lies outside the station and was left out.");
  EXPECT_EQ(desk.cell(2, kColDepth) + desk.cell(3, kColDepth) + desk.cell(4, kColDepth), "510");
  EXPECT_EQ(paste(1, kColFiltCom,
                  "a\tb, \x01"
                  "c\td"),
            "Pasted into FiltCom to ReadCom of sample 1; the rest of the block lies outside the station and "
            "was left out.");
  EXPECT_EQ(desk.cell(1, kColReadCom), "b, c");
  EXPECT_EQ(paste(4, kColDepth, "7"), "This row is no sample of the station.");

  // Enter stores a remark, Esc leaves every dialog as if it had not been opened.
  desk.Key("frmAcquire", kKeyF1 + 8);
  desk.Type("dlgRunRem", "Text1", -1, "cloudy");
  Post(desk.kelp, {.Kind = EventKind::Focus, .Place = {"dlgRunRem", "Text1"}});
  desk.Key("dlgRunRem", kKeyEnter);
  EXPECT_EQ(desk.kelp.Status,
            "ReadCom of sample 1, bottle 07: b, c -> cloudy (remark). Ctrl+Z takes it back.");
  const std::string before = desk.caption();
  for (const char* screen :
       {"dlgRunRem", "frmChangeStep", "frmRecalc", "frmWhatsNext", "frmEditCFG", "frmCreateBase"}) {
    ShowScreen(desk.kelp, *FindWindow(desk.kelp, screen));
    const std::size_t boxes = desk.platform.Boxes.size();
    Post(desk.kelp, {.Kind = EventKind::Escape, .Place = {screen}});
    EXPECT_FALSE(FindWindow(desk.kelp, screen)->Visible) << screen;
    EXPECT_EQ(desk.platform.Boxes.size(), boxes) << screen;
    EXPECT_EQ(desk.kelp.Shown.front(), "frmAcquire") << screen;
  }
  EXPECT_EQ(desk.caption(), before);
  for (const char* screen : {"frmAcquire", "frmMain"}) {
    ShowScreen(desk.kelp, *FindWindow(desk.kelp, screen));
    Post(desk.kelp, {.Kind = EventKind::Escape, .Place = {screen}});
    EXPECT_TRUE(FindWindow(desk.kelp, screen)->Visible) << screen;
  }
}

}  // namespace
}  // namespace kelp
