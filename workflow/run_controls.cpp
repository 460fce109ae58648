#include "workflow/run_controls.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "record/record.hpp"
#include "workflow/slots.hpp"

namespace kelp {

namespace {

struct BackRow {
  std::string from;
  std::string to;
  std::uint32_t trace;
};

// Where [Back] leads from each caption. The black trace after "Reading Station Sample" is kept.
std::vector<BackRow> BackTable(const RunState& run) {
  const std::string& low = run.CoproLowStd;
  const std::string& high = run.CoproHighStd;
  return {{"Reading Station Sample", "Load Station Sample", kTraceBlack},
          {"Save Rb", "Reading Station Sample", kTraceGreen},
          {"Acidify", "Reading Station Sample", kTraceGreen},
          {"Acidified", "Reading Station Sample", kTraceGreen},
          {"Reading Ra", "Acidify", kTraceBlue},
          {"Save Ra", "Reading Ra", kTraceBlue},
          {"Reading Rb", "Load Station Sample", kTraceMagenta},
          {"Reading Begin Blank", "Load Blank", kTraceMagenta},
          {"Reading " + low, "Load Copro " + low, kTraceMagenta},
          {"Reading " + high, "Load Copro " + high, kTraceMagenta},
          {"Load Copro " + low, "Load Blank", kTraceMagenta},
          {"Load Copro " + high, "Load Copro " + low, kTraceMagenta}};
}

}  // namespace

void Command2_Click(Kelp& kelp) {
  FrmAcquire& form = kelp.frmAcquire;
  if (form.Command2.Caption == "&Pause") {
    form.Command2.Caption = "&Resume";
    form.Command2.ToolTipText = "Click to resume the reading";
    kelp.run.PauseStore = form.Text4.Text;
    form.Text4.Text = "Sample read suspended, click [Resume] to continue";
  } else {
    form.Command2.Caption = "&Pause";
    form.Command2.ToolTipText = "Click to pause the sample reading";
    form.Text4.Text = kelp.run.PauseStore;
  }
}

void Command3_Click(Kelp& kelp) {
  if (!AskYes(kelp, "Do You Want to Quit? Y/N", "", Icon::Critical, Buttons::YesNoCancel) || !MayLeave(kelp))
    return;
  if (kelp.platform.PortIsOpen()) kelp.platform.ClosePort();
  HideScreen(kelp, "frmAcquire");
  EndProgram(kelp);
}

void Command4_Click(Kelp& kelp) {
  Button& button = kelp.frmAcquire.Command1;
  for (const BackRow& row : BackTable(kelp.run)) {
    if (button.Caption != row.from) continue;
    // Without this the Rb read anew would be offered as an Ra.
    if (row.to == "Reading Station Sample") kelp.run.ReadFlag = false;
    button.Caption = row.to;
    kelp.run.TraceColor = row.trace;
    break;
  }
  kelp.Focus = {"frmAcquire", "Command1"};
}

void Command6_Click(Kelp& kelp) { ShowScreen(kelp, "frmWhatsNext"); }

void Option1_Click(Kelp& kelp, int index) {
  struct Row {
    const char* step;
    std::string caption;
    const char* instruction;
    const char* tip;
  };
  // The apostrophe at the end of the instructions is as the analysts know it.
  const Row rows[] = {
      {"BLANK", "Load Blank", "Load Blank then hit <Spacebar> or click [Read Blank]'",
       "Click to start reading the blank"},
      {"STANDARD", "Load Low Standard", "Load Standard then hit <Spacebar> or click [Read Blank]'",
       "Click to start reading the low standard"},
      {"COPROS", "Load Copro " + kelp.run.CoproLowStd,
       "Load Copro then hit <Spacebar> or click [Read Blank]'", "Click to start reading the copro standard"},
      {"SAMPLE", "Load Station Sample",
       "Load Station Sample then hit <Spacebar> or click [Load Station Sample]'",
       "Click to start reading the sample"}};
  const Row& row = rows[index];
  FrmAcquire& form = kelp.frmAcquire;
  kelp.run.StepName = row.step;
  form.Command1.Caption = row.caption;
  form.Command1.ToolTipText = row.tip;
  form.Text4.Text = row.instruction;
  if (index == kStepSamples) kelp.run.TraceColor = kTraceMagenta;
}

void datalog_DblClick(Kelp& kelp) {
  FrmAcquire& form = kelp.frmAcquire;
  if (!AskYes(kelp, "Do you want to reset the sample logging to this cell?  Y/N",
              "Moving Data Aquistion to selected cell.", Icon::Critical) ||
      !AskYes(kelp,
              "Do not use double-clicking to skip samples - use [Skip]; continue edit? Yes to continue, No "
              "to cancel "
              "(then click [Skip])",
              "Do not use the double-click relocate feature to skip samples!", Icon::Critical))
    return;
  if (form.datalog.Row < 1) return;
  kelp.run.SampNum = form.datalog.Row;
  kelp.run.Resume = ResumeAt::Nothing;
  if (form.datalog.Col != kColRb && form.datalog.Col != kColRa) return;
  const bool ra = form.datalog.Col == kColRa;
  form.Command1.Caption = ra ? "Acidify" : "Load Station Sample";
  // The next space bar is to go on with this sample, not to be typed into its cell.
  kelp.Focus = {"frmAcquire", "Command1"};
  kelp.run.TraceColor = ra ? kTraceBlue : kTraceMagenta;
  kelp.run.ReadFlag = ra;
  // The Ra is to be compared with this sample's Rb, not with that of the sample left.
  const std::string& rb = form.datalog.Text(form.datalog.Row, kColRb);
  if (ra && !rb.empty()) kelp.run.RbReading = static_cast<float>(Val(rb));
}

void datalog_KeyPress(Kelp& kelp, int key) {
  Grid& grid = kelp.frmAcquire.datalog;
  if (grid.Row < 1) return;
  std::string& cell = grid.Text(grid.Row, grid.Col);
  if (key >= 32 && key <= 127)
    cell += static_cast<char>(key);
  else if (key == 8 && !cell.empty())
    cell.pop_back();
}

void txtMean_Click(Kelp& kelp, int index) {
  const std::string value = kelp.frmAcquire.txtMean[index].Text;
  PutIntoSlot(kelp, MeanSlot(kelp), value);
}

}  // namespace kelp
