// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/keys.hpp"

#include "acquire/captions.hpp"
#include "calc/calc_samples.hpp"
#include "core/captions.hpp"
#include "core/numbers.hpp"
#include "core/start_button.hpp"
#include "core/steps.hpp"
#include "workflow/dialogs.hpp"
#include "workflow/save_station.hpp"
#include "workflow/slots.hpp"
#include "workflow/steps.hpp"

namespace kelp {

namespace {

void SaveDatalog(Kelp& kelp) {
  if (!AskYes(kelp, "Do you want to save the datalog?", "Save Data?", Icon::None, Buttons::YesNoCancel))
    return;
  if (!CloseStation(kelp)) return;
  kelp.frmAcquire.txtStats[0].Text.clear();
  SetButton(kelp, {.Caption = captions::kLoadBlank,
                   .Tip = "Load Blank then click here when stable",
                   .Text = "Load Blank then press <spacebar> or click [Start] when stable"});
}

void AllowHighRa(Kelp& kelp) {
  if (!AskRisky(kelp, "Do you want to allow Ra > Rb?", "Override?", Icon::None, Buttons::YesNoCancel)) return;
  FrmAcquire& form = kelp.frmAcquire;
  const bool waits = form.Option1[kStepSamples].Value && form.Command1.Caption == captions::kAcidified;
  if (waits && Val(form.txtReading.Text) > static_cast<double>(kelp.run.RbReading)) {
    ClearRawReads(kelp.run);
    SetButton(kelp, {.Caption = captions::kReadingRa});
    kelp.run.RaAccepted = true;
  } else {
    SetStatus(kelp, waits ? "The reading is not above Rb: there is nothing to allow."
                          : "Nothing to allow: F3 acts while the button reads \"Acidified\".");
  }
  Say(kelp, "Manual overide; Ra is higher than Rb but who cares.");
}

void ChangeStep(Kelp& kelp) {
  if (!AskYes(kelp, "Do you want to reset the current process to another? Y/N", "Change step?",
              Icon::Critical))
    return;
  kelp.frmChangeStep = FrmChangeStep();
  ShowScreen(kelp, kelp.frmChangeStep.Form);
}

void Recalculate(Kelp& kelp) {
  if (!AskYes(kelp, "Recalculate all values? Y/N", "Recalculate?", Icon::Critical)) return;
  kelp.Note = {.Way = How::Calculated};
  if (kelp.run.StepName == steps::kReload || kelp.run.StepName == steps::kBlank)
    CalcAllSamples(kelp);
  else
    CalcCurrentSample(kelp);
}

void StartOver(Kelp& kelp) {
  // Prompt and title stand the other way round than with the other keys.
  if (!AskYes(kelp, "Restart? Y/N", "Do you want to start over?", Icon::Critical)) return;
  kelp.frmAcquire.Option1[kStepBlank].Caption = captions::kBeginBlank;
  // A restart must not read the blank as a sample: the step follows the button.
  SetButton(kelp, {.Caption = captions::kLoadBlank, .Trace = kTraceMagenta});
}

// The Ra that the screen offers to accept is read on, and saved when it is stable.
void AcceptHighRa(Kelp& kelp) {
  kelp.run.RaAccepted = true;
  Say(kelp, "Ra above Rb is accepted; it is saved when it is stable.");
  SetStatus(kelp, "Ra above Rb accepted for sample " + std::to_string(int{kelp.run.SampNum}) + ".");
}

}  // namespace

void FunctionKey(Kelp& kelp, int number) {
  FrmAcquire& form = kelp.frmAcquire;
  switch (number) {
    case 1: Tell(kelp, "Help is not available yet, look at tips with mouseover"); break;
    case 2: SaveDatalog(kelp); break;
    case 3: AllowHighRa(kelp); break;
    case 4: ChangeStep(kelp); break;
    case 5:
      form.txtStats[1].Text = kelp.run.LastRawText;
      PutIntoSlot(kelp, KeySlot(kelp), kelp.run.LastRawText, How::F5);
      break;
    case 6: Recalculate(kelp); break;
    case 7: PutIntoSlot(kelp, KeySlot(kelp), std::string(form.txtReading.Text), How::F7); break;
    case 8: StartOver(kelp); break;
    case 9: ShowScreen(kelp, kelp.dlgRunRem.Form); break;
    default: SetStatus(kelp, "F" + std::to_string(number) + " has no meaning here."); break;
  }
}

bool SpaceKey(Kelp& kelp) {
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  if (caption == captions::kStandby) {
    SetButton(kelp, {.Caption = captions::kStart});
    return true;
  }
  if (WaitsForRa(kelp)) {
    AcceptHighRa(kelp);
    return true;
  }
  if (caption != captions::kStart || kelp.run.CsvFile.empty()) return false;
  PromptSelectedStep(kelp);
  return true;
}

}  // namespace kelp
