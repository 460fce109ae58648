#include "app/panel.hpp"

#include "acquire/captions.hpp"
#include "app/alarms.hpp"
#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "workflow/record.hpp"
#include "workflow/steps.hpp"

namespace kelp {

namespace {

int BoxOfStep(const Kelp& kelp) {
  const std::string& step = kelp.run.StepName;
  if (step == "BLANK" || step == "STANDARD") return RecordBox(kelp, "0");
  if (step != "COPROS") return -1;
  // A caption that holds the second copro's name reads that one, every other the first.
  return RecordBox(kelp, HoldsName(kelp.frmAcquire.Command1.Caption, kelp.run.CoproHighStd) ? "2" : "1");
}

bool AcidIsIn(const std::string& caption) {
  return StartsWith(caption, "Acidif") || EndsWith(caption, " Ra");
}

// The step selector only says where a run starts; this says where it stands.
std::string StepOf(const Kelp& kelp, const PanelState& panel) {
  std::string step = kelp.run.StepName;
  if (panel.Col >= 0)
    step += " " + std::to_string(panel.Row) + ": " + kelp.frmAcquire.datalog.Text(0, panel.Col);
  else if (panel.Box >= 0)
    step += ": " + std::string(Trim(kelp.frmAcquire.lblBlank[panel.Box].Caption));
  return step;
}

}  // namespace

PanelState PanelOf(const Kelp& kelp) {
  const RunState& run = kelp.run;
  const FrmAcquire& form = kelp.frmAcquire;
  PanelState panel;
  panel.Criterion = SdText(CfgNumber(run, kCfgSdCriterion));
  panel.HasSd = !form.txtStats[2].Text.empty();
  // What stood before the line fell silent is no sign that a value may be saved now.
  panel.SdMet = panel.HasSd && SdIsMet(kelp) && ReadingAge(kelp) < 0;
  panel.MinReads = run.MinReads;
  panel.ReadsMet = Val(form.txtStats[0].Text) >= run.MinReads && !form.txtStats[0].Text.empty();
  panel.Station = std::string(Trim(form.txtStaInfo[kStaProcNum].Text)) + "  " +
                  std::string(Trim(form.txtStaInfo[kStaLineSta].Text));
  panel.Samples = run.SampCount > 0 ? int{run.SampCount} : 0;
  if (run.SampNum >= 1 && run.SampNum <= panel.Samples) panel.Sample = panel.Row = run.SampNum;
  const bool sampleStep = run.StepName == "SAMPLE" || run.StepName == "ADDED";
  if (sampleStep && panel.Row > 0) panel.Col = AcidIsIn(form.Command1.Caption) ? kColRa : kColRb;
  panel.Box = BoxOfStep(kelp);
  panel.Step = StepOf(kelp, panel);
  return panel;
}

}  // namespace kelp
