// SPDX-License-Identifier: GPL-3.0-or-later
// Prints the steps of a run as they happen: captions, saved values, results; at the end the results
// table and the files written. A line per reading would be too much.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/kelp.hpp"

namespace kelp {

class Watch {
 public:
  Watch(Kelp& kelp, std::function<void(const std::string&)> print) : kelp_(kelp), print_(std::move(print)) {}

  /// Prints what changed since the last look.
  void Look();

  /// Prints the results table of all stations watched and the files written.
  void Conclude(const std::vector<std::string>& written) const;

 private:
  void LookAtCaption();
  void LookAtBoxes();
  void LookAtGrid();

  struct Row {
    std::array<std::string, 6> cells = {};  ///< Rb to QC
    std::string line = {};                  ///< the results line, once there are results
  };
  void LookAtRow(int row, Row& known);

  Kelp& kelp_;
  std::function<void(const std::string&)> print_;
  std::string caption_;
  std::array<std::string, 10> boxes_ = {};
  std::map<std::string, std::vector<Row>> stations_ = {};  ///< by processing number
};

}  // namespace kelp
