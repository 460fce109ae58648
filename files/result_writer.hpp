// SPDX-License-Identifier: GPL-3.0-or-later
// Turns a finished station into files: kept base copy, new base file with results and report, ".prn",
// ".htm", both database CSV files, printed report, configuration snapshot.
#pragma once

#include <optional>

#include "core/kelp.hpp"

namespace kelp {

/// True where there is nothing that could be saved.
bool NoStationIsOpen(const RunState& run);

/// Writes all files, whether or not the printer works; returns what was wrong with the printer. Throws
/// RunTimeError, which names the file that failed: everything written before is still there, `ResultsSaved`
/// stays False, and the save can be repeated.
///
/// What a failed save wrote is remembered in `run.Unfinished`: repeated with the same data, the save
/// does not append the same report and database rows again, nor keep its own base file as an old one.
std::optional<RunTimeError> WriteStation(Kelp& kelp);

/// The print job of the last save was lost: repeated with the same data the save prints again, and only that.
void ForgetPrint(RunState& run);

/// The station is closed: the next save, of the same data too, writes everything anew.
void FinishSave(RunState& run);

}  // namespace kelp
