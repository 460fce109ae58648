// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/leaving.hpp"

#include "app/editor.hpp"
#include "app/main_window.hpp"
#include "core/text.hpp"
#include "workflow/dialogs.hpp"
#include "workflow/run_controls.hpp"
#include "workflow/whats_next.hpp"

namespace kelp {

void CloseWindow(Kelp& kelp, std::string_view screen) {
  const auto is = [&](std::string_view name) { return SameIgnoringCase(name, screen); };
  if (is("frmMain") || is("frmCreateBase")) QuitFromMain(kelp);
  if (is("frmAcquire")) Command3_Click(kelp);
  if (is("frmLogin")) cmdCancel_Click(kelp);
  if (is("frmWhatsNext")) StopButton_Click(kelp);
  if (is("frmChangeStep")) frmChangeStep_Command1_Click(kelp, 1);
  if (is("dlgRunRem")) HideScreen(kelp, "dlgRunRem");
  if (is("frmRecalc")) frmRecalc_Command1_Click(kelp, 2);
  if (is("frmEditCFG")) LeaveEditor(kelp);
}

void LeaveDialog(Kelp& kelp, std::string_view screen) {
  const auto is = [&](std::string_view name) { return SameIgnoringCase(name, screen); };
  if (is("frmChangeStep") || is("dlgRunRem") || is("frmRecalc") || is("frmEditCFG"))
    CloseWindow(kelp, screen);
  if (is("frmWhatsNext")) {
    // The run stands where it stood: the button opens the chooser again.
    HideScreen(kelp, screen);
    RaiseScreen(kelp, "frmAcquire");
  }
  if (is("frmCreateBase")) {
    HideScreen(kelp, screen);
    ShowScreen(kelp, "frmAcquire");
  }
  if (is("frmLogin")) {
    // No station is open yet; "Run Samples" begins anew.
    HideScreen(kelp, screen);
    HideScreen(kelp, "frmAcquire");
    ShowScreen(kelp, "frmMain");
  }
}

}  // namespace kelp
