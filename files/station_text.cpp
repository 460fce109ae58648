// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/station_text.hpp"

#include <algorithm>

#include "core/text.hpp"
#include "files/report.hpp"
#include "platform/error.hpp"

namespace kelp {

namespace {

constexpr std::size_t kHeaderLines = 5;

// The rows of the station end where the report of an earlier save begins.
std::size_t TableEnd(const std::vector<std::string>& lines) {
  if (lines.size() < kHeaderLines) return lines.size();
  auto end = std::find(lines.begin() + kHeaderLines, lines.end(), kReportBanner);
  if (end == lines.end()) return lines.size();
  while (end != lines.begin() && Trim(*(end - 1)).empty()) --end;
  return static_cast<std::size_t>(end - lines.begin());
}

void FillRow(StationTable& table, const std::string& path, const std::string& line, std::size_t i) {
  try {
    // A blank line takes its row and leaves it empty.
    if (!Trim(line).empty()) SplitToRow(table, line, static_cast<int>(i));
    if (i >= static_cast<std::size_t>(StationTable::kRows)) static_cast<void>(table(static_cast<int>(i), 0));
  } catch (const RunTimeError& error) {
    throw RunTimeError(error.kind(), path + ", line " + std::to_string(i + 1) + ": " + error.what());
  }
}

}  // namespace

StationText SplitStationText(const std::string& path, const std::string& content) {
  const std::vector<std::string> lines = Lines(content);
  const std::size_t end = TableEnd(lines);
  if (end < kHeaderLines)
    throw FileError(path, "has " + std::to_string(end) +
                              " lines, but a base file begins with 5 header lines; "
                              "create the station anew or choose another file");
  StationText text;
  text.Table(0, 0) = lines[0];
  text.Table(1, 0) = lines[1];
  for (std::size_t i = 2; i < end; ++i) FillRow(text.Table, path, lines[i], i);
  text.RowCount = static_cast<int>(end);
  text.Report.assign(lines.begin() + static_cast<std::ptrdiff_t>(end), lines.end());
  return text;
}

}  // namespace kelp
