// SPDX-License-Identifier: GPL-3.0-or-later
// What other files hold of accepted values: a spare from days when the record could not be written, and the
// journals of Kelp 0.1. Each is taken into the record once and kept under another name.
#include <cstdlib>
#include <map>

#include "core/config.hpp"
#include "core/date_time.hpp"
#include "core/text.hpp"
#include "record/book.hpp"
#include "record/old_journal.hpp"
#include "record/record.hpp"

namespace kelp {

namespace {

// A number made from a content is the same whenever that is taken over: never twice.
std::int64_t UidOf(const std::string& text) {
  const std::string mark = MarkOf(text);
  return static_cast<std::int64_t>(std::strtoull(mark.c_str() + mark.find('-') + 1, nullptr, 16) &
                                   0x3FFFFFFFFFFFFFFFU);
}

void Rename(Kelp& kelp, const std::string& path) {
  Disk& disk = kelp.platform.disk();
  std::string name = path + ".taken";
  for (int count = 2; disk.Exists(name); ++count) name = path + ".taken" + std::to_string(count);
  try {
    disk.Move(path, name);
  } catch (const FileError& error) {
    SetStatus(kelp, error.what());  // taken over again next time, and then nothing of it is new
  }
}

void TakeSpare(Kelp& kelp, const std::string& path) {
  Disk& disk = kelp.platform.disk();
  if (!disk.Exists(path)) return;
  {
    Database spare(disk, path);
    OpenRecord(kelp).Write(spare.AllEvents());
  }
  if (disk.Exists(path + "-journal")) disk.Remove(path + "-journal");
  Rename(kelp, path);
}

// A journal of one station becomes a run: what it began with is not known, so that all of it counts.
void TakeJournal(Kelp& kelp, const std::string& path) {
  const std::string content = kelp.platform.disk().Read(path);
  for (const OldStation& station : ReadOldJournal(content)) {
    RecordedEvent event = NewEvent(kelp, kWhole, How::Restored);
    event.Uid = event.Step = event.Run = UidOf(station.BaseFile + "\n" + content);
    event.Station = station.BaseFile;
    event.Name.clear();
    event.Number = station.BaseFile.substr(station.BaseFile.rfind('\\') + 1).substr(3);
    // The record holds a place once an event; of two lines for one place the later counts.
    std::map<std::string, std::string> last;
    for (const auto& [place, value] : station.Values) last[place] = value;
    for (const auto& [place, value] : last) {
      event.Values.push_back({place, "", "", value});
      if (place == "txtStaInfo(1)") event.Name = Trim(value);
      if (place == "Combo1") event.Analyst = Trim(value);
      const auto read = place == "RunDate" ? ParseDateTime(Replaced(value, ",", " ")) : std::nullopt;
      if (read) event.At = RecordTime(*read);
    }
    OpenRecord(kelp).Write({event});
  }
  Rename(kelp, path);
}

template <class Work>
void OrTell(Kelp& kelp, const Work& work) {
  try {
    work();
  } catch (const FileError& error) {
    Message message{std::string(error.what()) +
                        ".\nIts readings can't be taken into the record now; the file stays as it is.",
                    "Readings in an old file", Buttons::Ok, Icon::Exclamation};
    message.ReportsFailure = true;
    kelp.platform.Ask(message);
  }
}

}  // namespace

std::vector<std::string> SparePaths(Kelp& kelp) {
  const std::string name = "record-" + kelp.platform.MachineName() + ".db";
  const std::string& backup = kelp.run.BackupDir;
  const std::string& temporary = kelp.run.TmpFile;
  std::vector<std::string> paths;
  if (!temporary.empty()) paths.push_back(temporary.substr(0, temporary.rfind('\\') + 1) + name);
  for (const std::string& folder : {backup, std::string("c:\\kelp\\")})
    if (!folder.empty() && (paths.empty() || !SameIgnoringCase(paths.front(), folder + name)))
      paths.push_back(folder + name);
  return paths;
}

void TakeOver(Kelp& kelp) {
  OpenRecord(kelp);
  for (const std::string& path : SparePaths(kelp)) OrTell(kelp, [&] { TakeSpare(kelp, path); });
  Disk& disk = kelp.platform.disk();
  for (const std::string& folder : {kelp.run.BackupDir, std::string("c:\\kelp\\")})
    OrTell(kelp, [&] {
      for (const std::string& name : disk.FilesIn(folder))
        if (EndsWith(Lower(name), ".jnl")) OrTell(kelp, [&] { TakeJournal(kelp, folder + name); });
    });
}

}  // namespace kelp
