// SPDX-License-Identifier: GPL-3.0-or-later
// The style of all windows: the machine's own, with a ring around the control that has the keys, however it
// came by them. Most styles show the focus only after a Tab, and faintly.
#pragma once

#include <QProxyStyle>

namespace kelp {

class FocusStyle : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
};

enum class SchemeChoice { System, Light, Dark };

/// Gives all windows the colours of a scheme; System takes the desktop's own.
void ApplyScheme(SchemeChoice choice);

/// Draws the outermost points of `box` without its corners, as four filled lines: a frame that is drawn with
/// a pen takes Qt longer.
void DrawThinFrame(QPainter& painter, const QRect& box, const QColor& color);

/// Draws the ring of the focus inside `rect`.
void DrawFocusRing(QPainter& painter, const QRect& rect, const QPalette& palette);

}  // namespace kelp
