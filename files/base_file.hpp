// SPDX-License-Identifier: GPL-3.0-or-later
// The station base file: station text, fluorometer, blanks, calibration, and a line for each sample.
// Loading it fills the station table, sets the paths of all station files and lays out the grid.
#pragma once

#include <string>

#include "core/kelp.hpp"

namespace kelp {

inline constexpr const char* kReadLogHeader =
    "Sta,Samp,Step,Date,Time,Raw,Ave,RawRb,AveRb,AddAcid,AddAAve,RawRa,AveRa,Ave10";

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

/// No station is open any more: until a base file is read nothing can be measured into the files of the last
/// one, and its journal stays as it is.
void CloseStationFiles(RunState& run);

/// Puts the configuration's fluorometer, F and tau and the login's initials into the header boxes.
void TakeHeaderOfConfig(Kelp& kelp);

/// Loads a base file. When it is missing the operator creates it, searches for one, or goes on to the
/// next processing number; `path` is then the file that was read. True for a station that was saved
/// or is restored, which brings its own readings, blanks and copros. When none is read, no station is open.
/// Throws FileError, "Invalid procedure call" (a line that begins with a blank) or "Subscript out of range"
/// (too many lines or fields), whose text names file and line; the station that was open then stays open.
bool LoadBaseFile(Kelp& kelp, std::string& path);

/// Opens the station that follows the current one, and moves the end values to the beginning.
void OpenNextStation(Kelp& kelp);

/// Adds a sample row to the station; refuses beyond 100.
void AddSample(Kelp& kelp);

/// True for a processing number that can stand in a file name.
bool UsableProcNum(std::string_view procNum);

}  // namespace kelp
