// SPDX-License-Identifier: GPL-3.0-or-later
// Turns a finished station into files: kept base copy, new base file with results and report, ".prn",
// ".htm", both database CSV files, printed report, configuration snapshot.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Saves the station. False after a message box that names the file that failed: everything written
/// before is still there, `ResultsSaved` stays False, and the save can be repeated. A printer that fails
/// does not keep the files from being written, but the save counts as failed until the report is out.
///
/// What a failed save wrote is remembered in `run.Unfinished`: repeated with the same data, the save
/// does not append the same report and database rows again, nor keep its own base file as an old one.
bool SaveStationResults(Kelp& kelp);

/// The print job of the last save was lost: says so, and repeated with the same data the save prints
/// again, and only that.
void ReportLostPrint(Kelp& kelp, const RunTimeError& error);

/// The station is closed: the next save, of the same data too, writes everything anew.
void FinishSave(RunState& run);

}  // namespace kelp
