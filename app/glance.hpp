// SPDX-License-Identifier: GPL-3.0-or-later
// What is read from two metres away, at a glance: what to load or read, whether it can be saved, how old the
// number is. A front end shows it large; it decides nothing.
#pragma once

#include <string>

#include "core/kelp.hpp"

namespace kelp {

/// Where an item stands on its way into its cell. Every state has its own words, colour and shape.
enum class SaveState {
  Idle,       ///< nothing is under way
  Load,       ///< the next item is to be put in
  Saved,      ///< the item before was saved; the next one is to be put in
  Reading,    ///< not enough reads yet
  NotSteady,  ///< enough reads, but the SD is above its criterion
  CanSave,    ///< it can be saved
  Acid,       ///< acid is to be added
  Paused,     ///< reading is held
};

struct Glance {
  std::string Step;  ///< "Vial 102 - bottle 08 - Rb": what to load or read
  std::string Last;  ///< the last result and its flag: "07: 1.389, QC *"; empty when there is none
  SaveState State = SaveState::Idle;
  std::string StateWords;
  bool Faint = false;     ///< the large number is no value of this item, or it is old
  std::string Beside;     ///< what stands beside it then: "no average yet", "12 s old"
  int Needed = 0;         ///< reads that a save of this item needs
  std::string NeedWords;  ///< beside the counter: "of 10", or "of 15" for an Ra with Autoread
  bool Enough = false;    ///< that many are in
};

Glance GlanceAt(const Kelp& kelp);

/// What the chooser warns of: "Samples 3 to 6 have no reading", "Sample 4 has no Ra". Empty when all are
/// read.
std::string UnreadSamples(const Kelp& kelp);

/// The time since the acid went in, which is counted from the save of the Rb.
class AcidClock {
 public:
  /// To be called after each event and pass. "" while no acid is in, or when nobody saw it go in.
  std::string Listen(const Kelp& kelp);

 private:
  std::string caption_ = {};
  int sample_ = 0;
  std::int64_t since_ = -1;
};

}  // namespace kelp
