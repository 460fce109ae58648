// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/chart_picture.hpp"

#include <algorithm>

#include "core/numbers.hpp"

namespace kelp {

namespace {

constexpr std::size_t kMostNames = 25;
constexpr std::size_t kStationTicks = 12;
constexpr double kFarAway = 1.5;

Axis StationAxis(const ControlChart& chart) {
  const std::size_t count = chart.Stations.size();
  Axis axis{"Station, in order of time", -0.5, static_cast<double>(count) - 0.5};
  const std::size_t step = (count + kStationTicks - 1) / kStationTicks;
  for (std::size_t i = 0; i < count; i += step)
    axis.Ticks.push_back({static_cast<double>(i), chart.Stations[i]});
  return axis;
}

bool Inside(const Picture& picture, double y) { return y >= picture.Y.From && y <= picture.Y.To; }

void AddRule(Picture& picture, double at, const std::string& text, Ink ink, Dash dash) {
  if (!Inside(picture, at)) return;
  picture.Lines.push_back({{{picture.X.From, at}, {picture.X.To, at}}, ink, dash});
  if (!text.empty()) picture.SideLabels.push_back({at, text, ink});
}

// Labels of lines that lie close together would cover each other: the later one gives way.
void SpreadLabels(Picture& picture) {
  const double height = (picture.Y.To - picture.Y.From) / 15;
  std::vector<SideLabel> kept;
  for (const SideLabel& label : picture.SideLabels)
    if (std::none_of(kept.begin(), kept.end(), [&](const SideLabel& other) {
          return label.Y - other.Y < height && other.Y - label.Y < height;
        }))
      kept.push_back(label);
  picture.SideLabels = kept;
}

void AddRules(Picture& picture, const ControlChart& chart) {
  const bool copro = chart.Expected != 0;
  if (chart.Upper != 0)
    AddRule(picture, chart.Upper, copro ? "tolerance" : "limit " + SavedText(chart.Upper), Ink::Alert,
            Dash::Solid);
  if (copro) AddRule(picture, chart.Lower, "tolerance", Ink::Alert, Dash::Solid);
  AddRule(picture, chart.Mean, "mean " + SavedText(chart.Mean), Ink::Third, Dash::Solid);
  if (copro) AddRule(picture, chart.Expected, "expected " + RawText(chart.Expected), Ink::Text, Dash::Dotted);
  if (!chart.Lines) return;
  for (const int times : {3, 2})
    for (const int sign : {1, -1})
      AddRule(picture, chart.Mean + sign * times * chart.Sd,
              std::string(sign > 0 ? "+" : "-") + std::to_string(times) + " s", Ink::Third,
              times == 3 ? Dash::Dashed : Dash::Dotted);
}

void AddPoints(Picture& picture, const ControlChart& chart) {
  std::size_t named = 0;
  for (const ChartPoint& point : chart.Points) {
    const bool outside = !point.Outside.empty();
    // Begin and end of a station stand side by side.
    const double x = static_cast<double>(point.Place) + (point.End ? 0.15 : -0.15);
    const bool name = outside && named++ < kMostNames;
    picture.Marks.push_back({{x, point.Value},
                             point.End ? Shape::Square : Shape::Circle,
                             outside     ? Ink::Alert
                             : point.End ? Ink::Second
                                         : Ink::First,
                             !point.End,
                             outside,
                             name ? point.ProcNum : std::string()});
  }
}

// A limit far away would press the values into a line: then it is told and not drawn.
void IncludeLimits(Picture& picture, const ControlChart& chart, double& low, double& high) {
  if (chart.Upper == 0) return;
  const double room = kFarAway * std::max(high - low, 1e-4);
  const double lower = chart.Expected != 0 ? chart.Lower : low;
  if (chart.Upper - high <= room && low - lower <= room) {
    low = std::min(low, lower);
    high = std::max(high, chart.Upper);
    return;
  }
  picture.Note +=
      (picture.Note.empty() ? "" : " ") + std::string("All within ") +
      (chart.Expected != 0 ? "the tolerance of " + RawText(chart.Lower) + " to " + RawText(chart.Upper)
                           : "the limit of " + SavedText(chart.Upper)) +
      ", which lies outside the picture.";
}

}  // namespace

Picture ChartPicture(const ControlChart& chart) {
  Picture picture{chart.Name, chart.Drift.empty() ? std::string() : "Drifts: " + chart.Drift + "."};
  picture.Width = 940;
  picture.Height = 300;
  picture.RightMargin = 130;
  double low = chart.Lines ? chart.Mean - 3 * chart.Sd : chart.Mean;
  double high = chart.Lines ? chart.Mean + 3 * chart.Sd : chart.Mean;
  for (const ChartPoint& point : chart.Points) {
    low = std::min(low, point.Value);
    high = std::max(high, point.Value);
  }
  IncludeLimits(picture, chart, low, high);
  picture.X = StationAxis(chart);
  picture.Y = NiceAxis(chart.Name + " (reading)", low, high, 5);
  AddRules(picture, chart);
  SpreadLabels(picture);
  AddPoints(picture, chart);
  picture.Legend = {{"begin", Ink::First, Shape::Circle}, {"end", Ink::Second, Shape::Square, false}};
  return picture;
}

Picture CalibrationPicture(const std::vector<CalibrationTube>& tubes, const CalibrationResult& result) {
  double most = 0;
  double highest = 0;
  for (const CalibrationTube& tube : tubes) {
    most = std::max(most, tube.Concentration);
    highest = std::max(highest, tube.Rb);
  }
  Picture picture{"Calibration", "Rb = C / (1000 F) through the origin"};
  picture.X = NiceAxis("Chlorophyll-a (\xC2\xB5g per litre of extract)", 0, most);
  picture.Y = NiceAxis("Rb less blank (reading)", 0, std::max(highest, most / (1000 * result.F)));
  picture.Lines.push_back({{{0, 0}, {most, most / (1000 * result.F)}}, Ink::Third, Dash::Solid});
  for (std::size_t i = 0; i < tubes.size(); ++i)
    picture.Marks.push_back({{tubes[i].Concentration, tubes[i].Rb},
                             Shape::Circle,
                             Ink::First,
                             true,
                             false,
                             Fixed(result.Residuals[i], 1) + " %"});
  return picture;
}

}  // namespace kelp
