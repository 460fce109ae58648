// SPDX-License-Identifier: GPL-3.0-or-later
// What the review's tabs have in common: the cruise that is looked at, and what they ask of the program.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/take_calibration.hpp"
#include "review/review.hpp"

namespace kelp {

struct ReviewDesk {
  Kelp& Program;
  std::shared_ptr<const Review> Shown = std::make_shared<Review>();
  /// Lets the analyst choose a folder; its program path, or nothing.
  std::function<std::optional<std::string>()> ChooseFolder = [] { return std::nullopt; };
  /// A file was written: the status line tells it.
  std::function<void(const QString&)> Tell = [](const QString&) {};
};

inline QString Text(const std::string& text) { return QString::fromStdString(text); }

}  // namespace kelp
