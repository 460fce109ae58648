// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquire/save_check.hpp"

#include "acquire/averaging.hpp"
#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/start_button.hpp"

namespace kelp {

namespace {

constexpr int kExtraReadsForRa = 5;

std::string ReadsLeft(const RunState& run, int wanted) {
  const int reads = run.ReadCount;
  return std::to_string(reads) + " of " + std::to_string(wanted) + " reads are in.";
}

}  // namespace

bool HasAverage(const Kelp& kelp) { return AverageExists(kelp.run) && kelp.run.SdIsValid; }

bool SdIsMet(const Kelp& kelp) {
  const auto criterion = static_cast<float>(CfgNumber(kelp.run, kCfgSdCriterion));
  return HasAverage(kelp) && static_cast<float>(Val(kelp.frmAcquire.txtStats[2].Text)) <= criterion;
}

std::string WhyNotSaved(const Kelp& kelp, SavedBy by) {
  const RunState& run = kelp.run;
  const CaptionRow& row = ButtonRow(kelp);
  if (row.Does != Phase::Save || !run.Loaded) return "Nothing is ready to be saved.";
  const bool moreForRa = row.What == Item::Ra && by == SavedBy::Autoread;
  const int wanted = run.MinReads + (moreForRa ? kExtraReadsForRa : 0);
  if (run.ReadCount < wanted) return ReadsLeft(run, wanted);
  if (run.ErrorIsTold && !run.SdIsValid)
    return "Configuration line 13 (number of reads to average) allows no average: nothing can be saved.";
  if (!AverageExists(run))
    return "The average of " + std::to_string(int{run.ReadsToAverage}) + " reads is not there yet.";
  if (!run.SdIsValid) return "There is no SD of these reads yet.";
  if (by == SavedBy::Autoread && !SdIsMet(kelp)) return "The SD is above the criterion.";
  return "";
}

}  // namespace kelp
