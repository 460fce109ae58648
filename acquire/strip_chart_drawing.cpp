// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquire/strip_chart_drawing.hpp"

namespace kelp {

std::vector<ChartLine> ChartAxes() {
  return {{0, 0, 1, 0}, {1, 0, 1, 1}, {1, 1, 0, 1}, {0, 1, 0, 0}, {0, 0, -0.02, 0}, {0, 1, -0.02, 1}};
}

std::vector<ChartLabel> ChartLabels() { return {{"Min", -2, 0}, {"Max", -2, 1}}; }

std::vector<ChartLine> ChartBars(const StripChart& chart) {
  std::vector<ChartLine> bars;
  bars.reserve(StripChart::kSlots);
  for (int i = 0; i < StripChart::kSlots; ++i) {
    const double x = i * 0.01;
    bars.push_back({x, 0, x, chart.Value(i)});
  }
  return bars;
}

std::vector<ChartScale> ChartScales(const StripChart& chart) {
  std::vector<ChartScale> scales;
  for (int i = 0; i < StripChart::kSlots; ++i) {
    const int divisor = chart.Divisor(i);
    if (divisor != 0 && (scales.empty() || scales.back().Divisor != divisor))
      scales.push_back({i * 0.01, divisor});
  }
  return scales;
}

std::string ScaleText(int divisor) { return divisor == 1 ? "x1" : "/" + std::to_string(divisor); }

}  // namespace kelp
