// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/strip_chart_view.hpp"

#include <QPaintEvent>
#include <QPainter>
#include <array>
#include <utility>

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
  const bool sameGround = run_.TraceColor == shownColor_ && NewestDivisor() == shownDivisor_;
  shownPoints_ = run_.Chart.PointsAdded();
  shownColor_ = run_.TraceColor;
  const QRegion before = std::exchange(shownMarks_, Marks());
  if (sameGround && HasWholePoints())
    update(before + shownMarks_);
  else
    update();
}

// At a scale of 1.25 a part of the chart begins and ends within points of the display: its edges would stay.
bool StripChartView::HasWholePoints() const {
  return devicePixelRatioF() == static_cast<double>(qRound(devicePixelRatioF()));
}

int StripChartView::NewestDivisor() const {
  const int divisor = run_.Chart.Divisor(StripChart::kSlots - 1);
  return divisor == 0 ? 1 : divisor;
}

// What moves with a reading: the bars that are no dots on the baseline, and the words for their scales.
QRegion StripChartView::Marks() {
  constexpr int kEdge = 4;
  QRectF bars;
  for (const ChartLine& bar : ChartBars(run_.Chart))
    if (bar.Y2 != 0) bars |= QRectF(At(bar.X1, 0), At(bar.X1, bar.Y2) + QPointF(1, 0)).normalized();
  const int slot = width() / StripChart::kSlots + 1;
  QRegion marks;
  if (!bars.isNull()) marks += bars.toAlignedRect().adjusted(-slot - kEdge, -kEdge, slot + kEdge, kEdge);
  for (const ScaleMark& mark : ScaleMarks()) {
    const QRectF tick(mark.Tick - QPointF(1, 6), QSizeF(3, 8));
    const QRectF word(mark.Word, QSizeF(mark.Width, words_.Height()));
    marks += (tick | word).toAlignedRect().adjusted(-2, -2, 2, 2);
  }
  return marks;
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

// Ground, axes and labels are the same at every reading: drawn once for a size, a scheme and a scale.
void StripChartView::DrawGround() {
  const Scheme& scheme = SchemeFor(palette());
  shownDivisor_ = NewestDivisor();
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
  const QFont numbers = Scaled(this->font(), 0.87);
  painter.setFont(numbers);
  for (const double tick : kTicks) {
    const QPointF place = At(1, tick);
    painter.drawLine(place, place + QPointF(4, 0));
    painter.drawText(place + QPointF(7, painter.fontMetrics().ascent() / 2.0 - 1),
                     QString::number(tick * shownDivisor_));
  }
  words_.Use(numbers, Paint(scheme.ChartInk), devicePixelRatioF());
  shownMarks_ = Marks();
}

void StripChartView::changeEvent(QEvent* event) {
  ground_ = QPixmap();
  ValueWidget::changeEvent(event);
}

void StripChartView::paintEvent(QPaintEvent* event) {
  if (ground_.size() != size() * devicePixelRatioF() || NewestDivisor() != shownDivisor_) DrawGround();
  QPainter painter(this);
  if (HasWholePoints()) {
    const int scale = qRound(devicePixelRatioF());
    for (const QRect& part : event->region())
      painter.drawPixmap(part, ground_, QRect(part.topLeft() * scale, part.size() * scale));
  } else {
    painter.drawPixmap(0, 0, ground_);
  }
  PaintBars(painter, event->rect());
  PaintScales(painter);
}

// Those that reach into `part` of the chart.
void StripChartView::PaintBars(QPainter& painter, const QRect& part) const {
  const QColor color = Paint(FromTrace(run_.TraceColor));
  // Filled, which costs a tenth of a thick line; a value of 0 is a dot on the baseline.
  constexpr double kHalf = kChartBarWidth / 2.0;
  const int slot = width() / StripChart::kSlots + 1;
  QPolygonF tops;
  for (const ChartLine& bar : ChartBars(run_.Chart)) {
    const QPointF foot = At(bar.X1, bar.Y1);
    if (foot.x() < part.left() - 2 * slot || foot.x() > part.right() + 2 * slot) continue;
    const QPointF top = At(bar.X2, bar.Y2);
    painter.fillRect(QRectF(foot, top).normalized().adjusted(-kHalf, -kHalf, kHalf, kHalf), color);
    tops << top + QPointF(-2, -2) << top + QPointF(2, -2);
  }
  if (!NeedsOutline(FromTrace(run_.TraceColor), IsDark(palette()))) return;
  // Light bars on a light ground: a line along their tops gives them their edge.
  painter.setPen(QPen(Paint(SchemeFor(palette()).ChartInk), 1));
  painter.drawPolyline(tops);
}

// The scale is written where it changes, above the box where there is room.
std::vector<StripChartView::ScaleMark> StripChartView::ScaleMarks() {
  std::vector<ScaleMark> marks;
  double free = 0;  // from here on there is room for the next word
  for (const ChartScale& scale : ChartScales(run_.Chart)) {
    const QPointF tick = At(scale.X, 1) - QPointF(2, 0);
    const bool above = tick.y() > words_.Height();
    ScaleMark mark{tick, tick + QPointF(above ? 2 : 5, above ? -4 - words_.Ascent() : 0)};
    if (tick.x() >= free) {
      mark.Text = FromProgram(ScaleText(scale.Divisor));
      mark.Width = words_.Width(mark.Text);
      free = tick.x() + mark.Width + 6;
    }
    marks.push_back(mark);
  }
  return marks;
}

void StripChartView::PaintScales(QPainter& painter) {
  painter.setPen(Paint(SchemeFor(palette()).ChartInk));
  for (const ScaleMark& mark : ScaleMarks()) {
    painter.drawLine(mark.Tick, mark.Tick - QPointF(0, 5));
    words_.Draw(painter, mark.Word, mark.Text);
  }
}

}  // namespace kelp
