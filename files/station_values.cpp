#include "files/station_values.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"

namespace kelp {

std::string BlankText(const Kelp& kelp, int box) {
  const std::string& read = box == kBoxBeginBlank ? kelp.run.BeginBlankText : kelp.run.EndBlankText;
  return read.empty() ? kelp.frmAcquire.txtBlank[box].Text : read;
}

void ShowAverageBlank(Kelp& kelp) {
  const RunState& run = kelp.run;
  if (run.BeginBlankText.empty() || run.EndBlankText.empty()) return;
  kelp.frmAcquire.txtStaInfo[kStaAveBlank].Text =
      SavedText((Val(run.BeginBlankText) + Val(run.EndBlankText)) / 2);
}

DateAndTime ReadAt(const RunState& run) {
  return SplitDateTime(run.RunDate.empty() ? run.ReportStr : Replaced(run.RunDate, ",", " "));
}

}  // namespace kelp
