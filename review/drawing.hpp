// SPDX-License-Identifier: GPL-3.0-or-later
// A picture laid out on its sheet: strokes, shapes and texts in pixels from the upper left corner, in the
// order in which they are painted. Painters know nothing of data, and no painter can differ from another.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "review/picture.hpp"

namespace kelp {

struct DrawnLine {
  std::vector<Point> Points;
  kelp::Ink Ink = Ink::Text;
  kelp::Dash Dash = Dash::Solid;
  double Width = 1;
};

struct DrawnBox {
  Point From;
  Point To;
  kelp::Ink Ink = Ink::Grid;
};

/// A closed polygon; filled with its ink, or with paper.
struct DrawnShape {
  std::vector<Point> Points;
  kelp::Ink Ink = Ink::First;
  bool Filled = true;
};

/// A circle; `Filled` false and `Paper` false leaves what is under it.
struct DrawnCircle {
  Point Centre;
  double Radius = 4;
  kelp::Ink Ink = Ink::First;
  bool Filled = true;
  bool Paper = true;
};

enum class Anchor { Start, Middle, End };

struct DrawnText {
  Point At;  ///< on the base line
  std::string Text;
  kelp::Ink Ink = Ink::Text;
  kelp::Anchor Anchor = Anchor::Start;
  bool Bold = false;
  bool Upright = false;  ///< runs from the bottom to the top
};

inline constexpr double kTextSize = 12;  ///< pixels, of all texts

using Drawn = std::variant<DrawnLine, DrawnBox, DrawnShape, DrawnCircle, DrawnText>;

struct Drawing {
  double Width = 0, Height = 0;
  std::vector<Drawn> Items = {};
};

Drawing Draw(const Picture& picture);

}  // namespace kelp
