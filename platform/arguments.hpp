// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of a program, and the terminal that it answers on.
#pragma once

#include <string>
#include <vector>

namespace kelp {

/// The words of the command line behind the program's name, in UTF-8; called once, by main(), before anything
/// is printed.
std::vector<std::string> HostArguments(int count, char** words);

}  // namespace kelp
