// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/steps.hpp"

#include "core/screens/acquire.hpp"

namespace kelp {

int SelectorOf(std::string_view step) {
  if (step == steps::kBlank) return kStepBlank;
  if (step == steps::kStandard) return kStepStandard;
  if (step == steps::kCopros) return kStepCopros;
  return IsSampleStep(step) ? kStepSamples : -1;
}

}  // namespace kelp
