// SPDX-License-Identifier: GPL-3.0-or-later
// The buttons beside Start, the step selector, the grid and the boxes of the acquisition screen.
#pragma once

#include <string>

#include "core/kelp.hpp"

namespace kelp {

void Command2_Click(Kelp& kelp);  ///< Pause / Resume
void Command3_Click(Kelp& kelp);  ///< Quit, after a Yes
void Command4_Click(Kelp& kelp);  ///< Back
void Command5_Click(Kelp& kelp);  ///< Skip
void Command6_Click(Kelp& kelp);  ///< What's Next Tester

/// The step selector: the prompts of that step.
void Option1_Click(Kelp& kelp, int index);

/// Prompts for the current sample, which is to be read (again): for its Rb, or its Ra.
void PromptSample(Kelp& kelp, bool ra);

/// Moves the logging to the grid's current cell, after two warnings.
void datalog_DblClick(Kelp& kelp);

/// Types into the grid's current cell: a printable character is appended, Backspace takes one off.
void datalog_KeyPress(Kelp& kelp, int key);

/// The operator's editing left `text` in the grid's current cell.
void datalog_Change(Kelp& kelp, const std::string& text);

/// A `txtBlank` box was edited: a blank typed there is the blank of the station.
void txtBlank_Change(Kelp& kelp, int index, const std::string& text);

/// A mean box was clicked: its value goes to the place that the Start button's caption names.
void txtMean_Click(Kelp& kelp, int index);

/// The operator changed a header box to `text`.
void txtStaInfo_Change(Kelp& kelp, int index, const std::string& text);

/// A header box was left: its value is checked and the step's prompt is given again.
void txtStaInfo_LostFocus(Kelp& kelp, int index);

}  // namespace kelp
