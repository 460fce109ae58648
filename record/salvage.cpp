// SPDX-License-Identifier: GPL-3.0-or-later
// What a damaged database still gives, and where it goes.
#include <algorithm>
#include <set>

#include "record/database.hpp"
#include "record/event_rows.hpp"

namespace kelp {

namespace {

// A page that stands where another one was gives the same place twice: the new database takes each once.
void DropRepeats(std::vector<RecordedValue>& values) {
  const auto before = [](const RecordedValue& a, const RecordedValue& b) { return a.Place < b.Place; };
  const auto same = [](const RecordedValue& a, const RecordedValue& b) { return a.Place == b.Place; };
  std::stable_sort(values.begin(), values.end(), before);
  values.erase(std::unique(values.begin(), values.end(), same), values.end());
}

}  // namespace

// True when the scan came to its end.
bool Database::Scan(const char* order, std::vector<RecordedEvent>& events) {
  try {
    Statement rows(*connection_,
                   ("SELECT " + std::string(kEventColumns) + " FROM event ORDER BY id " + order).c_str());
    while (rows.Row()) {
      events.push_back(EventAt(rows, 0));
      try {
        AddValuesOf(*values_, rows.Number(0), events.back().Values);
      } catch (const RecordError&) {
        // The event itself and what was read of it stay.
      }
      DropRepeats(events.back().Values);
    }
    return true;
  } catch (const RecordError&) {
    return false;
  }
}

// From both ends: what lies behind the damage is the newest. Each number once, as a database takes it.
std::vector<RecordedEvent> Database::AllEvents() {
  std::vector<RecordedEvent> events;
  if (!Scan("ASC", events)) {
    std::vector<RecordedEvent> newest;
    Scan("DESC", newest);
    events.insert(events.end(), newest.rbegin(), newest.rend());
  }
  std::set<std::int64_t> given;
  std::erase_if(events, [&](const RecordedEvent& event) { return !given.insert(event.Uid).second; });
  return events;
}

std::string SetAside(Disk& disk, const std::string& path, const std::string& stamp) {
  const auto dot = path.rfind('.');
  const std::string stem = path.substr(0, dot) + "-" + stamp;
  std::string aside = stem + path.substr(dot);
  for (int count = 2; disk.Exists(aside); ++count)
    aside = stem + "-" + std::to_string(count) + path.substr(dot);
  // Its journal goes first: SQLite would roll it back into the database that takes this place.
  if (disk.Exists(path + "-journal")) disk.Move(path + "-journal", aside + "-journal");
  if (disk.Exists(path)) disk.Move(path, aside);
  return aside;
}

}  // namespace kelp
