// SPDX-License-Identifier: GPL-3.0-or-later
// The line to the fluorometer: the serial device of a port number, or the simulated instrument, which
// sends a line a second while it is open.
#pragma once

#include <QTimer>
#include <functional>
#include <string>

#include "platform/serial_line.hpp"

namespace kelp {

class FluorometerLine {
 public:
  /// `device` names the device of a port number; `simulated` is the simulated instrument's next line.
  FluorometerLine(std::function<std::string(int)> device, std::function<std::string()> simulated);

  /// Called from the event loop when bytes have come in, or the line was lost.
  std::function<void()> OnBytes = [] {};

  /// Changes the instrument; the line is closed when it was another one.
  void Simulate(bool simulate);
  [[nodiscard]] bool IsSimulated() const { return simulate_; }

  /// Opens the line of a port number. An empty text, or why it could not be opened and what to do.
  std::string Open(int number, const std::string& settings);
  void Close();
  [[nodiscard]] bool IsOpen() const { return simulate_ ? second_.isActive() : serial_.IsOpen(); }
  [[nodiscard]] std::size_t BytesWaiting() const;
  std::string ReadAll();

  /// What the status bar says of the line: "Port 1 (/dev/ttyS0) open", "Simulated fluorometer".
  [[nodiscard]] std::string State() const;

 private:
  std::function<std::string(int)> device_;
  std::function<std::string()> simulated_;
  SerialLine serial_;
  QTimer second_;
  std::string waiting_;
  std::string name_;
  bool wanted_ = false;  ///< it was opened, and not closed by the program
  bool simulate_ = false;
};

}  // namespace kelp
