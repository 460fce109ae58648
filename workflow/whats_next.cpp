// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/whats_next.hpp"

#include "acquire/averaging.hpp"
#include "core/captions.hpp"
#include "core/config.hpp"
#include "core/option.hpp"
#include "core/start_button.hpp"
#include "record/record.hpp"
#include "workflow/open_station.hpp"
#include "workflow/save_station.hpp"
#include "workflow/slots.hpp"
#include "workflow/whats_next_steps.hpp"

namespace kelp {

namespace {

enum Choice { kNextStation, kAddSample, kEndBlank, kEndStandard, kEndCopros, kPrintSave, kQuit };

// Shows the progress window during a long save, whatever becomes of it.
class Progress {
 public:
  explicit Progress(Kelp& kelp) : kelp_(kelp) {
    kelp_.frmProgress = FrmProgress();
    ShowScreen(kelp_, kelp_.frmProgress.Form);
    kelp_.frmWhatsNext.NextButton.Enabled = false;
  }
  ~Progress() {
    kelp_.frmWhatsNext.NextButton.Enabled = true;
    UnloadScreen(kelp_, kelp_.frmProgress);
  }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  void Say(const char* text) { kelp_.frmProgress.Label1.Caption = text; }

 private:
  Kelp& kelp_;
};

void NextStationByOk(Kelp& kelp) {
  Progress progress(kelp);
  if (!SaveStation(kelp)) return;
  // Set after the save: the text stays up during the rest of the work.
  progress.Say("Printing and Saving Data...");
  if (!EndStation(kelp)) return;
  OpenNextStation(kelp);
  progress.Say("Loading Next Station...");
  PromptNextStation(kelp);
  kelp.frmAcquire.Option1[kStepBlank].Caption = captions::kEndBlank;
  kelp.frmAcquire.Option1[kStepCopros].Caption = captions::kEndCopros;
  ClearReadingDisplays(kelp.frmAcquire);
}

void EndBlankByOk(Kelp& kelp) {
  PromptBlank(kelp);
  // As the double-click does: an end blank never overwrites the begin blank.
  kelp.frmAcquire.Option1[kStepBlank].Caption = captions::kEndBlank;
  ClearReadingDisplays(kelp.frmAcquire);
  SelectOption(kelp.frmWhatsNext.Option1, kPrintSave);
}

void PrintSaveByOk(Kelp& kelp) {
  Progress progress(kelp);
  if (!SaveStation(kelp) || !MayLeave(kelp)) return;
  // The capital "A", unlike the next station's, is as the analysts know it.
  progress.Say("Printing And Saving Data...");
  if (!EndStation(kelp)) return;
  PutIntoStandby(kelp);
  ClearReadingDisplays(kelp.frmAcquire);
  EndProgram(kelp);
}

void CarryOut(Kelp& kelp, int choice) {
  switch (choice) {
    case kNextStation: NextStationByOk(kelp); break;
    case kAddSample: AddSample(kelp); break;
    case kEndBlank: EndBlankByOk(kelp); break;
    case kEndStandard:
      PromptStandards(kelp);
      ClearReadingDisplays(kelp.frmAcquire);
      break;
    case kEndCopros:
      PromptCopros(kelp);
      kelp.frmAcquire.Option1[kStepCopros].Caption = captions::kEndCopros;
      ClearReadingDisplays(kelp.frmAcquire);
      break;
    case kPrintSave: PrintSaveByOk(kelp); break;
    default: break;
  }
}

void QuitAtOnce(Kelp& kelp) {
  if (!CloseStation(kelp) || !MayLeave(kelp)) return;
  PutIntoStandby(kelp);
  ClearReadingDisplays(kelp.frmAcquire);
  kelp.platform.ClosePort();
  EndProgram(kelp);
}

void BlankAtOnce(Kelp& kelp) {
  PromptBlank(kelp);
  kelp.frmAcquire.Option1[kStepBlank].Caption = captions::kEndBlank;
  if (AskYes(kelp, "Run Another Begin Blank = Y or End Blank = N", "Begin or End Blank?"))
    kelp.frmAcquire.Option1[kStepBlank].Caption = captions::kBeginBlank;
}

void CoprosAtOnce(Kelp& kelp) {
  PromptCopros(kelp);
  const bool begin =
      AskYes(kelp, "Run Another Set of Begin Copros = Y or End Copros = N", "Begin or End Copros?");
  kelp.frmAcquire.Option1[kStepCopros].Caption = begin ? captions::kCopros : captions::kEndCopros;
}

void CarryOutAtOnce(Kelp& kelp, int choice) {
  switch (choice) {
    case kNextStation:
      if (!CloseStation(kelp)) return;
      OpenNextStation(kelp);
      PromptNextStation(kelp);
      break;
    case kAddSample: AddSample(kelp); break;
    case kEndBlank: BlankAtOnce(kelp); break;
    case kEndStandard: PromptStandards(kelp); break;
    case kEndCopros: CoprosAtOnce(kelp); break;
    case kPrintSave: SaveAndPrintStation(kelp); break;
    case kQuit: QuitAtOnce(kelp); break;
    default: break;
  }
}

// The chooser is hidden at the end, also when the choice failed; not when the program has ended.
class HideAtEnd {
 public:
  explicit HideAtEnd(Kelp& kelp) : kelp_(kelp) {}
  ~HideAtEnd() {
    if (!kelp_.Ended) HideScreen(kelp_, kelp_.frmWhatsNext.Form);
  }
  HideAtEnd(const HideAtEnd&) = delete;
  HideAtEnd& operator=(const HideAtEnd&) = delete;

