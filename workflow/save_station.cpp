// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/save_station.hpp"

#include "core/config.hpp"
#include "files/result_writer.hpp"
#include "record/record.hpp"

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

bool SaveStation(Kelp& kelp) {
  if (!SaveStationResults(kelp)) return false;
  RecordSaved(kelp, kelp.record.SavedRows);
  return true;
}

bool SaveAndPrintStation(Kelp& kelp) {
  if (!SaveStation(kelp) || !EndPrintJob(kelp)) return false;
  FinishSave(kelp.run);
  return true;
}

bool EndStation(Kelp& kelp) {
  if (!EndPrintJob(kelp)) return false;
  SaveStationConfig(kelp);
  FinishSave(kelp.run);
  return true;
}

bool CloseStation(Kelp& kelp) { return SaveStation(kelp) && EndStation(kelp); }

}  // namespace kelp
