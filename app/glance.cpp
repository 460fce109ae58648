// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/glance.hpp"

#include "acquire/averaging.hpp"
#include "app/alarms.hpp"
#include "app/panel.hpp"
#include "core/captions.hpp"
#include "core/start_button.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

bool IsMissing(const std::string& reading) { return StartsWith(reading, "-99"); }

bool IsRa(const std::string& caption) { return EndsWith(caption, " Ra"); }

std::string StepOf(const Kelp& kelp, const PanelState& panel) {
  const FrmAcquire& form = kelp.frmAcquire;
  if (panel.Col >= 0) {
    const auto part = [&](const char* name, int col) {
      const std::string& text = form.datalog.Text(panel.Row, col);
      return text.empty() ? "" : std::string(name) + text + " - ";
    };
    return part("Vial ", kColVial) + part("bottle ", kColBottle) + form.datalog.Text(0, panel.Col);
  }
  if (panel.Box >= 0) return std::string(Trim(form.lblBlank[panel.Box].Caption));
  return AsRead(form.Command1.Caption);
}

std::string ResultOf(const Grid& grid, int row) {
  std::string result = grid.Text(row, kColBottle) + ": ";
  if (IsMissing(grid.Text(row, kColRa))) return result + "skipped";
  result += grid.Text(row, kColChla).empty() ? "no result" : grid.Text(row, kColChla);
  const std::string& flag = grid.Text(row, kColQc);
  return flag.empty() ? result : result + ", QC " + flag;
}

// The last sample with both readings up to the current one, else the last begin value.
std::string LastResult(const Kelp& kelp) {
  const FrmAcquire& form = kelp.frmAcquire;
  const int current = kelp.run.SampNum < form.datalog.Rows ? int{kelp.run.SampNum} : form.datalog.Rows - 1;
  for (int row = kelp.run.SampCount > 0 ? current : 0; row >= 1; --row)
    if (!form.datalog.Text(row, kColRa).empty()) return ResultOf(form.datalog, row);
  for (int box = kBoxCopro2; box >= kBoxBeginBlank; box -= 2) {
    const std::string& value = form.txtBlank[box].Text;
    if (value.empty() || value == "0") continue;
    return std::string(Trim(form.lblBlank[box].Caption)) + ": " + (IsMissing(value) ? "skipped" : value);
  }
  return {};
}

// [Skip] leaves the red trace of a save.
bool WasSkipped(const Kelp& kelp) {
  const Grid& grid = kelp.frmAcquire.datalog;
  const int row = kelp.run.SampNum - (StartsWith(kelp.frmAcquire.Command1.Caption, "What") ? 0 : 1);
  return row >= 1 && row < grid.Rows && IsMissing(grid.Text(row, kColRa));
}

SaveState ReadingState(const Kelp& kelp, const PanelState& panel, const Glance& glance) {
  // While the line is silent nothing is known of what is in the holder now.
  const bool old = ReadingAge(kelp) >= 0;
  if (!glance.Enough || old || !AverageExists(kelp.run)) return SaveState::Reading;
  return panel.SdMet ? SaveState::CanSave : SaveState::NotSteady;
}

SaveState StateOf(const Kelp& kelp, const PanelState& panel, const Glance& glance) {
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  if (IsPaused(kelp)) return SaveState::Paused;
  if (captions::WaitsForAcid(caption)) return SaveState::Acid;
  if (StartsWith(caption, "Read") || StartsWith(caption, "Save")) return ReadingState(kelp, panel, glance);
  const bool done = StartsWith(caption, "Load") || StartsWith(caption, "What");
  if (done && kelp.run.TraceColor == kTraceRed && !WasSkipped(kelp)) return SaveState::Saved;
  return StartsWith(caption, "Load") ? SaveState::Load : SaveState::Idle;
}

std::string WordsOf(const Kelp& kelp, const Glance& glance) {
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  switch (glance.State) {
    case SaveState::Load: return "LOAD";
    case SaveState::Saved: return StartsWith(caption, "Load") ? "SAVED - LOAD NEXT" : "SAVED";
    case SaveState::Reading:
      return glance.Enough
                 ? "WAIT"
                 : "WAIT " + std::to_string(int{kelp.run.ReadCount}) + "/" + std::to_string(glance.Needed);
    case SaveState::NotSteady: return "NOT STEADY";
    case SaveState::CanSave: return kelp.frmAcquire.Check1.Value ? "STEADY" : "CAN BE SAVED";
    case SaveState::Acid: return caption == captions::kAcidified ? "ACID SEEN" : "ACIDIFY";
    case SaveState::Paused: return "PAUSED";
    case SaveState::Idle: break;
  }
  return Upper(AsRead(caption));
}

