// SPDX-License-Identifier: GPL-3.0-or-later
// What the strip chart looks like, as lines and labels in its own coordinates, so that a front end
// only has to draw them: x and y run from -0.2 to 1.2, y grows upwards, the plot is the unit square.
#pragma once

#include <string>
#include <vector>

#include "core/strip_chart.hpp"

namespace kelp {

struct ChartLine {
  double X1 = 0;
  double Y1 = 0;
  double X2 = 0;
  double Y2 = 0;
};

/// A label; its top left corner lies at X times the width of the text "0.0" and at Y plus half the
/// height of that text (y grows upwards).
struct ChartLabel {
  const char* Text = "";
  double XInWidths = 0;
  double Y = 0;
};

/// Where the scale of the bars changes: from the bar at X on, readings are divided by Divisor.
struct ChartScale {
  double X = 0;
  int Divisor = 1;
};

inline constexpr double kChartLeft = -0.2;
inline constexpr double kChartTop = 1.2;
inline constexpr double kChartWidth = 1.4;
inline constexpr double kChartHeight = -1.4;
inline constexpr int kChartBarWidth = 3;
inline constexpr int kChartFontSize = 6;

/// The axes: the box from (0,0) to (1,1) and the ticks at 0 and 1.
std::vector<ChartLine> ChartAxes();
/// "Min" centred on y = 0 and "Max" centred on y = 1.
std::vector<ChartLabel> ChartLabels();
/// The 101 bars, oldest at x = 0, newest at x = 1; values outside 0 to 1 are not clipped.
std::vector<ChartLine> ChartBars(const StripChart& chart);
/// The scales of the bars, oldest first; the first one begins where the readings begin.
std::vector<ChartScale> ChartScales(const StripChart& chart);
/// How a scale is written: "x1", "/10", "/20", "/30".
std::string ScaleText(int divisor);

}  // namespace kelp
