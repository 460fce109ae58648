#include "files/journal.hpp"

#include "core/text.hpp"
#include "files/journal_values.hpp"
#include "files/kept_copy.hpp"

namespace kelp {

namespace {

constexpr const char* kTrouble =
    "READINGS ARE NOT SAFE ON THE DISK: the journal could not be written, see to the disk. ";

std::string JournalPath(const RunState& run) {
  return run.TmpFile.empty() ? "" : run.TmpFile.substr(0, run.TmpFile.size() - 4) + ".jnl";
}

// A crash may have left the journal in the other place: a backup folder comes and goes with its drive.
std::vector<std::string> JournalPlaces(const RunState& run) {
  std::vector<std::string> places = {JournalPath(run)};
  const std::string name = "chl" + run.ProcNum + ".jnl";
  for (const std::string& place : {run.BackupDir + name, "C:\\kelp\\" + run.CruiseID + name})
    if (!SameIgnoringCase(place, places.front())) places.push_back(place);
  return places;
}

// A station reloaded from a kept copy is the same station.
std::string StationName(const RunState& run) { return Lower(StationPath(run.BaseFile)); }

struct Difference {
  std::vector<std::string> values = {};  ///< of the station now
  std::string lines = {};                ///< what differs from the journal
  bool measured = false;                 ///< a measured value differs
  bool worthALine = false;               ///< more differs than the time of the last log record
};

Difference Compare(const Kelp& kelp) {
  const std::vector<std::string>& known = kelp.journal.Values;
  Difference difference;
  for (JournalValue& value : JournalValues(kelp)) {
    const std::size_t i = difference.values.size();
    const bool differs = i >= known.size() || known[i] != value.Line.Value;
    difference.measured = difference.measured || (value.Measured && differs);
    difference.worthALine = difference.worthALine || (differs && value.Line.Kind != "RunDate");
    if (differs) difference.lines += JournalText(value.Line);
    difference.values.push_back(std::move(value.Line.Value));
  }
  return difference;
}

// A section of its own. Empty values are part of it: the base file may know others by the time of a restore.
std::string WholeSection(const Kelp& kelp) {
  std::string section = SectionHead(StationName(kelp.run));
  for (const JournalValue& value : JournalValues(kelp)) section += JournalText(value.Line);
  return section;
}

// What the file holds. One that can't be read is set aside: somebody may get more out of it than this
// program.
std::string ReadOrSetAside(Disk& disk, const std::string& path) {
  try {
    return disk.Exists(path) ? disk.Read(path) : "";
  } catch (const FileError&) {
    try {
      disk.Keep(path, path + ".unreadable");
    } catch (const FileError&) {
      // The readings of now come first.
    }
    return {};
  }
}

void WriteAnew(Kelp& kelp, const std::string& path) {
  Disk& disk = kelp.platform.disk();
  std::string before = ReadOrSetAside(disk, path);
  if (!before.empty() && !before.ends_with('\n')) before += "\r\n";
  disk.Replace(path, before + WholeSection(kelp));
}

// Puts the station's values on the disk: the changes, or all of them where the changes alone would not do.
// A file that has vanished, or one whose last write failed, can't be gone on with.
void Write(Kelp& kelp, const Difference& changes) {
  JournalState& journal = kelp.journal;
  try {
    Disk& disk = kelp.platform.disk();
    const std::string path = JournalPath(kelp.run);
    const bool otherRows = changes.values.size() != journal.Values.size();
    if (journal.Failed || (journal.Begun && !disk.Exists(path)))
      WriteAnew(kelp, path);
    else
      disk.Append(path, journal.Begun && !otherRows ? changes.lines : WholeSection(kelp));
    journal.Values = changes.values;
    if (journal.Failed) SetStatus(kelp, "Readings are safe on the disk again: the journal was written anew.");
    journal.Begun = true;
    journal.Failed = false;
    SetWarning(kelp, "");
  } catch (const std::exception& error) {
    journal.Failed = true;
    SetWarning(kelp, kTrouble + std::string(error.what()) + ". ");
  }
}

void DropSections(Disk& disk, const std::string& path, const std::string& station) {
  if (!disk.Exists(path)) return;
  const std::string others = WithoutStation(disk.Read(path), station);
  others.empty() ? disk.Remove(path) : disk.Replace(path, others);
}

// A station was loaded. One that was restored goes on at once, in a whole section without the damage.
void TakeUp(Kelp& kelp) {
  JournalState& journal = kelp.journal;
  const std::string restored = journal.RestoredFrom;
  journal = {.StationLoads = kelp.run.StationLoads};
  SetWarning(kelp, "");
  const Difference all = Compare(kelp);
  journal.Values = all.values;
  if (restored.empty()) return;
  const std::string status = kelp.Status;
  journal.Failed = true;  // so that it is written whole, to a new file
  Write(kelp, all);
  SetStatus(kelp, status);
  if (journal.Failed || SameIgnoringCase(restored, JournalPath(kelp.run))) return;
  try {
    DropSections(kelp.platform.disk(), restored, StationName(kelp.run));
  } catch (const RunTimeError& error) {
    SetStatus(kelp, error.what());
  }
}

}  // namespace

void KeepJournal(Kelp& kelp) {
  JournalState& journal = kelp.journal;
  if (kelp.run.TmpFile.empty()) return;
  if (journal.StationLoads != kelp.run.StationLoads) {
    TakeUp(kelp);
    return;
  }
  const Difference changes = Compare(kelp);
  if (!changes.worthALine && !journal.Failed) return;
  if (journal.Begun || journal.Failed || changes.measured)
    Write(kelp, changes);
  else
    journal.Values = changes.values;
}

bool OfferRestore(Kelp& kelp) {
  kelp.journal.RestoredFrom.clear();
  Disk& disk = kelp.platform.disk();
  for (const std::string& path : JournalPlaces(kelp.run)) {
    std::vector<JournalLine> lines;
    try {
      if (disk.Exists(path)) lines = LastSection(disk.Read(path), StationName(kelp.run));
    } catch (const FileError& error) {
      ReportError(kelp, error);
    }
    if (lines.empty()) continue;
    if (!AskYes(kelp, "Readings of this station were recorded but not saved. Restore them? Y/N",
                "Restore readings?"))
      return false;
    RestoreStation(kelp, lines);
    kelp.journal.RestoredFrom = path;
    SetStatus(kelp,
              "Readings restored. The run goes on at sample " + std::to_string(int{kelp.run.SampNum}) + ".");
    return true;
  }
  return false;
}

void EndJournal(Kelp& kelp) {
  if (kelp.run.TmpFile.empty()) return;
  if (RowsInUse(kelp) > kelp.run.SampCount) {
    SetStatus(kelp, "Readings behind the last sample are not part of the station; the journal keeps them.");
    return;
  }
  // Whether or not the file can be removed, what comes next begins a section of its own.
  kelp.journal.Begun = false;
  kelp.journal.Failed = false;
  kelp.journal.Values = Compare(kelp).values;
  SetWarning(kelp, "");
  try {
    DropSections(kelp.platform.disk(), JournalPath(kelp.run), StationName(kelp.run));
  } catch (const RunTimeError& error) {
    SetStatus(kelp, error.what());
  }
}

}  // namespace kelp
