// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/save_station.hpp"

#include "core/config.hpp"
#include "files/result_writer.hpp"
#include "record/record.hpp"

namespace kelp {

namespace {

void Report(Kelp& kelp, const RunTimeError& error, const std::string& whatToDo) {
  kelp.platform.Ask({.Text = error.what() + ("\n" + whatToDo),
                     .Title = std::string(ErrorName(error.kind())),
                     .Icon = Icon::Critical,
                     .ReportsFailure = true});
}

// The files are written, but the save counts as failed until the report is out.
void ReportLostPrint(Kelp& kelp, const RunTimeError& error) {
  ForgetPrint(kelp.run);
  Report(kelp, error,
         "All files of station " + kelp.run.ProcNum +
             " are written; only the printed report is missing. Mend the printer, or clear \"Printer "
             "Online\" in the chooser, then save again: no file is written twice.");
}

bool SaveResults(Kelp& kelp) {
  if (NoStationIsOpen(kelp.run)) {
    Tell(kelp, "No station is open, so there is nothing to save. Create or load its base file first.");
    return false;
  }
  try {
    const auto printFailure = WriteStation(kelp);
    if (printFailure) ReportLostPrint(kelp, *printFailure);
    return !printFailure;
  } catch (const RunTimeError& error) {
    Report(kelp, error,
           "The save of station " + kelp.run.ProcNum +
               " stopped there. Mend this, then save again: what was written before is still there and is "
               "not written twice.");
    return false;
  }
}

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
  if (!SaveResults(kelp)) return false;
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
