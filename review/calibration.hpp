// SPDX-License-Identifier: GPL-3.0-or-later
// Calibration of the instrument from tubes of known chlorophyll-a (EPA Method 445.0, section 10): the
// program's F from the readings before acid, tau from the ratios before and after.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "review/limits.hpp"
#include "review/station.hpp"

namespace kelp {

/// A tube of a dilution series.
struct CalibrationTube {
  std::string Name;          ///< bottle or sample
  double Concentration = 0;  ///< ug of chlorophyll-a per litre of extract
  double Rb = 0;             ///< reading before acid, blank subtracted
  std::optional<double> Ra;  ///< reading after acid, blank subtracted; none when it was not acidified
};

/// How much a tube counts. Equal: each reading is as uncertain as any other. Relative: in proportion to
/// itself, so that the weakest standard counts as much as the strongest (weights 1 / concentration²).
enum class Weights { Equal, Relative };

struct CalibrationResult {
  double F = 0, FSd = 0;             ///< ug per mL of extract and reading; FSd is 0 for an exact line
  std::optional<double> Tau, TauSd;  ///< mean and SD of Rb' / Ra'; the SD from two tubes on
  double R2 = 0;                     ///< 1 - residual by total sum of squares about the mean
  std::vector<double> Residuals;     ///< of each tube, in % of the line
  std::size_t Acidified = 0;         ///< tubes that tau is from
};

/// Fits Rb' = C / (1000 F) through the origin by least squares. Throws RunTimeError ("Invalid procedure
/// call"), which names the tube or says what is missing: fewer than two tubes with different
/// concentrations, a concentration or reading that is not above 0.
CalibrationResult Calibrate(const std::vector<CalibrationTube>& tubes, Weights weights);

/// The tubes of a LAB/CAL station that the analyst gave concentrations for (texts, one for each sample;
/// empty leaves a tube out), with the station's begin blank subtracted as the program does. Throws
/// RunTimeError, which names the sample, for a text that is no number.
std::vector<CalibrationTube> CalibrationTubes(const Station& station, const std::vector<std::string>& texts);

/// True when the station's name holds LAB or CAL, in any letter case: tubes of the laboratory, no samples
/// of the sea.
bool IsLabStation(const std::string& name);

/// The result in words, a line each: F and tau with their SD, r2, changes against the configuration.
std::vector<std::string> CalibrationText(const CalibrationResult& result, const Limits& configured);

}  // namespace kelp
