// SPDX-License-Identifier: GPL-3.0-or-later
// The simulated fluorometer behaves as an operator knows a real one, and gives every seed its own tubes.
#include <gtest/gtest.h>

#include "simulator/simulated_fluorometer.hpp"

namespace kelp {

TEST(SimulatedFluorometer, IsUnsteadyThenSettlesToItsLevelWithItsNoise) {
  SimulatedFluorometer fluorometer(11);
  fluorometer.SetNoise(0.02);
  fluorometer.Load(2);
  std::set<double> unsteady, settled;
  for (int i = 0; i < 3; ++i) unsteady.insert(fluorometer.NextReading());
  EXPECT_GT(*unsteady.rbegin() - *unsteady.begin(), 0.1);
  fluorometer.NextReading();
  double sum = 0;
  for (int i = 0; i < 10; ++i) sum += *settled.insert(fluorometer.NextReading()).first;
  EXPECT_NEAR(sum / 10, 2, 1e-9) << "any ten settled lines have the level as their average";
  EXPECT_GT(*settled.rbegin() - *settled.begin(), 0.02);
  fluorometer.AddAcid(1.6);
  for (int i = 0; i < 4; ++i) fluorometer.NextReading();
  EXPECT_NEAR(fluorometer.NextReading(), 1.25, 0.05);
}

}  // namespace kelp
