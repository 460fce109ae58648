// SPDX-License-Identifier: GPL-3.0-or-later
// The chooser: how a run goes on after the last sample or a finished phase.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// The chooser is loaded, together with the acquisition screen: its check boxes follow the
/// configuration.
void frmWhatsNext_Load(Kelp& kelp);

void NextButton_Click(Kelp& kelp);                     ///< OK: carries out the selected option
void WhatsNextOption_DblClick(Kelp& kelp, int index);  ///< carries out an option at once
void StopButton_Click(Kelp& kelp);                     ///< Cancel

/// F5 and F7 on the chooser (`number` 5 or 7); other keys do nothing.
void frmWhatsNext_KeyDown(Kelp& kelp, int number);

}  // namespace kelp
