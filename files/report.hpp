// SPDX-License-Identifier: GPL-3.0-or-later
// The data-log report of a station: heading block, table heading and a line for each sample, as it
// goes into the base file, the ".prn" file, the HTML file and to the printer.
#pragma once

#include <string>
#include <vector>

#include "core/kelp.hpp"

namespace kelp {

inline const std::string kLowStandard = "    Low standard: ";
inline const std::string kHighStandard = "High standard: ";
inline constexpr const char* kReportBanner = "     B a y T R E K   F l u o r o m e t e r   D a t a   L o g";

/// The report's lines, without line ends.
std::vector<std::string> ReportLines(const Kelp& kelp);

/// Takes back from a saved station's report what the table does not hold: blanks, copros, filtration
/// and read dates, initials, fluorometer, F and tau. Lines that are missing or unreadable change nothing.
void TakeReportHeading(Kelp& kelp, const std::vector<std::string>& lines);

}  // namespace kelp
