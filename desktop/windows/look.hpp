// SPDX-License-Identifier: GPL-3.0-or-later
// The look shared by all windows: colours taken from the palette in use, so that they hold in light and
// dark schemes, fonts relative to the desktop's own, and the program's texts as Qt texts.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QString>
#include <functional>
#include <string>

#include "app/scheme.hpp"

class QWidget;

namespace kelp {

/// The program's texts are bytes in UTF-8; bytes of another encoding show as replacement characters and
/// stay as they are until the operator edits them.
inline QString FromProgram(const std::string& text) { return QString::fromStdString(text); }
inline std::string ToProgram(const QString& text) { return text.toStdString(); }

/// A text for a place where Qt might take "<" for markup.
QString PlainToolTip(const std::string& text);

bool IsDark(const QPalette& palette);
/// The colours that go with a palette.
const Scheme& SchemeFor(const QPalette& palette);
inline QColor Paint(Rgb color) { return QColor::fromRgb(color); }
/// The palette of the light or the dark scheme.
QPalette PaletteOf(bool dark);
/// `share` of `b` mixed into `a`.
QColor Mixed(const QColor& a, const QColor& b, double share);

QColor FaintText(const QPalette& palette);  ///< captions beside a value
QColor EdgeLine(const QPalette& palette);   ///< thin lines around panels
QColor GoodInk(const QPalette& palette);    ///< a criterion is met
QColor WarnInk(const QPalette& palette);    ///< something wants attention

/// The widget's font, `factor` times as large.
QFont Scaled(const QFont& font, double factor, bool bold = false);

/// The font in bold, at the largest of `most` to 7 tenths of its size in which a text `fits`: that is asked
/// with a font and how many times smaller than the space its room is.
QFont LargestFont(const QFont& font, int most, const std::function<bool(const QFont&, double)>& fits);

/// The width of `digits` digits in the widget's font.
int DigitsWidth(const QWidget& widget, int digits);

/// Reads the program's icon and gives it to every window, once.
void ShowProgramIcon();

/// Gives a widget another font size.
void SetLook(QWidget* widget, double factor, bool bold = false);
/// Gives its text a colour that follows the desktop's scheme.
void SetInk(QWidget* widget, QColor (*ink)(const QPalette&));
/// Gives each widget that lies on a panel the panel's ground for its own, buttons apart: a value that changes
/// is painted again without what lies behind it. To be called when the panel's layout is complete.
void GiveGround(const QWidget* panel);

}  // namespace kelp
