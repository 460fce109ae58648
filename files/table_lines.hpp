// SPDX-License-Identifier: GPL-3.0-or-later
// The lines of a base file: the station header and one line for each sample.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/kelp.hpp"

namespace kelp {

/// Processing number and sample count, as a base file's fifth line begins. The gap between them shrinks
/// as the count grows, so that what follows stays in place.
std::string NumberAndCount(std::string_view procNum, std::string_view count);

/// The station table with its results, as the loader reads it back: no field is empty or holds a blank.
std::vector<std::string> TableLines(const Kelp& kelp);

}  // namespace kelp
