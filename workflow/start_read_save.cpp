// SPDX-License-Identifier: GPL-3.0-or-later
// The Start/Read/Save button.
#include <utility>

#include "acquire/read_loop.hpp"
#include "core/captions.hpp"
#include "core/start_button.hpp"
#include "core/steps.hpp"
#include "core/text.hpp"
#include "workflow/accept.hpp"
#include "workflow/open_station.hpp"
#include "workflow/run_controls.hpp"
#include "workflow/steps.hpp"

namespace kelp {

namespace {

constexpr const char* kWaitTip = "Wait for the min number of reads...";

void StartLogTimer(Kelp& kelp) {
  kelp.Timer1.Interval = kelp.run.ReadInterval;
  kelp.Timer1.Enabled = kelp.Timer1.Interval > 0;
}

// A line that was lost while reading is opened again by the read loop; a value can be saved meanwhile.
bool NeedsPort(Kelp& kelp) {
  return !kelp.platform.PortIsOpen() && !(kelp.loop.Running && kelp.loop.PortOpened);
}

void BeginReading(Kelp& kelp, const std::string& caption, bool secondCopro = false) {
  SetButton(kelp, {.Caption = caption, .Tip = kWaitTip, .Trace = kTraceGreen, .SecondCopro = secondCopro});
  StartReadLoop(kelp);
  kelp.run.Loaded = true;
}

// A loop started for an Ra keeps ReadFlag, else the Ra would be offered as an Rb.
void BeginRa(Kelp& kelp) {
  SetButton(kelp, {.Caption = captions::kReadingRa,
                   .Tip = kWaitTip,
                   .Text = "Press <spacebar> when reading is stable or wait for Autoread."});
  StartReadLoop(kelp);
  kelp.run.ReadFlag = true;
  kelp.run.Loaded = true;
}

// By hand no question is asked, but a value that is there already is not lost without one.
bool MaySaveByHand(Kelp& kelp) {
  const std::string trouble = WhyNotSaved(kelp, SavedBy::Hand);
  if (trouble.empty()) return true;
  Say(kelp, "Wait! Read minimum number of reads before save...");
  SetStatus(kelp, trouble);
  return false;
}

bool SampleIsThere(Kelp& kelp) {
  const RunState& run = kelp.run;
  if (run.SampNum >= 1 && run.SampNum <= run.SampCount) return true;
  SetStatus(kelp, "This station has no sample " + std::to_string(int{run.SampNum}) +
                      ": add one in the chooser, or double-click the cell of another.");
  ShowScreen(kelp, kelp.frmWhatsNext.Form);
  return false;
}

void StartItem(Kelp& kelp, Item item) {
  const RunState& run = kelp.run;
  switch (item) {
    case Item::Blank:
      BeginReading(kelp, captions::kReadBlank);
      Say(kelp, "Averaging blank readings...");
      break;
    case Item::LowStandard: BeginReading(kelp, captions::kReadingLowStandard); break;
    case Item::HighStandard: BeginReading(kelp, captions::kReadingHighStandard); break;
    case Item::Copro1: BeginReading(kelp, WithNames(run, captions::kReadingFirstCopro)); break;
    case Item::Copro2: BeginReading(kelp, WithNames(run, captions::kReadingSecondCopro), true); break;
    case Item::Rb:
      if (!SampleIsThere(kelp) || ResumeRestored(kelp)) return;
      BeginReading(kelp, captions::kReadingStationSample);
      Say(kelp, "Reading and averaging sample reads;\n<spacebar> will manually save.");
      break;
    case Item::Ra:
      if (SampleIsThere(kelp)) BeginRa(kelp);
      break;
    case Item::None: break;
  }
}

void SaveItem(Kelp& kelp, Item item) {
  switch (item) {
    case Item::Blank: AcceptBlank(kelp, SavedBy::Hand); break;
    case Item::LowStandard: AcceptLowStandard(kelp, SavedBy::Hand); break;
    case Item::HighStandard: AcceptHighStandard(kelp, SavedBy::Hand); break;
    case Item::Copro1: AcceptFirstCopro(kelp, SavedBy::Hand); break;
    case Item::Copro2: AcceptSecondCopro(kelp, SavedBy::Hand); break;
    case Item::Rb: AcceptRb(kelp, SavedBy::Hand, 3); break;
    case Item::Ra: AcceptRa(kelp, SavedBy::Hand); break;
    case Item::None: break;
  }
}

// The loop runs already while an item is read; an item that was not loaded, or a loop that stands, begins
// anew.
void ReadItem(Kelp& kelp, const CaptionRow& row) {
  RunState& run = kelp.run;
  if (kelp.loop.Running && run.Loaded) {
    SetStatus(kelp, "Reading: " + std::to_string(int{run.ReadCount}) + " of " +
                        std::to_string(int{run.MinReads}) + " reads are in.");
    return;
  }
  if ((row.What == Item::Rb || row.What == Item::Ra) && !SampleIsThere(kelp)) return;
  StartReadLoop(kelp);
  run.ReadFlag = row.What == Item::Ra;
  run.Loaded = true;
  SetButton(kelp, {.Caption = kelp.frmAcquire.Command1.Caption, .SecondCopro = run.SecondCopro});
  SetStatus(kelp, "Reading begins anew.");
}

void AskForStationAgain(Kelp& kelp) {
  if (kelp.frmCreateBase.Form.Visible) {
    SetStatus(kelp, "No station is open: create its base file first.");
    ShowScreen(kelp, kelp.frmCreateBase.Form);
    return;
  }
  SetStatus(kelp, "No station is open: nothing can be measured.");
  if (!kelp.run.BaseFile.empty()) LoadBaseFile(kelp, kelp.run.BaseFile);
}

void SetPrompt(Kelp& kelp, const std::string& caption, const std::string& tip,
               const std::string& instruction) {
  SetButton(kelp, {.Caption = caption, .Tip = tip, .Text = instruction});
}

}  // namespace

bool ReadsEndValues(const Kelp& kelp, int stepOption) {
  const std::string& caption = kelp.frmAcquire.Option1[stepOption].Caption;
  return stepOption == kStepBlank ? caption != captions::kBeginBlank : Contains(caption, "End");
}

void GoToStandby(Kelp& kelp) {
  SetButton(kelp, {.Caption = captions::kChoosing, .Text = "Choose what's next."});
  kelp.run.StepName = steps::kStandby;
  ShowScreen(kelp, kelp.frmWhatsNext.Form);
}

bool ResumeRestored(Kelp& kelp) {
  const ResumeAt resume = std::exchange(kelp.run.Resume, ResumeAt::Nothing);
  const std::string sample = "Sample " + std::to_string(int{kelp.run.SampNum});
  if (resume == ResumeAt::Ra) {
    SetPrompt(
        kelp, captions::kAcidify, "Click to Start reading Ra",
        sample + " has its Rb. ACIDIFY if that was not done, then press <spacebar> or click [Acidify].");
    kelp.run.ReadFlag = true;
    return true;
  }
  if (resume != ResumeAt::Chooser) return false;
  SetStep(kelp, steps::kSample);
  SetPrompt(kelp, captions::kWhatsNext, "Click to choose what's next", "All samples are read.");
  ShowScreen(kelp, kelp.frmWhatsNext.Form);
  return true;
}

void PromptSelectedStep(Kelp& kelp) {
  if (ResumeRestored(kelp)) return;
  const auto& option = kelp.frmAcquire.Option1;
  const std::string copro = WithNames(kelp.run, captions::kLoadFirstCopro);
  if (option[kStepBlank].Value)
    SetPrompt(kelp, captions::kLoadBlank, "Load Blank then click here when stable",
              "Load the blank and click [Start] or press <Spacebar>.");
  else if (option[kStepStandard].Value)
    SetPrompt(kelp, captions::kLoadLowStandard, "Load Standard then click here when stable",
              "Load the Standard and click [Start] or press <Spacebar>.");
  else if (option[kStepCopros].Value)
    SetPrompt(kelp, captions::kLoadCopros, copro + " then click here when stable",
              copro + " and click [Start] or press <Spacebar>.");
  else if (option[kStepSamples].Value)
    SetPrompt(kelp, captions::kLoadSample, "Load Sample then click here when stable",
              "Load the Sample and click [Start] or press <Spacebar>.");
  else
    SetPrompt(kelp, captions::kStart, "Click to Start", "Click [Start] or press <Spacebar>.");
}

void Command1_Click(Kelp& kelp) {
  if (kelp.run.CsvFile.empty()) {
    AskForStationAgain(kelp);
    return;
  }
  StartLogTimer(kelp);
  if (NeedsPort(kelp) && !OpenSerialPort(kelp)) return;
  const std::string caption = kelp.frmAcquire.Command1.Caption;
  const CaptionRow row = ButtonRow(kelp);
  switch (row.Does) {
    case Phase::Idle:
      if (caption == captions::kStandby)
        SetButton(kelp, {.Caption = captions::kStart});
      else
        PromptSelectedStep(kelp);
      break;
    case Phase::Next: Command6_Click(kelp); break;
    case Phase::Load:
    case Phase::Acid: StartItem(kelp, row.What); break;
    case Phase::Read: ReadItem(kelp, row); break;
    case Phase::Save:
      if (!kelp.run.Loaded)
        StartItem(kelp, row.What);
      else if (MaySaveByHand(kelp))
        SaveItem(kelp, row.What);
      break;
  }
  if (IsPaused(kelp)) SetStatus(kelp, "The program is paused: click [Resume] to read.");
}

}  // namespace kelp
