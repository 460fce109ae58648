// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of `kelp-console review`.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "review/final_data.hpp"

namespace kelp {

struct ReviewOptions {
  std::string Folder;
  std::vector<std::string> Stations = {};  ///< processing numbers; empty for all
  std::string Cruise = {};                 ///< empty for the one of most stations
  std::optional<std::filesystem::path> Html = {};
  std::optional<std::filesystem::path> Csv = {};
  PostCalibration Post = {};
  std::optional<std::filesystem::path> Drives = {};
  bool Help = false;
  std::string Problem = {};  ///< what is wrong with the command line; empty when it is fine
};

/// Reads what stands behind the word "review".
ReviewOptions ReadReviewOptions(const std::vector<std::string>& arguments);

extern const char* const kReviewHelp;

}  // namespace kelp
