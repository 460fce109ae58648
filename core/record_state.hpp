// SPDX-License-Identifier: GPL-3.0-or-later
// What all rooms may know of the station's record. How it is kept is the business of record/.
#pragma once

#include <memory>
#include <optional>
#include <string>

namespace kelp {

class RecordBook;

/// An unfinished station that the operator chose to go on with: the login opens it instead of the one that
/// the configuration names.
struct ChosenStation {
  std::string BaseFile;
  std::string ProcNum;
  std::string CruiseID;
};

struct RecordState {
  /// Something that was accepted is not in the record yet: front ends show an alarm, and leaving asks.
  bool Unsafe = false;
  std::string Trouble;       ///< why, and where the values are meanwhile
  bool CarriedOver = false;  ///< the station just opened took over end values of the one before
  std::optional<ChosenStation> Chosen = {};
  std::string SavedRows;  ///< mark of the results that the station's newest database rows hold; "" for none
  std::shared_ptr<RecordBook> Book = {};
};

}  // namespace kelp
