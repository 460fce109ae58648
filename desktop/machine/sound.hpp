// SPDX-License-Identifier: GPL-3.0-or-later
// Short sounds: the analyst's eyes are on the tubes. Qt Widgets has no more than the system's beep,
// which many machines keep silent; so a player of the machine gets a small sound file, where there
// is one.
#pragma once

#include <QString>
#include <QTemporaryDir>
#include <memory>
#include <optional>
#include <set>

#include "app/cues.hpp"

namespace kelp {

class Sound {
 public:
  bool On = true;
  std::set<Cue> Off = {};  ///< cues that are not wanted

  /// Starts the sound, when it is wanted, and does not wait for it. Nothing fails: without a player it is the
  /// beep.
  void Play(Cue cue);
  /// The same whatever is wanted, to let it be heard.
  void PlayNow(Cue cue);

 private:
  QString FileOf(Cue cue);

  std::optional<QString> player_ = {};
  std::unique_ptr<QTemporaryDir> folder_ = {};
};

}  // namespace kelp
