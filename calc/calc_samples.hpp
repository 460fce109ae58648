// SPDX-License-Identifier: GPL-3.0-or-later
// Calculates samples of the grid `datalog` and appends each sample's line to the local text results
// file.
#pragma once

#include <optional>
#include <string>

#include "core/kelp.hpp"
#include "platform/error.hpp"

namespace kelp {

/// Calculates the sample just finished. No blank fallback and no guard against negative readings.
/// Throws DivisionByZero, Overflow or FileError; the grid keeps what had been written before.
void CalcCurrentSample(Kelp& kelp);

/// Calculates a row of the grid, with the same rules.
void CalcRow(Kelp& kelp, int row);

/// What a calculation of all samples has given so far: lines for the file, and rows that can't be calculated.
struct AllRows {
  std::string Lines;
  std::string FailedRows;
  std::optional<RunTimeError> Failure;  ///< the first
};

/// Calculates a row with the blank fallback and -99 where a corrected reading is negative. A row that can't
/// be calculated is left out.
void CalcRowGuarded(Kelp& kelp, int row, AllRows& all);

/// Appends the lines of all rows. Throws one error that names the rows left out, or FileError.
void AppendAllRows(Kelp& kelp, AllRows all);

}  // namespace kelp
