// SPDX-License-Identifier: GPL-3.0-or-later
// Start-up, the main window and the login.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

void FrmMain_Load(Kelp& kelp);
void FrmMain_Command1_Click(Kelp& kelp, int index);
/// Asks whether to quit; Yes ends the program.
void QuitFromMain(Kelp& kelp);

void frmLogin_Load(Kelp& kelp);
void cmdOK_Click(Kelp& kelp);
void cmdCancel_Click(Kelp& kelp);

}  // namespace kelp
