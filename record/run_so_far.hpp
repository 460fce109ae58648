// SPDX-License-Identifier: GPL-3.0-or-later
// What the record tells of a run of a station: how it stands, and what of it is in no station file yet.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "record/event.hpp"

namespace kelp {

/// Texts by place.
using Values = std::map<std::string, std::string>;

struct RunSoFar {
  RecordedEvent Begun = {};
  Values Now = {};       ///< where it stands; a place that is not there is empty
  int Unsaved = 0;       ///< values behind the last save
  std::string Last;      ///< when the last of them was stored, YYYY-MM-DD HH:MM:SS
  std::string Mark;      ///< of the base file as it was last known
  std::string Name;      ///< station text
  bool IsAside = false;  ///< the operator did not want to go on with it
};

/// Puts the events of one run together.
RunSoFar FoldRun(const std::vector<RecordedEvent>& events);

/// The steps of a run that can be taken back, oldest first: each the events of one doing, in their order.
std::vector<std::vector<RecordedEvent>> StepsOf(const std::vector<RecordedEvent>& events);

}  // namespace kelp
