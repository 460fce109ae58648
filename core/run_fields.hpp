// SPDX-License-Identifier: GPL-3.0-or-later
// The fields of the run state that are known by name outside the program: operator scripts show them, and the
// station's record keeps some. One list serves both.
#pragma once

#include <optional>
#include <string_view>

namespace kelp {

/// What the change of a value means to the station's record.
enum class Weight {
  Counted,  ///< an accepted value that somebody would miss: Rb, Ra, remark, blank, standard, copro, header
  Stored,   ///< goes with a value: results, the table's copy, the initials
  State,    ///< where the run stands
  Screen,   ///< what the screen shows at that moment: undone, but not restored after a crash
};

struct RunField {
  std::string_view Name;
  std::optional<Weight> Kept = {};  ///< the record keeps it, under this name: it is on the disks of ships
  bool Told = true;                 ///< scripts know it
};

/// Calls visit(field, value) for every field, those that the record keeps in the record's order. The station
/// table comes last: the record has its cells beside those of the grid.
template <class Run, class Visit>
void VisitRunState(Run& run, Visit&& visit) {
  visit(RunField{"SampCount", Weight::Stored}, run.SampCount);
  visit(RunField{"SampNum", Weight::State}, run.SampNum);
  visit(RunField{"TubeNum", Weight::State}, run.TubeNum);
  visit(RunField{"StepName", Weight::State}, run.StepName);
  visit(RunField{"RunDate", Weight::State}, run.RunDate);
  visit(RunField{"LabCalRun", Weight::State}, run.LabCalRun);
  visit(RunField{"CtdDate", Weight::State}, run.CtdDate);
  visit(RunField{"CtdTime", Weight::State}, run.CtdTime);
  visit(RunField{"CastType", Weight::State}, run.CastType);
  visit(RunField{"BeginBlankText", Weight::Stored}, run.BeginBlankText);
  visit(RunField{"EndBlankText", Weight::Stored}, run.EndBlankText);
  visit(RunField{"LowStdText", Weight::Stored}, run.LowStdText);
  visit(RunField{"HighStdText", Weight::Stored}, run.HighStdText);
  visit(RunField{"RbReading", Weight::Screen}, run.RbReading);
  visit(RunField{"RaReading", Weight::Screen}, run.RaReading);
  visit(RunField{"ReadFlag", Weight::Screen}, run.ReadFlag);
  visit(RunField{"RaAccepted", Weight::Screen}, run.RaAccepted);
  visit(RunField{"SecondCopro", Weight::Screen, false}, run.SecondCopro);
  visit(RunField{"TraceColor", Weight::Screen}, run.TraceColor);
  visit(RunField{"ProcNum"}, run.ProcNum);
  visit(RunField{"CruiseID"}, run.CruiseID);
  visit(RunField{"ShipName"}, run.ShipName);
  visit(RunField{"DataOutPath"}, run.DataOutPath);
  visit(RunField{"BackupDir"}, run.BackupDir);
  visit(RunField{"BaseFile"}, run.BaseFile);
  visit(RunField{"CsvFile"}, run.CsvFile);
  visit(RunField{"RawFile"}, run.RawFile);
  visit(RunField{"PrnFile"}, run.PrnFile);
  visit(RunField{"TmpFile"}, run.TmpFile);
  visit(RunField{"PrnBackupFile"}, run.PrnBackupFile);
  visit(RunField{"DbCsvFile"}, run.DbCsvFile);
  visit(RunField{"MarkTime"}, run.MarkTime);
  visit(RunField{"ReportStr"}, run.ReportStr);
  visit(RunField{"CoproLowStd"}, run.CoproLowStd);
  visit(RunField{"CoproHighStd"}, run.CoproHighStd);
  visit(RunField{"ReadsToAverage"}, run.ReadsToAverage);
  visit(RunField{"MinReads"}, run.MinReads);
  visit(RunField{"ReadInterval"}, run.ReadInterval);
  visit(RunField{"ResultsSaved"}, run.ResultsSaved);
  visit(RunField{"ProcNumEdited"}, run.ProcNumEdited);
  visit(RunField{"BottleEdited"}, run.BottleEdited);
  visit(RunField{"VialEdited"}, run.VialEdited);
  visit(RunField{"RunStarted"}, run.RunStarted);
  visit(RunField{"StartUp"}, run.StartUp);
  visit(RunField{"ReadIndex"}, run.ReadIndex);
  visit(RunField{"ReadCount"}, run.ReadCount);
  visit(RunField{"CurReading"}, run.CurReading);
  visit(RunField{"LastRawText"}, run.LastRawText);
  visit(RunField{"ReadInProgress"}, run.ReadInProgress);
  visit(RunField{"PauseStore"}, run.PauseStore);
  visit(RunField{"CfgLines"}, run.CfgLines);
  visit(RunField{"RawReads"}, run.RawReads);
  visit(RunField{"SampTbl"}, run.SampTbl);
}

}  // namespace kelp
