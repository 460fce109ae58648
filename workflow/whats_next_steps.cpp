#include "workflow/whats_next_steps.hpp"

#include "core/option.hpp"

namespace kelp {

namespace {

void Prompt(FrmAcquire& form, const std::string& caption, const std::string& item) {
  form.Command1.Caption = caption;
  form.Command1.ToolTipText = "Load " + item + " then click here when stable";
  form.Text4.Text = "Load " + item + " then press <spacebar> or <click> when stable";
}

}  // namespace

void PromptNextStation(Kelp& kelp) {
  kelp.run.StepName = "SAMPLE";
  SelectOption(kelp.frmAcquire.Option1, kStepSamples);
  Prompt(kelp.frmAcquire, "Load Sample", "Sample");
}

void PromptBlank(Kelp& kelp) {
  kelp.run.StepName = "BLANK";
  SelectOption(kelp.frmAcquire.Option1, kStepBlank);
  Prompt(kelp.frmAcquire, "Load Blank", "Blank");
}

void PromptStandards(Kelp& kelp) {
  kelp.run.StepName = "STANDARD";
  Prompt(kelp.frmAcquire, "Load Low Standard", "Standard");
  SelectOption(kelp.frmAcquire.Option1, kStepStandard);
  kelp.frmAcquire.Option1[kStepStandard].Caption = "EndStnd";
}

void PromptCopros(Kelp& kelp) {
  kelp.run.StepName = "COPROS";
  Prompt(kelp.frmAcquire, "Load Copro " + kelp.run.CoproLowStd, "Copro " + kelp.run.CoproLowStd);
  SelectOption(kelp.frmAcquire.Option1, kStepCopros);
}

void PutIntoStandby(Kelp& kelp) {
  FrmAcquire& form = kelp.frmAcquire;
  kelp.run.StepName = "STANDBY";
  SelectOption(form.Option1, kStepBlank);
  kelp.run.StartUp = true;
  form.Command1.Caption = "&Start";
  form.Command1.ToolTipText = "Click to Start";
  form.Text4.Text = "Click [Start] to begin";
  form.txtReading.Text.clear();
}

}  // namespace kelp
