// The simulated fluorometer behaves as an operator knows a real one, and gives every seed its own tubes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "console/simulated_fluorometer.hpp"
#include "core/numbers.hpp"

namespace kelp {

TEST(SimulatedFluorometer, IsUnsteadyThenSettlesAndFallsAfterAcid) {
  struct Row {
    const char* what;
    double level;
    double noise;
  };
  const Row rows[] = {{"blank", kBlankLevel, 0}, {"copro", 5.03, 0}, {"noisy", 2.0, 0.02}, {"bright", 46, 0}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    SimulatedFluorometer fluorometer(11);
    if (row.noise > 0) fluorometer.SetNoise(row.noise);
    fluorometer.Load(row.level);
    std::set<double> unsteady;
    for (int i = 0; i < 3; ++i) unsteady.insert(fluorometer.NextReading());
    EXPECT_GT(*unsteady.rbegin() - *unsteady.begin(), row.level / 20);
    fluorometer.NextReading();
    // Any ten settled lines have the level as their average, and an SD that can be saved.
    for (int round = 0; round < 3; ++round) {
      double sum = 0;
      double squares = 0;
      for (int i = 0; i < 10; ++i) {
        const double reading = fluorometer.NextReading();
        sum += reading;
        squares += (reading - row.level) * (reading - row.level);
      }
      EXPECT_NEAR(sum / 10, row.level, 1e-9);
      const double sd = std::sqrt(squares / 9);
      EXPECT_GT(sd, row.noise / 2);
      EXPECT_LT(sd, std::max(0.0010, 1.5 * row.noise));
      fluorometer.NextReading();
    }
    fluorometer.AddAcid(1.6);
    const double first = fluorometer.NextReading();
    EXPECT_GT(first, row.level / 1.6 - 3 * row.noise);
    for (int i = 0; i < 3; ++i) fluorometer.NextReading();
    EXPECT_NEAR(fluorometer.NextReading(), row.level / 1.6, 0.0012 + 2 * row.noise);
  }
}

TEST(SimulatedFluorometer, FollowsFromItsSeed) {
  SimulatedFluorometer a(5);
  SimulatedFluorometer b(5);
  SimulatedFluorometer other(6);
  std::set<double> levels;
  for (int number = 1; number <= 100; ++number) {
    const TubeLevels tube = a.Sample(number);
    EXPECT_EQ(tube.Rb, b.Sample(number).Rb);
    EXPECT_TRUE(tube.Rb >= 0.6 && tube.Rb <= 6 && tube.AcidRatio >= 1.5 && tube.AcidRatio < 2.0);
    levels.insert(tube.Rb);
    levels.insert(other.Sample(number).Rb);
  }
  EXPECT_GT(levels.size(), 190U);
  a.Load(0.0123);
  b.Load(0.0123);
  for (int i = 0; i < 20; ++i) {
    const std::string line = a.NextLine();
    EXPECT_EQ(line, b.NextLine());
    EXPECT_EQ(line.substr(0, 5) + line.substr(12), "\r\nA = (RAW)");
    EXPECT_GT(Val(line.substr(5, 7)), 0);
  }
}

}  // namespace kelp
