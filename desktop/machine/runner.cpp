// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/runner.hpp"

#include <QScopedValueRollback>
#include <utility>

namespace kelp {

namespace {

constexpr int kCareEvery = 60'000;
// The line is looked at once a second when no bytes come in; all else that a pass does needs bytes.
constexpr int kPassEvery = 1000;
// A tick of the log that is due within this part of its interval goes with the reading that came in.
constexpr int kTickGrace = 20;

void SetTimer(QTimer& timer, bool wanted, int interval) {
  if (!wanted)
    timer.stop();
  else if (!timer.isActive() || timer.interval() != interval)
    timer.start(interval);
}

}  // namespace

Runner::Runner(Kelp& kelp) : kelp_(kelp) {
  passes_.setTimerType(Qt::CoarseTimer);
  ticks_.setTimerType(Qt::PreciseTimer);
  connect(&passes_, &QTimer::timeout, this, &Runner::BytesCame);
  // One wake for both: the tick of the log is a look at the line too.
  connect(&ticks_, &QTimer::timeout, this, [this] {
    if (!WantsTicks(kelp_)) return;
    Run(
        [this] {
          Pass(kelp_);
          Tick(kelp_);
          StartTick();
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
  const int every = kelp_.Timer1.Interval;
  const bool ticks = WantsTicks(kelp_) && every > 0;
  if (!ticks)
    ticks_.stop();
  else if (!ticks_.isActive() || tickEvery_ != every)
    StartTick();
  SetTimer(passes_, WantsPasses(kelp_) && !(ticks && every <= kPassEvery), kPassEvery);
  SetTimer(minutes_, WantsCare(kelp_), kCareEvery);
}

// While readings come in, a tick waits a little for the next one: it goes with it.
void Runner::StartTick() {
  tickEvery_ = kelp_.Timer1.Interval;
  SetTimer(ticks_, true, tickEvery_ + (std::exchange(readSinceTick_, false) ? tickEvery_ / kTickGrace : 0));
  lastTick_ = kelp_.platform.Milliseconds();
}

void Runner::PassAndTick() {
  const unsigned long readings = kelp_.run.Chart.PointsAdded();
  Pass(kelp_);
  if (kelp_.run.Chart.PointsAdded() == readings) return;
  readSinceTick_ = true;
  const std::int64_t since = kelp_.platform.Milliseconds() - lastTick_;
  if (!ticks_.isActive() || since < tickEvery_ - tickEvery_ / kTickGrace) return;
  Tick(kelp_);
  ticks_.stop();
  StartTick();
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
  if (WantsPasses(kelp_)) Run([this] { PassAndTick(); }, false);
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
