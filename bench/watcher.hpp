// SPDX-License-Identifier: GPL-3.0-or-later
// What a measured program of a window looks at: the time, its pictures, its processor time, its memory.
#pragma once

#include <pthread.h>

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <chrono>
#include <ctime>
#include <fstream>
#include <functional>
#include <string>
#include <thread>

namespace kelp {

inline double Now() {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

// Notes when a picture of a window is on its way to the display: its paint events are through and the
// call that brought them has returned.
class Watcher : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override {
    if (event->type() == QEvent::Paint && receiver->isWidgetType())
      painting_ = static_cast<QWidget*>(receiver)->window();
    ++depth_;
    const bool taken = QApplication::notify(receiver, event);
    if (--depth_ > 0 || painting_ == nullptr) return taken;
    At = Now();
    if (next_ <= 0 && painting_->objectName() == wanted_) next_ = At;
    painting_ = nullptr;
    return taken;
  }
  // Runs events until `done`; the time of the last picture by then.
  double Until(const std::function<bool()>& done) {
    while (!done()) processEvents(QEventLoop::WaitForMoreEvents, 1000);
    return At;
  }
  // The time of the next picture of a window; `At` may be a later one, of what got the focus for one.
  double PictureOf(const char* screen) {
    wanted_ = screen;
    next_ = 0;
    Until([&] { return next_ > 0; });
    return next_;
  }
  double At = 0;

 private:
  int depth_ = 0;
  QWidget* painting_ = nullptr;
  QString wanted_;
  double next_ = 1;
};

inline double SecondsOf(clockid_t clock) {
  timespec used{};
  if (::clock_gettime(clock, &used) != 0) return 0;
  return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) / 1e9;
}

inline double CpuSeconds() { return SecondsOf(CLOCK_PROCESS_CPUTIME_ID); }

// What one thread of it took.
inline double CpuSeconds(std::thread& thread) {
  clockid_t clock{};
  return ::pthread_getcpuclockid(thread.native_handle(), &clock) == 0 ? SecondsOf(clock) : 0;
}

inline double PeakMegabytes(const std::string& process = "self") {
  std::ifstream status("/proc/" + process + "/status");
  std::string word;
  double kilobytes = 0;
  while (status >> word)
    if (word == "VmHWM:") status >> kilobytes;
  return kilobytes / 1024;
}

}  // namespace kelp
