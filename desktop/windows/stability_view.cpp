// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/stability_view.hpp"

#include <QPainter>

#include "core/numbers.hpp"
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
  const QFont small = Scaled(font(), 0.87);
  const QFontMetrics metrics(small);
  painter.fillRect(rect(), Paint(scheme.ChartGround));
  painter.setFont(small);
  painter.setPen(Paint(scheme.ChartInk));
  // As wide as in the strip chart above, so that the two stand in line.
  const int left = metrics.horizontalAdvance("00.0000") + 8;
  const QRect plot = rect().adjusted(left, metrics.height() + 1, -6, -4);
  painter.drawText(QRect(left, 1, width() - left - 6, metrics.height()), Qt::AlignLeft, ShownText());
  if (trace_.Reads.empty()) return;
  const auto y = [&](double value) {
    return plot.bottom() - (value - trace_.Low) / (trace_.High - trace_.Low) * plot.height();
  };
  const auto number = [&](double value, double at) {
    painter.drawText(QRectF(0, at - metrics.height() / 2.0, left - 6, metrics.height()),
                     Qt::AlignRight | Qt::AlignVCenter, FromProgram(SavedText(value)));
  };
  if (trace_.Full) {
    painter.fillRect(QRectF(QPointF(plot.left(), y(trace_.Mean + trace_.Sd)),
                            QPointF(plot.right(), y(trace_.Mean - trace_.Sd))),
                     Paint(scheme.Band));
    painter.drawLine(QPointF(plot.left(), y(trace_.Mean)), QPointF(plot.right(), y(trace_.Mean)));
  }
  number(trace_.High, plot.top());
  number(trace_.Low, plot.bottom() - 2);
  painter.setPen(QPen(Paint(scheme.Edge), 1));
  painter.drawRect(plot);
  painter.setRenderHint(QPainter::Antialiasing);
  QPolygonF line;
  const double step = plot.width() / static_cast<double>(std::max(1, trace_.Wanted));
  for (std::size_t i = 0; i < trace_.Reads.size(); ++i)
    line << QPointF(plot.left() + (static_cast<double>(i) + 0.5) * step,
                    y(static_cast<double>(trace_.Reads[i])));
  // Single lines with square ends: one path of them all takes Qt ten times as long, at every reading.
  painter.setPen(QPen(Paint(scheme.Highlight), 1.6, Qt::SolidLine, Qt::SquareCap));
  for (qsizetype i = 1; i < line.size(); ++i) painter.drawLine(line[i - 1], line[i]);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Paint(scheme.Highlight));
  for (const QPointF& dot : line) painter.drawEllipse(dot, 3.2, 3.2);
}

}  // namespace kelp
