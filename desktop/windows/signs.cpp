// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/signs.hpp"

#include <QPainter>
#include <QPainterPath>

#include "desktop/windows/accessible.hpp"
#include "desktop/windows/look.hpp"

namespace kelp {

namespace {

QPolygonF Points(const QRectF& box, std::initializer_list<QPointF> shares) {
  QPolygonF points;
  for (const QPointF& share : shares)
    points << box.topLeft() + QPointF(share.x() * box.width(), share.y() * box.height());
  return points;
}

// The shape of a state, in the ink of its plate.
void PaintShape(QPainter& painter, SaveState state, const QRectF& box, const QColor& ink) {
  painter.setPen(QPen(ink, box.width() / 8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  switch (state) {
    case SaveState::Load:  // an arrow down into the holder
      painter.drawPolyline(Points(box, {{0.1, 0.55}, {0.1, 0.95}, {0.9, 0.95}, {0.9, 0.55}}));
      painter.drawPolyline(Points(box, {{0.5, 0.05}, {0.5, 0.7}}));
      painter.drawPolyline(Points(box, {{0.28, 0.48}, {0.5, 0.7}, {0.72, 0.48}}));
      break;
    case SaveState::Saved:  // a box with a bar: put away
      painter.drawRect(QRectF(Points(box, {{0.08, 0.3}, {0.92, 0.92}}).boundingRect()));
      painter.drawPolyline(Points(box, {{0.0, 0.12}, {1.0, 0.12}}));
      painter.drawPolyline(Points(box, {{0.36, 0.55}, {0.64, 0.55}}));
      break;
    case SaveState::Reading:  // three dots
      painter.setBrush(ink);
      for (const double x : {0.12, 0.5, 0.88})
        painter.drawEllipse(Points(box, {{x, 0.5}}).first(), box.width() * 0.07, box.width() * 0.07);
      break;
    case SaveState::NotSteady:  // a restless line
      painter.drawPolyline(
          Points(box, {{0, 0.55}, {0.2, 0.1}, {0.4, 0.9}, {0.6, 0.15}, {0.8, 0.85}, {1, 0.4}}));
      break;
    case SaveState::CanSave:  // a tick
      painter.setPen(QPen(ink, box.width() / 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
      painter.drawPolyline(Points(box, {{0.08, 0.55}, {0.38, 0.86}, {0.94, 0.14}}));
      break;
    case SaveState::Acid: {  // a drop
      QPainterPath drop(Points(box, {{0.5, 0.0}}).first());
      const auto at = [&](double x, double y) { return Points(box, {{x, y}}).first(); };
      drop.cubicTo(at(0.55, 0.25), at(0.9, 0.45), at(0.9, 0.68));
      drop.cubicTo(at(0.9, 1.1), at(0.1, 1.1), at(0.1, 0.68));
      drop.cubicTo(at(0.1, 0.45), at(0.45, 0.25), at(0.5, 0.0));
      painter.fillPath(drop, ink);
      break;
    }
    case SaveState::Paused:
      painter.fillRect(Points(box, {{0.2, 0.08}, {0.42, 0.92}}).boundingRect(), ink);
      painter.fillRect(Points(box, {{0.58, 0.08}, {0.8, 0.92}}).boundingRect(), ink);
      break;
    case SaveState::Idle: painter.drawEllipse(box.adjusted(2, 2, -2, -2)); break;
  }
}

}  // namespace

Sign::Sign(QWidget* parent) : ValueWidget(parent) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void Sign::Set(bool met, const QString& words) {
  if (met == met_ && words == words_) return;
  const bool longer = words.size() != words_.size();
  met_ = met;
  words_ = words;
  ShowText(words + (met ? ": met" : ": not met yet"));
  if (longer) updateGeometry();
}

QSize Sign::sizeHint() const {
  const QFontMetrics metrics(Scaled(font(), 1, true));
  return {metrics.height() + metrics.horizontalAdvance(words_) + 8, metrics.height() + 4};
}

void Sign::paintEvent(QPaintEvent* /*event*/) {
  if (words_.isEmpty()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double size = QFontMetricsF(font()).height() - 1;
  const QRectF disc(1, (height() - size) / 2, size, size);
  const QColor ink = met_ ? GoodInk(palette()) : FaintText(palette());
  painter.setPen(QPen(ink, 1.8));
  painter.setBrush(met_ ? QBrush(ink) : QBrush(Qt::NoBrush));
  painter.drawEllipse(disc.adjusted(1, 1, -1, -1));
  if (met_) {
    painter.setPen(QPen(palette().color(QPalette::Base), 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(Points(disc, {{0.28, 0.52}, {0.44, 0.68}, {0.73, 0.34}}));
  }
  painter.setPen(ink);
  painter.setFont(Scaled(font(), 1, met_));
  painter.drawText(rect().adjusted(static_cast<int>(size) + 6, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                   words_);
}

StatePlate::StatePlate(QWidget* parent) : ValueWidget(parent) {
  setAccessibleName("Save state");
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

void StatePlate::Set(SaveState state, const QString& words) {
  if (state == state_ && words == ShownText()) return;
  const bool turned = state != state_;
  state_ = state;
  ShowText(words);
  if (turned && (state == SaveState::Saved || state == SaveState::CanSave)) Announce(this);
}

// As wide as its longest words, so that nothing beside it moves.
QSize StatePlate::sizeHint() const {
  const QFontMetrics metrics(Scaled(font(), 1, true));
  return {metrics.horizontalAdvance("SAVED - LOAD NEXT") + metrics.height() * 3, metrics.height() * 3 / 2};
}

void StatePlate::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Inked colors = PlateOf(state_, IsDark(palette()));
  const QColor ink = Paint(colors.Ink);
  painter.setPen(state_ == SaveState::Acid ? QPen(ink, 2) : QPen(Qt::NoPen));
  painter.setBrush(Paint(colors.Ground));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 5, 5);
  const double size = height() * 0.5;
  const QRectF shape(height() * 0.3, (height() - size) / 2, size, size);
  PaintShape(painter, state_, shape, ink);
  const QRect words = rect().adjusted(static_cast<int>(shape.right() + size * 0.4), 0, -6, 0);
  painter.setFont(LargestFont(font(), 15, [&](const QFont& bold, double factor) {
    const QSize needed = QFontMetrics(bold).size(0, ShownText());
    return needed.boundedTo(words.size() / factor) == needed;
  }));
  painter.setPen(ink);
  painter.drawText(words, Qt::AlignVCenter | Qt::AlignLeft, ShownText());
}

}  // namespace kelp
