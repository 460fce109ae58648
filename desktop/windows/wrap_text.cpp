// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/wrap_text.hpp"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <utility>
#include <vector>

#include "desktop/windows/look.hpp"

namespace kelp {

namespace {

constexpr int kUnplaced = 100;  // the width that a widget has until a layout or its owner gives it one

bool IsDigit(QChar character) { return character >= u'0' && character <= u'9'; }

}  // namespace

WrapText::WrapText(QWidget* parent) : ValueWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void WrapText::ShowText(const QString& text) {
  if (ShowDigits(text)) return;
  ValueWidget::ShowText(text);
  CountLines();
}

// False when more than digits changes, or nothing is laid out.
bool WrapText::ShowDigits(const QString& text) {
  const QString& shown = ShownText();
  if (laidOutFor_ != width() || text.size() != shown.size()) return false;
  pictures_.Use(font(), Ink(), devicePixelRatioF());
  std::vector<int> changed;
  for (int i = 0; i < text.size(); ++i) {
    if (text[i] == shown[i]) continue;
    if (!IsDigit(text[i]) || !IsDigit(shown[i])) return false;
    if (pictures_.Width(QString(text[i])) != pictures_.Width(QString(shown[i]))) return false;
    changed.push_back(i);
  }
  SetText(text);
  for (const int at : changed) {
    changed_[at] = PlaceOf(at);
    update(changed_[at]);
  }
  return true;
}

// Asked for every second, and the same until the text is laid out again: digits are of one width.
QRect WrapText::PlaceOf(int at) {
  const auto known = places_.find(at);
  if (known != places_.end()) return known->second;
  const QTextLine line = layout_.lineForTextPosition(at);
  const double left = line.cursorToX(at);
  const double top = Top() + line.position().y();
  const QRectF place(left, top, line.cursorToX(at + 1) - left, fontMetrics().height());
  return places_[at] = place.toAlignedRect();
}

int WrapText::Top() const {
  const int tall = fontMetrics().height() + (layout_.lineCount() - 1) * fontMetrics().lineSpacing();
  return (height() - tall) / 2;
}

QColor WrapText::Ink() const {
  return ink_ != nullptr ? ink_(palette()) : palette().color(QPalette::WindowText);
}

void WrapText::LayOut() {
  layout_.setFont(font());
  layout_.setText(QString(ShownText()).replace('\n', QChar::LineSeparator));
  layout_.beginLayout();
  int lines = 0;
  for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
    line.setLineWidth(width());
    line.setPosition(QPointF(0, lines++ * fontMetrics().lineSpacing()));
  }
  layout_.endLayout();
  laidOutFor_ = width();
  changed_.clear();
  places_.clear();
}

// The window's layout moves only when the text takes another number of lines.
void WrapText::CountLines() {
  laidOutFor_ = -1;
  // Before it has a place in the window there is no width to count with.
  if (width() <= kUnplaced && minimumWidth() != maximumWidth()) return;
  LayOut();
  const int lines = std::max(1, layout_.lineCount());
  if (std::exchange(lines_, lines) != lines) updateGeometry();
}

QSize WrapText::sizeHint() const {
  return {DigitsWidth(*this, 12), fontMetrics().height() + (lines_ - 1) * fontMetrics().lineSpacing() + 2};
}

void WrapText::resizeEvent(QResizeEvent* event) {
  ValueWidget::resizeEvent(event);
  CountLines();
}

void WrapText::changeEvent(QEvent* event) {
  ValueWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) CountLines();
}

void WrapText::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (laidOutFor_ == width() && !changed_.empty()) {
    QRegion others = event->region();
    for (const auto& [at, place] : changed_) others -= place;
    if (others.isEmpty()) {
      DrawDigits(painter);
      return;
    }
    LayOut();
  }
  if (laidOutFor_ != width()) LayOut();
  painter.setPen(Ink());
  layout_.draw(&painter, QPointF(0, Top()));
}

void WrapText::DrawDigits(QPainter& painter) {
  pictures_.Use(font(), Ink(), devicePixelRatioF());
  for (const auto& [at, place] : changed_) pictures_.Draw(painter, place.topLeft(), QString(ShownText()[at]));
}

}  // namespace kelp
