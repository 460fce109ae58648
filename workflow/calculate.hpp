// SPDX-License-Identifier: GPL-3.0-or-later
// The calculation of a whole station, as F6 and the recalculation dialog ask for it.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Calculates every sample of the station under the operator's eyes, and opens the chooser. A row that can't
/// be calculated is left out; one error at the end names all such rows. Throws it, or FileError.
void CalcAllSamples(Kelp& kelp);

}  // namespace kelp
