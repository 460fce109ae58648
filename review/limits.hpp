// SPDX-License-Identifier: GPL-3.0-or-later
// What blanks and copros are held against, from the configuration.
#pragma once

#include <string>

#include "core/kelp.hpp"

namespace kelp {

struct CoproLimits {
  std::string Name;
  double Average = 0;    ///< lines 30, 32; 0 when none is configured
  double Tolerance = 0;  ///< readings
};

struct Limits {
  double Blank = 0;  ///< line 34, or 35 for the fluorometer AWOL; 0 when none is configured
  CoproLimits Copro1, Copro2;
  double F = 0;    ///< line 07
  double Tau = 0;  ///< line 08
};

/// The limits of the configuration in `run`.
Limits LimitsOf(const RunState& run);

}  // namespace kelp
