// SPDX-License-Identifier: GPL-3.0-or-later
// One run of kelp-console: the machine, the program and the instrument that the options ask for, and
// the script that plays on them.
#pragma once

#include "script/failure.hpp"
#include "script/options.hpp"

namespace kelp {

ScriptResult RunConsole(const ConsoleOptions& options);

}  // namespace kelp
