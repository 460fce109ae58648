// SPDX-License-Identifier: GPL-3.0-or-later
// The review as lines for a terminal.
#pragma once

#include <string>
#include <vector>

#include "review/review.hpp"

namespace kelp {

/// A table of the final results of `shown` (all stations of the review or some), then the findings and the
/// files left out.
std::vector<std::string> TextReview(const Review& review, const FinalData& data,
                                    const std::vector<const Station*>& shown);

}  // namespace kelp
