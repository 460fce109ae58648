// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/choice_buttons.hpp"

#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

#include "desktop/windows/look.hpp"

namespace kelp {

namespace {

struct Parts {
  QStyle::SubElement indicator, contents, focus;
  QStyle::ControlElement label;
};

constexpr Parts kChoice = {QStyle::SE_RadioButtonIndicator, QStyle::SE_RadioButtonContents,
                           QStyle::SE_RadioButtonFocusRect, QStyle::CE_RadioButtonLabel};
constexpr Parts kTick = {QStyle::SE_CheckBoxIndicator, QStyle::SE_CheckBoxContents,
                         QStyle::SE_CheckBoxFocusRect, QStyle::CE_CheckBoxLabel};

// Draws the label and the focus as the style does; returns the place of the mark and prepares its pens.
QRectF DrawAround(QStylePainter& painter, const QWidget& widget, QStyleOptionButton option,
                  const Parts& parts) {
  const QStyle& style = *widget.style();
  const QRectF mark = style.subElementRect(parts.indicator, &option, &widget);
  const QRect focus = style.subElementRect(parts.focus, &option, &widget);
  option.rect = style.subElementRect(parts.contents, &option, &widget);
  painter.drawControl(parts.label, option);
  if ((option.state & QStyle::State_HasFocus) != 0) {
    QStyleOptionFocusRect frame;
    frame.QStyleOption::operator=(option);
    frame.rect = focus;
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, frame);
  }
  const QPalette& palette = widget.palette();
  painter.setRenderHint(QPainter::Antialiasing);
  const double strength = widget.isEnabled() ? 0.35 : 0.7;
  painter.setPen(
      QPen(Mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), strength), 1.2));
  painter.setBrush(palette.color(option.state & QStyle::State_Sunken ? QPalette::Mid : QPalette::Base));
  return mark.adjusted(0.8, 0.8, -0.8, -0.8);
}

}  // namespace

void ChoiceButton::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  const QRectF mark = DrawAround(painter, *this, option, kChoice);
  painter.drawEllipse(mark);
  if (!isChecked()) return;
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().color(QPalette::Highlight));
  painter.drawEllipse(mark.adjusted(2.6, 2.6, -2.6, -2.6));
}

void TickBox::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  const QRectF mark = DrawAround(painter, *this, option, kTick);
  painter.drawRoundedRect(mark, 2, 2);
  if (!isChecked()) return;
  painter.setPen(QPen(palette().color(QPalette::Text), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const auto at = [&](double x, double y) {
    return mark.topLeft() + QPointF(x * mark.width(), y * mark.height());
  };
  painter.drawPolyline(QPolygonF({at(0.22, 0.52), at(0.42, 0.74), at(0.8, 0.26)}));
}

}  // namespace kelp
