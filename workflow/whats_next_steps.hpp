// SPDX-License-Identifier: GPL-3.0-or-later
// The steps that the chooser leads to, as OK and a double-click share them.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

void PromptNextStation(Kelp& kelp);  ///< the first sample of the station just loaded
void PromptBlank(Kelp& kelp);
void PromptStandards(Kelp& kelp);
void PromptCopros(Kelp& kelp);
/// The run stands still: step "STANDBY", button "&Start", average emptied.
void PutIntoStandby(Kelp& kelp);

}  // namespace kelp
