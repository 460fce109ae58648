// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/device_host.hpp"

#include <algorithm>
#include <chrono>
#include <thread>

namespace kelp {

namespace {
constexpr std::int64_t kBetweenPasses = 50;
}  // namespace

void DeviceHost::Start() {
  kelp::Start(kelp_);
  Follow();
}

bool DeviceHost::Post(const Event& event) {
  const bool done = kelp::Post(kelp_, event);
  Follow();
  return done;
}

bool DeviceHost::Let(std::int64_t milliseconds, const std::function<bool()>& until) {
  const std::int64_t end = machine_.Milliseconds() + milliseconds;
  for (;;) {
    if (WantsPasses(kelp_)) {
      Pass(kelp_);
      Follow();
    }
    if (timer_.Due() && machine_.Milliseconds() >= *timer_.Due()) {
      timer_.Ticked();
      Tick(kelp_);
      Follow();
    }
    if (until && until()) return true;
    if (kelp_.Ended || machine_.Milliseconds() >= end) return false;
    Wait(end);
  }
}

void DeviceHost::Wait(std::int64_t end) {
  const std::int64_t now = machine_.Milliseconds();
  std::int64_t next = end;
  if (timer_.Due()) next = std::min(next, *timer_.Due());
  if (WantsPasses(kelp_)) next = std::min(next, now + kBetweenPasses);
  if (next <= now) return;
  // Bytes that no pass takes would end every wait at once.
  if (WantsPasses(kelp_))
    machine_.Line().WaitForBytes(static_cast<int>(next - now));
  else
    std::this_thread::sleep_for(std::chrono::milliseconds(next - now));
}

void DeviceHost::Follow() {
  timer_.Follow(kelp_, machine_.Milliseconds());
  if (Changed) Changed();
}

}  // namespace kelp
