// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/database_csv.hpp"

#include <map>

#include "core/config.hpp"
#include "core/text.hpp"
#include "files/cruise.hpp"
#include "files/station_values.hpp"

namespace kelp {

namespace {

using Values = std::map<std::string, std::string, std::less<>>;

// Line 17 says which blank the database gets; without an end blank there is no average.
std::string BlankToSave(const Kelp& kelp) {
  const std::string& average = kelp.frmAcquire.txtStaInfo[kStaAveBlank].Text;
  const bool wantsAverage = Upper(CfgValue(kelp.run, kCfgBlankToSave)).starts_with("AVE");
  return wantsAverage && !average.empty() ? average : BlankText(kelp, kBoxBeginBlank);
}

Values StationColumns(const Kelp& kelp) {
  const RunState& run = kelp.run;
  const FrmAcquire& form = kelp.frmAcquire;
  const DateAndTime read = ReadAt(run);
  std::vector<std::string> station = Words(form.txtStaInfo[kStaLineSta].Text);
  station.resize(2);
  const std::string& f = form.txtStaInfo[kStaF].Text;
  const std::string& tau = form.txtStaInfo[kStaTau].Text;
  const auto hours = HoursToRun(form.txtStaInfo[kStaFiltDate].Text, form.txtStaInfo[kStaFiltTime].Text,
                                read.Date, read.Time);
  return {
      {"CruzID", run.CruiseID},
      {"OccLine", station[0]},
      {"OccStation", station[1]},
      {"ProcessingNumber", run.ProcNum},
      {"Blank", BlankToSave(kelp)},
      {"AverBlank", form.txtStaInfo[kStaAveBlank].Text},
      {"HoursToRun", hours ? HoursText(*hours) : ""},
      {"DateFiltration", run.CtdDate},
      {"TimeFiltration", run.CtdTime},
      {"ReadDate", read.Date},
      {"ReadTime", read.Time},
      {"ReadBy", form.Combo1.Text},
      {"Fluorometer", form.txtStaInfo[kStaFluorometer].Text},
      {"Copro3-1", BoxText(kelp, kBoxCopro1)},
      {"Copro2-5", BoxText(kelp, kBoxCopro2)},
      {"PreCalibrF", f},
      {"PreCalF", f},
      {"PreCalibrTau", tau},
      {"PreCalTau", tau},
      {"StationType", run.CastType},
      {"StaType1", run.CastType},
  };
}

void SetSampleColumns(Values& values, const Kelp& kelp, int row) {
  struct Column {
    const char* name;
    GridCol col;
  };
  static constexpr Column kColumns[] = {{"Niskin", kColBottle},
                                        {"SCTube Number", kColVial},
                                        {"FiltrVolume", kColFilV},
                                        {"ExtractedVolume", kColExV},
                                        {"Rb", kColRb},
                                        {"Ra", kColRa},
                                        {"TempAR", kColAcidR},
                                        {"TempCalcChl", kColChla},
                                        {"TempCalcPhae", kColPhaeo},
                                        {"Depth", kColDepth},
                                        {"QCFlag", kColQc},
                                        {"CommFilterer", kColFiltCom},
                                        {"CommReader", kColReadCom}};
  for (const Column& column : kColumns) values[column.name] = CellText(kelp, row, column.col);
}

bool IsNumber(std::string_view text) {
  const auto digits = [&](std::size_t from) { return text.find_first_not_of("0123456789", from); };
  std::size_t at = digits(text.starts_with('-') ? 1 : 0);
  if (at != std::string_view::npos && text[at] == '.') at = digits(at + 1);
  return at == std::string_view::npos && text.find_first_of("0123456789") != std::string_view::npos;
}

// A quote would swallow the rows behind it in every reader, and a spreadsheet runs what begins like a
// formula.
std::string DatabaseField(const std::string& value) {
  std::string field(Trim(Replaced(OneField(value, true), "\"", "'")));
  const bool formula = field.find_first_of("=+@\t") == 0 || (field.starts_with('-') && !IsNumber(field));
  return formula ? "'" + field : field;
}

std::string DatabaseRow(const Values& values, std::string_view header) {
  std::string row;
  for (bool more = true; more;) {
    const auto end = header.find(',');
    const auto value = values.find(header.substr(0, end));
    if (value != values.end()) row += DatabaseField(value->second);
    more = end != std::string_view::npos;
    if (more) header.remove_prefix(end + 1);
    row += more ? "," : "\r\n";
  }
  return row;
}

}  // namespace

std::string CruiseCsvPath(const RunState& run) { return run.DataOutPath + run.CruiseID + "Chldb.csv"; }

std::string StationCsvPath(const RunState& run) {
  return run.DataOutPath + run.CruiseID + run.ProcNum + "Chldb1.csv";
}

std::string DatabaseRows(const Kelp& kelp, std::string_view header) {
  Values values = StationColumns(kelp);
  std::string rows;
  for (int row = 1; row <= kelp.run.SampCount; ++row) {
    SetSampleColumns(values, kelp, row);
    rows += DatabaseRow(values, header);
  }
  return rows;
}

void AppendDatabaseRows(Disk& disk, const std::string& path, std::string_view header,
                        const std::string& rows) {
  AppendUnderHead(disk, path, std::string(header) + "\r\n", rows);
}

}  // namespace kelp
