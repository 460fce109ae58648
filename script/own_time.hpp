// SPDX-License-Identifier: GPL-3.0-or-later
// A host whose time is the program's own: it passes only when a script lets it, so that the same
// script gives the same files, byte for byte, and a station of an hour takes milliseconds.
#pragma once

#include <functional>

#include "script/program_host.hpp"

namespace kelp {

/// The instrument on the serial line of a program with its own time: called once a second for the text
/// that comes in.
using Instrument = std::function<std::string(const Kelp&)>;

class OwnTimeHost : public ProgramHost {
 public:
  OwnTimeHost(Kelp& kelp, ScriptedPlatform& machine) : ProgramHost(kelp, machine) {}

  /// An instrument that sends a line each second; none for readings that come from the script.
  void Connect(Instrument instrument) { instrument_ = std::move(instrument); }

  bool Let(std::int64_t milliseconds, const std::function<bool()>& until) override;

 private:
  void SendLine(std::int64_t now);

  Instrument instrument_;
  std::int64_t nextPass_ = 0;
  std::int64_t nextLine_ = 1000;
};

}  // namespace kelp
