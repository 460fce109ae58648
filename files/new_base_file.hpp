// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the base file of a station that has not been read yet.
#pragma once

#include <string>

#include "core/kelp.hpp"

namespace kelp {

/// What the sample log sheet says, as it was typed.
struct NewStation {
  std::string LineSta;
  std::string Count;
  std::string FirstBottle;
};

/// Writes the base file of the run's processing number; one that holds results is kept beside it. Throws
/// FileError, or Overflow for a bottle that is no 16-bit number.
void WriteNewBaseFile(Kelp& kelp, const NewStation& station);

}  // namespace kelp
