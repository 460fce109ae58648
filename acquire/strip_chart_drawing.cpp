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

}  // namespace kelp
