// SPDX-License-Identifier: GPL-3.0-or-later
// All stations of a folder, in the order in which they were read.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "files/station_file.hpp"

namespace kelp {

/// A file that tells of a station but is no part of the cruise, and why.
struct LeftOut {
  std::string File;
  std::string Reason;
};

struct Cruise {
  std::string Folder;  ///< with a backslash behind it
  std::string Name;    ///< cruise identifier
  std::vector<StationFile> Stations = {};
  std::vector<LeftOut> Left = {};
};

/// How far the work is, of how much; false stops it.
using Progress = std::function<bool(std::size_t done, std::size_t all)>;

/// Reads all saved stations of a folder. What can't be read is listed with its reason and left out, as are
/// stations of another cruise than `name`; with no `name` the cruise that most stations belong to. Stations
/// whose time of reading can't be read stand behind the others, by number. Throws FileError when the folder
/// is missing or can't be listed.
Cruise ReadCruise(Disk& disk, const std::string& folder, const std::string& name = "",
                  const Progress& progress = {});

/// Date and time of a station's reading.
std::optional<LocalTime> ReadTimeOf(const StationFile& station);

/// Hours between filtration and reading, below 0 when the times stand the wrong way round; nothing when
/// one of them is missing or unreadable. A time without a date is none.
std::optional<double> HoursToRun(const std::string& filtDate, const std::string& filtTime,
                                 const std::string& readDate, const std::string& readTime);

/// Hours in the form of the database and the final data, "0.0"; "" when the reading stands before the
/// filtration, which is an error of the log sheet and no duration.
std::string HoursText(double hours);

}  // namespace kelp
