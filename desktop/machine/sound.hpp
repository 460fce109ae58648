// Short sounds: the analyst's eyes are on the tubes. Qt Widgets has no more than the system's beep,
// which many machines keep silent; so a player of the machine gets a small sound file, where there
// is one.
#pragma once

#include <QString>
#include <QTemporaryDir>
#include <memory>
#include <optional>

namespace kelp {

enum class Cue {
  Saved,      ///< a value was saved: one short high tone
  Attention,  ///< a question, or acid is due: two tones
};

class Sound {
 public:
  bool On = true;

  /// Starts the sound and does not wait for it. Nothing fails: without a player it is the beep.
  void Play(Cue cue);

 private:
  QString FileOf(Cue cue);

  std::optional<QString> player_ = {};
  std::unique_ptr<QTemporaryDir> folder_ = {};
};

}  // namespace kelp
