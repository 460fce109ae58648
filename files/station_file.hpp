// SPDX-License-Identifier: GPL-3.0-or-later
// A station as its base file tells of it, as a value: what was read, by whom, when, with which blanks,
// standards, copros and constants. All values are the texts of the file.
#pragma once

#include <string>
#include <vector>

#include "core/kelp.hpp"
#include "files/station_text.hpp"
#include "platform/disk.hpp"

namespace kelp {

/// A sample, cell for cell; an empty text is an empty cell.
struct StationSample {
  std::string Bottle, Depth, FilV, ExV, Tube, Rb, Ra, Chla, Phaeo, AcidR, Flag;
  std::string FiltererRemark, ReaderRemark;
};

struct StationFile {
  std::string Path;  ///< program path of the base file; "" for the station that runs
  std::string ProcNum;
  std::string Cruise, Ship;
  std::string Station;  ///< line and station
  std::string Fluorometer, Analyst;
  std::string F, Tau;
  std::string FiltDate, FiltTime, ReadDate, ReadTime;
  /// Begin and end value; a value that was never read is "0", a skipped one "-99.00" or "-99".
  ValuePair Blank, LowStandard, HighStandard, Copro1, Copro2;
  std::string CoproName1, CoproName2;
  std::string StoredBlank;  ///< the blank in the table's header; serves where no begin blank stands
  std::vector<StationSample> Samples;
};

/// Reads a base file without any screen. Throws RunTimeError, whose text names file and line, for a file
/// that can't be read, holds no results yet or was written in half.
StationFile ReadStationFile(Disk& disk, const std::string& path);

/// The station that is open on the acquisition screen, as far as it was read.
StationFile OpenStation(const Kelp& kelp);

/// The processing number of a base file's name ("chl007"), "" for any other file of the folder (".prn",
/// kept copies "chl007Base").
std::string ProcNumOfBaseFile(const std::string& name);

}  // namespace kelp
