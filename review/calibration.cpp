// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/calibration.hpp"

#include <charconv>
#include <cmath>

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/error.hpp"
#include "review/statistics.hpp"

namespace kelp {

namespace {

constexpr double kMillilitres = 1000;

[[noreturn]] void Refuse(const std::string& why) { throw RunTimeError(ErrorKind::InvalidCall, why); }

double WeightOf(const CalibrationTube& tube, Weights weights) {
  return weights == Weights::Equal ? 1 : 1 / (tube.Concentration * tube.Concentration);
}

void CheckTubes(const std::vector<CalibrationTube>& tubes) {
  bool differ = false;
  for (const CalibrationTube& tube : tubes) {
    if (!(tube.Concentration > 0) || !std::isfinite(tube.Concentration))
      Refuse(tube.Name + ": its concentration is to be above 0");
    if (!(tube.Rb > 0)) Refuse(tube.Name + ": Rb less blank is not above 0; read it again or leave it out");
    differ = differ || tube.Concentration != tubes[0].Concentration;
  }
  if (!differ)
    Refuse("a calibration needs at least two tubes of different concentration; " +
           std::to_string(tubes.size()) + " with a concentration are there");
}

// The slope of Rb' over C with its SD, r2 and residuals.
void FitLine(const std::vector<CalibrationTube>& tubes, Weights weights, CalibrationResult& result) {
  double cc = 0;
  double cr = 0;
  double sum = 0;
  double mean = 0;
  for (const CalibrationTube& tube : tubes) {
    const double weight = WeightOf(tube, weights);
    cc += weight * tube.Concentration * tube.Concentration;
    cr += weight * tube.Concentration * tube.Rb;
    sum += weight;
    mean += weight * tube.Rb;
  }
  mean /= sum;
  const double slope = cr / cc;
  double left = 0;
  double total = 0;
  for (const CalibrationTube& tube : tubes) {
    const double weight = WeightOf(tube, weights);
    const double line = slope * tube.Concentration;
    left += weight * (tube.Rb - line) * (tube.Rb - line);
    total += weight * (tube.Rb - mean) * (tube.Rb - mean);
    result.Residuals.push_back(100 * (tube.Rb - line) / line);
  }
  const double slopeSd = std::sqrt(left / static_cast<double>(tubes.size() - 1) / cc);
  result.F = 1 / slope / kMillilitres;
  result.FSd = result.F * slopeSd / slope;
  result.R2 = total > 0 ? 1 - left / total : 0;
}

void MeanRatio(const std::vector<CalibrationTube>& tubes, CalibrationResult& result) {
  std::vector<double> ratios;
  for (const CalibrationTube& tube : tubes) {
    if (!tube.Ra) continue;
    if (!(*tube.Ra > 0)) Refuse(tube.Name + ": Ra less blank is not above 0; read it again or leave it out");
    ratios.push_back(tube.Rb / *tube.Ra);
  }
  const Spread spread = SpreadOf(ratios);
  result.Acidified = spread.Count;
  if (spread.Count > 0) result.Tau = spread.Mean;
  if (spread.Count > 1) result.TauSd = spread.Sd;
}

std::string Change(double now, double before) {
  if (before == 0) return "nothing configured to compare with";
  const double percent = 100 * (now - before) / before;
  return (percent < 0 ? "" : "+") + Fixed(percent, 2) + " % against the configuration";
}

// The whole text is to be a number: "12,5" or "5 ug" would otherwise calibrate as 12 or 5.
double Concentration(const std::string& name, const std::string& text) {
  const std::string_view trimmed = Trim(text);
  double value = 0;
  const auto end = std::from_chars(trimmed.data(), trimmed.data() + trimmed.size(), value);
  if (end.ec != std::errc() || end.ptr != trimmed.data() + trimmed.size())
    Refuse(name + ": the concentration \"" + std::string(trimmed) +
           "\" is no number; type ug per litre of extract, such as 12.5");
  return value;
}

}  // namespace

CalibrationResult Calibrate(const std::vector<CalibrationTube>& tubes, Weights weights) {
  CheckTubes(tubes);
  CalibrationResult result;
  FitLine(tubes, weights, result);
  MeanRatio(tubes, result);
  return result;
}

std::vector<CalibrationTube> CalibrationTubes(const Station& station, const std::vector<std::string>& texts) {
  const double blank = station.Blank.Begin.value_or(0);
  std::vector<CalibrationTube> tubes;
  for (std::size_t i = 0; i < station.Samples.size() && i < texts.size(); ++i) {
    if (Trim(texts[i]).empty()) continue;
    const Sample& sample = station.Samples[i];
    const std::string name = SampleName(station, i);
    const double concentration = Concentration(name, texts[i]);
    if (!sample.Rb) Refuse(name + ": it has a concentration but no Rb; read it or leave it out");
    tubes.push_back({name, concentration, *sample.Rb - blank, {}});
    if (sample.Ra) tubes.back().Ra = *sample.Ra - blank;
  }
  return tubes;
}

bool IsLabStation(const std::string& name) {
  return Contains(Upper(name), "LAB") || Contains(Upper(name), "CAL");
}

std::vector<std::string> CalibrationText(const CalibrationResult& result, const Limits& configured) {
  std::vector<std::string> lines = {
      "F = " + Fixed(result.F, 6) + " ug/mL per reading (SD " + Fixed(result.FSd, 6) + "), " +
          Change(result.F, configured.F),
      "r2 = " + Fixed(result.R2, 6) + " over " + std::to_string(result.Residuals.size()) + " tubes"};
  if (!result.Tau)
    lines.emplace_back("tau: no tube has an Ra");
  else
    lines.push_back("tau = " + Fixed(*result.Tau, 4) +
                    (result.TauSd ? " (SD " + Fixed(*result.TauSd, 4) + ", " : " (") +
                    std::to_string(result.Acidified) + " tubes), " + Change(*result.Tau, configured.Tau));
  return lines;
}

}  // namespace kelp
