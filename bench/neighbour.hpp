// SPDX-License-Identifier: GPL-3.0-or-later
// GtkTerm on a pseudo-terminal of its own: what a plain serial terminal costs on the same lines, in the same
// run.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/watcher.hpp"
#include "console/posix/pseudo_terminal.hpp"

namespace kelp {

class Neighbour {
 public:
  Neighbour() {
    // Without a configuration it would stand in a message box and read nothing.
    std::ofstream(home_.filePath(".gtktermrc").toStdString())
        << "[default]\nport = " << line_.Path()
        << "\nspeed = 9600\nbits = 8\nstopbits = 1\nparity = none\nflow = none\nfont = \"Monospace 12\"\n"
           "term_rows = 80\nterm_columns = 25\nterm_scrollback = 10000\n";
    const std::string home = "XDG_CONFIG_HOME=" + home_.path().toStdString();
    child_ = ::fork();
    if (child_ != 0) return;
    ::execlp("env", "env", home.c_str(), "LD_PRELOAD=" KELP_PORT_OF_TERMINAL, "gtkterm", "--port",
             line_.Path().c_str(), "--speed", "9600", nullptr);
    ::_exit(127);
  }
  ~Neighbour() {
    // Without a child this would be every process.
    if (child_ <= 0) return;
    ::kill(child_, SIGKILL);
    ::waitpid(child_, nullptr, 0);
  }
  Neighbour(const Neighbour&) = delete;
  Neighbour& operator=(const Neighbour&) = delete;

  void Send(const std::string& line) { line_.Send(line); }

  /// It is installed, runs, and has its line open; else it is no measure of anything.
  [[nodiscard]] bool Reads() const {
    std::error_code none;
    const std::string process = "/proc/" + std::to_string(child_);
    for (const auto& file : std::filesystem::directory_iterator(process + "/fd", none))
      if (std::filesystem::read_symlink(file.path(), none) == line_.Path()) return true;
    return false;
  }

  /// Processor time since its start, in the same clock as Kelp's.
  [[nodiscard]] double CpuSeconds() const {
    clockid_t clock{};
    return ::clock_getcpuclockid(child_, &clock) == 0 ? SecondsOf(clock) : 0;
  }

  [[nodiscard]] double PeakMegabytes() const { return kelp::PeakMegabytes(std::to_string(child_)); }

 private:
  QTemporaryDir home_ = {};
  PseudoTerminal line_ = {};
  pid_t child_ = -1;
};

}  // namespace kelp
