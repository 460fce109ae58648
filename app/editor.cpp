// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/editor.hpp"

#include "app/acquire_load.hpp"
#include "core/config.hpp"
#include "core/option.hpp"
#include "core/text.hpp"
#include "record/record.hpp"

namespace kelp {

namespace {

constexpr std::size_t kBoxWidth = 34;
constexpr int kCurrentBlank = 0;
constexpr int kAveBlank = 1;

std::string BoxValue(const RunState& run, int line) { return CfgValue(run, line, kBoxWidth); }

bool HasBox(int line) { return line != FrmEditCFG::kLineWithOptions; }

// The new lines, from the boxes; the comment part of a line is kept, an empty box leaves its line.
std::array<std::string, kCfgLineCount> EditedLines(const Kelp& kelp) {
  auto lines = kelp.run.CfgLines;
  for (int i = 0; i <= FrmEditCFG::kLastLine; ++i) {
    std::string& line = lines[static_cast<std::size_t>(i)];
    const std::string value = OneField(Trim(kelp.frmEditCFG.Text1[FrmEditCFG::kFirstBox + i].Text), false);
    if (!HasBox(i) || Trim(value).empty()) continue;
    if (line.size() < kBoxWidth)
      throw RunTimeError(ErrorKind::InvalidCall,
                         "configuration line " + std::to_string(i) +
                             " is shorter than 34 characters; restore it in kelp.cfg");
    line = Padded(value, kBoxWidth, "R", "S") + line.substr(kBoxWidth);
  }
  std::string& blankLine = lines[kCfgBlankToSave];
  // Only the first three characters change: a line that began "Current" begins "AVErent" afterwards.
  if (kelp.frmEditCFG.Option1[kAveBlank].Value)
    blankLine = "AVE" + std::string(blankLine.size() > 3 ? blankLine.substr(3) : "");
  return lines;
}

void UpdateConfig(Kelp& kelp) {
  SnapshotConfig(kelp);
  const auto before = kelp.run.CfgLines;
  kelp.run.CfgLines = EditedLines(kelp);
  try {
    if (!SaveConfig(kelp)) {
      // What was typed stays in the boxes.
      kelp.run.CfgLines = before;
      return;
    }
  } catch (const FileError&) {
    kelp.run.CfgLines = before;
    throw;
  }
  if (!kelp.frmEditCFG.Option1[kAveBlank].Value) SelectOption(kelp.frmEditCFG.Option1, kCurrentBlank);
  Tell(kelp, "C:\\KElp\\kelp.cfg updated.");
  kelp.Focus = {"frmEditCFG", "cmdBack"};
}

void CancelToAcquisition(Kelp& kelp) {
  UnloadScreen(kelp, kelp.frmEditCFG);
  // From the main window this loads the acquisition screen, which starts its station set-up: the login
  // stays in front, since no station is open yet.
  const bool loaded = kelp.frmAcquire.Form.Loaded;
  if (!loaded && !ClaimDrives(kelp)) return;
  if (!loaded) frmAcquire_Load(kelp);
  ShowScreen(kelp, kelp.frmAcquire.Form);
  // Whoever has not logged in yet finds the login in front.
  if (!loaded || kelp.frmLogin.Form.Visible) ShowScreen(kelp, kelp.frmLogin.Form);
}

}  // namespace

void frmEditCFG_Load(Kelp& kelp) {
  FrmEditCFG& form = kelp.frmEditCFG;
  for (int i = 0; i <= FrmEditCFG::kLastLine; ++i)
    if (HasBox(i)) form.Text1[FrmEditCFG::kFirstBox + i].Text = BoxValue(kelp.run, i);
  for (int i = form.txtLine.kFirst; i <= form.txtLine.kLast; ++i)
    form.txtLine[i].Text = CfgValue(kelp.run, i);
  // Line 18 is looked at, while the save writes line 17: the two are kept as they are.
  const bool average = Contains(Upper(BoxValue(kelp.run, 18)), "AVE");
  SelectOption(form.Option1, average ? kAveBlank : kCurrentBlank);
  ShowScreen(kelp, kelp.frmEditCFG.Form);
}

void LeaveEditor(Kelp& kelp) {
  UnloadScreen(kelp, kelp.frmEditCFG);
  ShowScreen(kelp, kelp.Shown.empty() ? kelp.frmMain.Form : *FindWindow(kelp, kelp.Shown.front()));
}

void frmEditCFG_CruiseLostFocus(Kelp& kelp) {
  auto& boxes = kelp.frmEditCFG.Text1;
  const std::string oldCruise = CfgValue(kelp.run, kCfgCruise);
  const std::string newCruise = boxes[FrmEditCFG::kFirstBox].Text;
  if (newCruise == oldCruise || Trim(newCruise).empty()) return;
  if (!AskYes(kelp,
              "Cruise has changed, do you want all cruise references like VAULT path to be changed "
              "automatically? Y/N",
              "Change Cruise Everywhere?"))
    return;
  for (int i = 1; i <= FrmEditCFG::kLastLine; ++i) {
    std::string& text = boxes[FrmEditCFG::kFirstBox + i].Text;
    text = Replaced(text, Left(oldCruise, 4), Left(newCruise, 4));
  }
}

void frmEditCFG_Command1_Click(Kelp& kelp, int index) {
  if (index == 0) UpdateConfig(kelp);
  if (index == 1) CancelToAcquisition(kelp);
  if (index == 2 &&
      AskRisky(kelp, "Do you want to exit KElp completely? Y/N", "Close KElp? Y/N", Icon::None,
               Buttons::YesNoCancel) &&
      MayLeave(kelp))
    EndProgram(kelp);
}

}  // namespace kelp
