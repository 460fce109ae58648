// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/digit_pictures.hpp"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace kelp {

bool DigitPictures::Knows(const QString& text) {
  return std::all_of(text.begin(), text.end(),
                     [](QChar character) { return QStringView(u"0123456789.-+/x ").contains(character); });
}

void DigitPictures::Use(const QFont& font, const QColor& ink, double scale) {
  if (scale == scale_ && ink == ink_ && font == font_) return;
  font_ = font;
  ink_ = ink;
  scale_ = scale;
  height_ = QFontMetrics(font).height();
  ascent_ = QFontMetrics(font).ascent();
  overhang_ = height_ / 8 + 1;
  pictures_.clear();
}

const DigitPictures::Picture& DigitPictures::Of(QChar character) {
  const auto known = pictures_.find(character);
  if (known != pictures_.end()) return known->second;
  const QFontMetricsF metrics(font_);
  Picture picture{{}, metrics.horizontalAdvance(character)};
  const QSizeF size(picture.Advance + 2 * overhang_, height_);
  picture.Ink = QPixmap((size * scale_).toSize());
  picture.Ink.setDevicePixelRatio(scale_);
  picture.Ink.fill(Qt::transparent);
  QPainter painter(&picture.Ink);
  painter.setFont(font_);
  painter.setPen(ink_);
  painter.drawText(QPointF(overhang_, ascent_), character);
  painter.end();
  return pictures_.emplace(character, std::move(picture)).first->second;
}

double DigitPictures::Width(const QString& text) {
  double width = 0;
  for (const QChar character : text) width += Of(character).Advance;
  return width;
}

void DigitPictures::Draw(QPainter& painter, QPointF place, const QString& text) {
  for (const QChar character : text) {
    const Picture& picture = Of(character);
    // On whole points of the display, else the edges of the digits blur.
    const double left = std::round((place.x() - overhang_) * scale_) / scale_;
    if (!character.isSpace()) painter.drawPixmap(QPointF(left, place.y()), picture.Ink);
    place.rx() += picture.Advance;
  }
}

}  // namespace kelp
