// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/svg.hpp"

#include <charconv>
#include <cmath>

#include "review/final_files.hpp"
#include "review/palette.hpp"

namespace kelp {

namespace {

// A tenth of a pixel is more than an eye sees.
std::string Px(double value) {
  char buffer[32];
  const double rounded = std::round(value * 10) / 10;
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, std::abs(rounded) < 1e6 ? rounded : 0.0);
  return {buffer, end.ptr};
}

std::string Class(const char* kind, Ink ink) { return kind + std::to_string(static_cast<int>(ink)); }

std::string PathOf(const std::vector<Point>& points) {
  std::string path;
  for (const Point& point : points) path += (path.empty() ? "M" : "L") + Px(point.X) + " " + Px(point.Y);
  return path;
}

struct Writer {
  std::string& svg;

  void operator()(const DrawnLine& line) const {
    svg += "<path class=\"" + Class("l", line.Ink);
    if (line.Dash == Dash::Dashed) svg += " da";
    if (line.Dash == Dash::Dotted) svg += " dt";
    svg += "\" d=\"" + PathOf(line.Points) + "\"";
    if (line.Width != 1) svg += " stroke-width=\"" + Px(line.Width) + "\"";
    svg += "/>\n";
  }
  void operator()(const DrawnBox& box) const {
    svg += "<rect class=\"" + Class("f", box.Ink) + "\" x=\"" + Px(box.From.X) + "\" y=\"" + Px(box.From.Y) +
           "\" width=\"" + Px(box.To.X - box.From.X) + "\" height=\"" + Px(box.To.Y - box.From.Y) + "\"/>\n";
  }
  void operator()(const DrawnShape& shape) const {
    svg += "<path class=\"" + Class(shape.Filled ? "m" : "h", shape.Ink) + "\" d=\"" + PathOf(shape.Points) +
           "Z\"/>\n";
  }
  void operator()(const DrawnCircle& circle) const {
    const char* kind = circle.Filled ? "m" : circle.Paper ? "h" : "l";
    svg += "<circle class=\"" + Class(kind, circle.Ink) + "\" cx=\"" + Px(circle.Centre.X) + "\" cy=\"" +
           Px(circle.Centre.Y) + "\" r=\"" + Px(circle.Radius) + "\"/>\n";
  }
  void operator()(const DrawnText& text) const {
    static constexpr const char* kAnchors[] = {"", " tm", " te"};
    svg += "<text class=\"" + Class("t", text.Ink) + kAnchors[static_cast<int>(text.Anchor)] +
           (text.Bold ? " tb" : "") + "\"";
    if (text.Upright)
      svg += " transform=\"translate(" + Px(text.At.X) + " " + Px(text.At.Y) + ") rotate(-90)\">";
    else
      svg += " x=\"" + Px(text.At.X) + "\" y=\"" + Px(text.At.Y) + "\">";
    svg += XmlText(text.Text) + "</text>\n";
  }
};

std::string Variables(const Palette& palette) {
  std::string css = "--paper:" + std::string(palette.Paper) + ";";
  for (int i = 0; i < kInks; ++i)
    css += "--i" + std::to_string(i) + ":" + std::string(ColourOf(palette, static_cast<Ink>(i))) + ";";
  return css;
}

template <class Colour>
std::string Rules(const std::string& paper, const Colour& colour) {
  std::string css =
      ".kp text{font:12px sans-serif}.kp .tb{font-weight:bold}.kp .tm{text-anchor:middle}"
      ".kp .te{text-anchor:end}.kp .da{stroke-dasharray:7 4}.kp .dt{stroke-dasharray:2 3}.kp .pa{fill:" +
      paper + "}\n";
  for (int i = 0; i < kInks; ++i) {
    const std::string n = std::to_string(i);
    const std::string ink = colour(i);
    css += ".kp .l" + n + "{stroke:" + ink + ";fill:none}.kp .f" + n + ",.kp .t" + n + "{fill:" + ink +
           "}.kp .m" + n + "{fill:" + ink + ";stroke:" + ink + "}.kp .h" + n + "{fill:" + paper +
           ";stroke:" + ink + ";stroke-width:1.6}\n";
  }
  return css;
}

// Few programs for drawings know variables, and what is exported goes on paper: the light colours themselves.
std::string FileStyle() {
  return Rules(std::string(kLightPalette.Paper),
               [](int ink) { return std::string(ColourOf(kLightPalette, static_cast<Ink>(ink))); });
}

std::string Body(const Picture& picture, const std::string& style) {
  const Drawing drawing = Draw(picture);
  const std::string size = Px(drawing.Width) + "\" height=\"" + Px(drawing.Height);
  std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"kp\" role=\"img\" width=\"" + size +
                    "\" viewBox=\"0 0 " + Px(drawing.Width) + " " + Px(drawing.Height) + "\">\n<title>" +
                    XmlText(picture.Title) + "</title>\n";
  if (!style.empty()) svg += "<style>" + style + "</style>\n";
  svg += "<rect class=\"pa\" width=\"" + size + "\"/>\n";
  for (const Drawn& item : drawing.Items) std::visit(Writer{svg}, item);
  return svg + "</svg>\n";
}

}  // namespace

std::string XmlText(const std::string& text) {
  std::string xml;
  for (const char c : AsUtf8(text)) {
    switch (c) {
      case '<': xml += "&lt;"; break;
      case '>': xml += "&gt;"; break;
      case '&': xml += "&amp;"; break;
      case '"': xml += "&quot;"; break;
      default: xml += static_cast<unsigned char>(c) < 32 ? ' ' : c;
    }
  }
  return xml;
}

std::string SvgStyle() {
  return ":root{color-scheme:light dark;" + Variables(kLightPalette) +
         "}\n@media screen and (prefers-color-scheme:dark){:root{" + Variables(kDarkPalette) + "}}\n" +
         Rules("var(--paper)", [](int ink) { return "var(--i" + std::to_string(ink) + ")"; });
}

std::string SvgElement(const Picture& picture) { return Body(picture, ""); }

std::string SvgFile(const Picture& picture) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + Body(picture, FileStyle());
}

}  // namespace kelp
