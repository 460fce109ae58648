// SPDX-License-Identifier: GPL-3.0-or-later
// An event that stored something, as the record holds it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kelp {

/// A place, and what the event did to it.
struct RecordedValue {
  std::string Place;  ///< as operator scripts name it: "datalog(3,4)", "txtBlank(0)", "SampNum"
  std::string What;   ///< in words: "Ra of sample 3, bottle 09"; empty for what only goes along
  std::string Before;
  std::string After;
  bool Moved = false;  ///< it moved since the event before, not by this one: no undo goes back behind that
  bool operator==(const RecordedValue& other) const = default;
};

/// Kinds of event. A run of a station begins with one of the first three.
inline constexpr const char* kLoad = "load";    ///< the station was loaded from its base file
inline constexpr const char* kCarry = "carry";  ///< the same, with end values of the station before
inline constexpr const char* kWhole = "whole";  ///< the whole station, for a record that was begun anew
inline constexpr const char* kStore = "store";
inline constexpr const char* kUndo = "undo";
inline constexpr const char* kRestore = "restore";  ///< a run goes on after a crash
inline constexpr const char* kSaved = "saved";      ///< the station's files are written
inline constexpr const char* kAside = "aside";      ///< the operator did not want to go on with it
inline constexpr const char* kConfig = "config";    ///< the configuration took over values; no station's

struct RecordedEvent {
  std::int64_t Uid = 0;
  std::int64_t Run = 0;     ///< Uid of the event that began this run of the station
  std::int64_t Step = 0;    ///< Uid of the first event of what one undo takes back
  std::int64_t Undoes = 0;  ///< the step that an undo took back
  std::string Kind;
  std::string At;  ///< local time, YYYY-MM-DD HH:MM:SS
  std::string Machine;
  std::string Analyst;
  std::string Station;  ///< path of the base file
  std::string Number;   ///< processing number
  std::string Name;     ///< station text, "93.3 70"
  std::string Cruise;
  std::string How;
  int Reads = 0;
  double Sd = 0;
  std::string Mark;  ///< load, saved: mark of the base file as it stood then
  std::string Rows;  ///< saved: mark of the database rows
  std::vector<RecordedValue> Values = {};
};

}  // namespace kelp
