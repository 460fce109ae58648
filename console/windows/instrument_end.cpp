// SPDX-License-Identifier: GPL-3.0-or-later
// The instrument on a serial port, whose other end is a second port: a cable between two adapters, or a pair
// of ports that a driver makes. Without a port it writes to standard output.
#include "console/instrument_end.hpp"

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <stdexcept>

#include "platform/windows/serial_device.hpp"

namespace kelp {

namespace {

class PortEnd : public InstrumentEnd {
 public:
  explicit PortEnd(const std::string& port) {
    const std::string why =
        OpenSerialDevice(port_, port, *ReadSerialSettings("9600,n,8,1"), GENERIC_READ | GENERIC_WRITE);
    if (!why.empty()) throw std::runtime_error(why);
  }
  [[nodiscard]] const std::string& Path() const override { return none_; }
  void Send(std::string_view text) override {
    OVERLAPPED write{};
    write.hEvent = done_.get();
    DWORD count = 0;
    if (::WriteFile(port_.get(), text.data(), static_cast<DWORD>(text.size()), nullptr, &write) != 0 ||
        ::GetLastError() == ERROR_IO_PENDING)
      ::GetOverlappedResult(port_.get(), &write, &count, TRUE);
  }

 private:
  Handle port_ = {};
  Handle done_ = Handle(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
  std::string none_ = {};
};

class OutputEnd : public InstrumentEnd {
 public:
  OutputEnd() { ::_setmode(::_fileno(stdout), _O_BINARY); }
  [[nodiscard]] const std::string& Path() const override { return none_; }
  void Send(std::string_view text) override {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
  }

 private:
  std::string none_ = {};
};

}  // namespace

const char* const kLineHelp[2] = {
    "Sends a simulated fluorometer's lines on a serial port or, without one, on standard output.\n",
    "  --port COMN         the port to send on; the program under trial opens the port at its other end\n"};
const std::string_view kLineOption = "--port";

std::unique_ptr<InstrumentEnd> PlugIn(const LineOptions& options) {
  if (options.Port.empty()) return std::make_unique<OutputEnd>();
  return std::make_unique<PortEnd>(options.Port);
}

}  // namespace kelp
