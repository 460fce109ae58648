// SPDX-License-Identifier: GPL-3.0-or-later
// From the instrument's text to the average: parser, ring buffer, SD, Mean boxes, warnings, chart.
#include <gtest/gtest.h>

#include <cmath>

#include "acquire/averaging.hpp"
#include "acquire/parser.hpp"
#include "acquire/strip_chart_drawing.hpp"
#include "stage/program.hpp"

namespace kelp {

namespace {

// A program that reads a blank, with N reads to average and as many as the minimum.
struct Reading : Program {
  explicit Reading(const std::string& readsToAverage = "10") {
    Configure(kCfgReadsToAverage, readsToAverage);
    OpenStation(3);
    Click("frmAcquire", "Command1");
    Click("frmAcquire", "Command1");
  }
  std::string& Raw() { return form().txtStats[1].Text; }
  std::string& Sd() { return form().txtStats[2].Text; }
  std::string& Mean(int box) { return form().txtMean[box].Text; }
};

}  // namespace

TEST(Reading, TheNumberBehindTheFirstEqualsSignIsItAndTheChartScalesIt) {
  EXPECT_FLOAT_EQ(ReadingIn("A =12345678 (RAW)"), 1234567) << "seven characters";
  EXPECT_FLOAT_EQ(ReadingIn("A = -0.5 RAW)"), -0.5F);
  EXPECT_FLOAT_EQ(ReadingIn("A =   1e39 (RAW)"), 0) << "no number of single precision";
  EXPECT_FLOAT_EQ(ReadingIn("x=1 y=2 RAW)"), 1);
  EXPECT_FLOAT_EQ(ChartValue(10), 1);
  EXPECT_FLOAT_EQ(ChartValue(20), 1);
  EXPECT_FLOAT_EQ(ChartValue(20.001F), 20.001F / 30);
  EXPECT_FLOAT_EQ(ChartValue(50), 50.0F / 30) << "above the full scale";
  Reading noise;
  noise.platform.Feed(std::string(200'000, 'x'));
  Pass(noise.kelp);
  EXPECT_EQ(noise.kelp.loop.Accumulator.size(), 64U * 1024);
}

TEST(Averaging, TheMeanExistsOnceTheBufferIsFull) {
  Reading program;
  for (int i = 1; i <= 9; ++i) program.Read(0.001 * i);
  EXPECT_EQ(program.form().txtReading.Text + program.Mean(1), "0.000Mean 1") << "boxes are not filled yet";
  program.Read(0.010);
  EXPECT_EQ(program.form().txtReading.Text + " " + program.Mean(1), "0.0055 0.0055");
  EXPECT_EQ(program.Sd(), "0.0030") << "the sample SD";
  program.Read(0.5);
  EXPECT_EQ(program.form().txtRead[0].Text, "0.500") << "boxes show slots, not the newest reads in order";
  program.Read(0.25, 10);
  EXPECT_NE(program.Sd(), "0.0000") << "ten equal readings: no new SD, the last one stays";
}

TEST(Averaging, The10InTheSdIsAConstantAndALastSlotOf0CountsAsUnfilled) {
  Reading five("5");
  for (const double x : {1.0, 1.0, 1.0, 1.0, 2.0}) five.Read(x);
  EXPECT_EQ(five.Sd(), SdText(std::sqrt(std::abs((10 * 8.0 - 36.0) / 20))));
  Reading ten;
  ten.Read(0.005, 9);
  ten.Read(0);
  EXPECT_EQ(ten.run().CurReading, 0);
  EXPECT_EQ(ten.Mean(1), "Mean 1");
}

TEST(Averaging, MeanBoxesScrollAfterThe20th) {
  Reading program("5");
  for (int k = 1; k <= 21; ++k) program.Read(0.01 * k, 5);
  program.Read(0.5, 4);
  EXPECT_EQ(program.Mean(1) + " " + program.Mean(20), "0.0200 0.2100") << "only whole multiples of N count";
}

TEST(Averaging, NBeyond181IsAnOverflowAnd0ASubscriptError) {
  for (const auto& [n, error] : {std::pair{"182", "Overflow"}, {"0", "Subscript out of range"}}) {
    Reading program(n);
    program.Read(0.5, std::max(0, std::atoi(n) - 1));
    program.Answers({Answer::Ok});
    program.Read(0.5);
    EXPECT_EQ(program.platform.Boxes.back().message.Title, error);
    EXPECT_EQ(program.Raw(), "0.500") << "the reading itself is shown";
  }
}

TEST(Averaging, ACalibrationOrALimitOf40GivesNoWarningOfOffscale) {
  Reading program;
  program.Read(48, 10);
  program.run().LabCalRun = true;
  program.Read(48);
  program.run().LabCalRun = false;
  program.Configure(kCfgUpperLimit, "40");  // not above 40: no limit at all
  program.Click("frmAcquire", "Option1", 0);
  program.Click("frmAcquire", "Command1");
  program.Read(48, 12);
  EXPECT_FALSE(StartsWith(program.LastBox(), "Reading is offscale!"));
}

TEST(StripChart, The101stValueClosesTheRingAndBarsRunFromOldToNew) {
  StripChart chart;
  for (int i = 1; i <= 101; ++i) chart.AddPoint(static_cast<float>(i));
  EXPECT_EQ(chart.WriteIndex(), 0);
  chart.AddPoint(-0.5F);
  const auto bars = ChartBars(chart);
  ASSERT_EQ(bars.size(), 101U);
  EXPECT_EQ(bars[0].Y2, 2);
  EXPECT_EQ(bars[100].Y2, -0.5);
  EXPECT_DOUBLE_EQ(bars[100].X1, 1);
}

}  // namespace kelp
