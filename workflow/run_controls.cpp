// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/run_controls.hpp"

#include "core/captions.hpp"
#include "core/numbers.hpp"
#include "core/places.hpp"
#include "core/start_button.hpp"
#include "core/steps.hpp"
#include "core/text.hpp"
#include "record/record.hpp"
#include "workflow/slots.hpp"

namespace kelp {

namespace {

struct BackRow {
  std::string from;
  std::string to;
  std::uint32_t trace;
  Item item = Item::None;  ///< that the caption means, where its text alone may not tell
  bool toSecondCopro = false;
};

// Where [Back] leads from each caption. The black trace after "Reading Station Sample" is kept.
std::vector<BackRow> BackTable(const RunState& run) {
  const std::string loadFirst = WithNames(run, captions::kLoadFirstCopro);
  const std::string loadSecond = WithNames(run, captions::kLoadSecondCopro);
  return {{captions::kReadingStationSample, captions::kLoadStationSample, kTraceBlack},
          {captions::kSaveRb, captions::kReadingStationSample, kTraceGreen},
          {captions::kAcidify, captions::kReadingStationSample, kTraceGreen},
          {captions::kAcidified, captions::kReadingStationSample, kTraceGreen},
          {captions::kReadingRa, captions::kAcidify, kTraceBlue},
          {captions::kSaveRa, captions::kReadingRa, kTraceBlue},
          {captions::kReadingRb, captions::kLoadStationSample, kTraceMagenta},
          {captions::kReadingBeginBlank, captions::kLoadBlank, kTraceMagenta},
          {WithNames(run, captions::kReadingFirstCopro), loadFirst, kTraceMagenta, Item::Copro1},
          {WithNames(run, captions::kReadingSecondCopro), loadSecond, kTraceMagenta, Item::Copro2, true},
          {loadFirst, captions::kLoadBlank, kTraceMagenta, Item::Copro1},
          {loadSecond, loadFirst, kTraceMagenta, Item::Copro2}};
}

}  // namespace

void Command2_Click(Kelp& kelp) {
  FrmAcquire& form = kelp.frmAcquire;
  if (form.Command2.Caption == captions::kPause) {
    form.Command2.Caption = captions::kResume;
    form.Command2.ToolTipText = "Click to resume the reading";
    kelp.run.PauseStore = form.Text4.Text;
    form.Text4.Text = "Sample read suspended, click [Resume] to continue";
  } else {
    form.Command2.Caption = captions::kPause;
    form.Command2.ToolTipText = "Click to pause the sample reading";
    form.Text4.Text = kelp.run.PauseStore;
  }
}

void Command3_Click(Kelp& kelp) {
  if (!AskRisky(kelp, "Do You Want to Quit? Y/N", "", Icon::Critical, Buttons::YesNoCancel) ||
      !MayLeave(kelp))
    return;
  if (kelp.platform.PortIsOpen()) kelp.platform.ClosePort();
  HideScreen(kelp, kelp.frmAcquire.Form);
  EndProgram(kelp);
}

void Command4_Click(Kelp& kelp) {
  RunState& run = kelp.run;
  const std::string caption = kelp.frmAcquire.Command1.Caption;
  const Item item = ButtonRow(kelp).What;
  kelp.Focus = {"frmAcquire", "Command1"};
  for (const BackRow& row : BackTable(run)) {
    if (caption != row.from || (row.item != Item::None && row.item != item)) continue;
    // What is read from here on is an average of its own, and the operator went back to replace a value.
    ClearRawReads(run);
    // Without this the Rb read anew would be offered as an Ra.
    if (row.to == captions::kReadingStationSample) run.ReadFlag = false;
    if (item == Item::Rb || item == Item::Ra) run.ReplaceSample = run.SampNum;
    SetButton(kelp, {.Caption = row.to, .Trace = row.trace, .SecondCopro = row.toSecondCopro});
    SetStatus(kelp, "Back from [" + AsRead(caption) + "] to [" + AsRead(row.to) + "]. No value has changed.");
    return;
  }
  SetStatus(kelp, "[Back] leads nowhere from [" + AsRead(caption) + "].");
}

void Command6_Click(Kelp& kelp) {
  SetStatus(kelp, "Choose what's next in the chooser.");
  ShowScreen(kelp, kelp.frmWhatsNext.Form);
}

void Option1_Click(Kelp& kelp, int index) {
  struct Row {
    const char* step;
    std::string caption;
    const char* instruction;
    const char* tip;
  };
  // The apostrophe at the end of the instructions is as the analysts know it.
  const Row rows[] = {
      {steps::kBlank, captions::kLoadBlank, "Load Blank then hit <Spacebar> or click [Read Blank]'",
       "Click to start reading the blank"},
      {steps::kStandard, captions::kLoadLowStandard,
       "Load Standard then hit <Spacebar> or click [Read Blank]'", "Click to start reading the low standard"},
      {steps::kCopros, WithNames(kelp.run, captions::kLoadFirstCopro),
       "Load Copro then hit <Spacebar> or click [Read Blank]'", "Click to start reading the copro standard"},
      {steps::kSample, captions::kLoadStationSample,
       "Load Station Sample then hit <Spacebar> or click [Load Station Sample]'",
       "Click to start reading the sample"}};
  const Row& row = rows[index];
  // An added sample is one of the samples from here on.
  SetStep(kelp, row.step);
  SetButton(kelp, {.Caption = row.caption, .Tip = row.tip, .Text = row.instruction});
  if (index == kStepSamples) kelp.run.TraceColor = kTraceMagenta;
}

void PromptSample(Kelp& kelp, bool ra) {
  RunState& run = kelp.run;
  const int row = run.SampNum;
  const std::string sample = "Sample " + std::to_string(row) + ", bottle " + BottleOf(kelp, row);
  run.ReadFlag = ra;
  SetButton(kelp,
            {.Caption = ra ? captions::kAcidify : captions::kLoadStationSample,
             .Text = sample + (ra ? ": put it in and ACIDIFY if that was not done, then press <spacebar> or "
                                    "click [Acidify]."
                                  : ": load it and click [Start] or press <Spacebar>."),
             .Trace = ra ? kTraceBlue : kTraceMagenta});
  run.Loaded = false;
  ClearRawReads(run);
  // The Ra is to be compared with this sample's Rb, not with that of the sample left.
  if (ra) run.RbReading = static_cast<float>(Val(kelp.frmAcquire.datalog.Text(row, kColRb)));
}

void datalog_DblClick(Kelp& kelp) {
  FrmAcquire& form = kelp.frmAcquire;
  RunState& run = kelp.run;
  const int row = form.datalog.Row;
  if (row < 1 || row > run.SampCount) {
    SetStatus(kelp, "Row " + std::to_string(row) + " of the grid is no sample of this station.");
    return;
  }
  if (!AskYes(kelp, "Do you want to reset the sample logging to this cell?  Y/N",
              "Moving Data Aquistion to selected cell.", Icon::Critical) ||
      !AskYes(kelp,
              "Do not use double-clicking to skip samples - use [Skip]; continue edit? Yes to continue, No "
              "to cancel "
              "(then click [Skip])",
              "Do not use the double-click relocate feature to skip samples!", Icon::Critical))
    return;
  MoveToSample(kelp, row);
  run.Resume = ResumeAt::Nothing;
  run.ReplaceSample = row;
  SetStatus(kelp,
            "The run stands at sample " + std::to_string(row) + ", bottle " + BottleOf(kelp, row) + " now.");
  if (form.datalog.Col != kColRb && form.datalog.Col != kColRa) return;
  // The next space bar is to go on with this sample, not to be typed into its cell.
  kelp.Focus = {"frmAcquire", "Command1"};
  PromptSample(kelp, form.datalog.Col == kColRa);
}

void txtBlank_Change(Kelp& kelp, int index, const std::string& text) {
  PutValue(kelp, {.Box = index}, text, {.Way = How::Typed});
}

void datalog_KeyPress(Kelp& kelp, int key) {
  const Grid& grid = kelp.frmAcquire.datalog;
  if (grid.Row < 1) return;
  std::string cell = grid.Text(grid.Row, grid.Col);
  if (key >= 32 && key <= 127)
    cell += static_cast<char>(key);
  else if (key == 8 && !cell.empty())
    cell.pop_back();
  else
    return;
  datalog_Change(kelp, cell);
}

void datalog_Change(Kelp& kelp, const std::string& text) {
  const Grid& grid = kelp.frmAcquire.datalog;
  if (grid.Row < 1 || grid.Text(grid.Row, grid.Col) == text) return;
  PutValue(kelp, {.Row = grid.Row, .Col = grid.Col}, text, {.Way = How::Typed});
  if (grid.Row > kelp.run.SampCount)
    SetStatus(kelp, "Row " + std::to_string(grid.Row) +
                        " is no sample of this station: what is typed there comes into no file.");
}

void txtMean_Click(Kelp& kelp, int index) {
  const std::string value = kelp.frmAcquire.txtMean[index].Text;
  PutIntoSlot(kelp, MeanSlot(kelp), value, How::MeanBox);
}

}  // namespace kelp
