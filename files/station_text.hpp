// SPDX-License-Identifier: GPL-3.0-or-later
// The text of a base file, taken apart as far as its form goes: the table of header and samples, and the
// report of an earlier save behind it. The loader and the review both start from here.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/run_state.hpp"

namespace kelp {

struct StationText {
  StationTable Table = {};               ///< fields as they stand in the file
  int RowCount = 0;                      ///< rows of the table, the five of the header included
  std::vector<std::string> Report = {};  ///< lines from the end of the table on; empty without a report
  [[nodiscard]] int Samples() const { return RowCount - StationTable::kFirstSampleRow; }
};

/// Takes a base file apart. Throws FileError, "Invalid procedure call" (a line that begins with a blank) or
/// "Subscript out of range" (too many lines or fields), whose text names file and line.
StationText SplitStationText(const std::string& path, const std::string& content);

/// A begin and an end value as they stand in the report ("0" never read, "-99.00" skipped).
struct ValuePair {
  std::string Begin;
  std::string End;
};

/// What a saved report's heading says; what is missing or unreadable there is not set.
struct ReportHeading {
  std::optional<std::string> Cruise, Ship, FiltDate, FiltTime, Fluorometer, ReadDate, ReadTime, Analyst;
  std::optional<std::string> F, Tau;
  std::optional<ValuePair> Blank, Copro1, Copro2, LowStandard, HighStandard;
  std::string CoproName1, CoproName2;
};

/// Reads the heading of the first report in `lines`, and the standards behind its rows.
ReportHeading ReadHeading(const std::vector<std::string>& lines);

}  // namespace kelp
