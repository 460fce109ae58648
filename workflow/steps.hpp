// SPDX-License-Identifier: GPL-3.0-or-later
// The measurement steps of a station: blanks, standards, copros, and Rb and Ra of every sample. The
// caption of `Command1` is the sub-step; these procedures read it and move it on.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// The click of the Start/Read/Save button: starts the reading of a loaded item, or saves it by hand
/// without the acceptance questions. Without a station it asks for the base file again.
void Command1_Click(Kelp& kelp);

/// The automatic save: judges the averaged reading, stores it and moves the run on. Called after every
/// pass of the read loop while Autoread is on.
void SaveReading(Kelp& kelp);

/// The prompts of the step that the selector shows, as the space bar and a click on "&Start" give.
void PromptSelectedStep(Kelp& kelp);

/// A station was restored after a crash: goes to the acid of the sample that has its Rb, or to the chooser
/// behind the last sample. False when there is nothing of the kind to go on with.
bool ResumeRestored(Kelp& kelp);

/// True when the caption of a step selector says that end values are read ("End Blank", "EndCopr").
bool ReadsEndValues(const Kelp& kelp, int stepOption);

/// Ends a phase: caption "What's Next?", step "STANDBY", and the chooser opens.
void GoToStandby(Kelp& kelp);

}  // namespace kelp
