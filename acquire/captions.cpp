#include "acquire/captions.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

constexpr float kRaMargin = 0.1F;
constexpr const char* kWaitTip = "Wait for minimum number of reads";

void SetButton(FrmAcquire& form, const std::string& caption, const std::string& tip) {
  form.Command1.Caption = caption;
  form.Command1.ToolTipText = tip;
}

void WaitForFall(Kelp& kelp) {
  if (!kelp.frmAcquire.Check1.Value || kelp.run.RaAccepted) return;
  const auto shown = static_cast<float>(Val(kelp.frmAcquire.txtReading.Text));
  if (shown <= kelp.run.RbReading + kRaMargin) return;
  kelp.run.ReadCount = 0;
  kelp.frmAcquire.Text4.Text = "Ra greater than Rb... Wait...\nor press spacebar to accept Ra value.";
}

}  // namespace

bool HoldsName(std::string_view text, std::string_view name) { return !name.empty() && Contains(text, name); }

void UpdateSaveCaption(Kelp& kelp) {
  RunState& run = kelp.run;
  FrmAcquire& form = kelp.frmAcquire;
  const std::string caption = form.Command1.Caption;
  if (run.ReadCount < run.MinReads) return;
  if (run.StepName == "STANDARD") {
    if (Contains(caption, "High"))
      SetButton(form, "Save High Standard", "Click to Save High Standard");
    else if (Contains(caption, "Low"))
      SetButton(form, "Save Low Standard", "Click to Save Low Standard");
  } else if (run.StepName == "COPROS") {
    for (const std::string& name : {run.CoproHighStd, run.CoproLowStd}) {
      if (!HoldsName(caption, name)) continue;
      SetButton(form, "Save " + name, "Click to Save Reading of " + name);
      break;
    }
  } else if (run.StepName == "SAMPLE" || run.StepName == "ADDED") {
    if (!run.ReadFlag) {
      SetButton(form, "Save Rb", "Click to Save Rb");
      run.ReadFlag = true;
    } else if (StartsWith(caption, "Read")) {
      SetButton(form, "Save Ra", "Click to Save Ra");
    }
  } else if (run.StepName == "BLANK") {
    SetButton(form, "Save &Blank", "Click to Save Blank");
  }
}

void UpdateInstruction(Kelp& kelp) {
  FrmAcquire& form = kelp.frmAcquire;
  const std::string& caption = form.Command1.Caption;
  if (!StartsWith(caption, "Reading ")) return;
  const std::string_view item = std::string_view(caption).substr(8);
  const auto say = [&](const std::string& what) { form.Text4.Text = "Reading and averaging " + what; };
  if (item == "Low Standard") {
    say("low standard signal...");
  } else if (item == "High Standard") {
    say("high standard signal...");
  } else if (item == "Station Sample") {
    say("initial sample signal...");
    form.Command1.ToolTipText = kWaitTip;
  } else if (item == "Sample") {
    say("sample signal...Wait.");
    form.Command1.ToolTipText = kWaitTip;
  } else if (item == "Ra") {
    form.Command1.ToolTipText = kWaitTip;
    WaitForFall(kelp);
  } else if (item == kelp.run.CoproLowStd) {
    say(kelp.run.CoproLowStd + "...");
  } else if (item == "Copro2" || item == kelp.run.CoproHighStd) {
    say(kelp.run.CoproHighStd + "...");
  }
}

}  // namespace kelp
