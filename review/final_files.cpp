// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/final_files.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/error.hpp"

namespace kelp {

namespace {

constexpr const char* kEnd = "\r\n";

// The length of the UTF-8 sequence that begins with a byte, 0 when none does.
std::size_t LengthBy(unsigned first) {
  if (first < 0x80) return 1;
  if (first < 0xC2) return 0;
  return first < 0xE0 ? 2 : first < 0xF0 ? 3 : first < 0xF5 ? 4 : 0;
}

// The length of the UTF-8 sequence at `i`, 0 when the bytes there are none.
std::size_t SequenceAt(const std::string& text, std::size_t i) {
  const auto byte = [&](std::size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
  };
  const unsigned first = byte(i);
  const std::size_t length = LengthBy(first);
  for (std::size_t k = 1; k < length; ++k)
    if ((byte(i + k) & 0xC0U) != 0x80) return 0;
  const unsigned second = byte(i + 1);
  const bool tooLong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
  const bool noCharacter = (first == 0xED && second > 0x9F) || (first == 0xF4 && second > 0x8F);
  return tooLong || noCharacter ? 0 : length;
}

bool IsNumber(const std::string& text) {
  return text.size() > 1 && text.find_first_not_of("0123456789.", 1) == std::string::npos;
}

// A line break inside a field is allowed, but few programs read it.
std::string Field(const std::string& cell) {
  std::string text = AsUtf8(OneField(cell, false));
  const bool formula = !text.empty() && Contains("=+-@\t", text.substr(0, 1));
  if (formula && !IsNumber(text)) text.insert(0, "'");
  if (text.find_first_of(",\"") == std::string::npos && text == Trim(text)) return text;
  return '"' + Replaced(text, "\"", "\"\"") + '"';
}

std::string ConstantsText(const PostCalibration& post) {
  std::string text = "F and tau: ";
  text += post.F ? "F is the mean of the station's own and " + Fixed(*post.F, 6) + " after the cruise"
                 : "F is the station's own (none after the cruise was given)";
  text += post.Tau
              ? "; tau is the mean of the station's own and " + Fixed(*post.Tau, 4) + " after the cruise."
              : "; tau is the station's own (none after the cruise was given).";
  return text + kEnd;
}

std::string Listed(const std::string& heading, const std::vector<LeftOut>& list, const std::string& none) {
  std::string text = kEnd + heading + kEnd;
  if (list.empty()) text += "  " + none + kEnd;
  for (const LeftOut& item : list) text += "  " + item.File + ": " + OneField(item.Reason, false) + kEnd;
  return text;
}

}  // namespace

std::string AsUtf8(const std::string& text) {
  std::string utf8;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = SequenceAt(text, i);
    const auto byte = static_cast<unsigned char>(text[i]);
    if (length > 0)
      utf8 += text.substr(i, length);
    else
      utf8 += {static_cast<char>(0xC0U | byte >> 6U), static_cast<char>(0x80U | (byte & 0x3FU))};
    i += std::max<std::size_t>(length, 1);
  }
  return utf8;
}

std::string FinalCsv(const FinalData& data) {
  std::string csv;
  for (const FinalColumn& column : FinalColumns()) {
    const std::string unit = column.Unit;
    csv += (csv.empty() ? "" : ",") + Field(column.Name + (unit.empty() ? "" : " [" + unit + "]"));
  }
  csv += kEnd;
  for (const FinalRow& row : data.Rows) {
    std::string line;
    for (std::size_t i = 0; i < row.Cells.size(); ++i) line += (i == 0 ? "" : ",") + Field(row.Cells[i]);
    csv += line + kEnd;
  }
  return csv;
}

std::string FinalDescription(const Cruise& cruise, const FinalData& data, const PostCalibration& post) {
  std::string text = "Final chlorophyll-a data of cruise " + AsUtf8(cruise.Name) + kEnd + kEnd +
                     std::to_string(data.Rows.size()) + " samples, one a row, from the station files of " +
                     AsUtf8(cruise.Folder) + kEnd +
                     "Method: acidification, EPA Method 445.0; blank, F and tau as follows." + kEnd +
                     "Blank: the mean of the station's begin and end blank, or the one that was read." +
                     kEnd + ConstantsText(post) + kEnd + "Columns" + kEnd;
  for (const FinalColumn& column : FinalColumns()) {
    const std::string unit = column.Unit;
    text += "  " + std::string(column.Name) + (unit.empty() ? "" : " [" + unit + "]") + ": " +
            column.Description + kEnd;
  }
  text += Listed("Files that are left out", data.Left, "none");
  text += Listed("Samples without results", data.Notes, "none");
  return AsUtf8(text);
}

std::string FinalCsvPath(const Cruise& cruise) { return cruise.Folder + cruise.Name + "final.csv"; }

void WriteFinalFiles(Disk& disk, const std::string& csvPath, const Cruise& cruise, const FinalData& data,
                     const PostCalibration& post) {
  if (!EndsWith(Lower(csvPath), ".csv"))
    throw FileError(csvPath, "the final data's name is to end in .csv, since its description ends in .txt");
  const std::string description = csvPath.substr(0, csvPath.size() - 4) + ".txt";
  // The description goes first: it says of which stations the table tells nothing.
  disk.Replace(description, FinalDescription(cruise, data, post));
  disk.Replace(csvPath, FinalCsv(data));
}

}  // namespace kelp
