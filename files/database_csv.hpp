// SPDX-License-Identifier: GPL-3.0-or-later
// The database-friendly CSV files: one of the cruise, one of the station, a row for each sample.
#pragma once

#include <string>
#include <string_view>

#include "core/kelp.hpp"

namespace kelp {

// "Copro3-1" and "Copro2-5" are column names and do not follow the configured standards.
inline constexpr std::string_view kCruiseCsvHeader =
    "CruzID,OccLine,OccStation,ProcessingNumber,Niskin,SCTube Number,FiltrVolume,ExtractedVolume,Blank,Rb,"
    "Ra,TempCalcChl,Depth,DateFiltration,TimeFiltration,ReadDate,ReadTime,ReadBy,Fluorometer,Copro3-1,"
    "Copro2-5,PreCalibrF,PreCalibrTau,StationType,FluorCTD,CommFilterer,CommReader";
inline constexpr std::string_view kStationCsvHeader =
    "CruzID,OccLine,OccStation,ProcessingNumber,Niskin,SCTube Number,FiltrVolume,ExtractedVolume,Blank,Rb,"
    "Ra,TempAR,TempCalcChl,TempCalcPhae,Depth,DateFiltration,TimeFiltration,ReadDate,ReadTime,ReadBy,"
    "Fluorometer,Copro3-1,Copro2-5,PreCalF,PreCalTau,QCFlag,CorrRb,CorrRa,CorrFlag,PostCalF,PostCalTau,"
    "AverBlank,AverCalF,AveCalTau,ChloroA,Phaeo,AR,HoursToRun,StaType1,StaType2,StaType3,TAUP,GV,RBB,RAA,"
    "CommFilterer,CommReader,FluorCTD";

std::string CruiseCsvPath(const RunState& run);
std::string StationCsvPath(const RunState& run);

/// A row for each sample with a field for each column of `header`, each row with its line end. A column
/// that the program has no value for stays empty; nothing is quoted, so a comma becomes a blank.
std::string DatabaseRows(const Kelp& kelp, std::string_view header);

/// Appends rows to a database file; one that does not exist yet begins with the header. The file is
/// never read: a cruise of a million rows takes no longer. Throws FileError.
void AppendDatabaseRows(Disk& disk, const std::string& path, std::string_view header,
                        const std::string& rows);

}  // namespace kelp
