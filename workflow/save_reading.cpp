// The automatic save: when an average may be stored, and the questions asked before.
#include <cmath>

#include "acquire/averaging.hpp"
#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "workflow/accept.hpp"
#include "workflow/steps.hpp"

namespace kelp {

namespace {

constexpr float kLowestBlank = 0.0028F;
constexpr int kExtraReadsForRa = 5;
constexpr float kAcidMargin = 0.06F;
constexpr float kCopro1Tolerance = 0.3F;
constexpr float kCopro2Tolerance = 0.5F;

// A value may be saved once enough reads are in, an average of them exists, and the SD is small enough.
bool MaySave(const Kelp& kelp, int extraReads) {
  return kelp.run.ReadCount >= kelp.run.MinReads + extraReads && SdIsMet(kelp);
}

double ShownReading(const Kelp& kelp) { return Val(kelp.frmAcquire.txtReading.Text); }

// Single precision, so that 1.83 and 1.53 lie 0.3 apart and not a little more.
float Distance(double a, double b) { return static_cast<float>(std::abs(a - b)); }

bool BlankIsGood(Kelp& kelp) {
  const bool awol = Upper(Left(CfgValue(kelp.run, kCfgFluorometer), 4)) == "AWOL";
  const std::string limit = CfgValue(kelp.run, awol ? kCfgBlankLimitAwol : kCfgBlankLimit);
  if (ShownReading(kelp) > Val(limit) &&
      !AskYes(kelp, "Blank reading is high! Save anyways? Y/N", "Current value > than" + limit))
    return false;
  return kelp.run.CurReading >= kLowestBlank || AskYes(kelp, "Blank reading is low! Save anyways? Y/N",
                                                       "Current value < than 0.0028!", Icon::Critical);
}

void SaveBlank(Kelp& kelp) {
  if (BlankIsGood(kelp)) {
    AcceptBlank(kelp, SavedBy::Autoread);
    return;
  }
  kelp.frmAcquire.Command1.Caption = "Load Blank";
  kelp.frmAcquire.Text4.Text = "Reload blank and click [Start] or press <Spacebar>.";
  kelp.run.TraceColor = kTraceMagenta;
  kelp.run.ReadCount = 0;
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
    kelp.frmAcquire.Text4.Text = "Ra is > than Rb.  Manual save is required or wait till Ra < Rb.";
    if (!AskYes(kelp, "Ra > Rb! Do you want to save this value anyway? Y/N", "Ra > Rb!")) {
      kelp.frmAcquire.Command1.Caption = "Reading Ra";
      ClearRawReads(run);
      return;
    }
  }
  AcceptRa(kelp, SavedBy::Autoread);
}

// Acid shows itself by a change of the reading; the Ra counts from the reading's fall below Rb.
void WatchAcid(Kelp& kelp) {
  RunState& run = kelp.run;
  FrmAcquire& form = kelp.frmAcquire;
  const auto rb = static_cast<double>(run.RbReading);
  if (form.Command1.Caption == "Acidify") {
    if (Distance(ShownReading(kelp), rb) > kAcidMargin) form.Command1.Caption = "Acidified";
    return;
  }
  if (ShownReading(kelp) >= rb) return;
  form.Command1.Caption = "Reading Ra";
  ClearRawReads(run);
  form.Command1.ToolTipText = "Wait for the min number of reads...";
  form.Text4.Text = "When SD <= " + CfgValue(run, kCfgSdCriterion) + ", mean value will be saved.";
}

void SaveSample(Kelp& kelp) {
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  if (caption == "Acidify" || caption == "Acidified")
    WatchAcid(kelp);
  else if (caption == "Save Rb" && MaySave(kelp, 0))
    SaveRb(kelp);
  else if (caption == "Save Ra" && MaySave(kelp, kExtraReadsForRa))
    SaveRa(kelp);
}

void SaveStandard(Kelp& kelp) {
  const std::string caption = kelp.frmAcquire.Command1.Caption;
  if (!MaySave(kelp, 0)) return;
  if (caption == "Save Low Standard" && StandardIsGood(kelp, "Low")) AcceptLowStandard(kelp);
  if (caption == "Save High Standard" && StandardIsGood(kelp, "High")) AcceptHighStandard(kelp);
}

void SaveCopro(Kelp& kelp) {
  const std::string caption = kelp.frmAcquire.Command1.Caption;
  if (!MaySave(kelp, 0)) return;
  if (caption == "Save " + kelp.run.CoproHighStd) {
    if (CoproIsGood(kelp, kStaCopro2, kCopro2Tolerance)) AcceptSecondCopro(kelp);
  } else if (caption == "Save " + kelp.run.CoproLowStd) {
    if (CoproIsGood(kelp, kStaCopro1, kCopro1Tolerance)) AcceptFirstCopro(kelp);
  }
}

}  // namespace

bool SdIsMet(const Kelp& kelp) {
  const auto criterion = static_cast<float>(CfgNumber(kelp.run, kCfgSdCriterion));
  return AverageExists(kelp.run) && static_cast<float>(Val(kelp.frmAcquire.txtStats[2].Text)) <= criterion;
}

void SaveReading(Kelp& kelp) {
  const std::string& step = kelp.run.StepName;
  kelp.frmAcquire.txtBlank[kBoxAutoCriterion].Text = SdText(CfgNumber(kelp.run, kCfgSdCriterion));
  if (step == "SAMPLE" || step == "ADDED")
    SaveSample(kelp);
  else if (step == "STANDARD")
    SaveStandard(kelp);
  else if (step == "COPROS")
    SaveCopro(kelp);
  else if (step == "BLANK" && StartsWith(kelp.frmAcquire.Command1.Caption, "Save") && MaySave(kelp, 0))
    SaveBlank(kelp);
}

}  // namespace kelp
