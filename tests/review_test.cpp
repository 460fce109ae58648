// SPDX-License-Identifier: GPL-3.0-or-later
// Checks, control charts and calibration: what is planted is named, and nothing else.
#include <gtest/gtest.h>

#include <random>
#include <set>

#include "platform/error.hpp"
#include "review/calibration.hpp"
#include "review/review.hpp"
#include "simulator/generated_cruise.hpp"
#include "stage/memory_disk.hpp"

namespace kelp {

namespace {

const Limits kLimits{0.010, {"3-1", 1.53, 0.3}, {"2-5", 5.03, 0.5}, 0.00987, 2.011};

Review ReviewOf(const std::vector<GeneratedStation>& stations) {
  MemoryDisk disk;
  for (const GeneratedStation& station : stations)
    disk.Files["q:\\c\\chl" + station.ProcNum] = station.Text();
  return MakeReview(ReadCruise(disk, "q:\\c\\"), kLimits);
}

std::string Found(const Review& review) {
  std::string text;
  for (const Finding& finding : review.Findings)
    text += finding.ProcNum + "|" + finding.Where + "|" + finding.Text + "\n";
  return text;
}

}  // namespace

TEST(Checks, NameTheThreePlantedFaultsOfSixtyStationsAndNothingElse) {
  std::vector<GeneratedStation> stations = GenerateCruise(60);
  EXPECT_EQ(Found(ReviewOf(stations)), "");
  for (std::size_t i = 0; i < stations.size(); ++i) {
    stations[i].Copro1 += 0.003 * static_cast<double>(i);
    stations[i].Copro1End += 0.003 * static_cast<double>(i);
  }
  stations[24].EndBlank = 0.031;
  std::swap(stations[40].Samples[3].Tube, stations[40].Samples[4].Tube);
  const Review review = ReviewOf(stations);
  std::set<std::string> where;
  for (const Finding& finding : review.Findings) where.insert(finding.ProcNum + "|" + finding.Where);
  EXPECT_EQ(where, (std::set<std::string>{"|Copro 3-1", "025|end Blank", "025|Blank",
                                          "041|bottle 04 and bottle 05"}))
      << Found(review);
  ASSERT_EQ(review.Charts.size(), 3U);
  for (const ControlChart& chart : review.Charts) {
    EXPECT_EQ(chart.Drift.empty(), chart.Name != "Copro 3-1") << chart.Drift;
    for (const ChartPoint& point : chart.Points)
      EXPECT_EQ(point.Outside.empty(), chart.Name != "Blank" || point.ProcNum != "025" || !point.End)
          << point.ProcNum;
  }
}

TEST(Checks, SayInWordsWhatDoesNotFit) {
  struct Row {
    void (*plant)(GeneratedStation&);
    const char* where;
    const char* words;
  };
  const Row rows[] = {
      {[](GeneratedStation& s) { s.Copro2End -= 0.3; }, "Copro 2-5", "at the begin to 4.7"},
      {[](GeneratedStation& s) { s.Samples[2].Bottle = "02"; }, "bottle 02", "stands at samples 2 and 3"},
      {[](GeneratedStation& s) { s.Samples[2].Tube = s.Samples[1].Tube; }, "vial",
       "stands at samples 2 and 3"},
      {[](GeneratedStation& s) {
         for (auto& x : s.Samples) x.Depth = "3";
       },
       "depths", "no sample has another than 3"},
      {[](GeneratedStation& s) { s.Samples[5].Depth = "-"; }, "bottle 06", "Depth missing."},
      {[](GeneratedStation& s) { s.Samples[5].Ra = s.Samples[5].Rb + 0.01; }, "bottle 06", "is above Rb"},
      {[](GeneratedStation& s) { s.Samples[5].Ra = s.Samples[5].Rb / 2.2; }, "bottle 06",
       "Phaeo is negative: -0."},
      {[](GeneratedStation& s) { s.Samples[1].Rb *= 5, s.Samples[1].Ra *= 5; }, "bottle 02",
       "does not fit its neighbours"},
      {[](GeneratedStation& s) { s.Samples[5].Ra = -99; }, "bottle 06", "Was skipped (-99) but has a chl-a"},
      {[](GeneratedStation& s) { s.Filtered = "12/24/2026 00:30:00"; }, "times", "stands after the reading"},
      {[](GeneratedStation& s) { s.F = "9.87"; }, "F", "looks like a per-litre value"},
      {[](GeneratedStation& s) { s.F = "0.0102"; }, "F", "most stations of this cruise have 0.00987"},
      {[](GeneratedStation& s) { s.Tau = "1.3"; }, "tau", "outside 1.5 to 2.5"},
      {[](GeneratedStation& s) { s.Copro1 = 1.9; }, "begin Copro 3-1",
       "differs from 1.5300 by more than 0.3"},
  };
  for (const Row& row : rows) {
    std::vector<GeneratedStation> stations = GenerateCruise(12);
    row.plant(stations[7]);
    const Review review = ReviewOf(stations);
    bool named = false;
    for (const Finding& finding : review.Findings) {
      EXPECT_EQ(finding.ProcNum, "008") << finding.Text;
      named =
          named || (finding.Where.find(row.where) == 0 && finding.Text.find(row.words) != std::string::npos);
    }
    EXPECT_TRUE(named) << row.words << " in\n" << Found(review);
  }
}

TEST(Checks, ValuesThatWereNeverReadAreNoPoints) {
  Station unread;
  unread.Blank = {MeasuredBox("0"), MeasuredBox("-99.00")};
  EXPECT_TRUE(ControlCharts({unread, unread}, kLimits).empty());
  EXPECT_EQ(MeasuredBox("0.0000"), Measured(0.0));
  for (const char* text : {"", "-", "nan", "abc", "1e300", "-99.000", "-99.0000"})
    EXPECT_FALSE(MeasuredCell(text)) << text;
}

TEST(Calibration, FindsTheKnownAnswer) {
  const double f = 0.0098765;
  const double tau = 2.0123;
  for (const Weights weights : {Weights::Equal, Weights::Relative}) {
    std::vector<CalibrationTube> tubes;
    for (const double c : {2.0, 5.0, 20.0, 75.0, 200.0})
      tubes.push_back({"t", c, c / 1000 / f, c / 1000 / f / tau});
    const CalibrationResult exact = Calibrate(tubes, weights);
    EXPECT_NEAR(exact.F / f, 1, 1e-12);
    EXPECT_NEAR(*exact.Tau / tau, 1, 1e-12);
    EXPECT_NEAR(exact.R2, 1, 1e-12);
    EXPECT_LT(exact.FSd / f + *exact.TauSd, 1e-12);

    // With noise the stated SD is the one that repetition shows: 400 series, each with its own SD.
    std::mt19937 random(15);
    std::normal_distribution<double> normal;
    double squares = 0;
    int inside = 0;
    for (int series = 0; series < 400; ++series) {
      std::vector<CalibrationTube> noisy = tubes;
      for (CalibrationTube& tube : noisy) {
        const double size = weights == Weights::Equal ? 0.05 : 0.01 * tube.Rb;
        tube.Rb += size * normal(random);
        tube.Ra = tube.Rb / (tau + 0.02 * normal(random));
      }
      const CalibrationResult result = Calibrate(noisy, weights);
      squares += std::pow((result.F - f) / result.FSd, 2) / 400;
      inside += std::abs(*result.Tau - tau) < 2 * *result.TauSd ? 1 : 0;
    }
    // Five tubes leave four degrees of freedom: the variance of t is 4 / (4 - 2).
    EXPECT_GT(squares, 1.2);
    EXPECT_LT(squares, 3.2);
    EXPECT_GT(inside, 380);
  }
}

TEST(Calibration, RefusesWhatIsNoSeries) {
  GeneratedStation lab = GenerateCruise(1)[0];
  lab.Name = "LAB CAL";
  lab.Blank = 0;
  lab.Samples.resize(4);
  for (std::size_t i = 0; i < 4; ++i)
    lab.Samples[i].Rb = 10 * (static_cast<double>(i) + 1), lab.Samples[i].Ra = lab.Samples[i].Rb / 2;
  const Review review = ReviewOf({lab});
  EXPECT_TRUE(review.Findings.empty()) << Found(review);
  const Station& station = review.Stations.at(0);
  EXPECT_TRUE(IsLabStation(station.Name));
  struct Row {
    std::vector<std::string> texts;
    const char* why;
  };
  const Row rows[] = {
      {{}, "at least two tubes"},        {{"100"}, "at least two tubes"},
      {{"100", "100"}, "different"},     {{"100", "2,5"}, "bottle 02: the concentration \"2,5\""},
      {{"100", "x"}, "is no number"},    {{"100", "-5"}, "bottle 02: its concentration is to be above 0"},
      {{"100", "0"}, "to be above 0"},   {{"100", "nan"}, "above 0"},
      {{"100", "1e999"}, "is no number"}};
  for (const Row& row : rows) {
    try {
      Calibrate(CalibrationTubes(station, row.texts), Weights::Equal);
      ADD_FAILURE() << row.why;
    } catch (const RunTimeError& error) {
      EXPECT_NE(std::string(error.what()).find(row.why), std::string::npos) << error.what();
    }
  }
  const CalibrationResult result =
      Calibrate(CalibrationTubes(station, {"100", "", " 300 ", "400"}), Weights::Equal);
  EXPECT_EQ(CalibrationText(result, kLimits)[0],
            "F = 0.010000 ug/mL per reading (SD 0.000000), +1.32 % against the configuration");
  EXPECT_EQ(result.Residuals.size(), 3U);
}

}  // namespace kelp
