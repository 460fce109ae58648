// SPDX-License-Identifier: GPL-3.0-or-later
// Stores saved values in the station record.
#pragma once

#include <string>

#include "core/kelp.hpp"

namespace kelp {

/// The index of the `txtBlank` box that RecordStep would put a value into.
int RecordBox(const Kelp& kelp, const std::string& code);

/// Puts a saved blank, standard or copro into its box; a blank also goes to the station table. `code`
/// is "0" for blanks and standards, "1" and "2" for the first and second copro. Which box it is follows
/// from the step, the selector and the caption of `Command1`.
void RecordStep(Kelp& kelp, const std::string& value, const std::string& code, const StoreNote& note);

/// Stores `CurReading` as the current sample's Rb (code 3, or 7 for one below the blank, which the
/// table does not take) or Ra (4), and after an Ra moves on to the next sample or to the chooser.
/// Throws "Subscript out of range" for a sample beyond the table.
void RecordSampleReading(Kelp& kelp, int code, const StoreNote& note);

/// The 14 cells of a sample's table row, joined with commas.
std::string JoinedRow(const RunState& run, int row);

}  // namespace kelp
