// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/own_time.hpp"

#include <algorithm>

namespace kelp {

namespace {
constexpr std::int64_t kBetweenPasses = 50;
constexpr std::int64_t kBetweenLines = 1000;
}  // namespace

void OwnTimeHost::Start() {
  kelp::Start(kelp_);
  Follow();
}

bool OwnTimeHost::Post(const Event& event) {
  const bool done = kelp::Post(kelp_, event);
  Follow();
  return done;
}

// At one moment ticks come first: they log what the readings so far have left on the screen. Then the
// instrument's line comes in, and a pass takes it. A line or pass that is due at the end of the span is
// left to the next span.
bool OwnTimeHost::Let(std::int64_t milliseconds, const std::function<bool()>& until) {
  const std::int64_t end = machine_.Milliseconds() + milliseconds;
  nextPass_ = machine_.Milliseconds();
  for (;;) {
    if (until && until()) return true;
    if (kelp_.Ended) return false;
    const std::int64_t now = machine_.Milliseconds();
    if (instrument_ && now >= nextLine_) {
      nextLine_ += kBetweenLines;
      const std::string line = instrument_(kelp_);
      if (machine_.PortIsOpen()) machine_.Feed(line);
      nextPass_ = now;
    }
    if (now >= nextPass_) {
      nextPass_ = now + kBetweenPasses;
      PassNow();
      if (until && until()) return true;
      if (kelp_.Ended) return false;
    }
    machine_.Advance(NextMoment(end) - now);
    TickIfDue();
    if (machine_.Milliseconds() >= end) return until && until();
  }
}

std::int64_t OwnTimeHost::NextMoment(std::int64_t end) const {
  std::int64_t next = end;
  if (WantsPasses(kelp_)) next = std::min(next, nextPass_);
  if (instrument_) next = std::min(next, nextLine_);
  if (timer_.Due()) next = std::min(next, *timer_.Due());
  return next;
}

void OwnTimeHost::Follow() {
  timer_.Follow(kelp_, machine_.Milliseconds());
  if (Changed) Changed();
}

void OwnTimeHost::PassNow() {
  if (!WantsPasses(kelp_)) return;
  Pass(kelp_);
  Follow();
}

void OwnTimeHost::TickIfDue() {
  if (!timer_.Due() || machine_.Milliseconds() < *timer_.Due()) return;
  timer_.Ticked();
  Tick(kelp_);
  Follow();
}

}  // namespace kelp
