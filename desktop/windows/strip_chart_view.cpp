// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/strip_chart_view.hpp"

#include <QPainter>
#include <array>

#include "acquire/strip_chart_drawing.hpp"
#include "desktop/windows/look.hpp"

namespace kelp {

namespace {

constexpr std::array<double, 3> kTicks = {0, 0.5, 1};

}  // namespace

StripChartView::StripChartView(const RunState& run, QWidget* parent) : ValueWidget(parent), run_(run) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void StripChartView::ShowChanges() {
  if (run_.Chart.PointsAdded() == shownPoints_ && run_.TraceColor == shownColor_) return;
  shownPoints_ = run_.Chart.PointsAdded();
  shownColor_ = run_.TraceColor;
  update();
}

QSize StripChartView::sizeHint() const { return {fontMetrics().height() * 26, fontMetrics().height() * 12}; }
QSize StripChartView::minimumSizeHint() const {
  return {fontMetrics().height() * 14, fontMetrics().height() * 4};
}

// Whole pixels: bars and ticks of one place stand on one line.
QPointF StripChartView::At(double x, double y) const {
  return {static_cast<double>(qRound((x - kChartLeft) / kChartWidth * (width() - 1))),
          static_cast<double>(qRound((y - kChartTop) / kChartHeight * (height() - 1)))};
}

// Ground, axes and labels are the same at every reading: they are drawn once for a size and a scheme.
void StripChartView::DrawGround() {
  const Scheme& scheme = SchemeFor(palette());
  ground_ = QPixmap(size() * devicePixelRatioF());
  ground_.setDevicePixelRatio(devicePixelRatioF());
  QPainter painter(&ground_);
  painter.fillRect(rect(), Paint(scheme.ChartGround));
  painter.setPen(Paint(scheme.ChartInk));
  for (const ChartLine& line : ChartAxes()) painter.drawLine(At(line.X1, line.Y1), At(line.X2, line.Y2));
  QFont font = this->font();
  font.setPointSize(kChartFontSize);
  painter.setFont(font);
  const QFontMetricsF metrics(font, this);
  for (const ChartLabel& label : ChartLabels()) {
    const QPointF place = At(0, label.Y) + QPointF(label.XInWidths * metrics.horizontalAdvance("0.0"),
                                                   metrics.ascent() - metrics.height() / 2);
    painter.drawText(place, label.Text);
  }
}

void StripChartView::changeEvent(QEvent* event) {
  ground_ = QPixmap();
  ValueWidget::changeEvent(event);
}

void StripChartView::paintEvent(QPaintEvent* /*event*/) {
  if (ground_.size() != size() * devicePixelRatioF()) DrawGround();
  QPainter painter(this);
  painter.drawPixmap(0, 0, ground_);
  PaintBars(painter);
  PaintScales(painter);
}

void StripChartView::PaintBars(QPainter& painter) const {
  const QColor color = Paint(FromTrace(run_.TraceColor));
  const std::vector<ChartLine> bars = ChartBars(run_.Chart);
  // Filled, which costs a tenth of a thick line; a value of 0 is a dot on the baseline.
  constexpr double kHalf = kChartBarWidth / 2.0;
  QList<QLineF> lines;
  for (const ChartLine& bar : bars) {
    lines << QLineF(At(bar.X1, bar.Y1), At(bar.X2, bar.Y2));
    const QRectF whole = QRectF(lines.back().p1(), lines.back().p2()).normalized();
    painter.fillRect(whole.adjusted(-kHalf, -kHalf, kHalf, kHalf), color);
  }
  if (!NeedsOutline(FromTrace(run_.TraceColor), IsDark(palette()))) return;
  // Light bars on a light ground: a line along their tops gives them their edge.
  QPolygonF tops;
  for (const QLineF& bar : lines) tops << bar.p2() + QPointF(-2, -2) << bar.p2() + QPointF(2, -2);
  painter.setPen(QPen(Paint(SchemeFor(palette()).ChartInk), 1));
  painter.drawPolyline(tops);
}

// Numbers beside the axis, in the scale of the newest reading, and the scale written where it changes.
void StripChartView::PaintScales(QPainter& painter) const {
  painter.setFont(Scaled(font(), 0.87));
  const QFontMetrics metrics = painter.fontMetrics();
  painter.setPen(Paint(SchemeFor(palette()).ChartInk));
  const std::vector<ChartScale> scales = ChartScales(run_.Chart);
  const int divisor = scales.empty() ? 1 : scales.back().Divisor;
  for (const double tick : kTicks) {
    const QPointF place = At(1, tick);
    painter.drawLine(place, place + QPointF(4, 0));
    painter.drawText(place + QPointF(7, metrics.ascent() / 2.0 - 1), QString::number(tick * divisor));
  }
  double free = 0;  // from here on there is room for the next word
  for (const ChartScale& scale : scales) {
    const QPointF place = At(scale.X, 1) - QPointF(2, 0);
    const QString text = FromProgram(ScaleText(scale.Divisor));
    painter.drawLine(place, place - QPointF(0, 5));
    if (place.x() < free) continue;
    // Above the box where there is room.
    const bool above = place.y() > metrics.height();
    painter.drawText(place + QPointF(above ? 2 : 5, above ? -4 : metrics.ascent()), text);
    free = place.x() + metrics.horizontalAdvance(text) + 6;
  }
}

}  // namespace kelp
