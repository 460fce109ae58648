// SPDX-License-Identifier: GPL-3.0-or-later
// What the analyst should hear while the eyes are on the tubes.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "app/glance.hpp"

namespace kelp {

enum class Cue {
  CanSave,   ///< the value can be saved
  Saved,     ///< a value was saved
  Acid,      ///< acid is due
  Question,  ///< a question waits for its answer
  Alarm,     ///< something must not be overlooked
};

inline constexpr std::array<Cue, 5> kCues = {Cue::CanSave, Cue::Saved, Cue::Acid, Cue::Question, Cue::Alarm};

/// A tone of a cue, or a rest where Hertz is 0.
struct Tone {
  double Hertz = 0;
  double Seconds = 0;
};

/// The tones of a cue: each differs from the others in number, direction and rhythm, not in pitch alone.
std::vector<Tone> TonesOf(Cue cue);
/// What the settings call it.
const char* NameOf(Cue cue);

/// Listens to the program for saved values, acid, and values that can be saved.
class CueListener {
 public:
  explicit CueListener(const Kelp& kelp) : kelp_(kelp) {}

  /// To be called after each event, pass and tick; the cue that is due now. What the operator typed and what
  /// a loaded station brings is no saved value.
  std::optional<Cue> Listen(bool typed, SaveState state);

 private:
  [[nodiscard]] std::vector<std::string> Values() const;

  const Kelp& kelp_;
  std::vector<std::string> values_ = {};
  std::string caption_ = {};
  int station_ = -1;
  SaveState state_ = SaveState::Idle;
};

}  // namespace kelp
