// The command line of the desktop program.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kelp {

struct Options {
  bool Help = false;
  bool Version = false;
  bool Simulate = false;                                       ///< the simulated fluorometer
  std::optional<std::filesystem::path> Drives = std::nullopt;  ///< where all drives lie
  std::map<char, std::filesystem::path> Drive = {};
  std::map<int, std::string> Port = {};
  std::string Script = {};  ///< an operator script to play
  std::string Clock = {};   ///< what the clock reads when the script starts
  /// What is wrong with the command line; empty when it is fine.
  std::string Problem = {};

  /// True when the command line says how this machine is to be used.
  [[nodiscard]] bool SaysWhere() const {
    return Simulate || Drives || !Drive.empty() || !Port.empty() || !Script.empty();
  }
};

/// Reads the command line without the program's name. Options of the window system ("-platform x",
/// "-style x") are left to it.
Options ReadOptions(const std::vector<std::string>& words);

/// The text of --help.
std::string HelpText();

}  // namespace kelp
