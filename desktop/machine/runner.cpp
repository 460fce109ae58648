// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/runner.hpp"

#include <QScopedValueRollback>
#include <utility>

namespace kelp {

namespace {

constexpr int kCareEvery = 60'000;
// The line is looked at once a second when no bytes come in; all else that a pass does needs bytes.
constexpr int kPassEvery = 1000;

void SetTimer(QTimer& timer, bool wanted, int interval) {
  if (!wanted)
    timer.stop();
  else if (!timer.isActive() || timer.interval() != interval)
    timer.start(interval);
}

}  // namespace

Runner::Runner(Kelp& kelp) : kelp_(kelp) {
  passes_.setTimerType(Qt::CoarseTimer);
  connect(&passes_, &QTimer::timeout, this, &Runner::BytesCame);
  // One wake for both: the tick of the log is a look at the line too.
  connect(&ticks_, &QTimer::timeout, this, [this] {
    if (!WantsTicks(kelp_)) return;
    const bool look = WantsPasses(kelp_) && passes_.isActive();
    if (look) passes_.start();
    Run(
        [&] {
          if (look) Pass(kelp_);
          Tick(kelp_);
        },
        false);
  });
  connect(&minutes_, &QTimer::timeout, this, [this] { Run([this] { Care(kelp_); }, false); });
}

// A handler never runs inside another one: what a window reports while a handler changes it, or while
// a dialog waits for its answer, is no doing of the operator's.
template <class Work>
void Runner::Run(const Work& work, bool edit) {
  if (busy_ || dialogs_ > 0 || ended_) return;
  {
    const QScopedValueRollback busy(busy_, true);
    work();
    ShowChanges();
  }
  if (kelp_.Ended) {
    ended_ = true;
    passes_.stop();
    ticks_.stop();
    minutes_.stop();
    End();
    return;
  }
  After(edit);
  SetTimers();
  if (std::exchange(missed_, false)) QTimer::singleShot(0, this, &Runner::BytesCame);
}

void Runner::SetTimers() {
  SetTimer(passes_, WantsPasses(kelp_), kPassEvery);
  SetTimer(minutes_, WantsCare(kelp_), kCareEvery);
  SetTimer(ticks_, WantsTicks(kelp_) && kelp_.Timer1.Interval > 0, kelp_.Timer1.Interval);
}

void Runner::Start() {
  Run([this] { kelp::Start(kelp_); }, false);
}

bool Runner::Post(const Event& event) {
  bool taken = false;
  Run([&] { taken = kelp::Post(kelp_, event); }, event.Kind == EventKind::Edit);
  return taken;
}

void Runner::BytesCame() {
  // While a handler waits for the disk its bytes wait too.
  missed_ |= busy_;
  if (passes_.isActive()) passes_.start();
  if (WantsPasses(kelp_)) Run([this] { Pass(kelp_); }, false);
}

void Runner::DialogOpens() {
  ++dialogs_;
  passes_.stop();
  ticks_.stop();
  ShowChanges();
}

void Runner::DialogClosed() {
  --dialogs_;
  // Inside a handler its end starts the timers again.
  if (!busy_ && dialogs_ == 0) SetTimers();
}

}  // namespace kelp
