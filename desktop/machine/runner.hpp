// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the program in Qt's event loop: hands events to the one door, gives the read loop its passes
// and the log its ticks, and shows after each what changed. No timer runs while nothing is to be
// done, and neither pass nor tick while a modal dialog is open (its event loop runs inside a handler).
#pragma once

#include <QObject>
#include <QTimer>
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

  Kelp& kelp_;
  QTimer passes_;
  QTimer ticks_;
  QTimer minutes_;
  bool busy_ = false;
  bool missed_ = false;  ///< bytes came while a handler ran
  int dialogs_ = 0;
  bool ended_ = false;
};

}  // namespace kelp
