// SPDX-License-Identifier: GPL-3.0-or-later
// The fixed-width line of a sample's results, and its heading: in the local text results file and,
// indented, in the data-log report.
#pragma once

#include <string>

#include "core/controls.hpp"

namespace kelp {

inline constexpr const char* kResultsHeading =
    "     TUBE NISK DEPTH  FILV EXTV    Rb      Ra     CHLA    PHAEO     AR   QC";
inline constexpr const char* kResultsRule =
    "    ==========================================================================";

/// The results line of a grid row: eleven fields, right-justified to fixed widths, nothing between.
std::string ResultsLine(const Grid& datalog, int row);

}  // namespace kelp
