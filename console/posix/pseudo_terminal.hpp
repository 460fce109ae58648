// SPDX-License-Identifier: GPL-3.0-or-later
// A serial line between two programs of one machine: this end plays the instrument, the other end is a
// device that a program opens like a serial port.
#pragma once

#include <string>
#include <string_view>

namespace kelp {

class PseudoTerminal {
 public:
  /// Throws std::system_error when the system has none left.
  PseudoTerminal();
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;
  /// The device hangs up and is gone.
  ~PseudoTerminal();

  /// The device, such as "/dev/pts/5".
  [[nodiscard]] const std::string& Path() const { return path_; }

  /// Sends text. It is lost when nobody has the device open, or nobody reads it: as on a real line.
  void Send(std::string_view text) const;

 private:
  int instrument_;
  std::string path_;
};

}  // namespace kelp
