// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/whats_next_steps.hpp"

#include "core/captions.hpp"
#include "core/option.hpp"
#include "core/start_button.hpp"
#include "core/steps.hpp"

namespace kelp {

namespace {

void Prompt(Kelp& kelp, const std::string& caption, const std::string& item) {
  SetButton(kelp, {.Caption = caption,
                   .Tip = "Load " + item + " then click here when stable",
                   .Text = "Load " + item + " then press <spacebar> or <click> when stable"});
}

}  // namespace

void PromptNextStation(Kelp& kelp) {
  SetStep(kelp, steps::kSample);
  Prompt(kelp, captions::kLoadSample, "Sample");
}

void PromptBlank(Kelp& kelp) { Prompt(kelp, captions::kLoadBlank, "Blank"); }

void PromptStandards(Kelp& kelp) {
  Prompt(kelp, captions::kLoadLowStandard, "Standard");
  kelp.frmAcquire.Option1[kStepStandard].Caption = "EndStnd";
}

void PromptCopros(Kelp& kelp) {
  Prompt(kelp, WithNames(kelp.run, captions::kLoadFirstCopro), "Copro " + kelp.run.CoproLowStd);
}

void PutIntoStandby(Kelp& kelp) {
  FrmAcquire& form = kelp.frmAcquire;
  SetStep(kelp, steps::kStandby);
  SelectOption(form.Option1, kStepBlank);
  kelp.run.StartUp = true;
  SetButton(kelp, {.Caption = captions::kStart, .Tip = "Click to Start", .Text = "Click [Start] to begin"});
  form.txtReading.Text.clear();
}

}  // namespace kelp
