// SPDX-License-Identifier: GPL-3.0-or-later
// GtkTerm on a pseudo-terminal of its own: what a plain serial terminal costs on the same lines, in the same
// run.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <ctime>
#include <string>

#include "bench/watcher.hpp"
#include "console/posix/pseudo_terminal.hpp"

namespace kelp {

class Neighbour {
 public:
  Neighbour() : child_(::fork()) {
    if (child_ != 0) return;
    ::execlp("gtkterm", "gtkterm", "--port", line_.Path().c_str(), "--speed", "9600", nullptr);
    ::_exit(127);
  }
  ~Neighbour() {
    ::kill(child_, SIGKILL);
    ::waitpid(child_, nullptr, 0);
  }
  Neighbour(const Neighbour&) = delete;
  Neighbour& operator=(const Neighbour&) = delete;

  void Send(const std::string& line) { line_.Send(line); }

  /// Processor time since its start, in the same clock as Kelp's; 0 when it is not installed.
  [[nodiscard]] double CpuSeconds() const {
    clockid_t clock{};
    return ::clock_getcpuclockid(child_, &clock) == 0 ? SecondsOf(clock) : 0;
  }

  [[nodiscard]] double PeakMegabytes() const { return kelp::PeakMegabytes(std::to_string(child_)); }

 private:
  PseudoTerminal line_ = {};
  pid_t child_;
};

}  // namespace kelp
