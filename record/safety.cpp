// SPDX-License-Identifier: GPL-3.0-or-later
// Writing what waits: the record, and while that can't be written a spare beside the temporary copy.
#include <algorithm>
#include <cstdint>
#include <random>

#include "core/text.hpp"
#include "record/book.hpp"
#include "record/record.hpp"

namespace kelp {

namespace {

std::string Stamp(LocalTime now) {
  std::string stamp;
  for (const char c : RecordTime(now))
    if (c >= '0' && c <= '9') stamp += c;
  return stamp.insert(8, "-");
}

// A database that came back without what was written, or was begun anew, gets the station as it stands.
void WriteWholeStation(Kelp& kelp) {
  RecordBook& book = BookOf(kelp);
  if (book.LastWritten == 0 || kelp.run.PrnFile.empty() || book.Known.empty()) return;
  RecordedEvent whole = NewEvent(kelp, kWhole, How::Loaded);
  const std::int64_t before = book.Run;
  whole.Run = whole.Uid;
  std::size_t at = 0;
  VisitPlaces(kelp, [&](const KeptPlace& place, const auto& /*field*/) {
    const std::string& text = book.Known[at++];
    const std::string name = TextOf(place);
    if (!text.empty())
      whole.Values.push_back({name, IsMeasured(name) ? WordsFor(kelp, place) : "", "", text});
  });
  for (RecordedEvent& event : book.Pending)
    if (event.Run == before) event.Run = whole.Uid;
  book.Run = whole.Uid;
  std::vector<RecordedEvent> events = {whole};
  if (book.Saved) {
    RecordedEvent saved = NewEvent(kelp, kSaved, How::Loaded);
    saved.How = "";
    saved.Rows = kelp.record.SavedRows;
    events.push_back(saved);
  }
  // Before what waits: that may have been stored in it already, which does no harm.
  book.Pending.insert(book.Pending.begin(), events.begin(), events.end());
}

// Damage can hide a run from the search for it although the database takes events of it without a word.
bool RunIsLost(RecordBook& book, Database& record) {
  const auto begins = [&](const RecordedEvent& event) { return event.Uid == book.Run; };
  return book.Run != 0 && book.LastWritten != 0 &&
         std::none_of(book.Pending.begin(), book.Pending.end(), begins) &&
         !record.HasBegun(book.Run, book.Station);
}

// Takes what a damaged database still gives into the new one.
void Salvage(Kelp& kelp, const std::string& aside) {
  try {
    Database old(kelp.platform.disk(), aside, Opening::ToSalvage);
    BookOf(kelp).Main->Write(old.AllEvents());
  } catch (const FileError&) {
    // Nothing of it can be read here; it is kept for somebody with other tools.
  }
}

void BeginAnew(Kelp& kelp) {
  RecordBook& book = BookOf(kelp);
  Disk& disk = kelp.platform.disk();
  const std::string aside = SetAside(disk, kRecordPath, Stamp(kelp.platform.Now()));
  book.Main = std::make_unique<Database>(disk, kRecordPath);
  book.Unusable = false;
  Salvage(kelp, aside);
  book.Notice += ".\nIt is kept as " + aside +
                 ", and a new record has begun; what could be read of the old one is in it.";
}

void Write(Kelp& kelp) {
  RecordBook& book = BookOf(kelp);
  for (int attempt = 0; attempt < 2; ++attempt) {
    try {
      Database& record = OpenRecord(kelp);
      if (RunIsLost(book, record)) WriteWholeStation(kelp);
      kelp.platform.Aside([&] { record.Write(book.Pending); });
      if (!book.Pending.empty()) book.LastWritten = book.Pending.back().Uid;
      return;
    } catch (const RecordError& error) {
      // Damage that shows while it is written: set aside, and on with a new one.
      if (!error.Unusable || attempt > 0) throw;
      book.Main.reset();
      book.Unusable = true;
      book.Notice = error.what();
    }
  }
}

void PutIntoSpare(Kelp& kelp) {
  RecordBook& book = BookOf(kelp);
  std::vector<RecordedEvent> missing;
  for (const RecordedEvent& event : book.Pending)
    if (!book.InSpare.contains(event.Uid)) missing.push_back(event);
  if (missing.empty()) return;
  const std::string path = SparePaths(kelp).front();
  if (!book.Spare || book.Spare->path() != path)
    book.Spare = std::make_unique<Database>(kelp.platform.disk(), path);
  book.Spare->Write(missing);
  for (const RecordedEvent& event : missing) book.InSpare.insert(event.Uid);
}

void TellTrouble(Kelp& kelp, const std::string& reason) {
  RecordBook& book = BookOf(kelp);
  std::string meanwhile;
  try {
    PutIntoSpare(kelp);
    meanwhile = "; they are in " + SparePaths(kelp).front() + " meanwhile";
  } catch (const std::exception& error) {
    book.Spare.reset();
    meanwhile = std::string("; nor does their second place take them: ") + error.what();
  }
  kelp.record.Unsafe = true;
  kelp.record.Trouble = reason + meanwhile;
  SetWarning(kelp, "READINGS ARE NOT SAFE ON THE DISK: " + kelp.record.Trouble + ". ");
}

// Where the numbers of this run of the program begin.
std::int64_t FirstUid(Kelp& kelp) {
  constexpr std::uint64_t kMask = 0x3FFFFFFFFFFFFFFF;
  std::uint64_t number = 0;
  if (kelp.platform.TimeIsOwn() && BookOf(kelp).Main) {
    number = 14695981039346656037ULL;  // FNV-1a
    for (const char c : kelp.platform.MachineName() + RecordTime(kelp.platform.Now()))
      number = (number ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
  } else {
    std::random_device random;
    number = (std::uint64_t{random()} << 31U) ^ random();
  }
  return static_cast<std::int64_t>(number & kMask);
}

// Nothing is asked, and the values come first.
void TellNotice(Kelp& kelp) {
  RecordBook& book = BookOf(kelp);
  if (book.Notice.empty()) return;
  Message message{book.Notice, "The record was set aside", Buttons::Ok, Icon::Exclamation};
  message.ReportsFailure = true;
  book.Notice.clear();
  kelp.platform.Ask(message);
}

}  // namespace

std::int64_t NewUid(Kelp& kelp) {
  RecordBook& book = BookOf(kelp);
  if (book.LastUid == 0) book.LastUid = FirstUid(kelp);
  ++book.LastUid;
  try {
    while (book.Main && book.Main->Has(book.LastUid)) ++book.LastUid;
  } catch (const FileError&) {
    // A database that fails is dealt with when the event is written.
  }
  return book.LastUid;
}

RecordBook& BookOf(Kelp& kelp) {
  if (!kelp.record.Book) kelp.record.Book = std::make_shared<RecordBook>();
  return *kelp.record.Book;
}

RecordedEvent NewEvent(Kelp& kelp, const std::string& kind, How how) {
  RecordBook& book = BookOf(kelp);
  const RunState& run = kelp.run;
  RecordedEvent event;
  event.Uid = NewUid(kelp);
  event.Run = book.Run;
  event.Step = event.Uid;
  event.Kind = kind;
  event.At = RecordTime(kelp.platform.Now());
  event.Machine = kelp.platform.MachineName();
  event.Analyst = Trim(kelp.frmAcquire.Combo1.Text);
  event.Station = book.Station;
  event.Number = run.ProcNum;
  event.Name = Trim(kelp.frmAcquire.txtStaInfo[kStaLineSta].Text);
  event.Cruise = run.CruiseID;
  event.How = WordsFor(how);
  return event;
}

void Add(Kelp& kelp, RecordedEvent event) {
  BookOf(kelp).Pending.push_back(std::move(event));
  WriteRecord(kelp);
}

void RecordConfigChange(Kelp& kelp, const std::string& how, std::vector<RecordedValue> values) {
  RecordedEvent event = NewEvent(kelp, kConfig, How::Loaded);
  // A station that is open goes on with what it was begun with.
  event.Run = 0;
  for (std::string* text : {&event.Station, &event.Number, &event.Name}) text->clear();
  if (event.Analyst.empty()) event.Analyst = Trim(kelp.run.LoginInitials);
  event.How = how;
  event.Values = std::move(values);
  Add(kelp, std::move(event));
}

Database& OpenRecord(Kelp& kelp) {
  RecordBook& book = BookOf(kelp);
  Disk& disk = kelp.platform.disk();
  if (book.Main) return *book.Main;
  disk.MakeFolder("c:\\kelp");
  if (!book.Unusable) {
    try {
      book.Main = std::make_unique<Database>(disk, kRecordPath);
    } catch (const RecordError& error) {
      if (!error.Unusable) throw;
      book.Unusable = true;
      book.Notice = error.what();
    }
  }
  if (book.Unusable) BeginAnew(kelp);
  if (book.LastWritten != 0 && !book.Main->Has(book.LastWritten)) WriteWholeStation(kelp);
  return *book.Main;
}

void WriteRecord(Kelp& kelp) {
  RecordBook& book = BookOf(kelp);
  if (book.Pending.empty() && !kelp.record.Unsafe) return;
  try {
    Write(kelp);
  } catch (const FileError& error) {
    book.Main.reset();
    TellTrouble(kelp, error.what());
    return;
  }
  book.Pending.clear();
  book.InSpare.clear();
  book.Spare.reset();
  if (kelp.record.Unsafe) {
    kelp.record.Unsafe = false;
    kelp.record.Trouble.clear();
    SetWarning(kelp, "");
    SetStatus(kelp, "Readings are safe on the disk again: all of them are in the record.");
  }
  TellNotice(kelp);
}

bool MayLeave(Kelp& kelp) {
  if (kelp.record.Unsafe) WriteRecord(kelp);
  if (!kelp.record.Unsafe) return true;
  Message question{"READINGS ARE NOT SAFE ON THE DISK: " + kelp.record.Trouble +
                       ".\nWho leaves now may lose them. Mend the disk first, then they are written by "
                       "themselves. Leave all the same? Y/N",
                   "Readings are not safe!", Buttons::YesNo, Icon::Critical};
  question.DefaultNo = true;
  return AskYes(kelp, question);
}

}  // namespace kelp
