// Turns a finished station into files: kept base copy, new base file with results and report, ".prn",
// ".htm", both database CSV files, printed report, configuration snapshot.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Saves the station. False after a message box that names the file that failed: everything written
/// before is still there, `ResultsSaved` stays False, and the save can be repeated.
bool SaveStationResults(Kelp& kelp);

}  // namespace kelp
