// SPDX-License-Identifier: GPL-3.0-or-later
// A block of cells pasted into the sample grid.
#pragma once

#include <string>

#include "core/kelp.hpp"

namespace kelp {

/// Puts a block as spreadsheets copy it (tabs between cells, line breaks between rows) into the grid from its
/// current cell on. What would lie behind the station's last sample or the last column is left out, and the
/// status says so.
void PasteCells(Kelp& kelp, const std::string& block);

}  // namespace kelp
