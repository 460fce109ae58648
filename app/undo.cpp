// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/undo.hpp"

#include "core/captions.hpp"
#include "core/start_button.hpp"
#include "record/record.hpp"
#include "workflow/run_controls.hpp"

namespace kelp {

namespace {

std::string LoadCaption(const RunState& run, Item item) {
  switch (item) {
    case Item::LowStandard: return captions::kLoadLowStandard;
    case Item::HighStandard: return captions::kLoadHighStandard;
    case Item::Copro1: return WithNames(run, captions::kLoadFirstCopro);
    case Item::Copro2: return WithNames(run, captions::kLoadSecondCopro);
    default: return captions::kLoadBlank;
  }
}

// The readings of the item are gone: what was ready to be saved is to be read anew, and nothing is read
// before the operator has put the item back.
void ReadAgain(Kelp& kelp) {
  RunState& run = kelp.run;
  const CaptionRow row = ButtonRow(kelp);
  const bool second = row.What == Item::Copro2;
  run.ReadFlag = run.ReadInProgress = run.RaAccepted = run.Loaded = false;
  // A value that the operator went back to replace is asked for again.
  run.ReplaceSample = 0;
  run.Resume = ResumeAt::Nothing;
  kelp.loop.Running = false;
  ClearRawReads(run);
  HideScreen(kelp, kelp.frmWhatsNext.Form);
  if (row.What == Item::Ra || (row.What == Item::Rb && row.Does != Phase::Load)) {
    PromptSample(kelp, row.What == Item::Ra);
    return;
  }
  const bool reads = row.Does == Phase::Read || row.Does == Phase::Save;
  SetButton(kelp, {.Caption = reads ? LoadCaption(run, row.What) : kelp.frmAcquire.Command1.Caption,
                   .Trace = row.Does == Phase::Next ? kTraceRed : kTraceMagenta,
                   .SecondCopro = second});
}

}  // namespace

void cmdUndo_Click(Kelp& kelp) {
  const Undone undone = UndoLast(kelp);
  if (undone.What.empty()) {
    SetStatus(kelp, "Nothing to take back.");
    return;
  }
  if (undone.MovesRun) ReadAgain(kelp);
  kelp.Focus = {"frmAcquire", "Command1"};
  SetStatus(kelp, "Taken back: " + undone.What + ".");
}

}  // namespace kelp
