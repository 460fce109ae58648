// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/profile_picture.hpp"

#include <algorithm>
#include <cmath>

#include "calc/pigments.hpp"
#include "review/profile_axes.hpp"

namespace kelp {

namespace {

constexpr double kBelowAnyBlank = -90;

struct Range {
  double Low, High;
  void Take(const Measured& value) {
    if (!value || *value < kBelowAnyBlank) return;
    Low = std::min(Low, *value);
    High = std::max(High, *value);
  }
};

std::vector<const Station*> Shown(const std::vector<const Station*>& stations) {
  return {stations.begin(),
          stations.begin() + static_cast<std::ptrdiff_t>(std::min(stations.size(), kMostStations))};
}

std::string NoteOf(std::size_t given, std::size_t shown) {
  return given > shown ? std::to_string(given - shown) + " more are chosen and not shown." : "";
}

Ink BandInk(std::string_view flag) {
  static constexpr Ink kBands[] = {Ink::Band1, Ink::Band2, Ink::Band3, Ink::Band4};
  return kBands[flag.size() - 1];
}

// The bands as the calculation flags them, found by asking it: one hundredth is as fine as a ratio is shown.
void AddFlagBands(Picture& picture, int from, int to) {
  const int low = static_cast<int>(std::lround(picture.X.From * 100));
  const int high = static_cast<int>(std::lround(picture.X.To * 100));
  const auto flagAt = [&](int ratio) { return QcFlag(to, (ratio + 0.5) / 100); };
  for (int start = low; start < high;) {
    int end = start + 1;
    while (end < high && flagAt(end) == flagAt(start)) ++end;
    if (const auto flag = flagAt(start); !flag.empty())
      picture.Bands.push_back({{start / 100.0, static_cast<double>(from)},
                               {end / 100.0, static_cast<double>(to)},
                               BandInk(flag)});
    start = end;
  }
}

// A ratio far away stands at the edge instead of pressing the bands into a line.
void KeepInside(Picture& picture) {
  const auto keep = [&](Point& point) { point.X = std::clamp(point.X, picture.X.From, picture.X.To); };
  for (Mark& mark : picture.Marks) keep(mark.At);
  for (Line& line : picture.Lines)
    for (Point& point : line.Points) keep(point);
}

}  // namespace

Picture ProfilePicture(const std::vector<const Station*>& all) {
  const std::vector<const Station*> stations = Shown(all);
  const bool byDepth = ByDepth(stations);
  Range range{0, 0};
  for (const Station* station : stations)
    for (const Sample& sample : station->Samples) {
      range.Take(sample.Chla);
      range.Take(sample.Phaeo);
    }
  Picture picture{StationsTitle("Profile", stations), NoteOf(all.size(), stations.size())};
  picture.X = NiceAxis("Chlorophyll-a, phaeopigment (\xC2\xB5g/L)", range.Low, std::max(range.High, 0.1));
  picture.Y = DepthAxis(stations, byDepth);
  picture.XAtTop = true;
  const bool single = stations.size() == 1;
  for (std::size_t i = 0; i < stations.size(); ++i) {
    const Look look = LookOf(i);
    const Look phaeo = single ? Look{Ink::Second, Shape::Triangle} : look;
    AddSeries(picture, *stations[i], &Sample::Phaeo, byDepth, phaeo, false, false);
    AddSeries(picture, *stations[i], &Sample::Chla, byDepth, look, true, true);
    AddSkipped(picture, *stations[i], byDepth, picture.X.From);
    if (single)
      picture.Legend = {{"chl-a", look.Ink, look.Shape}, {"phaeo", phaeo.Ink, phaeo.Shape, false}};
    else
      picture.Legend.push_back({stations[i]->ProcNum, look.Ink, look.Shape});
  }
  if (!single) picture.Legend.push_back({"hollow: phaeo", Ink::Faint, Shape::Circle, false});
  return picture;
}

Picture RatioPicture(const std::vector<const Station*>& all) {
  const std::vector<const Station*> stations = Shown(all);
  const bool byDepth = ByDepth(stations);
  Range range{0.6, 2.4};
  for (const Station* station : stations)
    for (const Sample& sample : station->Samples) range.Take(sample.AcidR);
  Picture picture{StationsTitle("Acid ratio", stations), NoteOf(all.size(), stations.size())};
  picture.X = NiceAxis("Acid ratio Rb/Ra", std::max(range.Low, 0.0), std::min(range.High, 5.0));
  picture.Y = DepthAxis(stations, byDepth);
  picture.XAtTop = true;
  if (byDepth) {
    static constexpr int kDepths[] = {0, 40, 80, 120};
    const int deepest = static_cast<int>(std::min(picture.Y.From, 12000.0));
    for (int i = 0; i < 4; ++i)
      if (deepest > kDepths[i])
        AddFlagBands(picture, kDepths[i], i < 3 ? std::min(kDepths[i + 1], deepest) : deepest);
    for (const char* flag : {"*", "**", "***", "****"})
      picture.Legend.push_back({flag, BandInk(flag), Shape::Square, true, true});
  }
  for (std::size_t i = 0; i < stations.size(); ++i) {
    AddSeries(picture, *stations[i], &Sample::AcidR, byDepth, LookOf(i), true, true);
    AddSkipped(picture, *stations[i], byDepth, picture.X.From);
    if (stations.size() > 1) picture.Legend.push_back({stations[i]->ProcNum, LookOf(i).Ink, LookOf(i).Shape});
  }
  KeepInside(picture);
  return picture;
}

}  // namespace kelp
