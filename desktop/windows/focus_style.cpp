// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/focus_style.hpp"

#include <QApplication>
#include <QGroupBox>
#include <QLineEdit>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>

#include "desktop/windows/look.hpp"

namespace kelp {

void DrawFocusRing(QPainter& painter, const QRect& rect, const QPalette& palette) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Paint(SchemeFor(palette).Focus), 2));
  painter.drawRoundedRect(QRectF(rect).adjusted(1, 1, -1, -1), 2, 2);
  painter.restore();
}

void DrawThinFrame(QPainter& painter, const QRect& box, const QColor& color) {
  for (const QRect& line : {QRect(box.left() + 1, box.top(), box.width() - 2, 1),
                            QRect(box.left() + 1, box.bottom(), box.width() - 2, 1),
                            QRect(box.left(), box.top() + 1, 1, box.height() - 2),
                            QRect(box.right(), box.top() + 1, 1, box.height() - 2)})
    painter.fillRect(line, color);
}

namespace {

void DrawEdge(QPainter& painter, const QStyleOption& option, double rounding) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(Paint(SchemeFor(option.palette).BoxEdge));
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), rounding, rounding);
  painter.restore();
}

// On dark grounds the style's own edge can't be seen: a box to type into is told by it from one to read.
void DrawDarkEdge(QPainter& painter, const QStyleOption& option, const QLineEdit* edit) {
  if (edit != nullptr && !edit->isReadOnly() && edit->isEnabled() && IsDark(option.palette))
    DrawEdge(painter, option, 2);
}

// The style loads a picture for it: looking for what reads pictures takes a twentieth of the time to the main
// window, and on dark grounds the picture can't be seen.
void DrawGroup(QPainter& painter, const QStyleOption& option, const QStyle& style, const QGroupBox* group) {
  constexpr int kBelowTitle = 3;
  const int title =
      group != nullptr && group->title().isEmpty()
          ? 0
          : std::max(style.pixelMetric(QStyle::PM_IndicatorHeight), option.fontMetrics.height());
  const QColor ground = option.palette.color(QPalette::Window);
  DrawThinFrame(painter, option.rect.adjusted(0, title + kBelowTitle, 0, 0),
                Mixed(ground, option.palette.color(QPalette::WindowText), 0.12));
}

// An empty box to tick, or a choice that is not made, is nothing but its edge.
void DrawChoiceEdge(QPainter& painter, const QStyleOption& option, bool round) {
  if ((option.state & QStyle::State_Enabled) != 0)
    DrawEdge(painter, option, round ? option.rect.width() / 2.0 : 2);
}

}  // namespace

void FocusStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  if (element == PE_FrameFocusRect) {
    DrawFocusRing(*painter, option->rect, option->palette);
    return;
  }
  if (element == PE_FrameGroupBox && baseStyle()->inherits("QFusionStyle")) {
    DrawGroup(*painter, *option, *this, qobject_cast<const QGroupBox*>(widget));
    return;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool boxOfItsOwn =
      widget == nullptr || !widget->parentWidget() || !widget->parentWidget()->inherits("QComboBox");
  if (element == PE_FrameLineEdit && (option->state & State_HasFocus) != 0 && boxOfItsOwn)
    DrawFocusRing(*painter, option->rect, option->palette);
  else if (element == PE_FrameLineEdit && boxOfItsOwn)
    DrawDarkEdge(*painter, *option, qobject_cast<const QLineEdit*>(widget));
  else if (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton)
    DrawChoiceEdge(*painter, *option, element == PE_IndicatorRadioButton);
}

void FocusStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  QProxyStyle::drawControl(element, option, painter, widget);
  if (element == CE_PushButton && (option->state & State_HasFocus) != 0)
    DrawFocusRing(*painter, option->rect.adjusted(1, 1, -1, -1), option->palette);
}

void FocusStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (control == CC_ComboBox && (option->state & State_HasFocus) != 0)
    DrawFocusRing(*painter, option->rect, option->palette);
}

void ApplyScheme(SchemeChoice choice) {
  static const QString machineStyle = QApplication::style()->name();
  const bool own = choice != SchemeChoice::System;
  QApplication::setStyle(new FocusStyle(own ? QStringLiteral("Fusion") : machineStyle));
  QApplication::setPalette(own ? PaletteOf(choice == SchemeChoice::Dark) : QPalette());
}

}  // namespace kelp
