// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/accept.hpp"

#include <optional>

#include "calc/calc_samples.hpp"
#include "core/captions.hpp"
#include "core/numbers.hpp"
#include "core/places.hpp"
#include "core/start_button.hpp"
#include "workflow/record.hpp"
#include "workflow/steps.hpp"

namespace kelp {

namespace {

constexpr const char* kLoadFirstSample =
    "Load the first Station Sample and click [Start] or press <Spacebar>.";
constexpr const char* kWaitForOver =
    "\nWait for lcd \"OVER\" to become numeric \nthen press <pressbar> or click [Load...]";

StoreNote NoteOf(const Kelp& kelp, SavedBy by) {
  return NoteOfReads(kelp, by == SavedBy::Hand ? How::Hand : How::Autoread);
}

// The item is done: its count ends, and the trace turns red until the next one is loaded.
void Record(Kelp& kelp, SavedBy by, const std::string& code) {
  RecordStep(kelp, SavedText(kelp.run.CurReading), code, NoteOf(kelp, by));
  kelp.run.ReadCount = 0;
  kelp.run.TraceColor = kTraceRed;
}

// Behind the last sample there is no first one to load: what was read again must not lead into its cells.
void LoadFirstSample(Kelp& kelp) {
  const int last = kelp.run.SampCount;
  if (last >= 1 && kelp.run.SampNum >= last && HoldsReading(kelp, {.Row = last, .Col = kColRa}))
    GoToStandby(kelp);
  else
    SetButton(kelp, {.Caption = captions::kLoad1stSample, .Text = kLoadFirstSample});
}

bool MayReplace(Kelp& kelp, const Place& place) {
  if (!HoldsReading(kelp, place) || kelp.run.ReplaceSample == place.Row) return true;
  Message question{"Sample " + std::to_string(place.Row) + " (bottle " + BottleOf(kelp, place.Row) +
                       ") already has " + kelp.frmAcquire.datalog.Text(0, place.Col) + " " +
                       ValueAt(kelp, place) + ". Replace it? Y/N",
                   "Replace a reading?", Buttons::YesNo};
  question.DefaultNo = true;
  if (AskYes(kelp, question)) {
    kelp.run.ReplaceSample = place.Row;
    return true;
  }
  const std::string kept = "Sample " + std::to_string(place.Row) + " keeps its " +
                           kelp.frmAcquire.datalog.Text(0, place.Col) + " " + ValueAt(kelp, place);
  SetStatus(kelp, kept + ".");
  const bool ra = place.Col == kColRa;
  SetButton(kelp, {.Caption = ra ? captions::kAcidify : captions::kLoadStationSample,
                   .Text = kept + ". Double-click the cell of the sample that is to be read.",
                   .Trace = ra ? kTraceBlue : kTraceMagenta});
  kelp.run.Loaded = false;
  return false;
}

}  // namespace

void AcceptBlank(Kelp& kelp, SavedBy by) {
  RunState& run = kelp.run;
  Record(kelp, by, "0");
  if (ReadsEndValues(kelp, kStepBlank)) {
    run.ReadIndex = 0;
    GoToStandby(kelp);
    return;
  }
  const std::string load = WithNames(run, captions::kLoadFirstCopro);
  SetButton(kelp,
            {.Caption = load,
             .Text = load + (by == SavedBy::Hand ? " and click [Start] or press <Spacebar>."
                                                 : " and click [Start] or press <Spacebar> when stable.")});
}

void AcceptLowStandard(Kelp& kelp, SavedBy by) {
  Record(kelp, by, "0");
  SetButton(kelp, {.Caption = captions::kLoadHighStandard,
                   .Tip = "Click to Start reading the high standard",
                   .Text = std::string("Flip the standard 180deg to High...") + kWaitForOver});
}

void AcceptHighStandard(Kelp& kelp, SavedBy by) {
  Record(kelp, by, "0");
  if (ReadsEndValues(kelp, kStepStandard))
    GoToStandby(kelp);
  else
    LoadFirstSample(kelp);
}

void AcceptFirstCopro(Kelp& kelp, SavedBy by) {
  const std::string& second = kelp.run.CoproHighStd;
  Record(kelp, by, "1");
  SetButton(kelp, {.Caption = WithNames(kelp.run, captions::kLoadSecondCopro),
                   .Tip = "Click to Start reading " + second,
                   .Text = std::string("Insert 2nd Copro Standard.") + kWaitForOver,
                   .SecondCopro = true});
}

void AcceptSecondCopro(Kelp& kelp, SavedBy by) {
  Record(kelp, by, "2");
  if (ReadsEndValues(kelp, kStepCopros))
    GoToStandby(kelp);
  else
    LoadFirstSample(kelp);
}

void AcceptRb(Kelp& kelp, SavedBy by, int code) {
  RunState& run = kelp.run;
  if (!MayReplace(kelp, {.Row = run.SampNum, .Col = kColRb})) return;
  const float reading = run.CurReading;
  run.ReadFlag = true;
  SetButton(kelp,
            {.Caption = captions::kAcidify,
             .Text = by == SavedBy::Hand
                         ? "Press F7 if the current reading is higher than saved; ACIDIFY w/ 200ul (one "
                           "squirt) 10% HCL using Repipettor"
                         : "ACIDIFY - ONE squirt of 10% HCL using Repipettor"});
  RecordSampleReading(kelp, code, NoteOf(kelp, by));
  run.RbReading = reading;
}

void AcceptRa(Kelp& kelp, SavedBy by) {
  RunState& run = kelp.run;
  FrmAcquire& form = kelp.frmAcquire;
  if (!MayReplace(kelp, {.Row = run.SampNum, .Col = kColRa})) return;
  run.RaReading = run.CurReading;
  run.ReadFlag = false;
  std::optional<RunTimeError> failure;
  RecordSampleReading(kelp, 4, NoteOf(kelp, by));
  try {
    CalcCurrentSample(kelp);
  } catch (const RunTimeError& error) {
    failure = error;
  }
  if (form.Command1.Caption == captions::kReadingRa) {
    if (by == SavedBy::Autoread) Tell(kelp, "Re-Reading Ra");
    run.ReadFlag = true;
  } else {
    const bool last = form.Command1.Caption == captions::kWhatsNext;
    const char* text =
        by == SavedBy::Autoread ? "Load the next Station Sample and click [Start] or press <Spacebar>."
        : last                  ? "Press F7 if the current reading is lower than saved. All samples are read."
               : "Press F7 if the current reading is lower than saved then load the next Station "
                 "Sample and click [Start] or press <Spacebar>.";
    SetButton(kelp, {.Caption = last ? captions::kWhatsNext : captions::kLoadNextSample,
                     .Text = text,
                     .Trace = kTraceRed});
    run.RaAccepted = false;
    run.ReplaceSample = 0;
  }
  if (failure) throw RunTimeError(*failure);
}

}  // namespace kelp
