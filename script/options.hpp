// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of kelp-console.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/platform.hpp"

namespace kelp {

enum class InstrumentKind { Script, Simulated, Device };

struct ConsoleOptions {
  std::string Script = "-";
  std::optional<std::filesystem::path> Drives = {};
  std::map<char, std::filesystem::path> Drive = {};
  std::map<int, std::string> Ports = {};
  InstrumentKind Instrument = InstrumentKind::Script;
  std::uint32_t Seed = 1;
  std::optional<LocalTime> Clock = {};
  bool Watch = false;
  bool Quick = false;   ///< appended lines don't wait for the disk
  bool Record = false;  ///< lists the record: `Script` names a station, "-" all of them
  bool Help = false;
  bool Version = false;
  /// What is wrong with the command line; empty when it is fine.
  std::string Problem = {};
};

ConsoleOptions ReadOptions(const std::vector<std::string>& arguments);

/// The text of --help.
extern const char* const kConsoleHelp;

}  // namespace kelp
