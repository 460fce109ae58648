// SPDX-License-Identifier: GPL-3.0-or-later
// A host in real time: it wakes when bytes arrive on the serial line, not on a timer.
#pragma once

#include "console/device_machine.hpp"
#include "script/program_host.hpp"

namespace kelp {

class DeviceHost : public ProgramHost {
 public:
  DeviceHost(Kelp& kelp, DeviceMachine& machine) : ProgramHost(kelp, machine), device_(machine) {}

  bool Let(std::int64_t milliseconds, const std::function<bool()>& until) override;
  bool LineIsScripted() override { return false; }

 private:
  void Wait(std::int64_t end);

  DeviceMachine& device_;
};

}  // namespace kelp
