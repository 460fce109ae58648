// The simulated fluorometer behaves as an operator knows a real one, and gives every seed its own tubes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "console/simulated_fluorometer.hpp"

namespace kelp {

TEST(SimulatedFluorometer, IsUnsteadyThenSettlesAndFallsAfterAcid) {
  for (const auto& [level, noise] : {std::pair{kBlankLevel, 0.0}, {2.0, 0.02}, {46.0, 0.0}}) {
    SCOPED_TRACE(level);
    SimulatedFluorometer fluorometer(11);
    if (noise > 0) fluorometer.SetNoise(noise);
    fluorometer.Load(level);
    std::set<double> unsteady;
    for (int i = 0; i < 3; ++i) unsteady.insert(fluorometer.NextReading());
    EXPECT_GT(*unsteady.rbegin() - *unsteady.begin(), level / 20);
    fluorometer.NextReading();
    // Any ten settled lines have the level as their average, and an SD that can be saved.
    double sum = 0;
    double squares = 0;
    for (int i = 0; i < 10; ++i) {
      const double reading = fluorometer.NextReading();
      sum += reading;
      squares += (reading - level) * (reading - level);
    }
    EXPECT_NEAR(sum / 10, level, 1e-9);
    const double sd = std::sqrt(squares / 9);
    EXPECT_GT(sd, noise / 2);
    EXPECT_LT(sd, std::max(0.0010, 1.5 * noise));
    fluorometer.AddAcid(1.6);
    EXPECT_GT(fluorometer.NextReading(), level / 1.6 - 3 * noise);
    for (int i = 0; i < 3; ++i) fluorometer.NextReading();
    EXPECT_NEAR(fluorometer.NextReading(), level / 1.6, 0.0012 + 2 * noise);
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
    levels.insert({tube.Rb, other.Sample(number).Rb});
  }
  EXPECT_GT(levels.size(), 190U);
  a.Load(0.0123);
  b.Load(0.0123);
  const std::string line = a.NextLine();
  EXPECT_EQ(line, b.NextLine());
  EXPECT_EQ(line.substr(0, 5) + line.substr(12), "\r\nA = (RAW)");
}

}  // namespace kelp
