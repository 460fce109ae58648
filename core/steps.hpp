// SPDX-License-Identifier: GPL-3.0-or-later
// The steps of a run by the names that `RunState::StepName`, the record and the scripts know.
#pragma once

#include <string_view>

namespace kelp {

namespace steps {

inline constexpr const char* kBlank = "BLANK";
inline constexpr const char* kStandard = "STANDARD";
inline constexpr const char* kCopros = "COPROS";
inline constexpr const char* kSample = "SAMPLE";
inline constexpr const char* kAdded = "ADDED";  ///< a sample behind those of the plan
inline constexpr const char* kStandby = "STANDBY";
inline constexpr const char* kReload = "RELOAD";
inline constexpr const char* kRecalc = "RECALC";

}  // namespace steps

/// True when samples are measured, those that were added too.
constexpr bool IsSampleStep(std::string_view step) { return step == steps::kSample || step == steps::kAdded; }

/// The index of `Option1` for a step, -1 for one that has no selector.
int SelectorOf(std::string_view step);

}  // namespace kelp
