#include "workflow/save_station.hpp"

#include "core/config.hpp"
#include "files/journal.hpp"
#include "files/result_writer.hpp"

namespace kelp {

namespace {

// Releases what the save printed to the printer.
bool EndPrintJob(Kelp& kelp) {
  try {
    kelp.platform.EndDocument();
    return true;
  } catch (const RunTimeError& error) {
    ReportLostPrint(kelp, error);
    return false;
  }
}

}  // namespace

bool SaveAndPrintStation(Kelp& kelp) {
  if (!SaveStationResults(kelp) || !EndPrintJob(kelp)) return false;
  FinishSave(kelp.run);
  EndJournal(kelp);
  return true;
}

bool EndStation(Kelp& kelp) {
  if (!EndPrintJob(kelp)) return false;
  SaveStationConfig(kelp);
  FinishSave(kelp.run);
  EndJournal(kelp);
  return true;
}

bool CloseStation(Kelp& kelp) { return SaveStationResults(kelp) && EndStation(kelp); }

}  // namespace kelp
