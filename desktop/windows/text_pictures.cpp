// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/text_pictures.hpp"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace kelp {

namespace {

constexpr std::size_t kMost = 60;

// What stands for itself in a text: a number changes digit by digit.
bool StandsAlone(QChar character) {
  return character == u' ' || character == u'.' || (character >= u'0' && character <= u'9');
}

// From `from` on: one digit, or a word.
QStringView PartAt(QStringView text, qsizetype from) {
  qsizetype end = from + 1;
  if (!StandsAlone(text[from]))
    while (end < text.size() && !StandsAlone(text[end])) ++end;
  return text.sliced(from, end - from);
}

}  // namespace

bool TextPictures::Knows(const QString& text) {
  return std::all_of(text.begin(), text.end(), [](QChar character) {
    return (character >= u' ' && character <= u'~') || (character > u'\u00A0' && character <= u'\u017F');
  });
}

void TextPictures::Use(const QFont& font, const QColor& ink, double scale) {
  // The words of a day would add up.
  if (scale == scale_ && ink == ink_ && font == font_ && pictures_.size() <= kMost) return;
  font_ = font;
  ink_ = ink;
  scale_ = scale;
  height_ = QFontMetrics(font).height();
  ascent_ = QFontMetrics(font).ascent();
  overhang_ = height_ / 8 + 1;
  pictures_.clear();
  digits_.fill(nullptr);
}

const TextPictures::Picture& TextPictures::Of(QStringView part) {
  const auto digit = part.size() == 1 && part[0].unicode() < digits_.size() ? part[0].unicode() : u'\0';
  if (digits_[digit] != nullptr) return *digits_[digit];
  const auto known = pictures_.find(part);
  if (known != pictures_.end()) return known->second;
  const QString text = part.toString();
  Picture picture{{}, QFontMetricsF(font_).horizontalAdvance(text)};
  const QSizeF size(picture.Advance + 2 * overhang_, height_);
  picture.Ink = QPixmap((size * scale_).toSize());
  picture.Ink.setDevicePixelRatio(scale_);
  picture.Ink.fill(Qt::transparent);
  QPainter painter(&picture.Ink);
  painter.setFont(font_);
  painter.setPen(ink_);
  painter.drawText(QPointF(overhang_, ascent_), text);
  painter.end();
  const Picture& kept = pictures_.emplace(text, std::move(picture)).first->second;
  if (digit != u'\0') digits_[digit] = &kept;
  return kept;
}

double TextPictures::Width(const QString& text) {
  double width = 0;
  for (qsizetype at = 0; at < text.size();) {
    const QStringView part = PartAt(text, at);
    width += Of(part).Advance;
    at += part.size();
  }
  return width;
}

void TextPictures::Draw(QPainter& painter, QPointF place, const QString& text) {
  for (qsizetype at = 0; at < text.size();) {
    const QStringView part = PartAt(text, at);
    const Picture& picture = Of(part);
    // On whole points of the display, else the edges of the digits blur.
    const double left = std::round((place.x() - overhang_) * scale_) / scale_;
    if (part != u" ") painter.drawPixmap(QPointF(left, place.y()), picture.Ink);
    place.rx() += picture.Advance;
    at += part.size();
  }
}

}  // namespace kelp
