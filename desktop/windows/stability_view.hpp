// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the last N reads so that their unrest fills the height: with their mean, and the band of their SD.
#pragma once

#include <QPixmap>
#include <vector>

#include "acquire/stability.hpp"
#include "desktop/windows/text_pictures.hpp"
#include "desktop/windows/value_widget.hpp"

namespace kelp {

class StabilityView : public ValueWidget {
 public:
  StabilityView(const Kelp& kelp, QWidget* parent);

  /// Draws again when a read came in.
  void ShowChanges();

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintReads(QPainter& painter, const std::vector<QPointF>& dots);

  const Kelp& kelp_;
  TextPictures texts_ = {};
  QPixmap dot_ = {};  ///< one read, in the colour and at the scale it was drawn for
  QColor dotColor_ = {};
  StabilityTrace trace_ = {};
};

}  // namespace kelp
