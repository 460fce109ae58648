// SPDX-License-Identifier: GPL-3.0-or-later
// The automatic save: when an average may be stored, and the questions asked before.
#include <cmath>

#include "acquire/averaging.hpp"
#include "core/captions.hpp"
#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/start_button.hpp"
#include "core/text.hpp"
#include "workflow/accept.hpp"
#include "workflow/steps.hpp"

namespace kelp {

namespace {

constexpr float kLowestBlank = 0.0028F;
constexpr float kAcidMargin = 0.06F;
constexpr float kCopro1Tolerance = 0.3F;
constexpr float kCopro2Tolerance = 0.5F;

bool MaySave(const Kelp& kelp) { return WhyNotSaved(kelp, SavedBy::Autoread).empty(); }

double ShownReading(const Kelp& kelp) { return Val(kelp.frmAcquire.txtReading.Text); }

// Single precision, so that 1.83 and 1.53 lie 0.3 apart and not a little more.
float Distance(double a, double b) { return static_cast<float>(std::abs(a - b)); }

bool BlankIsGood(Kelp& kelp) {
  const bool awol = Upper(Left(CfgValue(kelp.run, kCfgFluorometer), 4)) == "AWOL";
  const std::string limit = CfgValue(kelp.run, awol ? kCfgBlankLimitAwol : kCfgBlankLimit);
  if (ShownReading(kelp) > Val(limit) &&
      !AskRisky(kelp, "Blank reading is high! Save anyways? Y/N", "Current value > than" + limit))
    return false;
  return kelp.run.CurReading >= kLowestBlank || AskYes(kelp, "Blank reading is low! Save anyways? Y/N",
                                                       "Current value < than 0.0028!", Icon::Critical);
}

void SaveBlank(Kelp& kelp) {
  if (BlankIsGood(kelp)) {
    AcceptBlank(kelp, SavedBy::Autoread);
    return;
  }
  SetButton(kelp, {.Caption = captions::kLoadBlank,
                   .Text = "Reload blank and click [Start] or press <Spacebar>.",
                   .Trace = kTraceMagenta});
}

// A No holds until the next reading: the same question at every pass would leave no time to act.
bool AskOnce(Kelp& kelp, const std::string& question) {
  const unsigned long reading = kelp.run.Chart.PointsAdded();
  if (kelp.loop.RefusedAtReading == reading) return false;
  // The copros share the title of the standards: it is the one the analysts know.
  if (AskYes(kelp, question, "Current value <= to beginning blank!", Icon::Critical)) return true;
  kelp.loop.RefusedAtReading = reading;
  return false;
}

bool StandardIsGood(Kelp& kelp, const std::string& name) {
  return Val(kelp.run.BeginBlankText) < ShownReading(kelp) ||
         AskOnce(kelp, name + " standard reading is too low! Save anyways? Y/N");
}

bool CoproIsGood(Kelp& kelp, StaInfo averageBox, float tolerance) {
  const double average = Val(kelp.frmAcquire.txtStaInfo[averageBox].Text);
  return average <= 0 || Distance(ShownReading(kelp), average) <= tolerance ||
         AskOnce(kelp, "Copro reading differs from average! Save anyways? Y/N");
}

void SaveRb(Kelp& kelp) {
  int code = 3;
  if (kelp.run.CurReading < static_cast<float>(Val(kelp.frmAcquire.txtBlank[kBoxBeginBlank].Text))) {
    if (!AskYes(kelp, "Average sample read is less than the blank! OK? Y/N",
                "Sample Reading is Lower than Blank!", Icon::Critical)) {
      // One, not zero: the read that raised the question counts for the next try.
      kelp.run.ReadCount = 1;
      return;
    }
    code = 7;
  }
  AcceptRb(kelp, SavedBy::Autoread, code);
}

void SaveRa(Kelp& kelp) {
  RunState& run = kelp.run;
  if (run.CurReading > run.RbReading) {
    Say(kelp, "Ra is > than Rb.  Manual save is required or wait till Ra < Rb.");
    if (!AskRisky(kelp, "Ra > Rb! Do you want to save this value anyway? Y/N", "Ra > Rb!")) {
      ClearRawReads(run);
      SetButton(kelp, {.Caption = captions::kReadingRa});
      return;
    }
  }
  AcceptRa(kelp, SavedBy::Autoread);
}

// Acid shows itself by a change of the reading; the Ra counts from the reading's fall below Rb.
void WatchAcid(Kelp& kelp) {
  RunState& run = kelp.run;
  const FrmAcquire& form = kelp.frmAcquire;
  const auto rb = static_cast<double>(run.RbReading);
  if (form.Command1.Caption == captions::kAcidify) {
    if (Distance(ShownReading(kelp), rb) > kAcidMargin) SetButton(kelp, {.Caption = captions::kAcidified});
    return;
  }
  if (ShownReading(kelp) >= rb) return;
  ClearRawReads(run);
  SetButton(kelp, {.Caption = captions::kReadingRa,
                   .Tip = "Wait for the min number of reads...",
                   .Text = "When SD <= " + CfgValue(run, kCfgSdCriterion) + ", mean value will be saved."});
}

}  // namespace

void SaveReading(Kelp& kelp) {
  const CaptionRow& row = ButtonRow(kelp);
  kelp.frmAcquire.txtBlank[kBoxAutoCriterion].Text = SdText(CfgNumber(kelp.run, kCfgSdCriterion));
  // After a relocation to an Ra the tube of another sample is in the holder: it waits for the click.
  if (row.Does == Phase::Acid && kelp.run.Loaded) WatchAcid(kelp);
  if (row.Does != Phase::Save || !MaySave(kelp)) return;
  switch (row.What) {
    case Item::Blank: SaveBlank(kelp); break;
    case Item::LowStandard:
      if (StandardIsGood(kelp, "Low")) AcceptLowStandard(kelp, SavedBy::Autoread);
      break;
    case Item::HighStandard:
      if (StandardIsGood(kelp, "High")) AcceptHighStandard(kelp, SavedBy::Autoread);
      break;
    case Item::Copro1:
      if (CoproIsGood(kelp, kStaCopro1, kCopro1Tolerance)) AcceptFirstCopro(kelp, SavedBy::Autoread);
      break;
    case Item::Copro2:
      if (CoproIsGood(kelp, kStaCopro2, kCopro2Tolerance)) AcceptSecondCopro(kelp, SavedBy::Autoread);
      break;
    case Item::Rb: SaveRb(kelp); break;
    case Item::Ra: SaveRa(kelp); break;
    case Item::None: break;
  }
}

}  // namespace kelp
