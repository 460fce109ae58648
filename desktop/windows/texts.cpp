// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/texts.hpp"

#include <QBoxLayout>
#include <QPainter>
#include <QPushButton>

#include "desktop/windows/accessible.hpp"
#include "desktop/windows/look.hpp"
#include "desktop/windows/wrap_text.hpp"

namespace kelp {

namespace {

constexpr int kPad = 5;
constexpr int kWrap = static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextWordWrap;

QColor AlarmInk(const QPalette& palette) { return Paint(SchemeFor(palette).Alarm.Ink); }

// Black and yellow bars at the left edge, as on what may burn the hands.
void PaintHazard(QPainter& painter, const QRect& bar, const Inked& colors) {
  painter.save();
  painter.setClipRect(bar);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(bar, Paint(colors.Ink));
  painter.setPen(QPen(Paint(colors.Ground), bar.width() / 2.0));
  for (int y = bar.top() - bar.width(); y < bar.bottom() + bar.width(); y += bar.width() * 3 / 2)
    painter.drawLine(bar.left() - 4, y + bar.width() + 4, bar.right() + 4, y - 4);
  painter.restore();
}

}  // namespace

InstructionBox::InstructionBox(QWidget* parent) : ValueWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void InstructionBox::SetAcid(bool acid, const QString& time) {
  if (acid == acid_ && time == time_) return;
  acid_ = acid;
  time_ = time;
  update();
}

void InstructionBox::ShowText(const QString& text) {
  const bool another = text != ShownText();
  ValueWidget::ShowText(text);
  if (another) Announce(this);
}

QSize InstructionBox::sizeHint() const {
  const QFontMetrics metrics(font());
  return {metrics.averageCharWidth() * 40, metrics.height() * 4};
}

QSize InstructionBox::minimumSizeHint() const {
  const QFontMetrics metrics(font());
  return {metrics.averageCharWidth() * 20, metrics.height() * 3};
}

void InstructionBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Scheme& scheme = SchemeFor(palette());
  const int bar = acid_ ? fontMetrics().height() * 3 / 2 : 4;
  if (acid_) {
    painter.fillRect(rect(), Paint(scheme.Acid.Ground));
    PaintHazard(painter, {0, 0, bar, height()}, scheme.Acid);
    painter.setPen(Paint(scheme.Acid.Ink));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  } else {
    painter.fillRect(rect(), Mixed(palette().color(QPalette::Base), Paint(scheme.Next), 0.10));
    painter.fillRect(QRect(0, 0, bar, height()), Paint(scheme.Next));
    painter.setPen(palette().color(QPalette::Text));
  }
  QRect inner = rect().adjusted(bar + 2 * kPad, 2, -kPad, -2);
  if (!time_.isEmpty()) {
    painter.setFont(Scaled(font(), 2, true));
    const int width = painter.fontMetrics().horizontalAdvance(time_) + 2 * kPad;
    painter.drawText(inner, static_cast<int>(Qt::AlignRight | Qt::AlignVCenter), time_);
    inner.setRight(inner.right() - width);
  }
  painter.setFont(LargestFont(font(), 18, [&](const QFont& bold, double factor) {
    const QRect room(QPoint(), inner.size() / factor);
    return room.contains(QFontMetrics(bold).boundingRect(room, kWrap, ShownText()));
  }));
  painter.drawText(inner, kWrap, ShownText());
}

AlarmBand::AlarmBand(QWidget* parent)
    : QFrame(parent), words_(new WrapText(this)), seen_(new QPushButton("S&een", this)) {
  SetLook(words_, 1.25, true);
  words_->SetColor(AlarmInk);
  words_->setAccessibleName("Alarm");
  setAccessibleName("Alarms");
  seen_->setToolTip("Ends the sound; the band stays until the cause is mended");
  seen_->setFocusPolicy(Qt::TabFocus);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(fontMetrics().height() * 3, 5, 8, 5);
  layout->addWidget(words_, 1);
  layout->addWidget(seen_);
  hide();
}

void AlarmBand::ShowAlarms(const std::vector<Alarm>& alarms, bool calling) {
  seen_->setVisible(calling);
  if (alarms == shown_) return;
  const bool more = alarms.size() > shown_.size();
  shown_ = alarms;
  QStringList lines;
  for (const Alarm& alarm : alarms) lines << FromProgram(alarm.Text);
  words_->resize(parentWidget()->width() - seen_->sizeHint().width() - fontMetrics().height() * 4,
                 words_->height());
  words_->ShowText(lines.join('\n'));
  setVisible(!alarms.empty());
  if (more) Announce(words_);
}

void AlarmBand::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Inked colors = SchemeFor(palette()).Alarm;
  painter.fillRect(rect(), Paint(colors.Ground));
  painter.setRenderHint(QPainter::Antialiasing);
  const double size = fontMetrics().height() * 1.9;
  const QPointF corner(fontMetrics().height() * 0.5, (height() - size) / 2);
  painter.setPen(QPen(Paint(colors.Ink), 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolygon(
      QPolygonF({corner + QPointF(size / 2, 0), corner + QPointF(size, size), corner + QPointF(0, size)}));
  painter.drawLine(corner + QPointF(size / 2, size * 0.38), corner + QPointF(size / 2, size * 0.66));
  painter.drawPoint(corner + QPointF(size / 2, size * 0.82));
}

}  // namespace kelp
