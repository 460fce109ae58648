// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/whats_next_steps.hpp"

#include "core/option.hpp"
#include "core/start_button.hpp"

namespace kelp {

namespace {

void Prompt(Kelp& kelp, const std::string& caption, const std::string& item) {
  SetButton(kelp, {.Caption = caption,
                   .Tip = "Load " + item + " then click here when stable",
                   .Text = "Load " + item + " then press <spacebar> or <click> when stable"});
}

}  // namespace

void PromptNextStation(Kelp& kelp) {
  SetStep(kelp, "SAMPLE");
  Prompt(kelp, "Load Sample", "Sample");
}

void PromptBlank(Kelp& kelp) { Prompt(kelp, "Load Blank", "Blank"); }

void PromptStandards(Kelp& kelp) {
  Prompt(kelp, "Load Low Standard", "Standard");
  kelp.frmAcquire.Option1[kStepStandard].Caption = "EndStnd";
}

void PromptCopros(Kelp& kelp) {
  Prompt(kelp, "Load Copro " + kelp.run.CoproLowStd, "Copro " + kelp.run.CoproLowStd);
}

void PutIntoStandby(Kelp& kelp) {
  FrmAcquire& form = kelp.frmAcquire;
  SetStep(kelp, "STANDBY");
  SelectOption(form.Option1, kStepBlank);
  kelp.run.StartUp = true;
  SetButton(kelp, {.Caption = "&Start", .Tip = "Click to Start", .Text = "Click [Start] to begin"});
  form.txtReading.Text.clear();
}

}  // namespace kelp
