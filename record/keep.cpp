// SPDX-License-Identifier: GPL-3.0-or-later
// What an event stored goes into the record.
#include <algorithm>

#include "core/date_time.hpp"
#include "core/text.hpp"
#include "record/book.hpp"
#include "record/record.hpp"

namespace kelp {

namespace {

struct Changes {
  std::vector<RecordedValue> Values = {};
  bool Stores = false;
};

// A station reloaded from a kept copy is the same station; the caller names it by its base file.
std::string StationOf(const RunState& run) {
  // All station files stand beside the base file and are named after it.
  return run.PrnFile.empty() ? "" : run.PrnFile.substr(0, run.PrnFile.size() - 4);
}

// What this event changed; and of what moved before, what it left alone.
Changes Compare(Kelp& kelp, bool isEvent) {
  RecordBook& book = BookOf(kelp);
  Changes changes;
  std::vector<std::size_t> indexes;
  std::size_t at = 0;
  VisitPlaces(kelp, [&](const KeptPlace& place, const auto& field) {
    const auto& text = ValueText(field);
    std::string& known = book.Known[at];
    if (known != text) {
      changes.Values.push_back({TextOf(place), WordsFor(kelp, place), known, text});
      changes.Stores = changes.Stores || place.Weight <= Weight::Stored;
      indexes.push_back(at);
      known = text;
    }
    ++at;
  });
  if (!isEvent || !changes.Stores) {
    for (std::size_t i = 0; i < indexes.size(); ++i) book.Old.emplace(indexes[i], changes.Values[i].Before);
    return changes;
  }
  for (const std::size_t index : indexes) book.Old.erase(index);
  return changes;
}

void AddMoved(Kelp& kelp, std::vector<RecordedValue>& values) {
  RecordBook& book = BookOf(kelp);
  if (book.Old.empty()) return;
  std::size_t at = 0;
  VisitPlaces(kelp, [&](const KeptPlace& place, const auto& /*field*/) {
    const auto old = book.Old.find(at);
    if (old != book.Old.end() && old->second != book.Known[at])
      values.push_back({TextOf(place), "", old->second, book.Known[at], true});
    ++at;
  });
  book.Old.clear();
}

// Every place that is not empty.
std::vector<RecordedValue> AllValues(Kelp& kelp) {
  std::vector<RecordedValue> values;
  VisitPlaces(kelp, [&](const KeptPlace& place, const auto& field) {
    const std::string text = ValueText(field);
    if (text.empty()) return;
    const std::string name = TextOf(place);
    values.push_back({name, IsMeasured(name) ? WordsFor(kelp, place) : "", "", text});
  });
  return values;
}

void Know(Kelp& kelp) {
  RecordBook& book = BookOf(kelp);
  book.Known.clear();
  book.Old.clear();
  VisitPlaces(kelp, [&](const KeptPlace&, const auto& field) { book.Known.push_back(ValueText(field)); });
}

std::string MarkOfBase(Kelp& kelp) {
  try {
    return MarkOf(kelp.platform.disk().Read(StationOf(kelp.run)));
  } catch (const FileError&) {
    return {};  // a share that is gone for now: then nothing is told of the file later
  }
}

int Rank(const std::string& place) { return place == "SampCount" ? 2 : IsCounted(place) ? 1 : 0; }

// The first value of a doing that people would miss gives it its name.
const RecordedValue* Named(const std::vector<RecordedEvent>& step) {
  const RecordedValue* named = nullptr;
  for (const RecordedEvent& event : step)
    for (const RecordedValue& value : event.Values)
      if (!value.Moved && !value.What.empty() && (named == nullptr || Rank(value.Place) > Rank(named->Place)))
        named = &value;
  return named;
}

std::string InWords(const std::vector<RecordedEvent>& step) {
  const RecordedValue* value = Named(step);
  const std::string how = step.front().How;
  if (value == nullptr) return "the last value (" + how + ")";
  const auto shown = [](const std::string& text) { return text.empty() ? "empty" : text; };
  return value->What + ": " + shown(value->Before) + " -> " + shown(value->After) + " (" + how + ")";
}

// Characters typed into one cell one after the other are one doing.
bool GoesOnTyping(const std::vector<RecordedEvent>& step, const RecordedEvent& event) {
  const std::string typed(WordsFor(How::Typed));
  const RecordedValue* before = Named(step);
  const std::vector<RecordedEvent> alone = {event};
  const RecordedValue* now = Named(alone);
  return step.front().How == typed && event.How == typed && before != nullptr && now != nullptr &&
         before->Place == now->Place;
}

void TakeStep(RecordBook& book, RecordedEvent& event) {
  const bool goesOn = !book.Steps.empty() && (book.Steps.back().front().Step == book.EventStep ||
                                              GoesOnTyping(book.Steps.back(), event));
  if (!goesOn) book.Steps.emplace_back();
  event.Step = goesOn ? book.Steps.back().front().Step : event.Uid;
  book.EventStep = event.Step;
  book.Steps.back().push_back(event);
}

void ShowUndo(Kelp& kelp) {
  Button& button = kelp.frmAcquire.cmdUndo;
  button.Enabled = CanUndo(kelp);
  button.ToolTipText =
      button.Enabled ? "Takes back " + InWords(BookOf(kelp).Steps.back()) : "Nothing to take back";
}

// A station was loaded: all that it begins with, or where a restored one goes on.
void TakeUp(Kelp& kelp) {
  RecordBook& book = BookOf(kelp);
  const std::vector<RecordedEvent> restored = std::move(book.Restored);
  book.StationLoads = kelp.run.StationLoads;
  book.Station = StationOf(kelp.run);
  book.Steps.clear();
  book.Saved = false;
  RecordedEvent event = NewEvent(kelp, kelp.record.CarriedOver ? kCarry : kLoad,
                                 restored.empty() ? How::Loaded : How::Restored);
  if (!restored.empty()) {
    // The run goes on: what it stored before can still be taken back, and what the restore could not put
    // back is told.
    event.Kind = kRestore;
    book.Run = event.Run = restored.front().Run;
    Values before = FoldRun(restored).Now;
    book.Steps = StepsOf(restored);
    VisitPlaces(kelp, [&](const KeptPlace& place, const auto& field) {
      std::string& old = before[TextOf(place)];
      if (const std::string text = ValueText(field); old != text)
        event.Values.push_back({TextOf(place), "", old, text, true});
    });
  } else {
    book.Run = event.Run = event.Uid;
    event.Values = AllValues(kelp);
  }
  Know(kelp);
  kelp.record.CarriedOver = false;
  event.Mark = MarkOfBase(kelp);
  try {
    kelp.record.SavedRows = OpenRecord(kelp).SavedRows(book.Station);
  } catch (const FileError&) {
    kelp.record.SavedRows.clear();
  }
  Add(kelp, std::move(event));
}

// Relocated readings may lie there.
bool HasReadingsBehindTheLastSample(const Kelp& kelp) {
  const Grid& grid = kelp.frmAcquire.datalog;
  for (int row = kelp.run.SampCount + 1; row < grid.Rows; ++row)
    if (!grid.Text(row, kColRb).empty() || !grid.Text(row, kColRa).empty()) return true;
  return false;
}

bool Keep(Kelp& kelp) {
  RecordBook& book = BookOf(kelp);
  if (StationOf(kelp.run).empty()) {
    book.StationLoads = 0;
    book.Steps.clear();
    WriteRecord(kelp);
    return false;
  }
  if (book.StationLoads != kelp.run.StationLoads) {
    TakeUp(kelp);
    return true;
  }
  Changes changes = Compare(kelp, !book.SavedNow);
  if (!changes.Stores || book.SavedNow) {
    WriteRecord(kelp);
    return false;
  }
  RecordedEvent event = NewEvent(kelp, book.Undoing != 0 ? kUndo : kStore, kelp.Note.Way);
  event.Reads = kelp.Note.Reads;
  event.Sd = kelp.Note.Sd;
  event.Values = std::move(changes.Values);
  event.Undoes = book.Undoing;
  if (book.Undoing == 0) TakeStep(book, event);
  AddMoved(kelp, event.Values);
  book.Saved = false;
  Add(kelp, std::move(event));
  return true;
}

}  // namespace

void BeginEvent(Kelp& kelp, const StoreNote& note) {
  kelp.Note = note;
  if (!kelp.record.Book) return;
  kelp.record.Book->EventStep = 0;
  kelp.record.Book->SavedNow = false;
}

bool KeepRecord(Kelp& kelp) {
  bool stored = false;
  try {
    stored = Keep(kelp);
  } catch (const std::exception& error) {
    kelp.record.Unsafe = true;
    SetWarning(kelp, "READINGS ARE NOT SAFE ON THE DISK: " + std::string(error.what()) + ". ");
  }
  BookOf(kelp).Restored.clear();
  BookOf(kelp).Undoing = 0;
  ShowUndo(kelp);
  return stored;
}

void RecordSaved(Kelp& kelp, const std::string& rows) {
  RecordBook& book = BookOf(kelp);
  KeepRecord(kelp);
  if (StationOf(kelp.run).empty()) return;
  if (HasReadingsBehindTheLastSample(kelp)) {
    SetStatus(kelp, "Readings behind the last sample are not part of the station; the record keeps them.");
    return;
  }
  RecordedEvent event = NewEvent(kelp, kSaved, How::Loaded);
  event.How = "";
  event.Mark = MarkOfBase(kelp);
  event.Rows = rows;
  AddMoved(kelp, event.Values);
  kelp.record.SavedRows = rows;
  Add(kelp, std::move(event));
  book.Saved = true;
  book.SavedNow = true;
}

bool CanUndo(const Kelp& kelp) {
  return kelp.record.Book != nullptr && !kelp.record.Book->Steps.empty() && !kelp.run.PrnFile.empty();
}

Undone UndoLast(Kelp& kelp) {
  if (!CanUndo(kelp)) return {};
  RecordBook& book = BookOf(kelp);
  const std::vector<RecordedEvent> step = book.Steps.back();
  Values before;
  for (const RecordedEvent& event : step)
    for (const RecordedValue& value : event.Values)
      if (!value.Moved) before.emplace(value.Place, value.Before);
  // What only went along with a typed or recalculated value has moved on with the run since.
  const bool moves = before.contains("Command1") || before.contains("SampNum");
  VisitPlaces(kelp, [&](const KeptPlace& place, auto& field) {
    if (!moves && (place.Weight == Weight::Screen || place.Name == "StepName")) return;
    const auto value = before.find(TextOf(place));
    if (value != before.end()) SetValue(field, value->second);
  });
  ++kelp.run.Stores;
  FollowCells(kelp);
  book.Steps.pop_back();
  book.Undoing = step.front().Step;
  kelp.Note = {.Way = How::Undone};
  return {InWords(step), moves};
}

}  // namespace kelp
