#include "files/journal.hpp"

#include <algorithm>
#include <array>

#include "core/numbers.hpp"
#include "core/option.hpp"
#include "core/text.hpp"
#include "files/journal_text.hpp"

namespace kelp {

namespace {

constexpr int kVersion = 1;
constexpr const char* kTrouble =
    "READINGS ARE NOT SAFE ON THE DISK: the journal could not be written, see to the disk. ";

std::string JournalPath(const RunState& run) {
  return run.TmpFile.empty() ? "" : run.TmpFile.substr(0, run.TmpFile.size() - 4) + ".jnl";
}

// A station reloaded from its kept copy is the same station.
std::string StationName(const RunState& run) {
  const std::string name = Lower(run.BaseFile);
  return EndsWith(name, "base") ? name.substr(0, name.size() - 4) : name;
}

bool IsMeasured(int gridColumn) {
  return gridColumn == kColRb || gridColumn == kColRa || gridColumn == kColFiltCom ||
         gridColumn == kColReadCom;
}

// The rows that hold samples: relocated readings may lie behind the station's last sample.
int RowsInUse(const Kelp& kelp) {
  const Grid& grid = kelp.frmAcquire.datalog;
  int rows = grid.Rows - 1;
  while (rows > kelp.run.SampCount && grid.Text(rows, kColRb).empty() && grid.Text(rows, kColRa).empty())
    --rows;
  return rows;
}

// Visits all that must outlive a crash, in a fixed order: visit(kind, a, b, text, measured). Measured is
// what a journal begins with; the rest only goes along.
template <class Visit>
void VisitStation(const Kelp& kelp, Visit&& visit) {
  const RunState& run = kelp.run;
  const FrmAcquire& form = kelp.frmAcquire;
  visit("SampCount", 0, 0, std::to_string(int{run.SampCount}), false);
  const int rows = RowsInUse(kelp);
  for (int row = 1; row <= rows; ++row) {
    const int tableRow = row + StationTable::kFirstSampleRow - 1;
    for (int col = 0; col < form.datalog.Cols; ++col)
      visit("grid", row, col, form.datalog.Text(row, col), IsMeasured(col));
    for (int col = 0; col < StationTable::kCols; ++col)
      visit("table", tableRow, col, run.SampTbl(tableRow, col), false);
  }
  for (int i = 0; i < kBoxAutoCriterion; ++i) visit("txtBlank", i, 0, form.txtBlank[i].Text, true);
  for (int i = 1; i < form.txtStaInfo.kCount; ++i) visit("txtStaInfo", i, 0, form.txtStaInfo[i].Text, false);
  for (int i = 0; i < form.Option1.kCount; ++i) visit("Option1", i, 0, form.Option1[i].Caption, false);
  visit("Combo1", 0, 0, form.Combo1.Text, false);
  visit("BeginBlankText", 0, 0, run.BeginBlankText, false);
  visit("EndBlankText", 0, 0, run.EndBlankText, false);
  visit("LowStdText", 0, 0, run.LowStdText, false);
  visit("HighStdText", 0, 0, run.HighStdText, false);
  visit("StepName", 0, 0, run.StepName, false);
  visit("TubeNum", 0, 0, std::to_string(int{run.TubeNum}), false);
  visit("SampNum", 0, 0, std::to_string(int{run.SampNum}), false);
}

struct Difference {
  std::vector<std::string> values = {};  ///< of the station now
  std::string lines;                     ///< what differs from the journal
  bool measured = false;                 ///< a measured value differs
};

Difference Compare(const Kelp& kelp, bool everything) {
  const std::vector<std::string>& known = kelp.journal.Values;
  const std::vector<std::string>& loaded = kelp.journal.Loaded;
  Difference difference;
  difference.values.reserve(known.size());
  if (everything) difference.lines = JournalText({"station", kVersion, 0, StationName(kelp.run)});
  VisitStation(kelp, [&](const char* kind, int a, int b, const std::string& text, bool measured) {
    const std::size_t i = difference.values.size();
    const bool differs = i >= known.size() || known[i] != text;
    difference.measured = difference.measured || (measured && differs);
    const bool worthALine = !text.empty() || i >= loaded.size() || loaded[i] != text;
    if (everything ? worthALine : differs) difference.lines += JournalText({kind, a, b, text});
    difference.values.push_back(text);
  });
  return difference;
}

void WriteAnew(Kelp& kelp, const std::string& section) {
  Disk& disk = kelp.platform.disk();
  const std::string path = JournalPath(kelp.run);
  std::string before;
  try {
    if (disk.Exists(path)) before = disk.Read(path);
  } catch (const FileError&) {
    before.clear();
  }
  if (!before.empty() && !before.ends_with('\n')) before += "\r\n";
  disk.Replace(path, before + section);
}

void Write(Kelp& kelp, const Difference& difference, bool anew) {
  try {
    if (anew)
      WriteAnew(kelp, difference.lines);
    else
      kelp.platform.disk().Append(JournalPath(kelp.run), difference.lines);
    kelp.journal.Values = difference.values;
    kelp.journal.Begun = true;
    kelp.journal.Failed = false;
    SetWarning(kelp, "");
  } catch (const RunTimeError& error) {
    kelp.journal.Failed = true;
    SetWarning(kelp, kTrouble + std::string(error.what()) + ". ");
  }
}

int StepOptionOf(const std::string& step) {
  static constexpr std::array<std::string_view, 3> kSteps = {"BLANK", "STANDARD", "COPROS"};
  for (std::size_t i = 0; i < kSteps.size(); ++i)
    if (step == kSteps[i]) return static_cast<int>(i);
  return kStepSamples;
}

// False for a line that does not belong anywhere: the journal is damaged from there on.
bool Apply(Kelp& kelp, const JournalLine& line) {
  RunState& run = kelp.run;
  FrmAcquire& form = kelp.frmAcquire;
  const auto is = [&](std::string_view kind) { return line.Kind == kind; };
  const int number = is("SampCount") || is("SampNum") || is("TubeNum") ? ToInt16(Val(line.Value)) : 0;
  if (is("SampCount") && number >= 0 && number <= kMaxSamples)
    run.SampCount = number;
  else if (is("SampNum") && number >= 1 && number <= kMaxSamples + 1)
    run.SampNum = number;
  else if (is("TubeNum"))
    run.TubeNum = number;
  else if (is("grid") && line.A >= 1)
    form.datalog.Text(line.A, line.B) = line.Value;
  else if (is("table") && line.A >= StationTable::kFirstSampleRow)
    run.SampTbl(line.A, line.B) = line.Value;
  else if (is("txtBlank"))
    form.txtBlank[line.A].Text = line.Value;
  else if (is("txtStaInfo"))
    form.txtStaInfo[line.A].Text = line.Value;
  else if (is("Option1"))
    form.Option1[line.A].Caption = line.Value;
  else if (is("Combo1"))
    form.Combo1.Text = line.Value;
  else if (is("BeginBlankText"))
    run.BeginBlankText = line.Value;
  else if (is("EndBlankText"))
    run.EndBlankText = line.Value;
  else if (is("LowStdText"))
    run.LowStdText = line.Value;
  else if (is("HighStdText"))
    run.HighStdText = line.Value;
  else if (is("StepName"))
    run.StepName = line.Value;
  else
    return is("station");
  return true;
}

void ApplyAll(Kelp& kelp, const std::vector<JournalLine>& lines) {
  for (const JournalLine& line : lines) {
    try {
      if (!Apply(kelp, line)) return;
    } catch (const RunTimeError&) {
      return;  // an index that no station has: the journal is damaged from here on
    }
  }
}

// Where the run goes on: a sample that has its Rb waits for acid, and after the last Ra the chooser.
void GoOn(Kelp& kelp) {
  RunState& run = kelp.run;
  const Grid& grid = kelp.frmAcquire.datalog;
  const std::string& rb = grid.Text(std::min<int>(run.SampNum, kMaxSamples), kColRb);
  const std::string& ra = grid.Text(std::min<int>(run.SampNum, kMaxSamples), kColRa);
  SelectOption(kelp.frmAcquire.Option1, StepOptionOf(run.StepName));
  run.Resume = ResumeAt::Step;
  if (StepOptionOf(run.StepName) != kStepSamples) return;
  if (!ra.empty()) run.Resume = ResumeAt::Chooser;
  if (rb.empty() || !ra.empty()) return;
  run.Resume = ResumeAt::Ra;
  run.RbReading = static_cast<float>(Val(rb));
}

}  // namespace

void KeepJournal(Kelp& kelp) {
  JournalState& journal = kelp.journal;
  if (kelp.run.TmpFile.empty()) return;
  if (journal.StationLoads != kelp.run.StationLoads) {
    journal.StationLoads = kelp.run.StationLoads;
    journal.Begun = false;
    journal.Failed = false;
    SetWarning(kelp, "");
    // A restored station goes on in the journal that it came from, written anew without its damage.
    journal.Values.clear();
    journal.Loaded.clear();
    const Difference all = Compare(kelp, true);
    journal.Loaded = all.values;
    journal.Values = all.values;
    if (kelp.run.Resume != ResumeAt::Nothing) Write(kelp, all, true);
    return;
  }
  const Difference changes = Compare(kelp, false);
  if (changes.lines.empty() && !journal.Failed) return;
  if (!journal.Begun && !changes.measured) {
    journal.Values = changes.values;
    return;
  }
  // Rows came or went: all values are written, since their order is another one.
  const bool everything = !journal.Begun || journal.Failed || changes.values.size() != journal.Values.size();
  Write(kelp, everything ? Compare(kelp, true) : changes, journal.Failed);
}

bool OfferRestore(Kelp& kelp) {
  Disk& disk = kelp.platform.disk();
  const std::string path = JournalPath(kelp.run);
  std::vector<JournalLine> lines;
  try {
    if (disk.Exists(path)) lines = LastSection(disk.Read(path));
  } catch (const FileError& error) {
    ReportError(kelp, error);
  }
  // Another cruise may have left a journal of this number: it is not this station's.
  if (lines.empty() || lines.front().Value != StationName(kelp.run)) return false;
  if (!AskYes(kelp, "Readings of this station were recorded but not saved. Restore them? Y/N",
              "Restore readings?"))
    return false;
  ApplyAll(kelp, lines);
  GoOn(kelp);
  SetStatus(kelp,
            "Readings restored. The run goes on at sample " + std::to_string(int{kelp.run.SampNum}) + ".");
  return true;
}

void EndJournal(Kelp& kelp) {
  if (kelp.run.TmpFile.empty()) return;
  if (RowsInUse(kelp) > kelp.run.SampCount) {
    SetStatus(kelp, "Readings behind the last sample are not part of the station; the journal keeps them.");
    return;
  }
  try {
    kelp.platform.disk().Remove(JournalPath(kelp.run));
    kelp.journal.Begun = false;
    kelp.journal.Failed = false;
    kelp.journal.Values = Compare(kelp, false).values;
    SetWarning(kelp, "");
  } catch (const RunTimeError& error) {
    SetStatus(kelp, error.what());
  }
}

}  // namespace kelp
