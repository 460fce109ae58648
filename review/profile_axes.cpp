// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/profile_axes.hpp"

#include <algorithm>

namespace kelp {

namespace {

constexpr double kBelowAnyBlank = -90;

bool IsResult(const Measured& value) { return value && *value > kBelowAnyBlank; }

}  // namespace

bool ByDepth(const std::vector<const Station*>& stations) {
  return std::all_of(stations.begin(), stations.end(), [](const Station* s) { return s->DepthsKnown; });
}

Measured HeightOf(const Station& station, std::size_t index, bool byDepth) {
  return byDepth ? station.Samples[index].Depth : Measured(static_cast<double>(index) + 1);
}

Axis DepthAxis(const std::vector<const Station*>& stations, bool byDepth) {
  double deepest = 1;
  for (const Station* station : stations)
    for (std::size_t i = 0; i < station->Samples.size(); ++i)
      deepest = std::max(deepest, HeightOf(*station, i, byDepth).value_or(0));
  Axis axis =
      NiceAxis(byDepth ? "Depth (m)" : "Sample, in order of reading (depths are missing)", 0, deepest);
  std::swap(axis.From, axis.To);
  return axis;
}

Look LookOf(std::size_t place) {
  static constexpr Ink kSeries[] = {Ink::First, Ink::Second, Ink::Third, Ink::Fourth};
  static constexpr Shape kShapes[] = {Shape::Circle, Shape::Square, Shape::Triangle, Shape::Diamond};
  // The ninth station would look like the first: pictures hold eight.
  return {kSeries[place % 4], kShapes[(place + place / 4) % 4]};
}

std::string StationsTitle(const std::string& what, const std::vector<const Station*>& stations) {
  if (stations.size() == 1)
    return what + ", station " + stations[0]->ProcNum + " (" + stations[0]->Name + ")";
  std::string title = what + ", stations ";
  for (std::size_t i = 0; i < stations.size(); ++i) title += (i == 0 ? "" : ", ") + stations[i]->ProcNum;
  return title;
}

void AddSeries(Picture& picture, const Station& station, Measured Sample::*value, bool byDepth, Look look,
               bool filled, bool flags) {
  std::vector<Point> points;
  for (std::size_t i = 0; i < station.Samples.size(); ++i) {
    const Sample& sample = station.Samples[i];
    const Measured height = HeightOf(station, i, byDepth);
    if (!height || !IsResult(sample.*value)) continue;
    points.push_back({*(sample.*value), *height});
    const bool flagged = flags && !sample.Flag.empty();
    picture.Marks.push_back(
        {points.back(), look.Shape, look.Ink, filled, flagged, flagged ? sample.Flag : std::string()});
  }
  std::stable_sort(points.begin(), points.end(), [](const Point& a, const Point& b) { return a.Y < b.Y; });
  if (points.size() > 1) picture.Lines.push_back({points, look.Ink, filled ? Dash::Solid : Dash::Dashed});
}

void AddSkipped(Picture& picture, const Station& station, bool byDepth, double left) {
  for (std::size_t i = 0; i < station.Samples.size(); ++i) {
    const Sample& sample = station.Samples[i];
    const Measured height = HeightOf(station, i, byDepth);
    const bool noResult = sample.Skipped || (sample.Rb && sample.Ra && !IsResult(sample.Chla));
    if (height && noResult)
      picture.Marks.push_back({{left, *height}, Shape::Cross, Ink::Alert, true, false, "-99"});
  }
}

}  // namespace kelp
