// SPDX-License-Identifier: GPL-3.0-or-later
// The machine of a script that plays on a real instrument: answers, files and printer follow the
// script, the serial line and the clock are real.
#pragma once

#include <map>
#include <string>

#include "platform/host.hpp"
#include "platform/scripted.hpp"
#include "platform/serial_line.hpp"

namespace kelp {

class DeviceMachine : public ScriptedPlatform {
 public:
  /// `ports` names the devices of port numbers that are not the machine's own.
  DeviceMachine(Disk& disk, std::map<int, std::string> ports)
      : ScriptedPlatform(disk), ports_(std::move(ports)) {}

  SerialLine& Line() { return line_; }

  std::string OpenPort(int number, const std::string& settings) override {
    const auto port = ports_.find(number);
    return line_.Open(port == ports_.end() ? HostPortDevice(number) : port->second, settings);
  }
  void ClosePort() override { line_.Close(); }
  bool PortIsOpen() override { return line_.IsOpen(); }
  std::size_t BytesWaiting() override { return line_.BytesWaiting(); }
  std::string ReadWaiting() override { return line_.ReadAll(); }
  bool TimeIsOwn() override { return false; }
  std::int64_t Milliseconds() override { return HostMilliseconds() - started_; }

 private:
  std::map<int, std::string> ports_;
  SerialLine line_ = {};
  std::int64_t started_ = HostMilliseconds();
};

}  // namespace kelp
