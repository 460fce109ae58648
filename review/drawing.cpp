// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/drawing.hpp"

#include <algorithm>

namespace kelp {

namespace {

constexpr double kLeft = 62;
constexpr double kAxisRoom = 46;
constexpr double kRow = 18;
constexpr double kPad = 12;
constexpr double kMarkSize = 4;
// A sheet has no font to measure with: an average letter is this much of the text's size wide.
constexpr double kLetter = 0.56;

double TextWidth(const std::string& text) { return static_cast<double>(text.size()) * kTextSize * kLetter; }

class Sheet {
 public:
  explicit Sheet(const Picture& picture) : picture_(picture) {
    drawing_.Width = picture.Width;
    drawing_.Height = picture.Height;
    DrawHead();
    left_ = kLeft;
    right_ = picture.Width - picture.RightMargin;
    if (picture.XAtTop) top_ += kAxisRoom - 6;
    bottom_ = picture.Height - (picture.XAtTop ? kPad : kAxisRoom);
    DrawPlot();
  }
  Drawing Take() { return std::move(drawing_); }

 private:
  template <class Item>
  void Add(Item item) {
    drawing_.Items.emplace_back(std::move(item));
  }
  [[nodiscard]] double PlaceX(double value) const {
    return left_ + (value - picture_.X.From) / (picture_.X.To - picture_.X.From) * (right_ - left_);
  }
  [[nodiscard]] double PlaceY(double value) const {
    return bottom_ - (value - picture_.Y.From) / (picture_.Y.To - picture_.Y.From) * (bottom_ - top_);
  }
  [[nodiscard]] Point Place(Point at) const { return {PlaceX(at.X), PlaceY(at.Y)}; }

  void DrawHead() {
    double y = 20;
    Add(DrawnText{{kPad, y}, picture_.Title, Ink::Text, Anchor::Start, true});
    if (!picture_.Note.empty()) Add(DrawnText{{kPad, y += kRow}, picture_.Note, Ink::Faint});
    double x = kPad;
    if (!picture_.Legend.empty()) y += kRow;
    for (const LegendEntry& entry : picture_.Legend) {
      const double width = TextWidth(entry.Text) + 30;
      if (x > kPad && x + width > picture_.Width - kPad) {
        x = kPad;
        y += kRow;
      }
      DrawLegendEntry(entry, {x + 6, y - 4});
      x += width;
    }
    top_ = y + kPad;
  }

  void DrawLegendEntry(const LegendEntry& entry, Point at) {
    if (entry.Box)
      Add(DrawnBox{{at.X - 6, at.Y - 6}, {at.X + 6, at.Y + 6}, entry.Ink});
    else
      DrawShape({at, entry.Shape, entry.Ink, entry.Filled}, at);
    Add(DrawnText{{at.X + 12, at.Y + 4}, entry.Text, Ink::Faint});
  }

  void DrawPlot() {
    for (const Band& band : picture_.Bands) {
      const Point a = Place(band.From);
      const Point b = Place(band.To);
      Add(DrawnBox{
          {std::min(a.X, b.X), std::min(a.Y, b.Y)}, {std::max(a.X, b.X), std::max(a.Y, b.Y)}, band.Ink});
    }
    DrawAxisX();
    DrawAxisY();
    for (const Line& line : picture_.Lines) {
      DrawnLine drawn{{}, line.Ink, line.Dash, 1.5};
      for (const Point& point : line.Points) drawn.Points.push_back(Place(point));
      Add(std::move(drawn));
    }
    for (const Mark& mark : picture_.Marks) DrawMark(mark);
    for (const SideLabel& label : picture_.SideLabels)
      Add(DrawnText{{right_ + 6, PlaceY(label.Y) + 4}, label.Text, label.Ink});
  }

  void DrawAxisX() {
    const double y = picture_.XAtTop ? top_ : bottom_;
    for (const AxisTick& tick : picture_.X.Ticks) {
      const double x = PlaceX(tick.At);
      Add(DrawnLine{{{x, top_}, {x, bottom_}}, Ink::Grid});
      Add(DrawnText{{x, picture_.XAtTop ? y - 6 : y + 16}, tick.Text, Ink::Faint, Anchor::Middle});
    }
    Add(DrawnLine{{{left_, y}, {right_, y}}, Ink::Text});
    Add(DrawnText{{(left_ + right_) / 2, picture_.XAtTop ? y - 23 : y + 34},
                  picture_.X.Title,
                  Ink::Text,
                  Anchor::Middle});
  }

  void DrawAxisY() {
    for (const AxisTick& tick : picture_.Y.Ticks) {
      const double y = PlaceY(tick.At);
      Add(DrawnLine{{{left_, y}, {right_, y}}, Ink::Grid});
      Add(DrawnText{{left_ - 6, y + 4}, tick.Text, Ink::Faint, Anchor::End});
    }
    Add(DrawnLine{{{left_, top_}, {left_, bottom_}}, Ink::Text});
    Add(DrawnText{{14, (top_ + bottom_) / 2}, picture_.Y.Title, Ink::Text, Anchor::Middle, false, true});
  }

  void DrawMark(const Mark& mark) {
    const Point at = Place(mark.At);
    if (mark.Ringed) Add(DrawnCircle{at, kMarkSize * 2, Ink::Alert, false, false});
    DrawShape(mark, at);
    if (mark.Label.empty()) return;
    // Beside the mark, on the side where there is room.
    const bool before = at.X + 10 + TextWidth(mark.Label) > picture_.Width - 4;
    Add(DrawnText{{before ? at.X - 11 : at.X + 11, at.Y + 4},
                  mark.Label,
                  mark.Ringed ? Ink::Alert : Ink::Text,
                  before ? Anchor::End : Anchor::Start});
  }

  void DrawShape(const Mark& mark, Point at) {
    const double r = kMarkSize;
    const auto polygon = [&](std::vector<Point> corners) {
      for (Point& corner : corners) corner = {at.X + corner.X, at.Y + corner.Y};
      Add(DrawnShape{std::move(corners), mark.Ink, mark.Filled});
    };
    switch (mark.Shape) {
      case Shape::Circle: Add(DrawnCircle{at, r, mark.Ink, mark.Filled}); break;
      case Shape::Square: polygon({{-r, -r}, {r, -r}, {r, r}, {-r, r}}); break;
      case Shape::Triangle: polygon({{0, -r * 1.2}, {r * 1.2, r}, {-r * 1.2, r}}); break;
      case Shape::Diamond: polygon({{0, -r * 1.4}, {r * 1.4, 0}, {0, r * 1.4}, {-r * 1.4, 0}}); break;
      case Shape::Cross:
        Add(DrawnLine{{{at.X - r, at.Y - r}, {at.X + r, at.Y + r}}, mark.Ink, Dash::Solid, 2});
        Add(DrawnLine{{{at.X - r, at.Y + r}, {at.X + r, at.Y - r}}, mark.Ink, Dash::Solid, 2});
        break;
    }
  }

  const Picture& picture_;
  Drawing drawing_;
  double left_ = 0, right_ = 0, top_ = 0, bottom_ = 0;
};

}  // namespace

Drawing Draw(const Picture& picture) { return Sheet(picture).Take(); }

}  // namespace kelp
