// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/station_file.hpp"

#include <cmath>

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "files/base_file.hpp"
#include "files/station_values.hpp"
#include "files/table_field.hpp"
#include "platform/error.hpp"

namespace kelp {

namespace {

[[noreturn]] void Refuse(const std::string& path, const std::string& why) {
  throw RunTimeError(ErrorKind::File, path + ": " + why);
}

StationSample SampleOfRow(const StationTable& table, int row) {
  const auto cell = [&](TableCol col) { return CellFromField(table(row, col)); };
  return {cell(kTblBottle),      cell(kTblDepth), cell(kTblFilV), cell(kTblExV),
          cell(kTblTube),        cell(kTblRb),    cell(kTblRa),   cell(kTblChla),
          cell(kTblPhaeo),       cell(kTblAcidR), cell(kTblQc),   cell(kTblFiltererRemark),
          cell(kTblReaderRemark)};
}

// A base file is replaced in one step, but copies over a network and memory sticks break off.
void RefuseHalf(const std::string& path, const StationText& text, const ReportHeading& heading) {
  const double told = std::trunc(Val(text.Table(4, 1)));
  const int found = text.Samples();
  if (told > found)
    Refuse(path, "line 5 tells of " + Fixed(told, 0) + " samples but " + std::to_string(found) +
                     " follow: the file is not whole; take it from its backup");
  bool read = false;
  for (int row = StationTable::kFirstSampleRow; row < text.RowCount; ++row)
    read = read || !CellFromField(text.Table(row, kTblRb)).empty();
  if (text.Report.empty() && !read) Refuse(path, "has no results yet: the station was not saved");
  if (!heading.Blank || !heading.F || !heading.ReadDate)
    Refuse(path,
           "has results but no whole report heading behind them (F, tau, blanks, time of reading): "
           "the file is not whole; save the station again or take it from its backup");
}

std::string OrNothing(const std::optional<std::string>& text) { return text.value_or(""); }

}  // namespace

StationFile ReadStationFile(Disk& disk, const std::string& path) {
  const StationText text = SplitStationText(path, disk.Read(path));
  const ReportHeading heading = ReadHeading(text.Report);
  RefuseHalf(path, text, heading);
  const ValuePair none{"0", "0"};
  StationFile station;
  station.Path = path;
  station.ProcNum = CellFromField(text.Table(4, 0));
  station.Cruise = OrNothing(heading.Cruise);
  station.Ship = OrNothing(heading.Ship);
  station.Station = Trim(text.Table(0, 0));
  station.Fluorometer = heading.Fluorometer.value_or(std::string(Trim(text.Table(1, 0))));
  station.Analyst = OrNothing(heading.Analyst);
  station.F = OrNothing(heading.F);
  station.Tau = OrNothing(heading.Tau);
  station.FiltDate = OrNothing(heading.FiltDate);
  station.FiltTime = OrNothing(heading.FiltTime);
  station.ReadDate = OrNothing(heading.ReadDate);
  station.ReadTime = OrNothing(heading.ReadTime);
  station.Blank = *heading.Blank;
  station.LowStandard = heading.LowStandard.value_or(none);
  station.HighStandard = heading.HighStandard.value_or(none);
  station.Copro1 = heading.Copro1.value_or(none);
  station.Copro2 = heading.Copro2.value_or(none);
  station.CoproName1 = heading.CoproName1;
  station.CoproName2 = heading.CoproName2;
  station.StoredBlank = CellFromField(text.Table(2, 0));
  for (int row = StationTable::kFirstSampleRow; row < text.RowCount; ++row)
    station.Samples.push_back(SampleOfRow(text.Table, row));
  return station;
}

StationFile OpenStation(const Kelp& kelp) {
  const RunState& run = kelp.run;
  const FrmAcquire& form = kelp.frmAcquire;
  const auto box = [&](StaInfo index) { return std::string(Trim(form.txtStaInfo[index].Text)); };
  const auto pair = [&](int first) {
    return ValuePair{form.txtBlank[first].Text, form.txtBlank[first + 1].Text};
  };
  const DateAndTime read = ReadAt(run);
  StationFile station{"",
                      run.ProcNum,
                      run.CruiseID,
                      run.ShipName,
                      box(kStaLineSta),
                      box(kStaFluorometer),
                      std::string(Trim(form.Combo1.Text)),
                      box(kStaF),
                      box(kStaTau),
                      box(kStaFiltDate),
                      box(kStaFiltTime),
                      read.Date,
                      read.Time,
                      {BlankText(kelp, kBoxBeginBlank), BlankText(kelp, kBoxEndBlank)},
                      pair(kBoxLowStandard),
                      pair(kBoxHighStandard),
                      pair(kBoxCopro1),
                      pair(kBoxCopro2),
                      run.CoproLowStd,
                      run.CoproHighStd,
                      run.SampTbl(2, 0),
                      {}};
  for (int row = 1; row <= run.SampCount; ++row) {
    const auto cell = [&](GridCol col) { return form.datalog.Text(row, col); };
    station.Samples.push_back({cell(kColBottle), cell(kColDepth), cell(kColFilV), cell(kColExV),
                               cell(kColVial), cell(kColRb), cell(kColRa), cell(kColChla), cell(kColPhaeo),
                               cell(kColAcidR), cell(kColQc), cell(kColFiltCom), cell(kColReadCom)});
  }
  return station;
}

std::string ProcNumOfBaseFile(const std::string& name) {
  if (name.size() < 6 || !SameIgnoringCase(Left(name, 3), "chl") || Contains(name, ".")) return "";
  const std::string procNum = name.substr(3);
  // A copy over another system may have lost the letter case of a kept copy's name.
  return !Contains(Lower(procNum), "base") && UsableProcNum(procNum) ? procNum : "";
}

}  // namespace kelp
