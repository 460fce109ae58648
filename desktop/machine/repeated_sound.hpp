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
  /// `every`, in ms, is the time from one sound to the next where looks come; without them it is a sixth
  /// more.
  RepeatedSound(int every, std::function<bool()> called, std::function<void()> play)
      : every_(every), called_(std::move(called)), play_(std::move(play)) {
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(every + every / kGrace);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { called_() ? play_() : timer_.stop(); });
  }

  void Look() {
    if (!called_()) return timer_.stop();
    constexpr int kJitter = 30;
    if (timer_.isActive() && timer_.remainingTime() > every_ / kGrace + every_ / kJitter) return;
    timer_.start();
    play_();
  }

 private:
  static constexpr int kGrace = 6;
  int every_;
  std::function<bool()> called_;
  std::function<void()> play_;
  QTimer timer_;
};

}  // namespace kelp
