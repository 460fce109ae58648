#include "workflow/accept.hpp"

#include <optional>

#include "calc/calc_samples.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "workflow/record.hpp"
#include "workflow/steps.hpp"

namespace kelp {

namespace {

constexpr const char* kLoadFirstSample =
    "Load the first Station Sample and click [Start] or press <Spacebar>.";
constexpr const char* kWaitForOver =
    "\nWait for lcd \"OVER\" to become numeric \nthen press <pressbar> or click [Load...]";

// The item is done: its count ends, and the trace turns red until the next one is loaded.
std::string SavedValue(RunState& run) {
  std::string text = SavedText(run.CurReading);
  run.ReadCount = 0;
  run.TraceColor = kTraceRed;
  return text;
}

void LoadFirstSample(Kelp& kelp) {
  kelp.frmAcquire.Command1.Caption = "Load 1st Sample";
  kelp.frmAcquire.Text4.Text = kLoadFirstSample;
  kelp.run.StepName = "SAMPLE";
}

}  // namespace

void AcceptBlank(Kelp& kelp, SavedBy by) {
  RunState& run = kelp.run;
  FrmAcquire& form = kelp.frmAcquire;
  const std::string value = SavedValue(run);
  if (form.Option1[kStepBlank].Caption != "Begin Blank") {
    run.EndBlankText = value;
    RecordStep(kelp, value, "0");
    run.ReadIndex = 0;
    GoToStandby(kelp);
    return;
  }
  run.BeginBlankText = value;
  RecordStep(kelp, value, "0");
  form.Command1.Caption = "Load Copro " + run.CoproLowStd;
  form.Text4.Text =
      form.Command1.Caption + (by == SavedBy::Hand ? " and click [Start] or press <Spacebar>."
                                                   : " and click [Start] or press <Spacebar> when stable.");
  run.StepName = "COPROS";
}

void AcceptLowStandard(Kelp& kelp) {
  FrmAcquire& form = kelp.frmAcquire;
  kelp.run.LowStdText = SavedValue(kelp.run);
  RecordStep(kelp, kelp.run.LowStdText, "0");
  form.Command1.Caption = "Load High Standard";
  form.Command1.ToolTipText = "Click to Start reading the high standard";
  form.Text4.Text = std::string("Flip the standard 180deg to High...") + kWaitForOver;
}

void AcceptHighStandard(Kelp& kelp) {
  kelp.run.HighStdText = SavedValue(kelp.run);
  RecordStep(kelp, kelp.run.HighStdText, "0");
  if (ReadsEndValues(kelp, kStepStandard))
    GoToStandby(kelp);
  else
    LoadFirstSample(kelp);
}

void AcceptFirstCopro(Kelp& kelp) {
  FrmAcquire& form = kelp.frmAcquire;
  RecordStep(kelp, SavedValue(kelp.run), "1");
  form.Command1.Caption = "Load Copro " + kelp.run.CoproHighStd;
  form.Command1.ToolTipText = "Click to Start reading " + kelp.run.CoproHighStd;
  form.Text4.Text = std::string("Insert 2nd Copro Standard.") + kWaitForOver;
}

void AcceptSecondCopro(Kelp& kelp) {
  RecordStep(kelp, SavedValue(kelp.run), "2");
  if (ReadsEndValues(kelp, kStepCopros))
    GoToStandby(kelp);
  else
    LoadFirstSample(kelp);
}

void AcceptRb(Kelp& kelp, SavedBy by, int code) {
  RunState& run = kelp.run;
  FrmAcquire& form = kelp.frmAcquire;
  run.RbReading = run.CurReading;
  run.ReadFlag = true;
  form.Command1.Caption = "Acidify";
  form.Text4.Text =
      by == SavedBy::Hand
          ? "Press F7 if the current reading is higher than saved; ACIDIFY w/ 200ul (one squirt) 10% "
            "HCL using Repipettor"
          : "ACIDIFY - ONE squirt of 10% HCL using Repipettor";
  RecordSampleReading(kelp, code);
}

void AcceptRa(Kelp& kelp, SavedBy by) {
  RunState& run = kelp.run;
  FrmAcquire& form = kelp.frmAcquire;
  run.RaReading = run.CurReading;
  run.ReadFlag = false;
  RecordSampleReading(kelp, 4);
  std::optional<RunTimeError> failure;
  try {
    CalcCurrentSample(kelp);
  } catch (const RunTimeError& error) {
    failure = error;
  }
  if (form.Command1.Caption == "Reading Ra") {
    if (by == SavedBy::Autoread) Tell(kelp, "Re-Reading Ra");
    run.ReadFlag = true;
  } else {
    if (form.Command1.Caption != "What's Next") form.Command1.Caption = "Load Next Sample";
    form.Text4.Text =
        by == SavedBy::Hand
            ? "Press F7 if the current reading is lower than saved then load the next Station Sample "
              "and click [Start] or press <Spacebar>."
            : "Load the next Station Sample and click [Start] or press <Spacebar>.";
    run.TraceColor = kTraceRed;
    run.RaAccepted = false;
  }
  if (failure) throw RunTimeError(*failure);
}

}  // namespace kelp
