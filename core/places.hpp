// SPDX-License-Identifier: GPL-3.0-or-later
// The one way in which a value gets into a cell of the grid or a box, whoever puts it there.
#pragma once

#include <string>

#include "core/kelp.hpp"

namespace kelp {

/// A cell of the grid, a `txtBlank` box or a header box.
struct Place {
  int Box = -1;     ///< index of `txtBlank`, or -1
  int Row = 0;      ///< grid row, or 0
  int Col = -1;     ///< its column
  int Header = -1;  ///< index of `txtStaInfo`, or -1
};

/// "Ra of sample 3, bottle 09", "Begin Blank".
std::string PlaceName(const Kelp& kelp, const Place& place);

/// What stands there.
const std::string& ValueAt(const Kelp& kelp, const Place& place);

/// True when an Rb or Ra that was read stands there; -99 marks one that was not.
bool HoldsReading(const Kelp& kelp, const Place& place);

/// Puts a value into its place, with all that follows it: a begin or end blank is the blank of the station,
/// in run state, table and average; an Rb or Ra goes to the table too, and the Rb of the current sample is
/// what its Ra is compared with. Tells place, old and new value in the status bar, and how it came in
/// `kelp.Note`.
void PutValue(Kelp& kelp, const Place& place, const std::string& value, const StoreNote& note);

/// The same for an Rb below the blank, which the table does not take.
void PutOutsideTable(Kelp& kelp, const Place& place, const std::string& value, const StoreNote& note);

/// Shows the average of begin and end blank in its header box, once both were read.
void ShowAverageBlank(Kelp& kelp);

/// The note of the item that is being read: how many reads, and their SD.
StoreNote NoteOfReads(const Kelp& kelp, How way);

/// "09", or "?" for a sample without bottle.
std::string BottleOf(const Kelp& kelp, int sample);

}  // namespace kelp
