// SPDX-License-Identifier: GPL-3.0-or-later
// The finished data set of a cruise: every sample calculated anew with the constants of before and after the
// cruise and with the average blank of its station.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "files/cruise.hpp"

namespace kelp {

/// The calibration after the cruise; not set while there is none.
struct PostCalibration {
  std::optional<double> F;
  std::optional<double> Tau;
};

/// Throws RunTimeError ("Invalid procedure call") for an F that is not above 0, or a tau not above 1, in
/// words that name the field.
void CheckPostCalibration(const PostCalibration& post);

/// A row of texts in the order of FinalColumns().
struct FinalRow {
  std::string ProcNum;
  std::vector<std::string> Cells;
};

struct FinalData {
  std::vector<FinalRow> Rows;
  std::vector<LeftOut> Left;   ///< stations that are not in it, by file, and why
  std::vector<LeftOut> Notes;  ///< samples that are in it without results, and why
};

/// Calculates every sample: blank the average of begin and end blank (the one that was read when there is
/// one), F and tau the averages of before and after. A corrected reading below 0 gives -99, as in the
/// program; what can't be calculated leaves its results empty and is noted. A station without blank, F or
/// tau, or of LAB/CAL tubes, is left out.
FinalData MakeFinalData(const Cruise& cruise, const PostCalibration& post);

struct FinalColumn {
  const char* Name;
  const char* Unit;  ///< "" for none
  const char* Description;
};
const std::vector<FinalColumn>& FinalColumns();

/// The position of a column by name.
std::size_t FinalColumnIndex(const std::string& name);

}  // namespace kelp
