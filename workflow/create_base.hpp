// SPDX-License-Identifier: GPL-3.0-or-later
// The create screen: a base file is written from the values of the sample log sheet.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Shows the create screen, with the processing number and the starting bottle and vial filled in.
void ShowCreateBase(Kelp& kelp);

/// A box of the create screen was left: date and time take the program's own form.
void CreateBox_LostFocus(Kelp& kelp, int index);

/// Marks the boxes of the create screen whose values deserve a second look: no samples, a date or time that
/// can't be read. All of them are allowed.
void CheckCreateBase(Kelp& kelp);

/// "Create File" of the create screen: checks the boxes, writes the base file, copies the boxes to
/// the acquisition screen and loads the station. Throws FileError when it can't be written.
void CreateBaseFile(Kelp& kelp);

}  // namespace kelp
