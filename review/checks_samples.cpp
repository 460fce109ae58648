// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/checks_samples.hpp"

#include <algorithm>
#include <map>

#include "core/numbers.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

constexpr double kJumpFactor = 3;
constexpr double kSmallestJump = 0.1;

std::string Listed(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i)
    text += (i == 0 ? "" : i + 1 == names.size() ? " and " : ", ") + names[i];
  return text;
}

void CheckTwice(const Station& station, const std::string& what, std::string Sample::*number,
                std::vector<Finding>& findings) {
  std::map<std::string, std::vector<std::string>> places;
  for (std::size_t i = 0; i < station.Samples.size(); ++i) {
    const std::string& text = station.Samples[i].*number;
    if (!Trim(text).empty()) places[text].push_back(std::to_string(i + 1));
  }
  for (const auto& [text, samples] : places)
    if (samples.size() > 1)
      findings.push_back({station.ProcNum, what + " " + text,
                          what + " " + text + " stands at samples " + Listed(samples) + "."});
}

bool GoesBack(const Station& station, std::size_t i) {
  const double before = Val(station.Samples[i - 1].Tube);
  const double tube = Val(station.Samples[i].Tube);
  return before > 0 && tube > 0 && tube < before && tube != 1;
}

}  // namespace

void CheckNumbers(const Station& station, std::vector<Finding>& findings) {
  CheckTwice(station, "bottle", &Sample::Bottle, findings);
  CheckTwice(station, "vial", &Sample::Tube, findings);
  for (std::size_t i = 1; i < station.Samples.size(); ++i)
    if (GoesBack(station, i))
      findings.push_back({station.ProcNum, SampleName(station, i - 1) + " and " + SampleName(station, i),
                          "Vials out of order: vial " + station.Samples[i - 1].Tube + " stands before vial " +
                              station.Samples[i].Tube + ". Were they swapped?"});
}

void CheckReadings(const Station& station, std::vector<Finding>& findings) {
  if (!station.DepthsKnown && !station.Samples.empty())
    findings.push_back(
        {station.ProcNum, "depths",
         "Depth missing: no sample has another than 3, with which a base file is created. Type "
         "the depths in the grid's column Dpt, or no profile and no flag is right."});
  for (std::size_t i = 0; i < station.Samples.size(); ++i) {
    const Sample& sample = station.Samples[i];
    const auto add = [&](const std::string& text) {
      findings.push_back({station.ProcNum, SampleName(station, i), text});
    };
    if (station.DepthsKnown && !sample.Depth) add("Depth missing.");
    if (sample.ResultOfSkipped)
      add("Was skipped (-99) but has a chl-a, which is none. Calculate the station again.");
    if (sample.Rb && sample.Ra && *sample.Ra > *sample.Rb)
      add("Ra " + SavedText(*sample.Ra) + " is above Rb " + SavedText(*sample.Rb) + ".");
    if (sample.Phaeo && Fixed(*sample.Phaeo, 3).starts_with('-'))
      add("Phaeo is negative: " + ResultText(*sample.Phaeo) + " (acid ratio " +
          (sample.AcidR ? RatioText(*sample.AcidR) : "-") + ").");
  }
}

std::vector<std::size_t> InOrderOfDepth(const Station& station) {
  std::vector<std::size_t> order;
  for (std::size_t i = 0; i < station.Samples.size(); ++i)
    if (station.Samples[i].Depth && station.Samples[i].Chla && *station.Samples[i].Chla >= 0)
      order.push_back(i);
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return *station.Samples[a].Depth < *station.Samples[b].Depth;
  });
  return order;
}

void CheckJumps(const Station& station, std::vector<Finding>& findings) {
  if (!station.DepthsKnown) return;
  const std::vector<std::size_t> order = InOrderOfDepth(station);
  for (std::size_t i = 1; i + 1 < order.size(); ++i) {
    const double chla = *station.Samples[order[i]].Chla;
    const auto [low, high] =
        std::minmax(*station.Samples[order[i - 1]].Chla, *station.Samples[order[i + 1]].Chla);
    const bool above = chla > kJumpFactor * high && chla - high > kSmallestJump;
    const bool below = chla < low / kJumpFactor && low - chla > kSmallestJump;
    if (above || below)
      findings.push_back({station.ProcNum, SampleName(station, order[i]),
                          "Chl-a " + ResultText(chla) + " at " + Fixed(*station.Samples[order[i]].Depth, 0) +
                              " m does not fit its neighbours (" +
                              ResultText(*station.Samples[order[i - 1]].Chla) + " above, " +
                              ResultText(*station.Samples[order[i + 1]].Chla) + " below)."});
  }
}

}  // namespace kelp
