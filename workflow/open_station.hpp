// SPDX-License-Identifier: GPL-3.0-or-later
// Opening a station: its base file is found or created, the CTD's files, the record and the operator are
// asked.
#pragma once

#include <string>

#include "core/kelp.hpp"

namespace kelp {

/// False when another machine has the station open and the operator does not want to open it all the same.
bool MayOpenStation(Kelp& kelp, const std::string& baseFile);

/// Loads a base file. When it is missing the operator creates it, searches for one, or goes on to the
/// next processing number; `path` is then the file that was read. True for a station that was saved
/// or is restored, which brings its own readings, blanks and copros. When none is read, no station is open.
/// Throws what ReadBaseFile throws; the station that was open then stays open.
bool LoadBaseFile(Kelp& kelp, std::string& path);

/// Shows the create screen, with the processing number and the starting bottle and vial filled in.
void ShowCreateBase(Kelp& kelp);

/// A box of the create screen was left: date and time take the program's own form.
void CreateBox_LostFocus(Kelp& kelp, int index);

/// Marks the boxes of the create screen whose values deserve a second look: no samples, a date or time that
/// can't be read. All of them are allowed.
void CheckCreateBase(Kelp& kelp);

/// "Create File" of the create screen: checks the boxes, writes the base file, copies the boxes to
/// the acquisition screen and loads the station. Throws FileError when it can't be written.
void CreateBaseFile(Kelp& kelp);

/// Opens the station that follows the current one, and moves the end values to the beginning.
void OpenNextStation(Kelp& kelp);

/// Adds a sample row to the station; refuses beyond 100.
void AddSample(Kelp& kelp);

}  // namespace kelp
