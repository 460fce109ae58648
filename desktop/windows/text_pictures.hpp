// SPDX-License-Identifier: GPL-3.0-or-later
// Draws short texts from pictures of their digits and words: looking up a font, shaping a text and filling
// large letters is most of what a reading costs, and from one reading to the next only digits change.
#pragma once

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <array>
#include <map>

class QPainter;

namespace kelp {

class TextPictures {
 public:
  /// True for a text whose digits and words may be drawn one after the other: one line, from left to right.
  [[nodiscard]] static bool Knows(const QString& text);

  /// What is drawn from here on has this font and colour, at the scale of the widget's display.
  void Use(const QFont& font, const QColor& ink, double scale);
  [[nodiscard]] int Height() const { return height_; }
  [[nodiscard]] int Ascent() const { return ascent_; }
  [[nodiscard]] double Width(const QString& text);
  /// Draws a known text whose line begins at `place`, its upper left corner.
  void Draw(QPainter& painter, QPointF place, const QString& text);

 private:
  struct Picture {
    QPixmap Ink;
    double Advance = 0;
  };
  const Picture& Of(QStringView part);

  QFont font_ = {};
  QColor ink_ = {};
  double scale_ = 0;
  int height_ = 0;
  int ascent_ = 0;
  int overhang_ = 0;  ///< what a letter may need beside its own width
  std::map<QString, Picture, std::less<>> pictures_ = {};
  std::array<const Picture*, 128> digits_ =
      {};  ///< those of one character, found without a look at the others
};

}  // namespace kelp
