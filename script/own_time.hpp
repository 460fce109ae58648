// SPDX-License-Identifier: GPL-3.0-or-later
// A host whose time is the program's own: it passes only when a script lets it, so that the same
// script gives the same files, byte for byte, and a station of an hour takes milliseconds.
#pragma once

#include <functional>

#include "script/host.hpp"
#include "script/timer.hpp"

namespace kelp {

/// The instrument on the serial line of a program with its own time: called once a second for the text
/// that comes in.
using Instrument = std::function<std::string(const Kelp&)>;

class OwnTimeHost : public ScriptHost {
 public:
  OwnTimeHost(Kelp& kelp, ScriptedPlatform& machine) : kelp_(kelp), machine_(machine) {}

  /// An instrument that sends a line each second; none for readings that come from the script.
  void Connect(Instrument instrument) { instrument_ = std::move(instrument); }

  /// Called after every event, pass and tick; `Printer` takes the lines that are printed.
  std::function<void()> Changed;
  std::function<void(const std::string&)> Printer;

  Kelp& program() override { return kelp_; }
  ScriptedPlatform& machine() override { return machine_; }
  void Start() override;
  bool Post(const Event& event) override;
  bool Let(std::int64_t milliseconds, const std::function<bool()>& until) override;
  void Print(const std::string& line) override {
    if (Printer) Printer(line);
  }

 private:
  void Follow();
  void PassNow();
  void TickIfDue();
  [[nodiscard]] std::int64_t NextMoment(std::int64_t end) const;

  Kelp& kelp_;
  ScriptedPlatform& machine_;
  Instrument instrument_;
  ScriptTimer timer_;
  std::int64_t nextPass_ = 0;
  std::int64_t nextLine_ = 1000;
};

}  // namespace kelp
