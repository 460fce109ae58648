#include "desktop/windows/value_widget.hpp"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <utility>

#include "desktop/windows/look.hpp"

namespace kelp {

namespace {

constexpr int kPad = 5;

}  // namespace

void ValueWidget::ShowText(const QString& text) {
  text_ = text;
  setAccessibleDescription(text);
  update();
}

ValueBox::ValueBox(int digits, Frame frame, Qt::Alignment align, QWidget* parent)
    : ValueWidget(parent), digits_(digits), frame_(frame), align_(align) {
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

void ValueBox::SetMarked(bool marked) {
  if (marked == marked_) return;
  marked_ = marked;
  update();
}

QSize ValueBox::sizeHint() const {
  const QFontMetrics metrics(font());
  return {DigitsWidth(*this, digits_) + 2 * kPad, metrics.height() + (frame_ == Frame::Line ? 6 : 2)};
}

// Every text of the reading has the size of its longest form, so that the digits stand still.
QFont ValueBox::FittedFont() const {
  if (largest_ <= 0) return font();
  const QFontMetricsF metrics(font());
  const double across = (width() - 2.0 * kPad) / metrics.horizontalAdvance(QString(
                                                     std::max<qsizetype>(digits_, ShownText().size()), '0'));
  const double down = height() / metrics.height();
  return Scaled(font(), std::clamp(std::min(across, down), 1.0, largest_), font().bold());
}

void ValueBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const bool focused = hasFocus();
  if (frame_ == Frame::Line) {
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setPen(EdgeLine(palette()));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
  if (marked_ || focused) {
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
  }
  painter.setFont(FittedFont());
  const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
  painter.setPen(palette().color(group, frame_ == Frame::Line ? QPalette::Text : QPalette::WindowText));
  const QRect inner = rect().adjusted(kPad, 0, -kPad, 0);
  const QString text = painter.fontMetrics().elidedText(ShownText(), elide_, inner.width());
  painter.drawText(inner, static_cast<int>(align_ | Qt::AlignVCenter) | Qt::TextSingleLine, text);
}

void ValueBox::mousePressEvent(QMouseEvent* event) { pressed_ = event->button() == Qt::LeftButton; }

// A press that is dragged off the box is no click, and the second half of a double click no second one.
void ValueBox::mouseReleaseEvent(QMouseEvent* event) {
  if (std::exchange(pressed_, false) && rect().contains(event->position().toPoint())) Use();
}

InstructionBox::InstructionBox(QWidget* parent) : ValueWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize InstructionBox::sizeHint() const {
  const QFontMetrics metrics(font());
  return {metrics.averageCharWidth() * 40, metrics.height() * 4};
}

void InstructionBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QColor accent = palette().color(QPalette::Highlight);
  painter.fillRect(rect(), Mixed(palette().color(QPalette::Base), accent, 0.10));
  painter.fillRect(QRect(0, 0, 4, height()), accent);
  painter.setPen(palette().color(QPalette::Text));
  const QRect inner = rect().adjusted(4 + 2 * kPad, 2, -kPad, -2);
  const int flags = static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextWordWrap;
  for (int tenths = 18; tenths >= 7; --tenths) {
    painter.setFont(Scaled(font(), tenths / 10.0, true));
    const QRect needed = painter.fontMetrics().boundingRect(inner, flags, ShownText());
    if (needed.height() <= inner.height() && needed.width() <= inner.width()) break;
  }
  painter.drawText(inner, flags, ShownText());
}

Sign::Sign(QWidget* parent) : QWidget(parent) { setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed); }

void Sign::Set(bool met, const QString& words) {
  if (met == met_ && words == words_) return;
  met_ = met;
  words_ = words;
  setAccessibleName(words + (met ? ": met" : ": not met yet"));
  updateGeometry();
  update();
}

QSize Sign::sizeHint() const {
  const QFontMetrics metrics(Scaled(font(), 1, true));
  return {metrics.height() + metrics.horizontalAdvance(words_) + 8, metrics.height() + 4};
}

void Sign::paintEvent(QPaintEvent* /*event*/) {
  if (words_.isEmpty()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double size = QFontMetricsF(font()).height() - 1;
  const QRectF disc(1, (height() - size) / 2, size, size);
  const QColor ink = met_ ? GoodInk(palette()) : FaintText(palette());
  painter.setPen(QPen(ink, 1.8));
  painter.setBrush(met_ ? QBrush(ink) : QBrush(Qt::NoBrush));
  painter.drawEllipse(disc.adjusted(1, 1, -1, -1));
  if (met_) {
    painter.setPen(QPen(palette().color(QPalette::Base), 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&](double x, double y) { return disc.topLeft() + QPointF(x * size, y * size); };
    painter.drawPolyline(QPolygonF({at(0.28, 0.52), at(0.44, 0.68), at(0.73, 0.34)}));
  }
  painter.setPen(ink);
  painter.setFont(Scaled(font(), 1, met_));
  painter.drawText(rect().adjusted(static_cast<int>(size) + 6, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                   words_);
}

}  // namespace kelp
