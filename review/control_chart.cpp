// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/control_chart.hpp"

#include <cmath>

#include "core/numbers.hpp"
#include "review/statistics.hpp"

namespace kelp {

namespace {

constexpr std::size_t kFewestForLines = 5;
constexpr std::size_t kFewestForDrift = 10;
constexpr double kSureDrift = 6;
constexpr double kDriftShare = 0.03;
constexpr double kBlankDriftShare = 0.2;
// 1.83 and 1.53 lie 0.3 apart and not a little more.
constexpr double kRounding = 1e-6;

std::vector<double> Values(const ControlChart& chart) {
  std::vector<double> values;
  for (const ChartPoint& point : chart.Points) values.push_back(point.Value);
  return values;
}

ControlChart ChartOf(const std::string& name, const std::vector<Station>& stations,
                     MeasuredPair Station::*pair) {
  ControlChart chart{name};
  for (std::size_t i = 0; i < stations.size(); ++i) {
    const Station& station = stations[i];
    chart.Stations.push_back(station.ProcNum);
    const MeasuredPair& values = station.*pair;
    if (values.Begin) chart.Points.push_back({station.ProcNum, false, i, *values.Begin});
    if (values.End) chart.Points.push_back({station.ProcNum, true, i, *values.End});
  }
  const Spread spread = SpreadOf(Values(chart));
  chart.Mean = spread.Mean;
  chart.Sd = spread.Sd;
  chart.Lines = spread.Count >= kFewestForLines && spread.Sd > 0;
  return chart;
}

std::string WhyOutside(const ControlChart& chart, double value) {
  const bool held = chart.Upper != 0 || chart.Lower != 0;
  const std::string text = SavedText(value);
  if (held && chart.Expected == 0 && value > chart.Upper)
    return text + " is above the limit of " + SavedText(chart.Upper);
  if (held && chart.Expected != 0 && (value > chart.Upper + kRounding || value < chart.Lower - kRounding))
    return text + " differs from " + SavedText(chart.Expected) + " by more than " +
           Fixed(chart.Upper - chart.Expected, 1);
  if (chart.Lines && std::abs(value - chart.Mean) > 3 * chart.Sd)
    return text + " lies more than 3 s from the mean " + SavedText(chart.Mean) + " (s " + SdText(chart.Sd) +
           ")";
  return "";
}

std::string DriftOf(const ControlChart& chart, double least) {
  const std::vector<double> values = Values(chart);
  if (values.size() < kFewestForDrift) return "";
  const Trend trend = TrendOf(values);
  if (std::abs(trend.T) < kSureDrift || std::abs(trend.Total) < least) return "";
  return std::string(trend.Total > 0 ? "rises" : "falls") + " by " + SavedText(std::abs(trend.Total)) +
         " over the stations, mean " + SavedText(chart.Mean);
}

void Judge(ControlChart& chart, double leastDrift) {
  for (ChartPoint& point : chart.Points) point.Outside = WhyOutside(chart, point.Value);
  chart.Drift = DriftOf(chart, leastDrift);
}

ControlChart BlankChart(const std::vector<Station>& stations, double limit) {
  ControlChart chart = ChartOf("Blank", stations, &Station::Blank);
  chart.Upper = limit;
  Judge(chart, kBlankDriftShare * (limit > 0 ? limit : chart.Mean));
  return chart;
}

ControlChart CoproChart(const std::vector<Station>& stations, const CoproLimits& limits,
                        MeasuredPair Station::*pair) {
  ControlChart chart = ChartOf("Copro " + limits.Name, stations, pair);
  if (limits.Average != 0) {
    chart.Expected = limits.Average;
    chart.Upper = limits.Average + limits.Tolerance;
    chart.Lower = limits.Average - limits.Tolerance;
  }
  Judge(chart, kDriftShare * std::abs(chart.Mean));
  return chart;
}

ControlChart StandardChart(const std::string& name, const std::vector<Station>& stations,
                           MeasuredPair Station::*pair) {
  ControlChart chart = ChartOf(name, stations, pair);
  Judge(chart, kDriftShare * std::abs(chart.Mean));
  return chart;
}

}  // namespace

std::vector<ControlChart> ControlCharts(const std::vector<Station>& stations, const Limits& limits) {
  std::vector<ControlChart> charts = {BlankChart(stations, limits.Blank),
                                      CoproChart(stations, limits.Copro1, &Station::Copro1),
                                      CoproChart(stations, limits.Copro2, &Station::Copro2),
                                      StandardChart("Low standard", stations, &Station::LowStandard),
                                      StandardChart("High standard", stations, &Station::HighStandard)};
  std::erase_if(charts, [](const ControlChart& chart) { return chart.Points.empty(); });
  return charts;
}

}  // namespace kelp
