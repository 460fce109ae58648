// SPDX-License-Identifier: GPL-3.0-or-later
// The configuration file "c:\kelp\kelp.cfg": 41 numbered lines of fixed width, read and edited by
// people. A line is held whole; each reader takes its setting out of the line when it needs it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/kelp.hpp"

namespace kelp {

inline constexpr const char* kConfigPath = "c:\\kelp\\kelp.cfg";

/// Lines of the configuration, by what they hold.
enum CfgLine {
  kCfgCruise = 0,
  kCfgShip = 1,
  kCfgInitials = 2,
  kCfgDataPath = 3,
  kCfgMarkDir = 4,
  kCfgBackupDir = 5,
  kCfgFluorometer = 6,
  kCfgMachineFactor = 7,
  kCfgAcidRatio = 8,
  kCfgComport = 9,
  kCfgPortSettings = 10,
  kCfgReadInterval = 11,
  kCfgMinReads = 12,
  kCfgReadsToAverage = 13,
  kCfgSdCriterion = 14,
  kCfgBlankToSave = 17,
  kCfgFiltrVol = 18,
  kCfgExtractVol = 19,
  kCfgStartBottle = 20,
  kCfgProcNum = 21,
  kCfgStation = 22,
  kCfgCastType = 23,
  kCfgCastDate = 24,
  kCfgFiltration = 25,
  kCfgRunDate = 26,
  kCfgAnalyst = 27,
  kCfgTube = 28,
  kCfgCoproLow = 29,
  kCfgCoproLowAve = 30,
  kCfgCoproHigh = 31,
  kCfgCoproHighAve = 32,
  kCfgUpperLimit = 33,
  kCfgBlankLimit = 34,
  kCfgBlankLimitAwol = 35,
  kCfgPrinter = 36,
  kCfgDatabase = 37,
};

/// The value of a configuration line: its first `width` characters (30 unless told), trimmed. "" for
/// a line that the file did not have.
std::string CfgValue(const RunState& run, int line, std::size_t width = 30);

/// The number at the start of a line's value; 0 when there is none.
double CfgNumber(const RunState& run, int line, std::size_t width = 30);

/// The same as a 16-bit integer, rounded half to even. Overflow, naming the line, outside the range.
int CfgInt16(const RunState& run, int line);

/// Writes `text` over the first characters of a line and keeps the rest. Overflow when the line is
/// shorter than the text: the layout would be lost.
void RewriteField(std::string& line, std::string_view text);

/// Reads the configuration file into `CfgLines`. When it is missing the operator may look for it;
/// otherwise the default template is taken and written. Throws FileError when it can't be read.
void LoadConfig(Kelp& kelp);

/// Fills `CfgLines` with the default template.
void SetDefaultConfig(RunState& run);

/// Writes all 41 lines to the configuration file, replacing it. When somebody else changed the file since it
/// was read or written here, the operator is asked; after a No both stay as they are, the running values are
/// tried again with the next save, and it returns false. Throws FileError.
bool SaveConfig(Kelp& kelp);

/// What the configuration has that no station can be run with as it is: each text names line and remedy.
std::vector<std::string> ConfigTroubles(const RunState& run);

/// Tells them in the status bar, in front of what stands there.
void TellConfigTroubles(Kelp& kelp);

/// The end of a station: puts the running values (next processing number, station, analyst, tube,
/// filtration and run date) into their lines and saves. Nothing is advanced from number 990 on.
void SaveStationConfig(Kelp& kelp);

/// Appends the configuration file to "c:\kelp\kelp." & ProcNum. Throws FileError.
void SnapshotConfig(Kelp& kelp);

/// Filtration date and time of the last station, from line 25 into CtdDate and CtdTime; the
/// processing number, data output path and cruise of the main window's set-up.
void TakeLastStation(RunState& run);

}  // namespace kelp
