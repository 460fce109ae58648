// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of the desktop program: the console's options, and what windows add to them.
#pragma once

#include <string>
#include <vector>

#include "script/options.hpp"

namespace kelp {

using Options = ConsoleOptions;

/// Reads the command line without the program's name. `Script` is empty when none is played; the
/// instrument is then the port, or the simulated fluorometer. Options of the window system
/// ("-platform x", "-style x", "-display x") are left to it.
Options ReadCommandLine(const std::vector<std::string>& words);

/// True when the command line says how this machine is to be used.
bool SaysWhere(const Options& options);

/// The text of --help.
extern const char* const kDesktopHelp;

}  // namespace kelp
