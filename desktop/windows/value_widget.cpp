// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/value_widget.hpp"

#include <QAccessible>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/windows/focus_style.hpp"
#include "desktop/windows/look.hpp"

namespace kelp {

namespace {

constexpr int kPad = 5;

}  // namespace

void ValueWidget::ShowText(const QString& text) {
  SetText(text);
  update();
}

void ValueWidget::SetText(const QString& text) {
  text_ = text;
  // Asked for where a screen reader listens; nobody else needs to know.
  if (!QAccessible::isActive()) return;
  QAccessibleEvent event(this, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&event);
}

ValueBox::ValueBox(int digits, Frame frame, Qt::Alignment align, QWidget* parent)
    : ValueWidget(parent), digits_(digits), frame_(frame), align_(align) {
  setAttribute(Qt::WA_OpaquePaintEvent, frame == Frame::Line);
  setSizePolicy(digits > 0 ? QSizePolicy::Preferred : QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ValueBox::SetUsable() {
  usable_ = true;
  setFocusPolicy(Qt::TabFocus);
}

void ValueBox::Use() const {
  if (use_) use_();
}

void ValueBox::FillWithText(double largest) {
  largest_ = largest;
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void ValueBox::SetFaint(bool faint) {
  if (faint == faint_) return;
  faint_ = faint;
  update();
}

void ValueBox::ShowText(const QString& text) {
  const bool another = whole_ && text.size() != ShownText().size();
  ValueWidget::ShowText(text);
  if (another) updateGeometry();
}

QSize ValueBox::sizeHint() const {
  const QFontMetrics metrics(font());
  const int width = whole_ ? metrics.horizontalAdvance(ShownText()) + 2 : DigitsWidth(*this, digits_);
  return {width + 2 * kPad, metrics.height() + (frame_ == Frame::Line ? 6 : 2)};
}

// Every text of the reading has the size of its longest form, so that the digits stand still.
QFont ValueBox::FittedFont() const {
  if (largest_ <= 0) return font();
  const QFontMetricsF metrics(font());
  const auto digits = static_cast<double>(std::max<qsizetype>(digits_, ShownText().size()));
  const double across = (width() - 2.0 * kPad) / (metrics.horizontalAdvance('0') * digits);
  const double down = height() / metrics.height();
  return Scaled(font(), std::clamp(std::min(across, down), 1.0, largest_), font().bold());
}

void ValueBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (frame_ == Frame::Line) {
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setPen(EdgeLine(palette()));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
  if (hasFocus()) DrawFocusRing(painter, rect(), palette());
  QFont font = FittedFont();
  if (faint_) font.setBold(false);
  const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
  const auto role = frame_ == Frame::Line ? QPalette::Text : QPalette::WindowText;
  const QColor ink = faint_ ? FaintText(palette()) : palette().color(group, role);
  const int room = width() - 2 * kPad;
  QString text = ShownText();
  if (TextPictures::Knows(text)) {
    pictures_.Use(font, ink, devicePixelRatioF());
    if (const double wide = pictures_.Width(text); wide <= room) {
      const int top = (height() - pictures_.Height()) / 2;
      pictures_.Draw(painter, QPointF(LeftOf(wide), top), text);
      return;
    }
  }
  painter.setFont(font);
  painter.setPen(ink);
  // At a place, not in a box: laying a text out in a box takes Qt five times as long, at every reading.
  const QFontMetrics metrics = painter.fontMetrics();
  int wide = metrics.horizontalAdvance(text);
  if (wide > room) {
    text = metrics.elidedText(text, elide_, room);
    wide = metrics.horizontalAdvance(text);
  }
  const int line = (height() - metrics.height()) / 2 + metrics.ascent();
  painter.drawText(QPointF(LeftOf(wide), line), text);
}

double ValueBox::LeftOf(double wide) const {
  const double free = width() - 2 * kPad - wide;
  return kPad + (align_.testFlag(Qt::AlignRight)     ? free
                 : align_.testFlag(Qt::AlignHCenter) ? std::floor(free / 2)
                                                     : 0);
}

void ValueBox::mousePressEvent(QMouseEvent* event) { pressed_ = event->button() == Qt::LeftButton; }

// A press that is dragged off the box is no click, and the second half of a double click no second one.
void ValueBox::mouseReleaseEvent(QMouseEvent* event) {
  if (std::exchange(pressed_, false) && rect().contains(event->position().toPoint())) Use();
}

}  // namespace kelp