// The number that the screen shows large is the value of what is in the holder, or it is marked.
void JudgeReading(const Kelp& kelp, Glance& glance) {
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  const bool itemIsIn =
      StartsWith(caption, "Read") || StartsWith(caption, "Save") || captions::WaitsForAcid(caption);
  if (const int age = ReadingAge(kelp); age >= 0) {
    glance.Faint = true;
    glance.Beside = std::to_string(age) + " s old";
  } else if (!itemIsIn || !AverageExists(kelp.run)) {
    glance.Faint = true;
    if (kelp.loop.Running) glance.Beside = "no average yet";
  }
}

void CountReads(const Kelp& kelp, Glance& glance) {
  constexpr int kExtraReadsForRa = 5;
  const bool ra = IsRa(kelp.frmAcquire.Command1.Caption);
  const bool automatic = kelp.frmAcquire.Check1.Value;
  const int byHand = kelp.run.MinReads;
  glance.Needed = byHand + (ra && automatic ? kExtraReadsForRa : 0);
  glance.NeedWords = "of " + std::to_string(glance.Needed);
  if (ra && !automatic) glance.NeedWords += ", Autoread " + std::to_string(byHand + kExtraReadsForRa);
  glance.Enough = !kelp.frmAcquire.txtStats[0].Text.empty() && kelp.run.ReadCount >= glance.Needed;
}

bool Empty(const Grid& grid, int row, int col) { return Trim(grid.Text(row, col)).empty(); }

// The rows for which `wanted` holds, as "Samples 3 to 6 and 9", with the verb that goes with them.
template <class Wanted>
std::string Rows(int count, const Wanted& wanted) {
  std::vector<std::string> runs;
  int rows = 0;
  for (int row = 1; row <= count; ++row) {
    if (!wanted(row)) continue;
    const int first = row;
    while (row < count && wanted(row + 1)) ++row;
    rows += row - first + 1;
    runs.push_back(std::to_string(first));
    if (row == first + 1) runs.push_back(std::to_string(row));
    if (row > first + 1) runs.back() += " to " + std::to_string(row);
  }
  if (runs.empty()) return {};
  std::string text = rows == 1 ? "Sample " : "Samples ";
  for (std::size_t i = 0; i < runs.size(); ++i)
    text += (i == 0 ? "" : i + 1 == runs.size() ? " and " : ", ") + runs[i];
  return text + (rows == 1 ? " has" : " have");
}

}  // namespace

Glance GlanceAt(const Kelp& kelp) {
  const PanelState panel = PanelOf(kelp);
  Glance glance;
  glance.Step = StepOf(kelp, panel);
  glance.Last = LastResult(kelp);
  CountReads(kelp, glance);
  glance.State = StateOf(kelp, panel, glance);
  glance.StateWords = WordsOf(kelp, glance);
  JudgeReading(kelp, glance);
  return glance;
}

std::string UnreadSamples(const Kelp& kelp) {
  const Grid& grid = kelp.frmAcquire.datalog;
  const int count = kelp.run.SampCount < grid.Rows ? int{kelp.run.SampCount} : grid.Rows - 1;
  const auto lacks = [&](int row, bool rb, bool ra) {
    return Empty(grid, row, kColRb) == rb && Empty(grid, row, kColRa) == ra;
  };
  struct Row {
    bool rb, ra;
    const char* what;
  };
  static constexpr Row kRows[] = {
      {true, true, " no reading"}, {false, true, " no Ra"}, {true, false, " no Rb"}};
  std::string text;
  for (const Row& kind : kRows) {
    const std::string rows = Rows(count, [&](int row) { return lacks(row, kind.rb, kind.ra); });
    if (!rows.empty()) text += (text.empty() ? "" : "\n") + rows + kind.what;
  }
  return text;
}

std::string AcidClock::Listen(const Kelp& kelp) {
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  const std::int64_t now = kelp.platform.Milliseconds();
  if (caption == captions::kAcidify && caption_ == captions::kSaveRb) {
    since_ = now;
    sample_ = kelp.run.SampNum;
  }
  caption_ = caption;
  const bool acidIsIn = captions::WaitsForAcid(caption) || IsRa(caption);
  if (!acidIsIn || sample_ != kelp.run.SampNum) since_ = -1;
  if (since_ < 0) return {};
  const std::int64_t seconds = (now - since_) / 1000;
  const std::string rest = std::to_string(seconds % 60);
  return std::to_string(seconds / 60) + ":" + (rest.size() < 2 ? "0" : "") + rest;
}

}  // namespace kelp
