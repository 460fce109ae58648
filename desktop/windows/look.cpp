// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/look.hpp"

#include <QApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QIcon>
#include <QTextDocument>
#include <QWidget>

namespace kelp {

namespace {

// Colours a widget's text, and again when the desktop goes from light to dark.
class Inker : public QObject {
 public:
  Inker(QWidget* widget, QColor (*ink)(const QPalette&)) : QObject(widget), widget_(widget), ink_(ink) {
    widget->installEventFilter(this);
    Apply();
  }
  bool eventFilter(QObject* /*object*/, QEvent* event) override {
    if (event->type() == QEvent::ApplicationPaletteChange) Apply();
    return false;
  }

 private:
  void Apply() {
    QPalette palette;
    palette.setColor(QPalette::WindowText, ink_(QApplication::palette(widget_)));
    widget_->setPalette(palette);
  }

  QWidget* widget_;
  QColor (*ink_)(const QPalette&);
};

}  // namespace

QString PlainToolTip(const std::string& text) {
  const QString tip = FromProgram(text);
  return Qt::mightBeRichText(tip) ? "<span>" + tip.toHtmlEscaped() + "</span>" : tip;
}

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QColor Mixed(const QColor& a, const QColor& b, double share) {
  const auto mix = [share](int x, int y) { return static_cast<int>(x + (y - x) * share); };
  return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

const Scheme& SchemeFor(const QPalette& palette) { return SchemeOf(IsDark(palette)); }

QPalette PaletteOf(bool dark) {
  const Scheme& scheme = SchemeOf(dark);
  QPalette palette(Paint(scheme.Button), Paint(scheme.Window));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
    palette.setColor(role, Paint(scheme.Text));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, Paint(scheme.Disabled));
  palette.setColor(QPalette::Base, Paint(scheme.Base));
  palette.setColor(QPalette::AlternateBase, Paint(scheme.Window));
  palette.setColor(QPalette::ToolTipBase, Paint(scheme.Button));
  palette.setColor(QPalette::PlaceholderText, Paint(scheme.Disabled));
  palette.setColor(QPalette::Highlight, Paint(scheme.Highlight));
  palette.setColor(QPalette::HighlightedText, Paint(scheme.HighlightedText));
  return palette;
}

QColor FaintText(const QPalette& palette) { return Paint(SchemeFor(palette).Faint); }

QColor EdgeLine(const QPalette& palette) { return Paint(SchemeFor(palette).Edge); }

QColor GoodInk(const QPalette& palette) { return Paint(SchemeFor(palette).Good); }

QColor WarnInk(const QPalette& palette) { return Paint(SchemeFor(palette).Warn); }

QFont Scaled(const QFont& font, double factor, bool bold) {
  QFont scaled = font;
  if (font.pointSizeF() > 0)
    scaled.setPointSizeF(font.pointSizeF() * factor);
  else
    scaled.setPixelSize(static_cast<int>(font.pixelSize() * factor));
  scaled.setBold(bold);
  return scaled;
}

// Most sizes are judged in letters of the plain size: for each other one Qt searches the machine's fonts.
QFont LargestFont(const QFont& font, int most, const std::function<bool(const QFont&, double)>& fits) {
  constexpr int kLeast = 7;
  const QFont plain = Scaled(font, 1, true);
  int tenths = most;
  while (tenths > kLeast && !fits(plain, tenths / 10.0)) --tenths;
  QFont largest = Scaled(font, tenths / 10.0, true);
  while (tenths > kLeast && !fits(largest, 1)) largest = Scaled(font, --tenths / 10.0, true);
  return largest;
}

int DigitsWidth(const QWidget& widget, int digits) {
  return QFontMetrics(widget.font()).horizontalAdvance('0') * digits;
}

void ShowProgramIcon() {
  if (QApplication::windowIcon().isNull()) QApplication::setWindowIcon(QIcon(":/kelp.png"));
}

void SetLook(QWidget* widget, double factor, bool bold) {
  widget->setFont(Scaled(widget->font(), factor, bold));
}

void GiveGround(const QWidget* panel) {
  // A button has another ground of its own, which a flat one must not show.
  for (auto* child : panel->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
    if (child->backgroundRole() == panel->backgroundRole()) child->setAutoFillBackground(true);
}

void SetInk(QWidget* widget, QColor (*ink)(const QPalette&)) { new Inker(widget, ink); }

}  // namespace kelp
