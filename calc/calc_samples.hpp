// SPDX-License-Identifier: GPL-3.0-or-later
// Calculates samples of the grid `datalog` and appends each sample's line to the local text results
// file.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Calculates the sample just finished. No blank fallback and no guard against negative readings.
/// Throws DivisionByZero, Overflow or FileError; the grid keeps what had been written before.
void CalcCurrentSample(Kelp& kelp);

/// Calculates a row of the grid, with the same rules.
void CalcRow(Kelp& kelp, int row);

/// Calculates every sample of the station, with the blank fallback and -99 where a corrected reading
/// is negative, and opens the chooser. A row that can't be calculated is left out; one error at the
/// end names all such rows.
void CalcAllSamples(Kelp& kelp);

}  // namespace kelp
