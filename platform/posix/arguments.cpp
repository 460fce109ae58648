// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/arguments.hpp"

namespace kelp {

std::vector<std::string> HostArguments(int count, char** words) { return {words + 1, words + count}; }

}  // namespace kelp
