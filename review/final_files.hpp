// SPDX-License-Identifier: GPL-3.0-or-later
// The final data as files: a table that every program reads, and a text that says what is in it.
#pragma once

#include <string>

#include "review/final_data.hpp"

namespace kelp {

/// The table: RFC 4180, UTF-8, CR LF, one header row "Name [unit]". A text that a spreadsheet would take
/// for a formula gets an apostrophe in front.
std::string FinalCsv(const FinalData& data);

/// What the table holds: its columns, how it was calculated, the stations that are not in it and why, the
/// samples without results.
std::string FinalDescription(const Cruise& cruise, const FinalData& data, const PostCalibration& post);

/// Writes CRUISEfinal.csv and CRUISEfinal.txt beside each other, each whole. `csvPath` is a program path
/// that ends in ".csv"; the description takes ".txt" instead. Throws FileError.
void WriteFinalFiles(Disk& disk, const std::string& csvPath, const Cruise& cruise, const FinalData& data,
                     const PostCalibration& post);

/// The path of a cruise's final data in its own folder.
std::string FinalCsvPath(const Cruise& cruise);

/// The text as UTF-8: bytes that are none are taken as Latin-1.
std::string AsUtf8(const std::string& text);

}  // namespace kelp
