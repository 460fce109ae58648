// SPDX-License-Identifier: GPL-3.0-or-later
// Cells of the station table as fields of the base file, which is split at blanks: an empty cell is
// "-", a blank "_". A backslash guards what would be taken for one of these.
#pragma once

#include <string>
#include <string_view>

namespace kelp {

/// The field of a cell: never empty, without blanks and line breaks. "_", "\", CR and LF of the cell
/// become "\_", "\\", "\r" and "\n", a cell that is a lone "-" becomes "\-".
std::string FieldFromCell(std::string_view cell);

/// The cell that a field came from. A backslash before any other character stands for itself, so that
/// a field typed by hand is taken as it is.
std::string CellFromField(std::string_view field);

}  // namespace kelp
