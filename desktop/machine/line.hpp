// The line to the fluorometer as the desktop uses it: a serial device, or the simulated instrument.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace kelp {

class Line {
 public:
  virtual ~Line() = default;

  /// Opens the line of a port number. An empty text, or why it could not be opened and what to do.
  virtual std::string Open(int number, const std::string& settings) = 0;
  virtual void Close() = 0;
  /// False too after the line was lost.
  virtual bool IsOpen() = 0;
  virtual std::size_t BytesWaiting() = 0;
  virtual std::string ReadAll() = 0;
  /// What the line is, for the status bar: "Port 1 (/dev/ttyS0)".
  virtual std::string Name() = 0;

  /// Called from the event loop when bytes have come in, or the line was lost.
  std::function<void()> OnBytes = [] {};
};

}  // namespace kelp
