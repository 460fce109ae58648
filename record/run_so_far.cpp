// SPDX-License-Identifier: GPL-3.0-or-later
#include "record/run_so_far.hpp"

#include <algorithm>

#include "core/text.hpp"
#include "record/places.hpp"

namespace kelp {

namespace {

// The values that lie in no file of the station: all that differ from where it was saved last.
int CountUnsaved(const Values& saved, const Values& now) {
  const auto valueOf = [](const Values& values, const std::string& place) {
    const auto found = values.find(place);
    return found == values.end() ? std::string() : found->second;
  };
  int count = 0;
  for (const auto& [place, value] : now)
    if (IsCounted(place) && value != valueOf(saved, place)) ++count;
  return count;
}

// A station that took over end values, or whose record began anew, begins without the measured ones.
Values WithoutMeasured(Values values) {
  for (auto& [place, value] : values)
    if (IsMeasured(place)) value = StartsWith(place, "txtBlank(") ? "0" : "";
  return values;
}

bool Stores(const RecordedEvent& event) { return event.Kind == kStore || event.Kind == kUndo; }

}  // namespace

RunSoFar FoldRun(const std::vector<RecordedEvent>& events) {
  RunSoFar run;
  Values saved;
  for (const RecordedEvent& event : events) {
    for (const RecordedValue& value : event.Values) run.Now[value.Place] = value.After;
    if (!event.Mark.empty()) run.Mark = event.Mark;
    run.Name = event.Name;
    const bool begins = event.Uid == event.Run;
    if (begins) run.Begun = event;
    if (begins) saved = event.Kind == kLoad ? run.Now : WithoutMeasured(run.Now);
    if (event.Kind == kSaved) saved = run.Now;
    if (begins || Stores(event)) run.Last = event.At;
    run.IsAside = event.Kind == kAside || (run.IsAside && !Stores(event) && event.Kind != kRestore);
  }
  run.Unsaved = CountUnsaved(saved, run.Now);
  return run;
}

std::vector<std::vector<RecordedEvent>> StepsOf(const std::vector<RecordedEvent>& events) {
  std::vector<std::vector<RecordedEvent>> steps;
  for (const RecordedEvent& event : events) {
    if (event.Kind == kUndo)
      std::erase_if(steps, [&](const auto& step) { return step.front().Step == event.Undoes; });
    if (event.Kind != kStore) continue;
    if (steps.empty() || steps.back().front().Step != event.Step) steps.emplace_back();
    steps.back().push_back(event);
  }
  return steps;
}

}  // namespace kelp
