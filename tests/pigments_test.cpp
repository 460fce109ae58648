// SPDX-License-Identifier: GPL-3.0-or-later
// Chlorophyll-a, phaeopigment, acid ratio and flag; the row that is calculated; the results file.
#include <gtest/gtest.h>

#include <tuple>

#include "calc/calc_samples.hpp"
#include "calc/pigments.hpp"
#include "stage/program.hpp"

namespace kelp {

namespace {

// A station of two samples with F, tau and readings filled in; Rb 100, Ra 50, no blank.
struct Calculation : Program {
  Calculation() {
    OpenStation(2);
    form().txtStaInfo[kStaF].Text = "0.109";
    form().txtStaInfo[kStaTau].Text = "2.288";
    for (int row = 1; row <= 2; ++row) {
      cell(row, kColRb) = "100";
      cell(row, kColRa) = "50";
    }
  }
};

}  // namespace

TEST(Pigments, TheWorkedExampleAndTheDefaultVolumes) {
  const Pigments full = CalcPigments({.F = 0.109, .Tau = 2.288, .Rb = 100, .Ra = 50, .FilV = 138, .ExV = 8});
  EXPECT_EQ(ResultText(full.Chla), "561.239");
  EXPECT_EQ(ResultText(full.Phaeo), "161.637");
  EXPECT_EQ(RatioText(full.AcidR), "2.00");
  EXPECT_EQ(CalcPigments({.F = 0.109, .Tau = 2.288, .Rb = 100, .Ra = 50}).Chla, full.Chla);
  EXPECT_THROW(CalcPigments({.F = 1, .Tau = 1, .Rb = 2, .Ra = 1}), RunTimeError);
  EXPECT_THROW(CalcPigments({.F = 1, .Tau = 2, .Rb = 2, .Ra = 0}), RunTimeError);
}

TEST(Pigments, FlagsByDepthBandAndRatio) {
  static constexpr std::tuple<int, double, const char*> kRows[] = {
      {121, 1.91, "****"}, {121, 1.9, "***"},  {121, 1.6, ""},    {121, 0.99, "*"},   {121, 0.69, "****"},
      {120, 1.9, ""},      {120, 2.03, "***"}, {120, 1.78, ""},   {120, 1.05, "*"},   {120, 2.06, "****"},
      {81, 1.5, ""},       {81, 0.95, "**"},   {81, 0.85, "***"}, {81, 0.79, "****"}, {81, 2.0, ""},
      {80, 1.9, "*"},      {80, 2.16, "****"}, {41, 1.44, "*"},   {41, 1.85, ""},     {41, 1.14, "****"},
      {40, 2.05, "*"},     {40, 2.31, "****"}, {1, 1.59, "*"},    {1, 1.45, "**"},    {1, 1.3, "***"},
      {1, -99, "****"},    {0, -99, ""},       {-5, 9, ""}};
  for (const auto& [depth, ratio, flag] : kRows)
    EXPECT_EQ(QcFlag(depth, ratio), flag) << depth << " m, " << ratio;
}

TEST(CalcCurrentSample, TheRowFollowsTheButtonAndNegativesAreNotGuarded) {
  Calculation program;
  program.run().SampNum = 2;
  program.caption() = "Load Next Sample";
  program.cell(1, kColDepth) = "40.5";
  program.cell(1, kColExV) = "";
  program.cell(1, kColFilV) = "0";
  CalcCurrentSample(program.kelp);
  EXPECT_EQ(program.cell(1, kColChla), "561.239");
  EXPECT_EQ(program.cell(1, kColQc), "") << "40.5 m rounds to 40";
  EXPECT_EQ(program.cell(1, kColFilV), "0") << "defaults are not written into the grid";
  EXPECT_EQ(program.cell(2, kColChla), "");
  program.caption() = "What's Next";
  program.cell(2, kColRa) = "-50";
  CalcCurrentSample(program.kelp);
  EXPECT_EQ(program.cell(2, kColAcidR), "-2.00");
  EXPECT_EQ(program.disk.Files["d:\\backup\\chl002.prn"],
            "     TUBE NISK DEPTH  FILV EXTV    Rb      Ra     CHLA    PHAEO     AR   QC\r\n"
            "    ==========================================================================\r\n"
            "   2    07  40.5     0          100      50 561.239161.637   2.00     \r\n"
            "   3    08     3   138    8     100     -501683.716-2406.591  -2.00 ****\r\n");
  // A pointer before the first row: the selected row is taken, and the pointer is set by it.
  program.run().SampNum = 1;
  program.caption() = "Load Next Sample";
  program.form().datalog.Row = 1;
  CalcCurrentSample(program.kelp);
  EXPECT_EQ(program.run().SampNum, 2);
}

TEST(CalcAllSamples, GuardsNegativesFallsBackOnABlankAndNamesRowsThatFail) {
  Calculation program;
  program.run().SampTbl(2, 0) = "0.0";
  program.form().txtStaInfo[kStaAveBlank].Text = "60";
  program.cell(2, kColRb) = "160";
  program.cell(2, kColRa) = "60";
  program.Answers({Answer::Yes, Answer::Ok});
  program.Key("frmAcquire", kKeyF1 + 5);  // in the step "BLANK" all samples are calculated
  EXPECT_EQ(program.run().BeginBlankText, "60");
  EXPECT_EQ(program.cell(1, kColChla) + program.cell(1, kColPhaeo) + program.cell(1, kColAcidR),
            "-99.000-99.000-99.00");
  EXPECT_EQ(program.cell(1, kColQc), "****");
  EXPECT_EQ(program.cell(2, kColChla), "") << "Ra less blank is 0";
  EXPECT_NE(program.LastBox().find("row 2: Ra less blank is 0"), std::string::npos) << program.LastBox();
  EXPECT_TRUE(program.kelp.frmWhatsNext.Form.Visible);
  EXPECT_EQ(program.run().SampNum, 2);
}

}  // namespace kelp
