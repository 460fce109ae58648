// SPDX-License-Identifier: GPL-3.0-or-later
// A picture as a value: axes, series, marks, bands and labels in the units of the data. What it looks like
// on paper, on the screen or in an SVG file is the painters' business; they all draw the same Drawing.
#pragma once

#include <string>
#include <vector>

namespace kelp {

enum class Shape { Circle, Square, Triangle, Diamond, Cross };
enum class Dash { Solid, Dashed, Dotted };

/// What a colour stands for; a painter's palette says which one it is, in light, dark or grey.
enum class Ink { Text, Faint, Grid, First, Second, Third, Fourth, Alert, Band1, Band2, Band3, Band4 };
inline constexpr int kInks = 12;

struct AxisTick {
  double At = 0;
  std::string Text;
};

/// `From` stands at the left or the bottom; with `From` above `To` the axis runs backwards, as depth does.
struct Axis {
  std::string Title;  ///< with the unit
  double From = 0;
  double To = 1;
  std::vector<AxisTick> Ticks = {};
};

struct Point {
  double X = 0;
  double Y = 0;
};

struct Line {
  std::vector<Point> Points;
  kelp::Ink Ink = Ink::First;
  kelp::Dash Dash = Dash::Solid;
};

struct Mark {
  Point At;
  kelp::Shape Shape = Shape::Circle;
  kelp::Ink Ink = Ink::First;
  bool Filled = true;
  bool Ringed = false;     ///< a ring around it: look here
  std::string Label = {};  ///< beside it
};

/// A shaded region from one corner to the other.
struct Band {
  Point From;
  Point To;
  kelp::Ink Ink = Ink::Band1;
};

/// A text in the right margin, at the height of `Y`.
struct SideLabel {
  double Y = 0;
  std::string Text;
  kelp::Ink Ink = Ink::Faint;
};

struct LegendEntry {
  std::string Text;
  kelp::Ink Ink = Ink::First;
  kelp::Shape Shape = Shape::Circle;
  bool Filled = true;
  bool Box = false;  ///< a patch of a band's ink instead of a mark
};

struct Picture {
  std::string Title;
  std::string Note = {};  ///< a line under the title
  Axis X, Y;
  bool XAtTop = false;
  double Width = 460, Height = 400;  ///< pixels at 96 to the inch
  double RightMargin = 16;
  std::vector<Band> Bands = {};
  std::vector<Line> Lines = {};
  std::vector<Mark> Marks = {};
  std::vector<SideLabel> SideLabels = {};
  std::vector<LegendEntry> Legend = {};
};

/// An axis over `low` to `high` whose ticks stand at 1, 2 or 5 times a power of ten, written with as many
/// decimals as they need and never with an exponent. Equal or no limits give an axis around them.
Axis NiceAxis(const std::string& title, double low, double high, int ticks = 6);

}  // namespace kelp
