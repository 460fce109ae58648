#include "desktop/machine/sound_cues.hpp"

#include "core/text.hpp"

namespace kelp {

// The values that a run stores: the boxes of blanks, standards and copros, and Rb and Ra of each sample.
std::vector<std::string> SoundCues::Values() const {
  const FrmAcquire& form = kelp_.frmAcquire;
  std::vector<std::string> values;
  for (int box = kBoxBeginBlank; box < kBoxAutoCriterion; ++box) values.push_back(form.txtBlank[box].Text);
  for (int row = 1; row <= kelp_.run.SampCount && row < form.datalog.Rows; ++row) {
    values.push_back(form.datalog.Text(row, kColRb));
    values.push_back(form.datalog.Text(row, kColRa));
  }
  return values;
}

void SoundCues::Listen(bool typed) {
  const std::string& caption = kelp_.frmAcquire.Command1.Caption;
  if (caption == caption_ && !typed) return;
  caption_ = caption;
  std::vector<std::string> values = Values();
  const bool saved = values != values_ && !typed && station_ == kelp_.run.StationLoads;
  values_.swap(values);
  station_ = kelp_.run.StationLoads;
  const bool acid = Contains(kelp_.frmAcquire.Text4.Text, "ACIDIFY");
  if (acid && !acid_)
    sound_.Play(Cue::Attention);
  else if (saved)
    sound_.Play(Cue::Saved);
  acid_ = acid;
}

}  // namespace kelp
