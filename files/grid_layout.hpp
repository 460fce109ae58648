// SPDX-License-Identifier: GPL-3.0-or-later
// The grid `datalog` and the station table: the table is laid out in the grid, and the grid, in which
// the operator works, is taken back into the table.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Fills one grid row for each sample. Every row takes the next tube number. `reopened`: the table holds
/// results, which the grid shows cell for cell, the vials too.
void LayOutGrid(Kelp& kelp, bool reopened);

/// Adds the table row of the current last sample to the grid, with the next tube number.
void LayOutAddedSample(Kelp& kelp);

/// Empties all sample rows of the grid.
void ClearGrid(Grid& grid);

/// Takes the grid's sample rows, the blanks and the station text into the station table.
void TakeGrid(Kelp& kelp);

}  // namespace kelp
