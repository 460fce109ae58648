// Listens to the program for what the analyst should hear: a value was saved, or acid is due.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/kelp.hpp"
#include "desktop/machine/sound.hpp"

namespace kelp {

class SoundCues {
 public:
  SoundCues(const Kelp& kelp, Sound& sound) : kelp_(kelp), sound_(sound) {}

  /// To be called after each event, pass and tick. Every save moves the run's button on; what the
  /// operator typed and what a loaded station brings is no saved value.
  void Listen(bool typed);

 private:
  [[nodiscard]] std::vector<std::string> Values() const;

  const Kelp& kelp_;
  Sound& sound_;
  std::vector<std::string> values_ = {};
  std::string caption_ = {};
  int station_ = -1;
  bool acid_ = false;
};

}  // namespace kelp
