// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/program_host.hpp"

#include <algorithm>

namespace kelp {

void ProgramHost::Start() {
  kelp::Start(kelp_);
  Follow();
}

bool ProgramHost::Post(const Event& event) {
  const bool done = kelp::Post(kelp_, event);
  Follow();
  return done;
}

void ProgramHost::PassNow() {
  if (!WantsPasses(kelp_)) return;
  Pass(kelp_);
  Follow();
}

void ProgramHost::TickIfDue() {
  if (!timer_.Due() || Now() < *timer_.Due()) return;
  timer_.Ticked();
  Tick(kelp_);
  Follow();
}

std::int64_t ProgramHost::NextMoment(std::int64_t end, std::int64_t pass) const {
  std::int64_t next = end;
  if (WantsPasses(kelp_)) next = std::min(next, pass);
  if (timer_.Due()) next = std::min(next, *timer_.Due());
  return next;
}

void ProgramHost::Follow() {
  timer_.Follow(kelp_, Now());
  if (Changed) Changed();
}

}  // namespace kelp
