// SPDX-License-Identifier: GPL-3.0-or-later
// The station base file: station text, fluorometer, blanks, calibration, and a line for each sample.
// Reading it fills the station table, sets the paths of all station files and lays out the grid.
#pragma once

#include <string>

#include "core/kelp.hpp"
#include "files/station_text.hpp"

namespace kelp {

inline constexpr const char* kReadLogHeader =
    "Sta,Samp,Step,Date,Time,Raw,Ave,RawRb,AveRb,AddAcid,AddAAve,RawRa,AveRa,Ave10";

/// No station is open any more: until a base file is read nothing can be measured into the files of the last
/// one, and its journal stays as it is.
void CloseStationFiles(RunState& run);

/// Puts the configuration's fluorometer, F and tau and the login's initials into the header boxes.
void TakeHeaderOfConfig(Kelp& kelp);

/// A base file that was read into table and grid.
struct LoadedStation {
  StationText Text;
  bool HasResults = false;  ///< its table holds results
  /// It brings readings, blanks and copros of its own.
  [[nodiscard]] bool WasSaved() const { return HasResults || !Text.Report.empty(); }
};

/// Reads a base file; its station is the open one then. Throws FileError, "Invalid procedure call" (a line
/// that begins with a blank) or "Subscript out of range" (too many lines or fields), whose text names file
/// and line.
LoadedStation ReadBaseFile(Kelp& kelp, const std::string& path);

/// Puts blanks, copros and heading of a station that was saved into their boxes, over what came of CTD files.
void TakeSavedValues(Kelp& kelp, const LoadedStation& loaded);

/// What the sample log sheet says, as it was typed.
struct NewStation {
  std::string LineSta;
  std::string Count;
  std::string FirstBottle;
};

/// Writes the base file of the run's processing number; one that holds results is kept beside it. Throws
/// FileError, or Overflow for a bottle that is no 16-bit number.
void WriteNewBaseFile(Kelp& kelp, const NewStation& station);

/// True for a processing number that can stand in a file name.
bool UsableProcNum(std::string_view procNum);

/// The processing number of a base file that may lie anywhere: its last three characters, as all stations
/// have them. Throws FileError for what is no base file's name.
std::string ProcNumOfPath(const std::string& path);

}  // namespace kelp
