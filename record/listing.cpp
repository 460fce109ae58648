// SPDX-License-Identifier: GPL-3.0-or-later
// The record as lines for a terminal.
#include <cstdio>

#include "core/text.hpp"
#include "record/book.hpp"
#include "record/record.hpp"

namespace kelp {

namespace {

std::string Cell(const std::string& text, std::size_t width) { return Padded(text, width, "R", "S") + "  "; }

std::string StateOf(const RunSoFar& run, const std::string& lastKind) {
  if (run.Unsaved > 0) return std::to_string(run.Unsaved) + " not saved" + (run.IsAside ? ", set aside" : "");
  return lastKind == kSaved ? "saved" : "opened";
}

std::string WhatHappened(const RecordedEvent& event) {
  if (event.Kind == kSaved) return "saved";
  if (event.Kind == kAside) return "set aside";
  if (event.Kind == kLoad) return "station loaded";
  if (event.Kind == kCarry) return "station begun with end values of the one before";
  if (event.Kind == kWhole) return "station written anew, as it stood";
  return event.Kind == kRestore ? "gone on with after an interruption" : "";
}

// A line for each value that people would look for, and one for what else happened.
void AddHistory(std::vector<std::string>& lines, const RecordedEvent& event) {
  const std::string who = Cell(ShownTime(event.At), 19) + Cell(event.Analyst, 4) + Cell(event.Machine, 10);
  const std::string what = WhatHappened(event);
  if (!what.empty()) lines.push_back(who + what);
  if (event.Kind == kLoad) return;
  char sd[32] = {};
  if (event.Reads > 0) std::snprintf(sd, sizeof sd, ", %d reads, SD %.4f", event.Reads, event.Sd);
  for (const RecordedValue& value : event.Values) {
    if (value.What.empty() || value.Moved || (event.Kind == kCarry && value.After == "0")) continue;
    lines.push_back(who + value.What + ": " + (value.Before.empty() ? "empty" : value.Before) + " -> " +
                    (value.After.empty() ? "empty" : value.After) + " (" + event.How + sd + ")");
  }
}

std::vector<std::string> Stations(Database& record) {
  std::vector<std::string> lines = {Cell("Station", 8) + Cell("Line.Sta", 12) + Cell("Begun", 19) +
                                    Cell("Last", 19) + Cell("By", 4) + Cell("State", 24) + "Base file"};
  for (const Database::Run& run : record.Runs("")) {
    const RunSoFar so = FoldRun(record.EventsOf(run.Begun.Uid));
    lines.push_back(Cell(run.Begun.Number, 8) + Cell(so.Name, 12) + Cell(ShownTime(run.Begun.At), 19) +
                    Cell(ShownTime(run.Last.At), 19) + Cell(run.Last.Analyst, 4) +
                    Cell(StateOf(so, run.Last.Kind), 24) + run.Begun.Station);
  }
  const std::vector<RecordedEvent> config = record.EventsOf(0);
  if (!config.empty()) lines.emplace_back("Changes of the configuration");
  for (const RecordedEvent& event : config) AddHistory(lines, event);
  return lines;
}

bool IsStation(const RecordedEvent& begun, const std::string& station) {
  return SameIgnoringCase(begun.Station, station) || begun.Number == station ||
         begun.Number == Padded(station, 3, "L", "0");
}

}  // namespace

std::vector<std::string> ListRecord(Disk& disk, const std::string& station) {
  if (!disk.Exists(kRecordPath)) throw FileError(kRecordPath, "does not exist: no station was run yet");
  Database record(disk, kRecordPath, Opening::ToRead);
  if (station.empty()) return Stations(record);
  std::vector<std::string> lines;
  for (const Database::Run& run : record.Runs("")) {
    if (!IsStation(run.Begun, station)) continue;
    lines.push_back("Station " + run.Begun.Number + ", " + run.Begun.Station + ", cruise " +
                    run.Begun.Cruise);
    for (const RecordedEvent& event : record.EventsOf(run.Begun.Uid)) AddHistory(lines, event);
  }
  if (lines.empty())
    throw FileError(kRecordPath, "holds no station \"" + station + "\"; --record alone lists them");
  return lines;
}

}  // namespace kelp
