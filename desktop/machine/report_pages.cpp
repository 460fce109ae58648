// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/report_pages.hpp"

#include <QBuffer>
#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>

namespace kelp {

namespace {

constexpr qsizetype kLineWidth = 80;
constexpr qsizetype kWidestLine = 132;
constexpr double kLargestFont = 11;  // points

QStringList Wrapped(const QStringList& lines, qsizetype columns) {
  QStringList wrapped;
  for (const QString& line : lines) {
    wrapped << line.left(columns);
    for (qsizetype at = columns; at < line.size(); at += columns) wrapped << line.mid(at, columns);
  }
  return wrapped;
}

// Each word is put at its own column, so that the columns stand even where the machine has no font
// of fixed width and another one stands in for it.
class LinePainter {
 public:
  LinePainter(QPainter& painter, QPagedPaintDevice& device, qsizetype columns)
      : painter_(painter), page_(0, 0, device.width(), device.height()) {
    QFont font(QStringLiteral("monospace"));
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    font.setPointSizeF(kLargestFont);
    const double width = QFontMetricsF(font, &device).horizontalAdvance('0') * static_cast<double>(columns);
    if (width > page_.width()) font.setPointSizeF(kLargestFont * page_.width() / width);
    painter_.setFont(font);
    const QFontMetricsF metrics(font, &device);
    cell_ = std::min(metrics.horizontalAdvance('0'), page_.width() / static_cast<double>(columns));
    height_ = metrics.lineSpacing();
    ascent_ = metrics.ascent();
  }

  // The last line of a page is kept for the page's number.
  [[nodiscard]] int LinesOnPage() const {
    return std::max(1, static_cast<int>(page_.height() / height_) - 2);
  }

  void DrawLine(int row, const QString& line) {
    const double y = row * height_ + ascent_;
    for (qsizetype at = 0; at < line.size();) {
      if (line[at] == ' ') {
        ++at;
        continue;
      }
      qsizetype end = line.indexOf(' ', at);
      if (end < 0) end = line.size();
      painter_.drawText(QPointF(static_cast<double>(at) * cell_, y), line.mid(at, end - at));
      at = end;
    }
  }

  void DrawPageNumber(const QString& text) {
    painter_.drawText(page_, Qt::AlignBottom | Qt::AlignHCenter, text);
  }

 private:
  QPainter& painter_;
  QRectF page_;
  double cell_ = 0;
  double height_ = 0;
  double ascent_ = 0;
};

}  // namespace

bool PrintLines(QPagedPaintDevice& device, const QStringList& lines) {
  qsizetype longest = kLineWidth;
  for (const QString& line : lines) longest = std::max(longest, line.size());
  const qsizetype columns = std::min(longest, kWidestLine);
  const QStringList rows = Wrapped(lines, columns);

  QPainter painter;
  if (!painter.begin(&device)) return false;
  LinePainter page(painter, device, columns);
  const int perPage = page.LinesOnPage();
  const int pages = (static_cast<int>(rows.size()) + perPage - 1) / perPage;
  for (int number = 0; number < pages; ++number) {
    if (number > 0 && !device.newPage()) return false;
    for (int row = 0; row < perPage && number * perPage + row < rows.size(); ++row)
      page.DrawLine(row, rows[number * perPage + row]);
    if (pages > 1) page.DrawPageNumber(QStringLiteral("Page %1 of %2").arg(number + 1).arg(pages));
  }
  return painter.end();
}

QByteArray PdfOf(const QStringList& lines, const QString& title) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setTitle(title);
  writer.setCreator(QStringLiteral("Kelp"));
  const bool american = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
  writer.setPageSize(QPageSize(american ? QPageSize::Letter : QPageSize::A4));
  writer.setPageMargins(QMarginsF(18, 15, 15, 15), QPageLayout::Millimeter);
  if (!PrintLines(writer, lines)) return {};
  return buffer.data();
}

}  // namespace kelp
