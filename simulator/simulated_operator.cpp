// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/simulated_operator.hpp"

#include "core/caption_table.hpp"
#include "core/captions.hpp"
#include "core/config.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

constexpr double kLowStandard = 1.25;
constexpr double kHighStandard = 12.5;
constexpr double kCoproLow = 1.53;
constexpr double kCoproHigh = 5.03;

// A copro reads close to its running average, and by a little higher.
double CoproLevel(const RunState& run, CfgLine averageLine, double usual) {
  const double average = CfgNumber(run, averageLine);
  return (average > 0 ? average : usual) + 0.012;
}

struct Wanted {
  std::string item = {};
  double level = 0;
  bool acid = false;
  double ratio = 1;
};

Wanted WantedBy(const Kelp& kelp, const SimulatedFluorometer& fluorometer) {
  const RunState& run = kelp.run;
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  const bool acid = captions::WaitsForAcid(caption) || EndsWith(caption, " Ra");
  if (acid || EndsWith(caption, " Rb") || StartsWith(caption, "Reading S")) {
    const TubeLevels tube = fluorometer.Sample(run.SampNum);
    return {"sample " + std::to_string(int{run.SampNum}), tube.Rb, acid, tube.AcidRatio};
  }
  if (!StartsWith(caption, "Read") && !StartsWith(caption, "Save")) return {};
  if (Contains(caption, "Blank")) return {"blank", kBlankLevel};
  if (Contains(caption, "Low Standard")) return {"low standard", kLowStandard};
  if (Contains(caption, "High Standard")) return {"high standard", kHighStandard};
  if (CaptionOf(run, caption).What == Item::Copro2)
    return {"second copro", CoproLevel(run, kCfgCoproHighAve, kCoproHigh)};
  return {"first copro", CoproLevel(run, kCfgCoproLowAve, kCoproLow)};
}

}  // namespace

std::string SimulatedOperator::NextLine(const Kelp& kelp) {
  See(kelp);
  return fluorometer_.NextLine();
}

void SimulatedOperator::See(const Kelp& kelp) {
  const Wanted wanted = WantedBy(kelp, fluorometer_);
  if (wanted.item == item_ && wanted.acid == acid_) return;
  // Acid can't be taken out again: who wants the Rb once more takes a new tube.
  const bool newTube = wanted.item != item_ || !wanted.acid;
  if (newTube) wanted.item.empty() ? fluorometer_.Empty() : fluorometer_.Load(wanted.level);
  if (wanted.acid) fluorometer_.AddAcid(wanted.ratio);
  item_ = wanted.item;
  acid_ = wanted.acid;
}

}  // namespace kelp
