// SPDX-License-Identifier: GPL-3.0-or-later
// The serial line to the instrument. Serves an event loop (OnBytes) and a program without one
// (WaitForBytes); both wake as soon as bytes arrive. A device that fails or goes away closes the line; the
// same object opens it again. One source for each kind of machine: platform/qt, platform/windows.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kelp {

/// Lives in one thread. A program that brings its own QCoreApplication makes that one first.
class SerialLine {
 public:
  SerialLine();
  SerialLine(const SerialLine&) = delete;
  SerialLine& operator=(const SerialLine&) = delete;
  ~SerialLine();

  /// Opens a device ("/dev/ttyUSB0", "COM3"), closing the one open before. `settings` are baud rate,
  /// parity (n, e, o, m, s), data bits and stop bits: "9600,n,8,1". Returns an empty text, or says why
  /// it could not be opened: the device, the reason, what to do.
  std::string Open(const std::string& device, const std::string& settings);
  void Close();
  /// False too after the device failed or was unplugged.
  [[nodiscard]] bool IsOpen() const;

  /// Bytes that came in; the newest 64 KiB of them when nobody takes them.
  [[nodiscard]] std::size_t BytesWaiting() const { return waiting_.size(); }
  /// Takes everything that is waiting.
  std::string ReadAll();

  /// Waits until bytes are waiting, at most that long. On a closed line it waits the whole time, so that
  /// a loop around it does not spin. True when bytes are waiting. Must not be called from OnBytes.
  bool WaitForBytes(int milliseconds);

  /// Called from the event loop (on Windows any message loop of this thread), or from WaitForBytes, when
  /// bytes have arrived or the line was lost.
  std::function<void()> OnBytes;

 private:
  struct Port;
  void Keep(const char* bytes, std::size_t count);

  std::unique_ptr<Port> port_;
  std::string waiting_;
};

/// The serial devices that the machine has now, as Open takes them, in the order of their numbers.
std::vector<std::string> SerialDevices();

}  // namespace kelp
