// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/leaving.hpp"

#include "workflow/dialogs.hpp"

namespace kelp {

void LeaveLogin(Kelp& kelp) {
  HideScreen(kelp, kelp.frmLogin.Form);
  HideScreen(kelp, kelp.frmAcquire.Form);
  ShowScreen(kelp, kelp.frmMain.Form);
}

void LeaveCreateBase(Kelp& kelp) {
  HideScreen(kelp, kelp.frmCreateBase.Form);
  ShowScreen(kelp, kelp.frmAcquire.Form);
}

void LeaveChooser(Kelp& kelp) {
  HideScreen(kelp, kelp.frmWhatsNext.Form);
  RaiseScreen(kelp, kelp.frmAcquire.Form);
}

void CloseChangeStep(Kelp& kelp) { frmChangeStep_Command1_Click(kelp, 1); }
void CloseRemarks(Kelp& kelp) { HideScreen(kelp, kelp.dlgRunRem.Form); }
void CloseRecalc(Kelp& kelp) { frmRecalc_Command1_Click(kelp, 2); }

}  // namespace kelp
