// SPDX-License-Identifier: GPL-3.0-or-later
// A station's numbers, once and for all taken from the texts of its file: every picture, check and
// calculation of the review starts from these.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "files/station_file.hpp"

namespace kelp {

using Measured = std::optional<double>;

/// The number of a cell; nothing when the cell is empty, holds no number or -99 (skipped, not to be had).
Measured MeasuredCell(const std::string& text);

/// The number of a begin or end value; nothing also for "0", which is a box that was never read. A zeroed
/// instrument's blank of 0 reads "0.0000" and is a value.
Measured MeasuredBox(const std::string& text);

struct Sample {
  std::string Bottle, Tube, Flag;
  Measured Depth;                ///< m
  Measured Rb, Ra;               ///< reading, blank not subtracted
  Measured Chla, Phaeo, AcidR;   ///< as the station was saved: ug/L, ug/L, ratio
  bool Skipped = false;          ///< Rb or Ra is -99
  bool ResultOfSkipped = false;  ///< it was calculated all the same
};

struct MeasuredPair {
  Measured Begin;
  Measured End;
};

struct Station {
  std::string ProcNum;
  std::string Name;
  Measured F, Tau;
  MeasuredPair Blank, LowStandard, HighStandard, Copro1, Copro2;
  bool DepthsKnown = false;  ///< false while every depth still reads "3" (or none is there)
  std::vector<Sample> Samples = {};
};

Station MeasuredStation(const StationFile& file);
std::vector<Station> MeasuredStations(const std::vector<StationFile>& files);

/// "bottle 07", or "sample 3" where no bottle stands; `index` counts from 0.
std::string SampleName(const Station& station, std::size_t index);

}  // namespace kelp
