// The buttons beside Start, the step selector, the grid and the boxes of the acquisition screen.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

void Command2_Click(Kelp& kelp);  ///< Pause / Resume
void Command3_Click(Kelp& kelp);  ///< Quit, after a Yes
void Command4_Click(Kelp& kelp);  ///< Back
void Command5_Click(Kelp& kelp);  ///< Skip
void Command6_Click(Kelp& kelp);  ///< What's Next Tester

/// The step selector: the prompts of that step.
void Option1_Click(Kelp& kelp, int index);

/// Moves the logging to the grid's current cell, after two warnings.
void datalog_DblClick(Kelp& kelp);

/// Types into the grid's current cell: a printable character is appended, Backspace takes one off.
void datalog_KeyPress(Kelp& kelp, int key);

/// A mean box was clicked: its value goes to the place that the Start button's caption names.
void txtMean_Click(Kelp& kelp, int index);

/// The operator changed a header box.
void txtStaInfo_Change(Kelp& kelp, int index);

/// A header box was left: its value is checked and the step's prompt is given again.
void txtStaInfo_LostFocus(Kelp& kelp, int index);

}  // namespace kelp
