// SPDX-License-Identifier: GPL-3.0-or-later
// An unfinished station is offered, and goes on where it was.
#include <algorithm>
#include <utility>

#include "core/option.hpp"
#include "core/steps.hpp"
#include "core/text.hpp"
#include "record/book.hpp"
#include "record/record.hpp"

namespace kelp {

namespace {

int StepOptionOf(const std::string& step) {
  const int selector = SelectorOf(step);
  return selector >= 0 ? selector : kStepSamples;
}

// Where the run goes on: a sample that has its Rb waits for acid, and after the last Ra the chooser. Another
// sample that has its Ra already is about to be read again.
ResumeAt PlaceToGoOn(const RunState& run, const std::string& rb, const std::string& ra) {
  if (StepOptionOf(run.StepName) != kStepSamples) return ResumeAt::Step;
  if (!rb.empty() && ra.empty()) return ResumeAt::Ra;
  return !ra.empty() && run.SampNum >= run.SampCount ? ResumeAt::Chooser : ResumeAt::Step;
}

// The rows that the record knows of. A base file that was created anew since may have more; they stay.
int RowsOf(const Values& values) {
  int rows = 0;
  for (const auto& [place, value] : values) {
    if (place == "SampCount")
      rows = std::max(rows, static_cast<int>(std::clamp<double>(Val(value), 0, kMaxSamples)));
    if (!value.empty()) rows = std::max(rows, SampleOf(place));
  }
  return rows;
}

// The table's first rows are the base file's, but for the blanks and for remarks, which stand in the row of
// the sample's bare number.
bool IsBaseFileHead(const KeptPlace& place) {
  return place.Name == "SampTbl" && place.A < StationTable::kFirstSampleRow && place.A != 2 &&
         place.B < kTblFiltererRemark;
}

void PutBack(Kelp& kelp, const Values& values) {
  const int rows = RowsOf(values);
  const int count = kelp.run.SampCount;
  VisitPlaces(kelp, [&](const KeptPlace& place, auto& field) {
    const std::string name = TextOf(place);
    const int sample = SampleOf(name);
    // What the screen shows at a moment follows from the place where the run goes on.
    if (place.Weight == Weight::Screen || sample > rows || IsBaseFileHead(place)) return;
    const auto value = values.find(name);
    if (value == values.end() && sample == 0) return;
    try {
      SetValue(field, value == values.end() ? "" : value->second);
    } catch (const RunTimeError&) {
      // A number that none of ours can be: somebody else wrote into the database. The place stays.
    }
  });
  RunState& run = kelp.run;
  run.SampCount = std::clamp<int>(std::max(count, int{run.SampCount}), 0, kMaxSamples);
  run.SampNum = std::clamp<int>(run.SampNum, 1, kMaxSamples + 1);
  SelectOption(kelp.frmAcquire.Option1, StepOptionOf(run.StepName));
  run.Resume = ResumeAt::Step;
  FollowCells(kelp);
}

std::string Question(const RunSoFar& run, bool baseIsNewer) {
  const bool one = run.Unsaved == 1;
  std::string text = "Station " + run.Begun.Number + " (" + run.Name + ") has " +
                     std::to_string(run.Unsaved) + (one ? " value that is" : " values that are") +
                     " not saved, the last of " + ShownTime(run.Last) + ".";
  if (baseIsNewer)
    text +=
        " Its base file was written after that, by another machine or program: what stands there is newer.";
  return text + " Go on with it? Y/N";
}

// True where the file is not as it was when the record knew it last.
bool BaseIsNewer(Kelp& kelp, const RunSoFar& run) {
  try {
    Disk& disk = kelp.platform.disk();
    return !run.Mark.empty() && disk.Exists(run.Begun.Station) &&
           MarkOf(disk.Read(run.Begun.Station)) != run.Mark;
  } catch (const FileError&) {
    return false;  // the share is gone: opening the station will tell
  }
}

bool AskToGoOn(Kelp& kelp, const RunSoFar& run) {
  const bool newer = BaseIsNewer(kelp, run);
  Message question{Question(run, newer), "Unfinished station", Buttons::YesNo};
  question.DefaultNo = newer;
  return AskYes(kelp, question);
}

void PutAside(Kelp& kelp, const RunSoFar& run) {
  RecordedEvent event = run.Begun;
  event.Uid = event.Step = NewUid(kelp);
  event.Kind = kAside;
  event.At = RecordTime(kelp.platform.Now());
  event.How = event.Mark = event.Rows = "";
  event.Values.clear();
  Add(kelp, std::move(event));
}

// What waits to be written belongs to the run as well.
std::vector<RecordedEvent> EventsOf(Kelp& kelp, std::int64_t run) {
  Database& record = OpenRecord(kelp);
  std::vector<RecordedEvent> events = record.EventsOf(run);
  for (const RecordedEvent& event : BookOf(kelp).Pending)
    if (event.Run == run && !record.Has(event.Uid)) events.push_back(event);
  return events;
}

// The newest run of a station with values that are in no file; one that was set aside counts too until the
// station is saved.
std::vector<RecordedEvent> UnsavedRun(Kelp& kelp, const std::string& station) {
  Database& record = OpenRecord(kelp);
  std::vector<Database::Run> runs = record.Runs(station);
  std::reverse(runs.begin(), runs.end());
  for (const Database::Run& run : runs) {
    if (run.Last.Kind == kSaved) return {};
    if (run.Last.Kind == kLoad) continue;
    std::vector<RecordedEvent> events = EventsOf(kelp, run.Begun.Uid);
    if (FoldRun(events).Unsaved > 0) return events;
    for (const RecordedEvent& event : events)
      if (event.Kind == kSaved) return {};
  }
  return {};
}

void OfferEach(Kelp& kelp) {
  TakeOver(kelp);
  for (const Database::Run& open : OpenRecord(kelp).OpenRuns()) {
    const RunSoFar run = FoldRun(EventsOf(kelp, open.Begun.Uid));
    if (run.Unsaved == 0 || run.IsAside) continue;
    if (AskToGoOn(kelp, run)) {
      kelp.record.Chosen = {run.Begun.Station, run.Begun.Number, run.Begun.Cruise};
      return;
    }
    PutAside(kelp, run);
  }
}

// Damage that shows while the record is read: it is set aside, and what could be read of it is in the new
// one.
template <class Work>
void OrAnew(Kelp& kelp, const Work& work) {
  RecordBook& book = BookOf(kelp);
  try {
    try {
      work();
    } catch (const RecordError& error) {
      if (!error.Unusable) throw;
      book.Main.reset();
      book.Unusable = true;
      book.Notice = error.what();
      work();
    }
  } catch (const FileError& error) {
    book.Main.reset();
    ReportError(kelp, error);
  }
}

}  // namespace

void FollowCells(Kelp& kelp) {
  RunState& run = kelp.run;
  const Grid& grid = kelp.frmAcquire.datalog;
  const int row = std::clamp<int>(run.SampNum, 1, kMaxSamples);
  const std::string& rb = grid.Text(row, kColRb);
  run.RbReading = static_cast<float>(Val(rb));
  if (run.Resume != ResumeAt::Nothing) run.Resume = PlaceToGoOn(run, rb, grid.Text(row, kColRa));
}

void OfferUnfinished(Kelp& kelp) {
  kelp.record.Chosen.reset();
  OrAnew(kelp, [&] { OfferEach(kelp); });
}

bool OfferRestore(Kelp& kelp) {
  RecordBook& book = BookOf(kelp);
  book.Restored.clear();
  const std::string station = kelp.run.PrnFile.substr(0, kelp.run.PrnFile.size() - 4);
  const auto chosen = std::exchange(kelp.record.Chosen, std::nullopt);
  OrAnew(kelp, [&] {
    WriteRecord(kelp);
    std::vector<RecordedEvent> events = UnsavedRun(kelp, station);
    if (events.empty()) return;
    const RunSoFar run = FoldRun(events);
    if ((!chosen || !SameIgnoringCase(chosen->BaseFile, station)) && !AskToGoOn(kelp, run)) {
      PutAside(kelp, run);
      return;
    }
    PutBack(kelp, run.Now);
    book.Restored = std::move(events);
    SetStatus(kelp, "Station " + kelp.run.ProcNum + " goes on at sample " +
                        std::to_string(int{kelp.run.SampNum}) + ": its values are back.");
  });
  return !book.Restored.empty();
}

}  // namespace kelp
