// Calculates samples of the grid `datalog` and appends each sample's line to the local text results
// file.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

inline constexpr const char* kResultsHeading =
    "     TUBE NISK DEPTH  FILV EXTV    Rb      Ra     CHLA    PHAEO     AR   QC";
inline constexpr const char* kResultsRule =
    "    ==========================================================================";

/// The results line of a grid row: eleven fields, right-justified to fixed widths, nothing between.
std::string ResultsLine(const Grid& datalog, int row);

/// Calculates the sample just finished. No blank fallback and no guard against negative readings.
/// Throws DivisionByZero, Overflow or FileError; the grid keeps what had been written before.
void CalcCurrentSample(Kelp& kelp);

/// Calculates every sample of the station, with the blank fallback and -99 where a corrected reading
/// is negative, and opens the chooser. A row that can't be calculated is left out; one error at the
/// end names all such rows.
void CalcAllSamples(Kelp& kelp);

}  // namespace kelp
