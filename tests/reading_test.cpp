// From the instrument's text to the average: parser, ring buffer, SD, Mean boxes, warnings, chart.
#include <gtest/gtest.h>

#include <cmath>

#include "acquire/averaging.hpp"
#include "acquire/parser.hpp"
#include "acquire/strip_chart_drawing.hpp"
#include "tests/support/program.hpp"

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
  void Send(const std::string& text) {
    platform.Feed(text);
    Pass(kelp);
  }
};

}  // namespace

TEST(Parser, TheNumberBehindTheFirstEqualsSignIsTheReading) {
  struct Row {
    std::string text;
    float reading;
  };
  const Row rows[] = {{"\r\nA =  1.234 (RAW)", 1.234F},
                      {"A =12345678 (RAW)", 1234567},
                      {"A = -0.5 RAW)", -0.5F},
                      {"7.5 RAW)", 7.5F},
                      {"RAW) A =", 0},
                      {"RAW)=", 0},
                      {"A =    nan (RAW)", 0},
                      {"A =  1e999 (RAW)", 1},
                      {std::string("A =\0  2.5 RAW)", 14), 0},
                      {"x=1 y=2 RAW)", 1}};
  for (const Row& row : rows) EXPECT_FLOAT_EQ(ReadingIn(row.text), row.reading) << row.text;
}

TEST(Parser, TheChartScalesByRangeAndLeavesItsFullScaleAbove30) {
  EXPECT_FLOAT_EQ(ChartValue(1), 1);
  EXPECT_FLOAT_EQ(ChartValue(10), 1);
  EXPECT_FLOAT_EQ(ChartValue(20), 1);
  EXPECT_FLOAT_EQ(ChartValue(20.001F), 20.001F / 30);
  EXPECT_FLOAT_EQ(ChartValue(50), 50.0F / 30);
}

TEST(ReadLoop, ALineSplitOverPollsIsReadOnceAndItsTailIsKept) {
  Reading program;
  program.Send("\r\nA =  1.2");
  EXPECT_EQ(program.form().txtStats[0].Text, "0");
  program.Send("34 (RAW)\r\nA =  2.5");
  EXPECT_EQ(program.form().txtStats[1].Text, "1.234");
  EXPECT_EQ(program.form().Text1.Text, "A =  1.234 (RAW)\r\nA =  2.5");
  program.Send("00 (RAW)");
  EXPECT_EQ(program.form().txtStats[1].Text, "2.500");
  EXPECT_EQ(program.run().ReadCount, 2);
  // A click in the middle of a line starts the loop anew, but the line is still one reading.
  program.Send("\r\nA =  3.");
  program.Click("frmAcquire", "Option1", 0);
  program.Click("frmAcquire", "Command1");
  program.Send("750 (RAW)");
  EXPECT_EQ(program.form().txtStats[1].Text, "3.750");
}

TEST(ReadLoop, HostileTextNeverGrowsTheAccumulatorNorStopsTheReadings) {
  Reading program;
  for (int i = 0; i < 40; ++i) program.Send(std::string(64 * 1024, static_cast<char>(i)));
  EXPECT_LE(program.kelp.loop.Accumulator.size(), 64U * 1024);
  program.Send("RAW)");
  program.Send("\r\nA =  0.500 (RAW)");
  EXPECT_EQ(program.form().txtStats[1].Text, "0.500");
}

TEST(ReadLoop, ASilentOrLostLineIsNamedAndReadingsResume) {
  Reading program;
  program.Read(1, 1);
  for (int i = 0; i < 6; ++i) {
    program.platform.Advance(1000);
    program.Send("garbage without an end\r\n");
  }
  EXPECT_EQ(program.form().StatusBar1.Text, "No reading for 6 s. Check the fluorometer and its cable.");
  program.Send("(RAW)");
  program.platform.LineDown();
  program.platform.Advance(1000);
  Pass(program.kelp);
  EXPECT_TRUE(StartsWith(program.form().StatusBar1.Text, "Serial line lost"))
      << program.form().StatusBar1.Text;
  program.platform.LineUp();
  program.platform.Advance(1000);
  Pass(program.kelp);
  const int count = program.run().ReadCount;
  program.Read(1.5);
  EXPECT_EQ(program.run().ReadCount, count + 1);
  EXPECT_EQ(program.form().StatusBar1.Text, "Readings are coming in.");
}

