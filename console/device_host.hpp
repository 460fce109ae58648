// SPDX-License-Identifier: GPL-3.0-or-later
// A host in real time: it wakes when bytes arrive on the serial line, not on a timer.
#pragma once

#include <functional>

#include "console/device_machine.hpp"
#include "script/host.hpp"
#include "script/timer.hpp"

namespace kelp {

class DeviceHost : public ScriptHost {
 public:
  DeviceHost(Kelp& kelp, DeviceMachine& machine) : kelp_(kelp), machine_(machine) {}

  /// Called after every event, pass and tick; `Printer` takes the lines that are printed.
  std::function<void()> Changed;
  std::function<void(const std::string&)> Printer;

  Kelp& program() override { return kelp_; }
  ScriptedPlatform& machine() override { return machine_; }
  void Start() override;
  bool Post(const Event& event) override;
  bool Let(std::int64_t milliseconds, const std::function<bool()>& until) override;
  bool LineIsScripted() override { return false; }
  void Print(const std::string& line) override {
    if (Printer) Printer(line);
  }

 private:
  void Follow();
  void Wait(std::int64_t end);

  Kelp& kelp_;
  DeviceMachine& machine_;
  ScriptTimer timer_;
};

}  // namespace kelp
