// SPDX-License-Identifier: GPL-3.0-or-later
// Slips that begin in the configuration or end in a file. The others are scripts in tests/scripts/slips.
#include <gtest/gtest.h>

#include <tuple>

#include "tests/support/finished_station.hpp"

namespace kelp {

namespace {

struct Configured : StationFiles {
  explicit Configured(std::initializer_list<std::pair<int, const char*>> lines, int samples = 2) {
    for (const auto& [line, value] : lines) Configure(line, value);
    OpenStation(samples);
    Click("frmAcquire", "Check1");
    Click("frmAcquire", "Command1");
  }
  bool Says(const std::string& text) { return Contains(form().StatusBar1.Text, text); }
  // Loads what the button asks for, and reads it.
  void Measure(double value, int count = 10) {
    Click("frmAcquire", "Command1");
    Read(value, count);
  }
};

}  // namespace

TEST(Slips, N04_LinesThatAllowNoAverageAreToldOnceAndSaveNothing) {
  for (const auto& [n, error] :
       {std::pair{"182", "Overflow"}, {"1", "Division by zero"}, {"0", "Subscript out of range"}}) {
    Configured program({{kCfgReadsToAverage, n}});
    EXPECT_TRUE(program.Says("Line 13 of kelp.cfg")) << program.form().StatusBar1.Text;
    program.Answers({Answer::Ok});
    for (int i = 0; i < 200; ++i) program.Measure(i % 2 == 0 ? 2 : 3, i == 0 ? 190 : 0);
    EXPECT_EQ(program.platform.Boxes.back().message.Title, error);
    EXPECT_TRUE(Contains(program.LastBox(), "line 13")) << program.LastBox();
    const auto boxes = program.platform.Boxes.size();
    program.Read(2, 10);
    EXPECT_EQ(program.platform.Boxes.size(), boxes) << "told once a step";
    program.Click("frmAcquire", "Command1");
    EXPECT_EQ(program.form().txtBlank[0].Text, "0") << n << ": neither by Autoread nor by hand";
  }
}

TEST(Slips, N04_WithoutAMinimumEachItemStillHasItsOwnClickAndAFullBuffer) {
  for (const char* least : {"0", ""}) {
    Configured program({{kCfgMinReads, least}});
    EXPECT_TRUE(program.Says("Line 12 of kelp.cfg"));
    program.Measure(0.005, 60);
    EXPECT_EQ(program.caption(), "Load Copro 3-1");
    EXPECT_EQ(program.form().txtBlank[kBoxCopro1].Text, "0");
    program.Measure(1.53, 9);
    EXPECT_EQ(program.form().txtBlank[kBoxCopro1].Text, "0");
  }
}

TEST(Slips, N09_CoprosAreToldApartWhateverTheirNames) {
  for (const auto& [low, high] : {std::pair{"12-5", "2-5"},
                                  {"2-5", "12-5"},
                                  {"3-1", "3-1"},
                                  {"", "2-5"},
                                  {"3-1", ""},
                                  {"", ""},
                                  {"3-1", "1"},
                                  {"Rb", "Ra"}}) {
    Configured program(
        {{kCfgCoproLow, low}, {kCfgCoproHigh, high}, {kCfgCoproLowAve, "0"}, {kCfgCoproHighAve, "0"}});
    program.Measure(0.005);
    for (int i = 0; i < 2; ++i) program.Measure(1.5 + i);
    EXPECT_EQ(program.form().txtBlank[kBoxCopro1].Text + " " + program.form().txtBlank[kBoxCopro2].Text,
              "1.5000 2.5000")
        << low << "/" << high;
    EXPECT_EQ(program.caption(), "Load 1st Sample");
    program.Click("frmAcquire", "Option1", kStepCopros);
    program.Click("frmAcquire", "Command5");
    program.Click("frmAcquire", "Command4");
    EXPECT_EQ(program.caption(), std::string("Load Copro ") + low);
    const bool named = low != std::string_view(high) && *low != '\0' && *high != '\0' && low[0] != 'R';
    EXPECT_EQ(ConfigTroubles(program.run()).empty(), named) << low << "/" << high;
  }
}

TEST(Slips, N15_MissingIsNotZeroInReportAndDatabase) {
  FinishedStation program(2);
  program.cell(1, kColRb) = program.cell(2, kColRa) = "";
  for (int box = 0; box < kBoxAutoCriterion; ++box) program.form().txtBlank[box].Text = "0";
  program.run().BeginBlankText = program.run().EndBlankText = "";
  program.form().txtStaInfo[kStaFiltTime].Text = "25:00 PM";
  program.Configure(kCfgBlankToSave, "AVE");
  program.form().txtStaInfo[kStaAveBlank].Text.clear();
  program.Save();
  const std::string report = program.file("chl002.prn");
  EXPECT_TRUE(Contains(report, "begin/end: -99.00/-99.00"));
  EXPECT_TRUE(Contains(report, "Copro 2-5: -99.00/-99.00"));
  EXPECT_TRUE(Contains(report, " -99.000  1.5000")) << report;
  EXPECT_TRUE(Contains(report, "  4.0000 -99.000")) << report;
  const auto rows = Lines(program.file("0707SLChldb.csv"));
  EXPECT_TRUE(Contains(rows[1], ",-99.00,-99.000,1.5000,")) << rows[1];
  EXPECT_TRUE(Contains(rows[1], ",-99.00,-99.00,"));
  EXPECT_TRUE(Contains(rows[1], ",25:00,")) << "what is no time has no letters in the database";
}

TEST(Slips, N24_WordsThatAreTrueAndNameTheirLine) {
  for (const auto& [line, value] :
       {std::pair{kCfgReadInterval, "99999"}, {kCfgMinReads, "40000"}, {kCfgReadsToAverage, "-50000"}}) {
    Program program;
    program.Configure(line, value);
    Start(program.kelp);
    program.Answers({Answer::Ok});
    program.Click("frmMain", "Command1", 0);
    EXPECT_EQ(program.LastBox(), " CommPort 1 is not talking, fix then restart.");
    EXPECT_TRUE(Contains(program.platform.Boxes.back().message.Title, "line " + std::to_string(line)));
  }
  Configured port({{kCfgComport, "COM3"}});
  EXPECT_TRUE(port.Says("Line 09 of kelp.cfg (Comport) is \"COM3\""));
  Configured copro({});
  copro.Answers({Answer::No});
  for (const double value : {0.005, 9.0}) copro.Measure(value);
  EXPECT_EQ(copro.platform.Boxes.back().message.Title, "Current value <= to beginning blank!");
  // A login that fails has no stored values to speak of; a row that was calculated is a change.
  StationFiles failed;
  failed.file("chl002") = "too short\r\n";
  failed.LogIn({Answer::Ok});
  EXPECT_TRUE(Contains(failed.LastBox(), "No station is open.")) << failed.LastBox();
  FinishedStation program(2);
  program.cell(2, kColRa) = "0.0050";
  program.Answers({Answer::Yes, Answer::Ok});
  program.Key("frmAcquire", kKeyF1 + 5);
  EXPECT_TRUE(Contains(program.LastBox(), "What was stored before that is kept")) << program.LastBox();
}

TEST(Slips, N26_AValueLongerThanItsLineIsCutToItsField) {
  FinishedStation program(2);
  program.form().txtStaInfo[kStaLineSta].Text = std::string(60, 'x');
  program.form().Combo1.Text = "ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNO";
  program.run().TubeNum = 12345;
  program.Save();
  const auto& lines = program.run().CfgLines;
  EXPECT_EQ(lines[kCfgStation].substr(0, 35), std::string(30, 'x') + "     ");
  EXPECT_TRUE(Contains(lines[kCfgStation], "22 - Sta"));
  EXPECT_EQ(lines[kCfgAnalyst].substr(0, 6), "ABC   ");
  EXPECT_EQ(lines[kCfgTube].substr(0, 6), "123   ");
}

TEST(Slips, N07_ARunThatIsResetLeavesNothingToTheNext) {
  FinishedStation program(2);
  program.run().LowStdText = "0.5";
  program.run().RbReading = 3;
  program.run().RaAccepted = program.run().LabCalRun = true;
  program.run().TraceColor = kTraceBlue;
  program.Answers({Answer::Yes});
  program.Key("frmAcquire", kKeyF1 + 9);
  const StationRun fresh;
  EXPECT_EQ(program.run().RunDate + program.run().LowStdText, "");
  EXPECT_EQ(program.run().RbReading, fresh.RbReading);
  EXPECT_EQ(program.run().TraceColor, fresh.TraceColor);
  EXPECT_FALSE(program.run().RaAccepted || program.run().LabCalRun);
  EXPECT_EQ(program.run().SampCount, 0);
}

}  // namespace kelp
