// SPDX-License-Identifier: GPL-3.0-or-later
// A picture in a window: fitted to its place, in the desktop's light or dark scheme, with its export.
#pragma once

#include <QWidget>
#include <optional>

#include "review/picture.hpp"

class QPushButton;

namespace kelp {

class PictureView : public QWidget {
 public:
  explicit PictureView(QWidget* parent = nullptr);

  void Show(const Picture& picture);
  void Clear();
  [[nodiscard]] const std::optional<Picture>& Shown() const { return picture_; }

  [[nodiscard]] QSize sizeHint() const override { return {480, 420}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Export();

  std::optional<Picture> picture_;
  QPushButton* export_;
};

}  // namespace kelp
