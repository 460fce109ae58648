// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/find_control.hpp"

#include <charconv>

#include "core/date_time.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

struct Finder {
  std::string_view wanted;
  std::optional<int> index;
  ControlRef found = {};

  template <class Control>
  void operator()(std::string_view name, Control& control, std::optional<int> alias = {}) {
    if (SameIgnoringCase(name, wanted) && (!index || index == alias)) found = &control;
  }

  template <class Control, int Count, int First>
  void operator()(std::string_view name, ControlArray<Control, Count, First>& array) {
    if (SameIgnoringCase(name, wanted) && index && *index >= First && *index <= array.kLast)
      found = &array[*index];
  }
};

struct TextOf {
  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(const Label* c) const { return c->Caption; }
  std::string operator()(const Button* c) const { return c->Caption; }
  std::string operator()(const TextBox* c) const { return c->Text; }
  std::string operator()(const OptionButton* c) const { return c->Caption; }
  std::string operator()(const CheckBox* c) const { return c->Caption; }
  std::string operator()(const ComboBox* c) const { return c->Text; }
  std::string operator()(const Grid* /*grid*/) const { return {}; }
};

std::string Shown(const std::string& value) { return value; }
std::string Shown(const Counter16& value) { return std::to_string(int{value}); }
std::string Shown(bool value) { return value ? "True" : "False"; }
std::string Shown(std::uint32_t value) { return std::to_string(value); }
std::string Shown(LocalTime value) { return ShortDate(value) + " " + LongTime(value); }
std::string Shown(float value) {
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return {buffer, result.ptr};
}

}  // namespace

ControlRef FindControl(Kelp& kelp, std::string_view screen, std::string_view name, std::optional<int> index) {
  Finder finder{name, index};
  VisitScreens(kelp, [&](std::string_view screenName, auto& candidate) {
    if (SameIgnoringCase(screenName, screen)) candidate.VisitControls(candidate, finder);
  });
  return finder.found;
}

std::string ValueOf(const ControlRef& control) { return std::visit(TextOf{}, control); }

std::optional<std::string> RunValue(const Kelp& kelp, std::string_view name, RunIndex index) {
  const RunState& run = kelp.run;
  const auto is = [&](std::string_view candidate) { return SameIgnoringCase(candidate, name); };
  if (index.First && index.Second) {
    const bool inside = *index.First >= 0 && *index.First < StationTable::kRows && *index.Second >= 0 &&
                        *index.Second < StationTable::kCols;
    if (!is("SampTbl") || !inside) return {};
    return run.SampTbl(*index.First, *index.Second);
  }
  if (index.First) {
    const auto at = static_cast<std::size_t>(*index.First);
    if (is("CfgLines") && at < run.CfgLines.size()) return run.CfgLines[at];
    if (is("RawReads") && at < run.RawReads.size()) return Shown(run.RawReads[at]);
    return {};
  }
  std::optional<std::string> value;
  const auto field = [&](std::string_view candidate, const auto& member) {
    if (is(candidate)) value = Shown(member);
  };
  field("SampCount", run.SampCount);
  field("SampNum", run.SampNum);
  field("TubeNum", run.TubeNum);
  field("ProcNum", run.ProcNum);
  field("CruiseID", run.CruiseID);
  field("ShipName", run.ShipName);
  field("DataOutPath", run.DataOutPath);
  field("BackupDir", run.BackupDir);
  field("BaseFile", run.BaseFile);
  field("CsvFile", run.CsvFile);
  field("RawFile", run.RawFile);
  field("PrnFile", run.PrnFile);
  field("TmpFile", run.TmpFile);
  field("PrnBackupFile", run.PrnBackupFile);
  field("DbCsvFile", run.DbCsvFile);
  field("MarkTime", run.MarkTime);
  field("CastType", run.CastType);
  field("CtdDate", run.CtdDate);
  field("CtdTime", run.CtdTime);
  field("RunDate", run.RunDate);
  field("ReportStr", run.ReportStr);
  field("StepName", run.StepName);
  field("CoproLowStd", run.CoproLowStd);
  field("CoproHighStd", run.CoproHighStd);
  field("ReadsToAverage", run.ReadsToAverage);
  field("MinReads", run.MinReads);
  field("ReadInterval", run.ReadInterval);
  field("TraceColor", run.TraceColor);
  field("LabCalRun", run.LabCalRun);
  field("ResultsSaved", run.ResultsSaved);
  field("ProcNumEdited", run.ProcNumEdited);
  field("BottleEdited", run.BottleEdited);
  field("VialEdited", run.VialEdited);
  field("RunStarted", run.RunStarted);
  field("StartUp", run.StartUp);
  field("ReadIndex", run.ReadIndex);
  field("ReadCount", run.ReadCount);
  field("CurReading", run.CurReading);
  field("LastRawText", run.LastRawText);
  field("RbReading", run.RbReading);
  field("RaReading", run.RaReading);
  field("RaAccepted", run.RaAccepted);
  field("ReadFlag", run.ReadFlag);
  field("ReadInProgress", run.ReadInProgress);
  field("BeginBlankText", run.BeginBlankText);
  field("EndBlankText", run.EndBlankText);
  field("LowStdText", run.LowStdText);
  field("HighStdText", run.HighStdText);
  field("PauseStore", run.PauseStore);
  return value;
}

}  // namespace kelp
