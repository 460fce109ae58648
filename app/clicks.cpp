// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/clicks.hpp"

#include "app/editor.hpp"
#include "app/focus.hpp"
#include "app/main_window.hpp"
#include "app/undo.hpp"
#include "core/option.hpp"
#include "core/text.hpp"
#include "record/record.hpp"
#include "workflow/dialogs.hpp"
#include "workflow/open_station.hpp"
#include "workflow/run_controls.hpp"
#include "workflow/steps.hpp"
#include "workflow/whats_next.hpp"

namespace kelp {

namespace {

// The run remarks choose a source (0, 1) and a sample (2, 3) independently.
void SelectRemarkOption(Kelp& kelp, int index) {
  auto& options = kelp.dlgRunRem.Option1;
  const int first = index < 2 ? 0 : 2;
  options[first].Value = index == first;
  options[first + 1].Value = index != first;
}

void ClickOnAcquire(Kelp& kelp, const FocusPlace& place) {
  const auto is = [&](std::string_view control) { return SameIgnoringCase(place.Control, control); };
  if (is("Command1")) Command1_Click(kelp);
  if (is("Command2")) Command2_Click(kelp);
  if (is("Command3")) Command3_Click(kelp);
  if (is("Command4")) Command4_Click(kelp);
  if (is("Command5")) Command5_Click(kelp);
  if (is("Command6")) Command6_Click(kelp);
  if (is("cmdUndo")) cmdUndo_Click(kelp);
  if (is("Check1")) kelp.frmAcquire.Check1.Value = !kelp.frmAcquire.Check1.Value;
  if (is("txtMean")) txtMean_Click(kelp, place.Index);
  if (is("Option1")) {
    SelectOption(kelp.frmAcquire.Option1, place.Index);
    Option1_Click(kelp, place.Index);
  }
}

void ClickOnChooser(Kelp& kelp, const FocusPlace& place) {
  const auto is = [&](std::string_view control) { return SameIgnoringCase(place.Control, control); };
  if (is("Option1")) SelectOption(kelp.frmWhatsNext.Option1, place.Index);
  if (is("Check2"))
    kelp.frmWhatsNext.Check2[place.Index].Value = !kelp.frmWhatsNext.Check2[place.Index].Value;
  if (is("NextButton")) NextButton_Click(kelp);
  if (is("StopButton")) StopButton_Click(kelp);
  if (is("PrinterSelect")) kelp.platform.ChoosePrinter();
}

void ClickOnDialog(Kelp& kelp, const FocusPlace& place) {
  const int index = place.Index;
  const auto is = [&](std::string_view screen, std::string_view control) {
    return IsAt(place, screen, control);
  };
  if (is("frmChangeStep", "Option1")) SelectOption(kelp.frmChangeStep.Option1, index);
  if (is("frmChangeStep", "Command1")) frmChangeStep_Command1_Click(kelp, index);
  if (is("dlgRunRem", "Option1")) SelectRemarkOption(kelp, index);
  if (is("dlgRunRem", "OKButton")) dlgRunRem_OKButton_Click(kelp);
  if (is("dlgRunRem", "CancelButton")) HideScreen(kelp, "dlgRunRem");
  if (is("frmRecalc", "Command1")) frmRecalc_Command1_Click(kelp, index);
  if (is("frmEditCFG", "Option1")) SelectOption(kelp.frmEditCFG.Option1, index);
  if (is("frmEditCFG", "Command1")) frmEditCFG_Command1_Click(kelp, index);
  if (is("frmEditCFG", "cmdBack")) LeaveEditor(kelp);
  if (is("frmCreateBase", "cmdCreateBase") && index == 0) CreateBaseFile(kelp);
  if (is("frmCreateBase", "cmdCreateBase") && index == 2 && MayLeave(kelp)) EndProgram(kelp);
}

// The space bar is to mean Start again after a click with the mouse, not the control clicked. Only a
// click into a text box or the grid takes the focus there.
void FocusAfterClick(Kelp& kelp, const FocusPlace& place) {
  if (TakesText(ControlAt(kelp, place))) {
    MoveFocus(kelp, place);
  } else if (SameIgnoringCase(place.Screen, "frmAcquire")) {
    const FocusPlace now = FocusOn(kelp, "frmAcquire");
    if (SameIgnoringCase(place.Control, "Command1") || TakesText(ControlAt(kelp, now)))
      MoveFocus(kelp, {"frmAcquire", "Command1"});
  } else if (!TakesText(ControlAt(kelp, kelp.Focus)) || SameIgnoringCase(kelp.Focus.Screen, place.Screen)) {
    MoveFocus(kelp, place);
  }
}

}  // namespace

void ClickControl(Kelp& kelp, const FocusPlace& place) {
  FocusAfterClick(kelp, place);
  if (SameIgnoringCase(place.Screen, "frmAcquire")) {
    ClickOnAcquire(kelp, place);
  } else if (SameIgnoringCase(place.Screen, "frmWhatsNext")) {
    ClickOnChooser(kelp, place);
  } else if (IsAt(place, "frmMain", "Command1")) {
    FrmMain_Command1_Click(kelp, place.Index);
  } else if (IsAt(place, "frmLogin", "cmdOK")) {
    cmdOK_Click(kelp);
  } else if (IsAt(place, "frmLogin", "cmdCancel")) {
    cmdCancel_Click(kelp);
  } else {
    ClickOnDialog(kelp, place);
  }
}

void DblClickControl(Kelp& kelp, const FocusPlace& place) {
  if (IsAt(place, "frmWhatsNext", "Option1")) {
    SelectOption(kelp.frmWhatsNext.Option1, place.Index);
    WhatsNextOption_DblClick(kelp, place.Index);
  } else if (IsAt(place, "frmAcquire", "datalog")) {
    datalog_DblClick(kelp);
  }
}

}  // namespace kelp
