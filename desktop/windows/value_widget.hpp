// SPDX-License-Identifier: GPL-3.0-or-later
// Widgets that show a control's value by painting it: a value that changes with every reading must not
// set the window's layout going.
#pragma once

#include <QWidget>
#include <functional>

#include "desktop/windows/text_pictures.hpp"

namespace kelp {

class ValueWidget : public QWidget {
 public:
  using QWidget::QWidget;

  /// Shows a text; only what this widget covers is painted again.
  virtual void ShowText(const QString& text);
  [[nodiscard]] const QString& ShownText() const { return text_; }

 protected:
  /// Takes a text that the widget paints by itself.
  void SetText(const QString& text);

 private:
  QString text_;
};

/// One line in a box of a fixed number of digits, cut with "…" where it does not fit.
class ValueBox : public ValueWidget {
 public:
  enum class Frame { None, Line };

  /// `digits` is the width asked for; 0 takes the width that is there.
  ValueBox(int digits, Frame frame, Qt::Alignment align, QWidget* parent);

  /// The box can take the focus, and a click, Enter or the space bar uses its value.
  void SetUsable();
  [[nodiscard]] bool Usable() const { return usable_; }
  void OnUse(std::function<void()> use) { use_ = std::move(use); }
  void Use() const;
  /// Grows the text until it fills the box (the reading that is read from across the bench).
  void FillWithText(double largest);
  /// Draws the text faintly: it is no value of what is being measured.
  void SetFaint(bool faint);
  [[nodiscard]] bool IsFaint() const { return faint_; }
  /// The box is always as wide as its text.
  void SetWhole() { whole_ = true; }
  void ShowText(const QString& text) override;
  void SetElide(Qt::TextElideMode mode) { elide_ = mode; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  [[nodiscard]] QFont FittedFont() const;
  /// Where a text begins that takes `wide` of the width.
  [[nodiscard]] double LeftOf(double wide) const;

  int digits_;
  Frame frame_;
  Qt::Alignment align_;
  Qt::TextElideMode elide_ = Qt::ElideRight;
  double largest_ = 0;
  bool faint_ = false;
  bool whole_ = false;
  bool usable_ = false;
  bool pressed_ = false;
  std::function<void()> use_;
  TextPictures pictures_ = {};
};

}  // namespace kelp
