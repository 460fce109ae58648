// The Start/Read/Save button.
#include <utility>

#include "acquire/averaging.hpp"
#include "acquire/captions.hpp"
#include "acquire/read_loop.hpp"
#include "core/text.hpp"
#include "workflow/accept.hpp"
#include "workflow/steps.hpp"

namespace kelp {

namespace {

constexpr const char* kWaitTip = "Wait for the min number of reads...";

void StartLogTimer(Kelp& kelp) {
  kelp.Timer1.Interval = kelp.run.ReadInterval;
  kelp.Timer1.Enabled = kelp.Timer1.Interval > 0;
}

// A line that was lost while reading is opened again by the read loop; a value can be saved meanwhile.
bool NeedsPort(Kelp& kelp) {
  if (kelp.frmAcquire.Command1.Caption == "Start") return true;
  return !kelp.platform.PortIsOpen() && !(kelp.loop.Running && kelp.loop.PortOpened);
}

void BeginReading(Kelp& kelp, const std::string& caption) {
  ClearRawReads(kelp.run);
  kelp.run.TraceColor = kTraceGreen;
  kelp.frmAcquire.Command1.Caption = caption;
  kelp.frmAcquire.Command1.ToolTipText = kWaitTip;
  StartReadLoop(kelp);
}

// A loop started for an Ra keeps ReadFlag, else the Ra would be offered as an Rb.
void BeginRa(Kelp& kelp) {
  kelp.frmAcquire.Command1.Caption = "Reading Ra";
  ClearRawReads(kelp.run);
  kelp.frmAcquire.Command1.ToolTipText = kWaitTip;
  kelp.frmAcquire.Text4.Text = "Press <spacebar> when reading is stable or wait for Autoread.";
  StartReadLoop(kelp);
  kelp.run.ReadFlag = true;
}

void StartIdleLoop(Kelp& kelp, const std::string& caption) {
  if (kelp.loop.Running) return;
  StartReadLoop(kelp);
  if (caption == "Reading Ra" || caption == "Read Ra") kelp.run.ReadFlag = true;
}

bool EnoughReads(Kelp& kelp) {
  if (kelp.run.ReadCount >= kelp.run.MinReads && AverageExists(kelp.run)) return true;
  kelp.frmAcquire.Text4.Text = "Wait! Read minimum number of reads before save...";
  return false;
}

void ClickSample(Kelp& kelp, const std::string& caption) {
  if (StartsWith(caption, "Load")) {
    if (ResumeRestored(kelp)) return;
    BeginReading(kelp, "Reading Station Sample");
    kelp.frmAcquire.Text4.Text = "Reading and averaging sample reads;\n<spacebar> will manually save.";
  } else if (caption == "Acidify" || caption == "Acidified") {
    BeginRa(kelp);
  } else if (caption == "Save Rb") {
    if (EnoughReads(kelp)) AcceptRb(kelp, SavedBy::Hand, 3);
  } else if (caption == "Save Ra") {
    if (EnoughReads(kelp)) AcceptRa(kelp, SavedBy::Hand);
  }
}

void ClickBlank(Kelp& kelp, const std::string& caption) {
  if (StartsWith(caption, "Load")) {
    kelp.run.StepName = "BLANK";
    BeginReading(kelp, "Read Blank");
    kelp.frmAcquire.Text4.Text = "Averaging blank readings...";
  } else if (EnoughReads(kelp)) {
    AcceptBlank(kelp, SavedBy::Hand);
  }
}

void ClickStandard(Kelp& kelp, const std::string& caption) {
  const bool high = Contains(caption, "High");
  if (StartsWith(caption, "Load"))
    BeginReading(kelp, high ? "Reading High Standard" : "Reading Low Standard");
  else if (StartsWith(caption, "Save") && EnoughReads(kelp))
    high ? AcceptHighStandard(kelp) : AcceptLowStandard(kelp);
}

void ClickCopro(Kelp& kelp, const std::string& caption) {
  const bool second = HoldsName(caption, kelp.run.CoproHighStd);
  if (StartsWith(caption, "Load"))
    BeginReading(kelp, "Reading " + (second ? kelp.run.CoproHighStd : kelp.run.CoproLowStd));
  else if (StartsWith(caption, "Save") && EnoughReads(kelp))
    second ? AcceptSecondCopro(kelp) : AcceptFirstCopro(kelp);
}

void ClickStep(Kelp& kelp, const std::string& caption) {
  const std::string& step = kelp.run.StepName;
  if (step == "SAMPLE" || step == "ADDED")
    ClickSample(kelp, caption);
  else if (step == "BLANK" || caption == "Load Blank")  // [Back] leads from the copros to the blank
    ClickBlank(kelp, caption);
  else if (step == "STANDARD")
    ClickStandard(kelp, caption);
  else if (step == "COPROS")
    ClickCopro(kelp, caption);
}

void SetPrompt(Kelp& kelp, const std::string& step, const std::string& caption, const std::string& tip,
               const std::string& instruction) {
  if (!step.empty()) kelp.run.StepName = step;
  kelp.frmAcquire.Command1.Caption = caption;
  kelp.frmAcquire.Command1.ToolTipText = tip;
  kelp.frmAcquire.Text4.Text = instruction;
}

}  // namespace

bool ReadsEndValues(const Kelp& kelp, int stepOption) {
  const std::string& caption = kelp.frmAcquire.Option1[stepOption].Caption;
  return stepOption == kStepBlank ? caption != "Begin Blank" : Contains(caption, "End");
}

void GoToStandby(Kelp& kelp) {
  kelp.frmAcquire.Command1.Caption = "What's Next?";
  kelp.run.StepName = "STANDBY";
  ShowScreen(kelp, "frmWhatsNext");
}

bool ResumeRestored(Kelp& kelp) {
  const ResumeAt resume = std::exchange(kelp.run.Resume, ResumeAt::Nothing);
  const std::string sample = "Sample " + std::to_string(int{kelp.run.SampNum});
  if (resume == ResumeAt::Ra) {
    SetPrompt(
        kelp, "SAMPLE", "Acidify", "Click to Start reading Ra",
        sample + " has its Rb. ACIDIFY if that was not done, then press <spacebar> or click [Acidify].");
    kelp.run.ReadFlag = true;
    kelp.run.TraceColor = kTraceBlue;
    return true;
  }
  if (resume != ResumeAt::Chooser) return false;
  SetPrompt(kelp, "SAMPLE", "What's Next", "", "All samples are read.");
  ShowScreen(kelp, "frmWhatsNext");
  return true;
}

void PromptSelectedStep(Kelp& kelp) {
  if (ResumeRestored(kelp)) return;
  const auto& option = kelp.frmAcquire.Option1;
  const std::string& copro = kelp.run.CoproLowStd;
  if (option[kStepBlank].Value)
    SetPrompt(kelp, "BLANK", "Load Blank", "Load Blank then click here when stable",
              "Load the blank and click [Start] or press <Spacebar>.");
  else if (option[kStepStandard].Value)
    SetPrompt(kelp, "STANDARD", "Load Low Standard", "Load Standard then click here when stable",
              "Load the Standard and click [Start] or press <Spacebar>.");
  else if (option[kStepCopros].Value)
    SetPrompt(kelp, "COPROS", "Load Copro 1", "Load Copro " + copro + " then click here when stable",
              "Load Copro " + copro + " and click [Start] or press <Spacebar>.");
  else if (option[kStepSamples].Value)
    SetPrompt(kelp, "SAMPLE", "Load Sample", "Load Sample then click here when stable",
              "Load the Sample and click [Start] or press <Spacebar>.");
  else
    SetPrompt(kelp, "", "&Start", "Click to Start", "Click [Start] or press <Spacebar>.");
}

void Command1_Click(Kelp& kelp) {
  if (kelp.run.CsvFile.empty()) {
    SetStatus(kelp, "No station is open: nothing can be measured.");
    kelp.frmAcquire.Text4.Text =
        "No station is open. Press F10, log in again and create or find its base file.";
    return;
  }
  StartLogTimer(kelp);
  if (NeedsPort(kelp) && !OpenSerialPort(kelp)) return;
  const std::string caption = kelp.frmAcquire.Command1.Caption;
  if (caption == "&Start")
    PromptSelectedStep(kelp);
  else if (caption == "S&tandby")
    kelp.frmAcquire.Command1.Caption = "&Start";
  else if (caption == "What's Next" || caption == "What's Next?")
    ShowScreen(kelp, "frmWhatsNext");
  else if (StartsWith(caption, "Read"))
    StartIdleLoop(kelp, caption);
  else
    ClickStep(kelp, caption);
}

}  // namespace kelp
