// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cues.hpp"

#include <utility>

namespace kelp {

std::vector<Tone> TonesOf(Cue cue) {
  switch (cue) {
    case Cue::CanSave: return {{660, 0.10}, {880, 0.10}};            // two, rising
    case Cue::Saved: return {{1320, 0.09}};                          // one, short and high
    case Cue::Acid: return {{523, 0.12}, {659, 0.12}, {784, 0.22}};  // three, rising
    case Cue::Question: return {{880, 0.12}, {660, 0.18}};           // two, falling
    case Cue::Alarm: return {{440, 0.18}, {0, 0.07}, {440, 0.18}, {0, 0.07}, {440, 0.4}};  // low, three times
  }
  return {};
}

const char* NameOf(Cue cue) {
  switch (cue) {
    case Cue::CanSave: return "A value can be saved";
    case Cue::Saved: return "A value was saved";
    case Cue::Acid: return "Acid is due";
    case Cue::Question: return "A question waits";
    case Cue::Alarm: return "Alarm, until it is seen";
  }
  return "";
}

// The values that a run stores: the boxes of blanks, standards and copros, and Rb and Ra of each sample.
std::vector<std::string> CueListener::Values() const {
  const FrmAcquire& form = kelp_.frmAcquire;
  std::vector<std::string> values;
  for (int box = kBoxBeginBlank; box < kBoxAutoCriterion; ++box) values.push_back(form.txtBlank[box].Text);
  for (int row = 1; row <= kelp_.run.SampCount && row < form.datalog.Rows; ++row) {
    values.push_back(form.datalog.Text(row, kColRb));
    values.push_back(form.datalog.Text(row, kColRa));
  }
  return values;
}

std::optional<Cue> CueListener::Listen(bool typed, SaveState state) {
  const SaveState before = std::exchange(state_, state);
  const bool turned = state != before;
  const std::string& caption = kelp_.frmAcquire.Command1.Caption;
  // Every save moves the run's button on; most passes save nothing and need no look at the station.
  bool saved = false;
  if (caption != caption_ || typed) {
    caption_ = caption;
    std::vector<std::string> values = Values();
    // What was taken back is not saved: the night watch must hear the difference.
    saved =
        values != values_ && !typed && station_ == kelp_.run.StationLoads && kelp_.Note.Way != How::Undone;
    values_.swap(values);
    station_ = kelp_.run.StationLoads;
  }
  if (turned && state == SaveState::Acid) return Cue::Acid;
  if (saved) return Cue::Saved;
  if (turned && state == SaveState::CanSave) return Cue::CanSave;
  return {};
}

}  // namespace kelp