TEST(Averaging, TheMeanExistsOnceTheBufferIsFull) {
  Reading program;
  for (int i = 1; i <= 9; ++i) program.Read(0.001 * i);
  EXPECT_EQ(program.form().txtReading.Text, "0.000") << "the Read boxes are filled with the buffer only";
  EXPECT_EQ(program.form().txtMean[1].Text, "Mean 1");
  program.Read(0.010);
  EXPECT_EQ(program.form().txtReading.Text, "0.0055");
  EXPECT_EQ(program.form().txtMean[1].Text, "0.0055");
  EXPECT_EQ(program.form().txtRead[9].Text, "0.010");
  EXPECT_EQ(program.form().txtStats[2].Text, "0.0030") << "the sample SD";
  program.Read(0.5, 1);
  EXPECT_EQ(program.form().txtRead[0].Text, "0.500") << "boxes show slots, not the newest reads in order";
  program.Read(0.25, 10);
  EXPECT_EQ(program.form().txtRead[0].Text, "0.250");
  // Ten equal readings: no new SD, the last one stays.
  EXPECT_NE(program.form().txtStats[2].Text, "0.0000");
}

TEST(Averaging, The10InTheSdIsAConstantAndALastSlotOf0CountsAsUnfilled) {
  Reading five("5");
  for (const double x : {1.0, 1.0, 1.0, 1.0, 2.0}) five.Read(x);
  const double q = std::abs((10 * 8.0 - 36.0) / 20);
  EXPECT_EQ(five.form().txtStats[2].Text, SdText(std::sqrt(q)));
  Reading ten;
  ten.Read(0.005, 9);
  ten.Read(0);
  EXPECT_EQ(ten.run().CurReading, 0);
  EXPECT_EQ(ten.form().txtMean[1].Text, "Mean 1");
}

TEST(Averaging, MeanBoxesScrollAfterThe20th) {
  Reading program("5");
  for (int k = 1; k <= 21; ++k) program.Read(0.01 * k, 5);
  EXPECT_EQ(program.form().txtMean[1].Text, "0.0200");
  EXPECT_EQ(program.form().txtMean[20].Text, "0.2100");
  program.Read(0.5, 4);
  EXPECT_EQ(program.form().txtMean[20].Text, "0.2100") << "only whole multiples of N fill a box";
}

TEST(Averaging, NBeyond181IsAnOverflowAnd0ASubscriptError) {
  Reading large("182");
  large.Read(0.5, 181);
  large.Answers({Answer::Ok});
  large.Read(0.5);
  EXPECT_EQ(large.platform.Boxes.back().message.Title, "Overflow");
  EXPECT_EQ(large.form().txtStats[1].Text, "0.500") << "the reading itself is shown";
  Reading none("0");
  none.Answers({Answer::Ok});
  none.Read(0.5);
  EXPECT_EQ(none.platform.Boxes.back().message.Title, "Subscript out of range");
}

TEST(Averaging, OffscaleIsAskedFromThe11thReadOnUntilOk) {
  Reading program;
  program.Read(48, 10);
  EXPECT_NE(program.LastBox(), "Reading is offscale!  Dilute the sample 50% then press OK");
  program.Answers({Answer::Ok});
  program.Read(48);
  EXPECT_EQ(program.LastBox(), "Reading is offscale!  Dilute the sample 50% then press OK");
  EXPECT_EQ(program.run().ReadCount, 11);
  program.run().LabCalRun = true;
  program.Read(48);
  program.run().LabCalRun = false;
  program.Configure(kCfgUpperLimit, "40");  // not above 40: no limit at all
  program.Click("frmAcquire", "Option1", 0);
  program.Click("frmAcquire", "Command1");
  program.Read(48, 12);
  EXPECT_EQ(program.platform.AnswersWaiting(), 0U);
}

TEST(StripChart, The101stValueClosesTheRingAndBarsRunFromOldToNew) {
  StripChart chart;
  for (int i = 1; i <= 101; ++i) chart.AddPoint(static_cast<float>(i));
  EXPECT_EQ(chart.WriteIndex(), 0);
  EXPECT_EQ(chart.Value(0), 1);
  chart.AddPoint(-0.5F);
  const auto bars = ChartBars(chart);
  ASSERT_EQ(bars.size(), 101U);
  EXPECT_EQ(bars[0].Y2, 2);
  EXPECT_EQ(bars[100].Y2, -0.5);
  EXPECT_DOUBLE_EQ(bars[100].X1, 1);
}

}  // namespace kelp
