// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/limits.hpp"

#include "core/config.hpp"
#include "core/text.hpp"

namespace kelp {

Limits LimitsOf(const RunState& run) {
  const bool awol = StartsWith(Upper(CfgValue(run, kCfgFluorometer)), "AWOL");
  // The tolerances are those of the question at the bench.
  return {CfgNumber(run, awol ? kCfgBlankLimitAwol : kCfgBlankLimit),
          {CfgValue(run, kCfgCoproLow), CfgNumber(run, kCfgCoproLowAve), 0.3},
          {CfgValue(run, kCfgCoproHigh), CfgNumber(run, kCfgCoproHighAve), 0.5},
          CfgNumber(run, kCfgMachineFactor),
          CfgNumber(run, kCfgAcidRatio)};
}

}  // namespace kelp
