// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/marked_edit.hpp"

#include <QPainter>

#include "desktop/windows/look.hpp"

namespace kelp {

void MarkedEdit::SetMarked(bool marked) {
  if (marked == marked_) return;
  marked_ = marked;
  setTextMargins(marked ? fontMetrics().height() / 2 : 0, 0, 0, 0);
  setAccessibleDescription(marked ? "the next value goes here" : "");
  update();
}

void MarkedEdit::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  if (!marked_) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor accent = Paint(SchemeFor(palette()).Next);
  painter.setPen(QPen(accent, 3));
  if (!hasFocus()) painter.drawRect(rect().adjusted(1, 1, -2, -2));
  const double middle = height() / 2.0;
  const double half = fontMetrics().height() / 4.0;
  painter.setPen(Qt::NoPen);
  painter.setBrush(accent);
  painter.drawPolygon(QPolygonF({{4, middle - half}, {4 + 1.4 * half, middle}, {4, middle + half}}));
}

}  // namespace kelp
