#include "workflow/keys.hpp"

#include "calc/calc_samples.hpp"
#include "core/numbers.hpp"
#include "core/option.hpp"
#include "workflow/save_station.hpp"
#include "workflow/slots.hpp"
#include "workflow/steps.hpp"

namespace kelp {

namespace {

void SaveDatalog(Kelp& kelp) {
  if (!AskYes(kelp, "Do you want to save the datalog?", "Save Data?", Icon::None, Buttons::YesNoCancel))
    return;
  if (!CloseStation(kelp)) return;
  FrmAcquire& form = kelp.frmAcquire;
  kelp.run.StepName = "BLANK";
  SelectOption(form.Option1, kStepBlank);
  form.txtStats[0].Text.clear();
  form.Command1.Caption = "Load Blank";
  form.Text4.Text = "Load Blank then press <spacebar> or click [Start] when stable";
  form.Command1.ToolTipText = "Load Blank then click here when stable";
}

void AllowHighRa(Kelp& kelp) {
  if (!AskYes(kelp, "Do you want to allow Ra > Rb?", "Override?", Icon::None, Buttons::YesNoCancel)) return;
  FrmAcquire& form = kelp.frmAcquire;
  const bool waits = form.Option1[kStepSamples].Value && form.Command1.Caption == "Acidified";
  if (waits && Val(form.txtReading.Text) > static_cast<double>(kelp.run.RbReading)) {
    form.Command1.Caption = "Reading Ra";
    kelp.run.RaAccepted = true;
  }
  form.Text4.Text = "Manual overide; Ra is higher than Rb but who cares.";
}

void ChangeStep(Kelp& kelp) {
  if (!AskYes(kelp, "Do you want to reset the current process to another? Y/N", "Change step?",
              Icon::Critical))
    return;
  kelp.frmChangeStep = FrmChangeStep();
  ShowScreen(kelp, "frmChangeStep");
}

void Recalculate(Kelp& kelp) {
  if (!AskYes(kelp, "Recalculate all values? Y/N", "Recalculate?", Icon::Critical)) return;
  if (kelp.run.StepName == "RELOAD" || kelp.run.StepName == "BLANK")
    CalcAllSamples(kelp);
  else
    CalcCurrentSample(kelp);
}

void StartOver(Kelp& kelp) {
  // Prompt and title stand the other way round than with the other keys.
  if (!AskYes(kelp, "Restart? Y/N", "Do you want to start over?", Icon::Critical)) return;
  FrmAcquire& form = kelp.frmAcquire;
  form.Command1.Caption = "Load Blank";
  kelp.run.ReadCount = 0;
  kelp.run.TraceColor = kTraceMagenta;
  form.Option1[kStepBlank].Caption = "Begin Blank";
  SelectOption(form.Option1, kStepBlank);
  // A restart must not read the blank as a sample.
  kelp.run.StepName = "BLANK";
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
      PutIntoSlot(kelp, KeySlot(kelp), kelp.run.LastRawText);
      break;
    case 6: Recalculate(kelp); break;
    case 7: PutIntoSlot(kelp, KeySlot(kelp), std::string(form.txtReading.Text)); break;
    case 8: StartOver(kelp); break;
    case 9: ShowScreen(kelp, "dlgRunRem"); break;
    default: break;
  }
}

bool SpaceKey(Kelp& kelp) {
  std::string& caption = kelp.frmAcquire.Command1.Caption;
  if (caption == "S&tandby") {
    caption = "&Start";
    return true;
  }
  if (caption != "&Start") return false;
  PromptSelectedStep(kelp);
  return true;
}

}  // namespace kelp
