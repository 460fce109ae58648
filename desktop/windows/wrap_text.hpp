// SPDX-License-Identifier: GPL-3.0-or-later
// A text in as many lines as it needs; one when it is short. Where only digits of it change, as in a text
// that counts seconds, they alone are drawn again.
#pragma once

#include <QTextLayout>
#include <map>

#include "desktop/windows/value_widget.hpp"

namespace kelp {

class WrapText : public ValueWidget {
 public:
  explicit WrapText(QWidget* parent);
  void SetColor(QColor (*ink)(const QPalette&)) { ink_ = ink; }
  void ShowText(const QString& text) override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void LayOut();
  void CountLines();
  bool ShowDigits(const QString& text);
  [[nodiscard]] QRect PlaceOf(int at);
  [[nodiscard]] int Top() const;
  [[nodiscard]] QColor Ink() const;
  void DrawDigits(QPainter& painter);

  QColor (*ink_)(const QPalette&) = nullptr;
  QTextLayout layout_ = {};  ///< of the text as it was laid out last, shaped once for counting and painting
  int laidOutFor_ = -1;      ///< the width of that; -1 while there is none
  int lines_ = 1;
  std::map<int, QRect> places_ = {};   ///< of digits in that, by where they stand in the text
  std::map<int, QRect> changed_ = {};  ///< those that became another digit since
  TextPictures pictures_ = {};
};

}  // namespace kelp
