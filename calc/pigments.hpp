// SPDX-License-Identifier: GPL-3.0-or-later
// Chlorophyll-a, phaeopigment and acid ratio from the readings before (Rb) and after (Ra) acid, and
// the quality flag of a sample.
#pragma once

#include <string_view>

namespace kelp {

struct PigmentInput {
  double F = 0;     ///< door factor of the fluorometer, (ug/L) per reading unit
  double Tau = 0;   ///< acid ratio of pure chlorophyll-a from the calibration
  double Rb = 0;    ///< reading before acid, blank already subtracted
  double Ra = 0;    ///< reading after acid, blank already subtracted
  double FilV = 0;  ///< filtered volume, mL; 0 is taken as 138
  double ExV = 0;   ///< extraction volume, mL; 0 is taken as 8
};

struct Pigments {
  double Chla = 0;   ///< ug/L
  double Phaeo = 0;  ///< ug/L
  double AcidR = 0;  ///< Rb / Ra
};

/// The acidification method (EPA Method 445.0): K = ExV / (FilV / 1000) x tau / (tau - 1),
/// Chla = (Rb - Ra) K F, Phaeo = (tau Ra - Rb) K F. Throws DivisionByZero for tau = 1 or Ra = 0,
/// Overflow when a result is beyond the range of numbers.
Pigments CalcPigments(const PigmentInput& in);

/// The quality flag, "" (fine) to "****" (worst), of an acid ratio at a depth in whole metres. The
/// band of 81 to 120 m leaves ratios of 1.5 to 2.0 unflagged, which makes it uneven; it is kept so.
std::string_view QcFlag(int depth, double acidRatio);

}  // namespace kelp
