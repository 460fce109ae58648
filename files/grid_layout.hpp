// Lays out the grid `datalog` from the station table.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Fills one grid row for each sample. `reopened`: the table holds results, which the grid takes cell
/// for cell. Every row takes the next tube number; a reopened row that has a tube keeps it.
void LayOutGrid(Kelp& kelp, bool reopened);

/// Adds the table row of the current last sample to the grid, with the next tube number.
void LayOutAddedSample(Kelp& kelp);

}  // namespace kelp
