// SPDX-License-Identifier: GPL-3.0-or-later
// Repeats a sound for as long as it is called for. A look that comes when the sound is due plays it, so that
// a program that wakes each second anyway is not woken for it once more.
#pragma once

#include <QTimer>
#include <functional>
#include <utility>

namespace kelp {

class RepeatedSound {
 public:
  /// `every`, in ms, is the time from one sound to the next where looks come; without them a sixth is added.
  RepeatedSound(int every, std::function<bool()> called, std::function<void()> play)
      : every_(every), called_(std::move(called)), play_(std::move(play)) {
    timer_.setTimerType(Qt::PreciseTimer);
    constexpr int kGrace = 6;
    timer_.setInterval(every + every / kGrace);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { called_() ? play_() : timer_.stop(); });
  }

  /// To be called at each wake. The first one that is called for sounds at once, later ones when the sound is
  /// due: a thirtieth of `every` early is early enough, wakes are not to the millisecond.
  void Look() {
    if (!called_()) return timer_.stop();
    constexpr int kDue = 5;  // the sixth and the thirtieth
    if (timer_.isActive() && timer_.remainingTime() > every_ / kDue) return;
    timer_.start();
    play_();
  }

 private:
  int every_;
  std::function<bool()> called_;
  std::function<void()> play_;
  QTimer timer_;
};

}  // namespace kelp