 private:
  Kelp& kelp_;
};

}  // namespace

void frmWhatsNext_Load(Kelp& kelp) {
  constexpr std::size_t kSwitchWidth = 10;
  kelp.frmWhatsNext.Form.Loaded = true;
  kelp.frmWhatsNext.Top = 4500;
  kelp.frmWhatsNext.Check2[0].Value = CfgNumber(kelp.run, kCfgPrinter, kSwitchWidth) == 1;
  kelp.frmWhatsNext.Check2[1].Value = CfgNumber(kelp.run, kCfgDatabase, kSwitchWidth) == 1;
}

void NextButton_Click(Kelp& kelp) {
  const HideAtEnd hide(kelp);
  const auto& options = kelp.frmWhatsNext.Option1;
  // "Quit" is never carried out by OK.
  if (options[kQuit].Value) SetStatus(kelp, "[OK] does not quit: double-click \"Quit\" in the chooser.");
  for (int choice = kNextStation; choice <= kPrintSave; ++choice) {
    if (!options[choice].Value) continue;
    CarryOut(kelp, choice);
    break;
  }
}

void WhatsNextOption_DblClick(Kelp& kelp, int index) {
  if (index == kQuit) {
    CarryOutAtOnce(kelp, index);
    return;
  }
  const HideAtEnd hide(kelp);
  CarryOutAtOnce(kelp, index);
}

void StopButton_Click(Kelp& kelp) {
  if (!AskYes(kelp, "ARE YOU SURE YOU WANT TO CANCEL/ABORT?! Y/N?", "DUMPING DATA!!!", Icon::Critical,
              Buttons::YesNoCancel))
    return;
  HideScreen(kelp, kelp.frmWhatsNext.Form);
  ShowScreen(kelp, kelp.frmAcquire.Form);
}

void frmWhatsNext_KeyDown(Kelp& kelp, int number) {
  const FrmAcquire& form = kelp.frmAcquire;
  if (number == 5) PutIntoSlot(kelp, ChooserSlot(kelp), std::string(form.txtStats[1].Text), How::F5);
  if (number == 7) PutIntoSlot(kelp, ChooserSlot(kelp), std::string(form.txtReading.Text), How::F7);
}

}  // namespace kelp
