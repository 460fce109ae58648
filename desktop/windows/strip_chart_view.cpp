#include "desktop/windows/strip_chart_view.hpp"

#include <QPainter>

#include "acquire/strip_chart_drawing.hpp"

namespace kelp {

namespace {

// The trace colour is a number with red in its lowest byte.
QColor FromBgr(std::uint32_t color) {
  return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
          static_cast<int>(color >> 16 & 0xFF)};
}

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
  return {fontMetrics().height() * 14, fontMetrics().height() * 5};
}

void StripChartView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  // Whole pixels: bars and ticks of one place stand on one line.
  const auto at = [this](double x, double y) {
    return QPointF(qRound((x - kChartLeft) / kChartWidth * (width() - 1)),
                   qRound((y - kChartTop) / kChartHeight * (height() - 1)));
  };
  painter.setPen(Qt::black);
  for (const ChartLine& line : ChartAxes()) painter.drawLine(at(line.X1, line.Y1), at(line.X2, line.Y2));
  QFont font = painter.font();
  font.setPointSize(kChartFontSize);
  painter.setFont(font);
  const QFontMetricsF metrics(font, this);
  for (const ChartLabel& label : ChartLabels()) {
    const QPointF place = at(0, label.Y) + QPointF(label.XInWidths * metrics.horizontalAdvance("0.0"),
                                                   metrics.ascent() - metrics.height() / 2);
    painter.drawText(place, label.Text);
  }
  // A value of 0 is a dot on the baseline, which a line without an end cap would not show.
  painter.setPen(QPen(FromBgr(run_.TraceColor), kChartBarWidth, Qt::SolidLine, Qt::SquareCap));
  for (const ChartLine& bar : ChartBars(run_.Chart)) painter.drawLine(at(bar.X1, bar.Y1), at(bar.X2, bar.Y2));
}

}  // namespace kelp
