// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the program in Qt's event loop: hands events to the one door, gives the read loop its passes
// and the log its ticks, and shows after each what changed. No timer runs while nothing is to be
// done, and neither pass nor tick while a modal dialog is open (its event loop runs inside a handler).
// A tick that is due within a twentieth of its interval goes with a reading: an instrument that sends as
// often as the log is written wakes the program once for both, and the log has each of its readings once.
#pragma once

#include <QObject>
#include <QTimer>
#include <cstdint>
#include <functional>

#include "app/door.hpp"

namespace kelp {

class Runner : public QObject {
 public:
  explicit Runner(Kelp& kelp);

  /// Called after each event, pass and tick: the windows show what changed.
  std::function<void()> ShowChanges = [] {};
  /// Called after an event, pass or tick; `edit` is true for what the operator typed.
  std::function<void(bool edit)> After = [](bool) {};
  /// Called once, when the program has ended.
  std::function<void()> End = [] {};

  /// Starts the program.
  void Start();

  /// Hands in an event. False when it does nothing; so does every event while another is being
  /// handled or a dialog is open.
  bool Post(const Event& event);

  /// Bytes have come in on the line, or it was lost.
  void BytesCame();

  void DialogOpens();
  void DialogClosed();

 private:
  template <class Work>
  void Run(const Work& work, bool edit);
  void SetTimers();
  void StartTick();
  void PassAndTick();

  Kelp& kelp_;
  QTimer passes_;
  QTimer ticks_;
  QTimer minutes_;
  std::int64_t lastTick_ = 0;  ///< when, in milliseconds of the program's clock
  int tickEvery_ = 0;          ///< the log's interval that the timer was set for, in milliseconds
  bool readSinceTick_ = false;
  bool busy_ = false;
  bool missed_ = false;  ///< bytes came while a handler ran
  int dialogs_ = 0;
  bool ended_ = false;
};

}  // namespace kelp
