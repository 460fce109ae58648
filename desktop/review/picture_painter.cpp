// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/review/picture_painter.hpp"

#include <QImage>
#include <QPageSize>
#include <QPainterPath>
#include <QPdfWriter>
#include <QSaveFile>

#include "review/svg.hpp"

namespace kelp {

namespace {

constexpr double kPdfUnitsPerPixel = 0.75;  // points of 1/72 inch, pixels of 1/96
constexpr int kPngScale = 2;

QColor ColourFor(const Palette& palette, Ink ink) {
  const std::string_view name = ColourOf(palette, ink);
  return {QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()))};
}

QColor PaperOf(const Palette& palette) {
  return {QString::fromLatin1(palette.Paper.data(), static_cast<qsizetype>(palette.Paper.size()))};
}

QPointF ToQt(Point at) { return {at.X, at.Y}; }

QPolygonF ToQt(const std::vector<Point>& points) {
  QPolygonF polygon;
  for (const Point& point : points) polygon << ToQt(point);
  return polygon;
}

struct Brush {
  QPainter& painter;
  const Palette& palette;

  void Outline(Ink ink, bool filled, bool paper) const {
    painter.setPen(QPen(ColourFor(palette, ink), 1.6));
    painter.setBrush(filled  ? QBrush(ColourFor(palette, ink))
                     : paper ? QBrush(PaperOf(palette))
                             : Qt::NoBrush);
  }
  void operator()(const DrawnLine& line) const {
    QPen pen(ColourFor(palette, line.Ink), line.Width);
    if (line.Dash == Dash::Dashed) pen.setDashPattern({5, 3});
    if (line.Dash == Dash::Dotted) pen.setDashPattern({1.5, 2});
    painter.setPen(pen);
    painter.drawPolyline(ToQt(line.Points));
  }
  void operator()(const DrawnBox& box) const {
    painter.fillRect(QRectF(ToQt(box.From), ToQt(box.To)), ColourFor(palette, box.Ink));
  }
  void operator()(const DrawnShape& shape) const {
    Outline(shape.Ink, shape.Filled, true);
    painter.drawPolygon(ToQt(shape.Points));
  }
  void operator()(const DrawnCircle& circle) const {
    Outline(circle.Ink, circle.Filled, circle.Paper);
    painter.drawEllipse(ToQt(circle.Centre), circle.Radius, circle.Radius);
  }
  void operator()(const DrawnText& text) const {
    QFont font(QStringLiteral("sans-serif"));
    font.setPixelSize(static_cast<int>(kTextSize));
    font.setBold(text.Bold);
    painter.setFont(font);
    painter.setPen(ColourFor(palette, text.Ink));
    const QString shown = QString::fromStdString(text.Text);
    const double width = QFontMetricsF(font, painter.device()).horizontalAdvance(shown);
    const double back = text.Anchor == Anchor::Start ? 0 : text.Anchor == Anchor::Middle ? width / 2 : width;
    painter.save();
    painter.translate(ToQt(text.At));
    if (text.Upright) painter.rotate(-90);
    painter.drawText(QPointF(-back, 0), shown);
    painter.restore();
  }
};

QRectF SheetOf(const Picture& picture, double scale) {
  return {0, 0, picture.Width * scale, picture.Height * scale};
}

QString WriteSvg(const Picture& picture, const QString& path) {
  QSaveFile file(path);
  const std::string svg = SvgFile(picture);
  const bool written =
      file.open(QIODevice::WriteOnly) &&
      file.write(svg.data(), static_cast<qint64>(svg.size())) == static_cast<qint64>(svg.size()) &&
      file.commit();
  return written ? QString() : file.errorString();
}

QString WritePdf(const Picture& picture, const QString& path) {
  QPdfWriter writer(path);
  writer.setTitle(QString::fromStdString(picture.Title));
  writer.setPageSize(QPageSize(SheetOf(picture, kPdfUnitsPerPixel).size(), QPageSize::Point));
  writer.setPageMargins({});
  QPainter painter;
  if (!painter.begin(&writer)) return QStringLiteral("the file can't be written");
  PaintPicture(painter, picture, QRectF(0, 0, writer.width(), writer.height()), kLightPalette);
  return painter.end() ? QString() : QStringLiteral("the file can't be written");
}

QString WritePng(const Picture& picture, const QString& path) {
  QImage image(SheetOf(picture, kPngScale).size().toSize(), QImage::Format_RGB32);
  QPainter painter(&image);
  PaintPicture(painter, picture, QRectF(image.rect()), kLightPalette);
  painter.end();
  QSaveFile file(path);
  const bool written = file.open(QIODevice::WriteOnly) && image.save(&file, "PNG") && file.commit();
  return written ? QString() : file.errorString();
}

}  // namespace

void PaintPicture(QPainter& painter, const Picture& picture, const QRectF& target, const Palette& palette) {
  const Drawing drawing = Draw(picture);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(target, PaperOf(palette));
  const double scale = std::min(target.width() / drawing.Width, target.height() / drawing.Height);
  painter.translate(target.x() + (target.width() - drawing.Width * scale) / 2,
                    target.y() + (target.height() - drawing.Height * scale) / 2);
  painter.scale(scale, scale);
  for (const Drawn& item : drawing.Items) std::visit(Brush{painter, palette}, item);
  painter.restore();
}

QString ExportPicture(const Picture& picture, const QString& path) {
  QString trouble;
  if (path.endsWith(".svg", Qt::CaseInsensitive))
    trouble = WriteSvg(picture, path);
  else if (path.endsWith(".pdf", Qt::CaseInsensitive))
    trouble = WritePdf(picture, path);
  else if (path.endsWith(".png", Qt::CaseInsensitive))
    trouble = WritePng(picture, path);
  else
    trouble = QStringLiteral("the name is to end in .svg, .pdf or .png");
  return trouble.isEmpty() ? trouble : path + ": " + trouble;
}

}  // namespace kelp
