// SPDX-License-Identifier: GPL-3.0-or-later
// The review as one page that needs nothing else: no script, no network; it prints on A4.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "review/review.hpp"

namespace kelp {

/// Takes the page piece by piece, so that a long cruise needs no more memory than a short one.
using Put = std::function<void(std::string_view)>;

/// Writes the page: findings, control charts, stations, then profile and acid ratio of each of `shown`, and
/// the files left out.
void WriteHtmlReview(const Review& review, const FinalData& data, const std::vector<const Station*>& shown,
                     const Put& put);

}  // namespace kelp
