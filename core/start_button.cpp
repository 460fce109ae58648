// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/start_button.hpp"

#include <algorithm>

#include "core/captions.hpp"
#include "core/numbers.hpp"
#include "core/option.hpp"
#include "core/steps.hpp"

namespace kelp {

namespace {

void FitTrace(Kelp& kelp, const CaptionRow& row, std::optional<std::uint32_t> trace) {
  std::uint32_t& now = kelp.run.TraceColor;
  if (trace)
    now = *trace;
  else if (std::find(row.Traces.begin(), row.Traces.end(), now) == row.Traces.end())
    now = row.Traces.front();
}

}  // namespace

const CaptionRow& ButtonRow(const Kelp& kelp) {
  return CaptionOf(kelp.run, kelp.frmAcquire.Command1.Caption);
}

std::string StepUnderWay(const Kelp& kelp) {
  const CaptionRow& row = ButtonRow(kelp);
  const std::string& step = kelp.run.StepName;
  return *row.Step == '\0' || (step == steps::kAdded && row.Selector == kStepSamples) ? step : row.Step;
}

void SetStep(Kelp& kelp, const std::string& step) {
  RunState& run = kelp.run;
  const bool sameItems = run.StepName == step || (IsSampleStep(run.StepName) && IsSampleStep(step));
  run.StepName = step;
  if (!sameItems) ClearRawReads(run);
  if (SelectorOf(step) >= 0) SelectOption(kelp.frmAcquire.Option1, SelectorOf(step));
}

void SetButton(Kelp& kelp, const ButtonPrompt& prompt) {
  RunState& run = kelp.run;
  Button& button = kelp.frmAcquire.Command1;
  button.Caption = prompt.Caption;
  run.SecondCopro = prompt.SecondCopro;
  const CaptionRow& row = ButtonRow(kelp);
  SetStep(kelp, StepUnderWay(kelp));
  if (row.Does == Phase::Load) ClearRawReads(run);
  if (row.Does == Phase::Load || row.Does == Phase::Idle || row.Does == Phase::Next) run.Loaded = false;
  FitTrace(kelp, row, prompt.Trace);
  if (prompt.Tip)
    button.ToolTipText = *prompt.Tip;
  else if (!GoesWith(run, row.Tips, button.ToolTipText))
    button.ToolTipText = Alternatives(run, row.Tips).front();
  if (prompt.Text)
    Say(kelp, *prompt.Text);
  else if (!GoesWith(run, row.Texts, Said(kelp)))
    Say(kelp, Alternatives(run, row.Texts).front());
}

void MoveToSample(Kelp& kelp, int sample) {
  RunState& run = kelp.run;
  if (run.SampNum == sample) return;
  run.SampNum = sample;
  const Item item = ButtonRow(kelp).What;
  if (item != Item::Rb && item != Item::Ra) return;
  run.Loaded = false;
  ClearRawReads(run);
  // The Ra is compared with this sample's Rb, not with that of the sample left.
  if (item == Item::Ra && sample < kelp.frmAcquire.datalog.Rows)
    run.RbReading = static_cast<float>(Val(kelp.frmAcquire.datalog.Text(sample, kColRb)));
}

bool IsPaused(const Kelp& kelp) { return kelp.frmAcquire.Command2.Caption == captions::kResume; }

void Say(Kelp& kelp, const std::string& text) {
  (IsPaused(kelp) ? kelp.run.PauseStore : kelp.frmAcquire.Text4.Text) = text;
}

const std::string& Said(const Kelp& kelp) {
  return IsPaused(kelp) ? kelp.run.PauseStore : kelp.frmAcquire.Text4.Text;
}

}  // namespace kelp
