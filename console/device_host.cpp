// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/device_host.hpp"

#include <chrono>
#include <thread>

namespace kelp {

bool DeviceHost::Let(std::int64_t milliseconds, const std::function<bool()>& until) {
  const std::int64_t end = Now() + milliseconds;
  for (;;) {
    PassNow();
    TickIfDue();
    if (until && until()) return true;
    if (kelp_.Ended || Now() >= end) return false;
    Wait(end);
  }
}

void DeviceHost::Wait(std::int64_t end) {
  const std::int64_t now = Now();
  const std::int64_t next = NextMoment(end, now + kBetweenPasses);
  if (next <= now) return;
  // Bytes that no pass takes would end every wait at once.
  if (WantsPasses(kelp_))
    device_.Line().WaitForBytes(static_cast<int>(next - now));
  else
    std::this_thread::sleep_for(std::chrono::milliseconds(next - now));
}

}  // namespace kelp
