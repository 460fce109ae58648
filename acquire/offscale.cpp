// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquire/offscale.hpp"

namespace kelp {

bool IsOffscale(const Kelp& kelp, float reading) {
  constexpr float kLeastLimit = 40;
  return kelp.loop.UpperLimit > kLeastLimit && reading > kelp.loop.UpperLimit && !kelp.run.LabCalRun;
}

}  // namespace kelp
