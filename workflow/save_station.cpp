#include "workflow/save_station.hpp"

#include "core/config.hpp"
#include "files/journal.hpp"
#include "files/result_writer.hpp"

namespace kelp {

void EndPrintJob(Kelp& kelp) {
  try {
    kelp.platform.EndDocument();
  } catch (const RunTimeError& error) {
    // The station's files are written; the report can be printed again with Print/Save.
    ReportError(kelp, error);
  }
}

bool SaveAndPrintStation(Kelp& kelp) {
  if (!SaveStationResults(kelp)) return false;
  EndJournal(kelp);
  EndPrintJob(kelp);
  return true;
}

bool CloseStation(Kelp& kelp) {
  if (!SaveAndPrintStation(kelp)) return false;
  SaveStationConfig(kelp);
  return true;
}

}  // namespace kelp
