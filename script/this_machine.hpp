// SPDX-License-Identifier: GPL-3.0-or-later
// The machine that both front ends play a script on: scripted, with the names and the clock of this one.
#pragma once

#include <iostream>

#include "platform/host.hpp"
#include "script/options.hpp"
#include "script/program_host.hpp"

namespace kelp {

inline void PrintLine(const std::string& line) { std::cout << line << std::endl; }

/// Gives the machine this one's names and the clock of the options; it and the host print to the terminal.
inline void PutOnThisMachine(ScriptedPlatform& machine, ProgramHost& host, const ConsoleOptions& options) {
  machine.Echo = PrintLine;
  machine.SetClock(options.Clock.value_or(HostNow()));
  machine.Machine = HostMachineName();
  machine.User = HostUserName();
  host.Printer = PrintLine;
}

}  // namespace kelp
