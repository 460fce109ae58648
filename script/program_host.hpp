// SPDX-License-Identifier: GPL-3.0-or-later
// What all hosts of scripts do to the program: they post events, make the passes and ticks that are due, and
// tell whoever watches. Only how time passes is left to each of them.
#pragma once

#include <functional>

#include "script/host.hpp"
#include "script/timer.hpp"

namespace kelp {

class ProgramHost : public ScriptHost {
 public:
  /// Called after every event, pass and tick; `Printer` takes the lines that are printed.
  std::function<void()> Changed;
  std::function<void(const std::string&)> Printer;

  Kelp& program() override { return kelp_; }
  ScriptedPlatform& machine() override { return machine_; }
  void Start() override;
  bool Post(const Event& event) override;
  void Print(const std::string& line) override {
    if (Printer) Printer(line);
  }

 protected:
  static constexpr std::int64_t kBetweenPasses = 50;

  ProgramHost(Kelp& kelp, ScriptedPlatform& machine) : kelp_(kelp), machine_(machine) {}

  [[nodiscard]] std::int64_t Now() const { return machine_.Milliseconds(); }

  /// A pass of the read loop, if it runs; the tick of the log timer, if its time has come.
  void PassNow();
  void TickIfDue();

  /// `end`, or before that the next pass, at `pass`, or tick.
  [[nodiscard]] std::int64_t NextMoment(std::int64_t end, std::int64_t pass) const;

  Kelp& kelp_;
  ScriptedPlatform& machine_;

 private:
  void Follow();

  ScriptTimer timer_;
};

}  // namespace kelp
