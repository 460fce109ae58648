// SPDX-License-Identifier: GPL-3.0-or-later
// `kelp-console review`: a cruise reviewed without a display.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace kelp {

/// Runs the command with what stands behind the word "review". Data go to `out`, errors and what was left
/// out to `err`. 0 when it is done, 2 when not.
int RunReview(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace kelp
