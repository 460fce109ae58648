// SPDX-License-Identifier: GPL-3.0-or-later
// Whoever handles the tubes of the simulated fluorometer: puts in what the caption of Command1 asks
// for, as an operator who follows the screen would.
#pragma once

#include <string>

#include "core/kelp.hpp"
#include "simulator/simulated_fluorometer.hpp"

namespace kelp {

class SimulatedOperator {
 public:
  explicit SimulatedOperator(std::uint32_t seed) : fluorometer_(seed) {}

  /// A second passes: the holder is seen to, and the instrument's line of that second is returned.
  std::string NextLine(const Kelp& kelp);

 private:
  void See(const Kelp& kelp);

  SimulatedFluorometer fluorometer_;
  std::string item_;   ///< what is in the holder, in words; "" when it is empty
  bool acid_ = false;  ///< acid was added to it
};

}  // namespace kelp
