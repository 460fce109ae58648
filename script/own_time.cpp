// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/own_time.hpp"

#include <algorithm>

namespace kelp {

namespace {
constexpr std::int64_t kBetweenLines = 1000;
}  // namespace

// At one moment ticks come first: they log what the readings so far have left on the screen. Then the
// instrument's line comes in, and a pass takes it. A line or pass that is due at the end of the span is
// left to the next span.
bool OwnTimeHost::Let(std::int64_t milliseconds, const std::function<bool()>& until) {
  const std::int64_t end = Now() + milliseconds;
  nextPass_ = Now();
  for (;;) {
    if (until && until()) return true;
    if (kelp_.Ended) return false;
    const std::int64_t now = Now();
    if (instrument_ && now >= nextLine_) SendLine(now);
    if (now >= nextPass_) {
      nextPass_ = now + kBetweenPasses;
      PassNow();
      if (until && until()) return true;
      if (kelp_.Ended) return false;
    }
    std::int64_t next = NextMoment(end, nextPass_);
    if (instrument_) next = std::min(next, nextLine_);
    machine_.Advance(next - now);
    TickIfDue();
    if (Now() >= end) return until && until();
  }
}

void OwnTimeHost::SendLine(std::int64_t now) {
  nextLine_ += kBetweenLines;
  const std::string line = instrument_(kelp_);
  if (machine_.PortIsOpen()) machine_.Feed(line);
  nextPass_ = now;
}

}  // namespace kelp
