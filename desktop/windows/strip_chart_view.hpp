// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the strip chart: its axes with numbers, the scale of its bars where it changes, its bars in the trace
// colour of the run's step.
#pragma once

#include <QPixmap>
#include <QRegion>
#include <vector>

#include "core/run_state.hpp"
#include "desktop/windows/value_widget.hpp"

namespace kelp {

class StripChartView : public ValueWidget {
 public:
  StripChartView(const RunState& run, QWidget* parent);

  /// Draws again when a value was added or the trace colour changed.
  void ShowChanges();

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void DrawGround();
  [[nodiscard]] QPointF At(double x, double y) const;
  void PaintBars(QPainter& painter, const QRect& part) const;
  void PaintScales(QPainter& painter);

  struct ScaleMark {
    QPointF Tick;       ///< the lower end of its tick
    QPointF Word;       ///< the upper left corner of its word
    QString Text = {};  ///< empty where there is no room
    double Width = 0;
  };
  [[nodiscard]] std::vector<ScaleMark> ScaleMarks();
  [[nodiscard]] QRegion Marks();
  [[nodiscard]] bool HasWholePoints() const;
  [[nodiscard]] int NewestDivisor() const;

  const RunState& run_;
  QPixmap ground_ = {};  ///< what is the same at every reading; null when it has to be drawn again
  TextPictures words_ = {};
  QRegion shownMarks_ = {};
  int shownDivisor_ = 0;
  unsigned long shownPoints_ = 0;
  std::uint32_t shownColor_ = 0;
};

}  // namespace kelp
