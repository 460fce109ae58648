// Closing a station: results, print job and running configuration, as F2 and the chooser do it.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Saves the station's results and ends the print job; a printer that fails is reported. False when
/// the results could not be saved: nothing further is to be done then.
bool SaveAndPrintStation(Kelp& kelp);

/// The same, followed by the running values of the configuration.
bool CloseStation(Kelp& kelp);

/// Ends the print job, so that what was printed goes to the printer.
void EndPrintJob(Kelp& kelp);

}  // namespace kelp
