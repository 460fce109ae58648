// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/text_review.hpp"

#include <algorithm>

#include "core/text.hpp"

namespace kelp {

namespace {

struct TextColumn {
  const char* Heading;
  const char* Column;
  std::size_t Width;
};
constexpr TextColumn kColumns[] = {{"Sta", "ProcessingNumber", 4},
                                   {"Bottle", "Niskin", 7},
                                   {"Vial", "SCTube Number", 5},
                                   {"Depth", "Depth", 6},
                                   {"Blank", "AverBlank", 8},
                                   {"Rb", "Rb", 9},
                                   {"Ra", "Ra", 9},
                                   {"Chl-a", "ChloroA", 9},
                                   {"Phaeo", "Phaeo", 8},
                                   {"AR", "AR", 7},
                                   {"QC", "QCFlag", 5},
                                   {"Hours", "HoursToRun", 6}};

bool IsShown(const std::vector<const Station*>& shown, const std::string& procNum) {
  return std::any_of(shown.begin(), shown.end(), [&](const Station* s) { return s->ProcNum == procNum; });
}

// What a file says must not move the cursor of a terminal.
std::string Plain(const std::string& text) {
  std::string plain;
  for (const char c : text) plain += static_cast<unsigned char>(c) < 32 || c == 127 ? ' ' : c;
  return plain;
}

}  // namespace

std::vector<std::string> TextReview(const Review& review, const FinalData& data,
                                    const std::vector<const Station*>& shown) {
  std::vector<std::string> lines = {
      "Cruise " + Plain(review.Cruise.Name) + ", " + std::to_string(review.Stations.size()) + " stations",
      ""};
  std::string heading;
  for (const TextColumn& column : kColumns) heading += Padded(column.Heading, column.Width, "L", "S");
  lines.push_back(heading);
  for (const FinalRow& row : data.Rows) {
    if (!IsShown(shown, row.ProcNum)) continue;
    std::string line;
    for (const TextColumn& column : kColumns)
      line += Padded(Plain(row.Cells[FinalColumnIndex(column.Column)]), column.Width, "L", "S");
    lines.push_back(line);
  }
  lines.insert(lines.end(), {"", "Checks"});
  for (const Finding& finding : review.Findings)
    if (finding.ProcNum.empty() || IsShown(shown, finding.ProcNum))
      lines.push_back("  " + Padded(finding.ProcNum.empty() ? "all" : Plain(finding.ProcNum), 5, "R", "S") +
                      Plain(finding.Where + ": " + finding.Text));
  if (lines.back() == "Checks") lines.emplace_back("  nothing was found");
  if (!data.Left.empty()) lines.insert(lines.end(), {"", "Left out"});
  for (const LeftOut& left : data.Left) lines.push_back("  " + Plain(left.File + ": " + left.Reason));
  return lines;
}

}  // namespace kelp
