// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/stability_view.hpp"

#include <QPainter>
#include <cmath>

#include "core/numbers.hpp"
#include "desktop/windows/focus_style.hpp"
#include "desktop/windows/look.hpp"

namespace kelp {

namespace {

bool SameTrace(const StabilityTrace& a, const StabilityTrace& b) {
  return a.Reads == b.Reads && a.Full == b.Full && a.Sd == b.Sd && a.Wanted == b.Wanted;
}

QString WordsOf(const StabilityTrace& trace) {
  if (!trace.Full) return QString("%1 of %2 reads").arg(trace.Reads.size()).arg(trace.Wanted);
  return "mean " + FromProgram(SavedText(trace.Mean)) + ", SD " + FromProgram(SdText(trace.Sd));
}

}  // namespace

StabilityView::StabilityView(const Kelp& kelp, QWidget* parent) : ValueWidget(parent), kelp_(kelp) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAccessibleName("Stability of the last reads");
  setToolTip("The last reads, each a dot; the line is their mean, the band one SD to each side");
}

void StabilityView::ShowChanges() {
  StabilityTrace now = StabilityOf(kelp_);
  if (SameTrace(now, trace_) && !ShownText().isEmpty()) return;
  trace_ = std::move(now);
  ShowText(WordsOf(trace_));
}

QSize StabilityView::sizeHint() const { return {fontMetrics().height() * 26, fontMetrics().height() * 6}; }
QSize StabilityView::minimumSizeHint() const {
  return {fontMetrics().height() * 14, fontMetrics().height() * 3};
}

void StabilityView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Scheme& scheme = SchemeFor(palette());
  painter.fillRect(rect(), Paint(scheme.ChartGround));
  painter.setPen(Paint(scheme.ChartInk));
  texts_.Use(Scaled(font(), 0.87), Paint(scheme.ChartInk), devicePixelRatioF());
  // As wide as in the strip chart above, so that the two stand in line.
  const int left = static_cast<int>(texts_.Width("00.0000")) + 8;
  const QRect plot = rect().adjusted(left, texts_.Height() + 1, -6, -4);
  texts_.Draw(painter, QPointF(left, 1), ShownText());
  if (trace_.Reads.empty()) return;
  const auto y = [&](double value) {
    return plot.bottom() - (value - trace_.Low) / (trace_.High - trace_.Low) * plot.height();
  };
  const auto number = [&](double value, double middle) {
    const QString text = FromProgram(SavedText(value));
    texts_.Draw(painter, QPointF(left - 6 - texts_.Width(text), std::round(middle - texts_.Height() / 2.0)),
                text);
  };
  if (trace_.Full) {
    painter.fillRect(QRectF(QPointF(plot.left(), y(trace_.Mean + trace_.Sd)),
                            QPointF(plot.right(), y(trace_.Mean - trace_.Sd))),
                     Paint(scheme.Band));
    painter.drawLine(QPointF(plot.left(), y(trace_.Mean)), QPointF(plot.right(), y(trace_.Mean)));
  }
  number(trace_.High, plot.top());
  number(trace_.Low, plot.bottom() - 2);
  DrawThinFrame(painter, plot.adjusted(0, 0, 1, 1), Paint(scheme.Edge));
  std::vector<QPointF> dots;
  const double step = plot.width() / static_cast<double>(std::max(1, trace_.Wanted));
  for (std::size_t i = 0; i < trace_.Reads.size(); ++i)
    dots.emplace_back(plot.left() + (static_cast<double>(i) + 0.5) * step,
                      y(static_cast<double>(trace_.Reads[i])));
  PaintReads(painter, dots);
}

// Two thin lines and a picture of a dot: one wide line and a round dot each take Qt five times as long, at
// every reading.
void StabilityView::PaintReads(QPainter& painter, const std::vector<QPointF>& dots) {
  constexpr double kRadius = 3.2;
  constexpr int kSide = 8;
  const QColor color = Paint(SchemeFor(palette()).Highlight);
  const double scale = devicePixelRatioF();
  if (dot_.isNull() || dot_.devicePixelRatio() != scale || dotColor_ != color) {
    dotColor_ = color;
    dot_ = QPixmap(QSize(kSide, kSide) * scale);
    dot_.setDevicePixelRatio(scale);
    dot_.fill(Qt::transparent);
    QPainter round(&dot_);
    round.setRenderHint(QPainter::Antialiasing);
    round.setPen(Qt::NoPen);
    round.setBrush(color);
    round.drawEllipse(QPointF(kSide / 2.0, kSide / 2.0), kRadius, kRadius);
  }
  QPen pen(color, 1);
  pen.setCosmetic(true);
  painter.setPen(pen);
  painter.setRenderHint(QPainter::Antialiasing);
  QList<QLineF> lines;
  for (std::size_t i = 1; i < dots.size(); ++i) lines << QLineF(dots[i - 1], dots[i]);
  painter.drawLines(lines);
  for (const QPointF& dot : dots) painter.drawPixmap(dot - QPointF(kSide / 2.0, kSide / 2.0), dot_);
}

}  // namespace kelp
