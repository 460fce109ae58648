// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/cell_painter.hpp"

#include <QPainter>

#include "core/screens/acquire.hpp"
#include "desktop/windows/focus_style.hpp"
#include "desktop/windows/grid_view.hpp"
#include "desktop/windows/look.hpp"

namespace kelp {

namespace {

constexpr int kCellPad = GridView::kCellPad;

void DrawText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
              const QString& text) {
  painter->setPen(Paint(SchemeFor(option.palette).CellText));
  const QRect inner = option.rect.adjusted(kCellPad, 0, -kCellPad, 0);
  painter->drawText(inner, index.data(Qt::TextAlignmentRole).toInt(),
                    painter->fontMetrics().elidedText(text, Qt::ElideRight, inner.width()));
}

// A flag is a plate with bold asterisks: it is seen without its colour too.
void DrawFlag(QPainter* painter, const QStyleOptionViewItem& option, const QString& text) {
  const Scheme& scheme = SchemeFor(option.palette);
  const Inked colors = text.size() >= 3 ? scheme.WorseFlag : scheme.Flag;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(Paint(colors.Ground));
  painter->drawRoundedRect(QRectF(option.rect).adjusted(1.5, 2.5, -2.5, -3.5), 3, 3);
  painter->setPen(Paint(colors.Ink));
  painter->setFont(Scaled(option.font, 1, true));
  // An asterisk stands high on its line.
  painter->drawText(option.rect.adjusted(0, option.rect.height() / 6, 0, 0), Qt::AlignCenter, text);
  painter->restore();
}

}  // namespace

CellPainter::CellPainter(GridView* view) : QStyledItemDelegate(view), view_(view) {}

void CellPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  const Scheme& scheme = SchemeFor(option.palette);
  const bool marked = index.row() + 1 == view_->MarkedRow();
  const QRect& cell = option.rect;
  QColor back = Paint(
      CellGround(index.data(Qt::BackgroundRole).value<QColor>().rgb() & 0xFFFFFFU, IsDark(option.palette)));
  if (marked) back = Mixed(back, Paint(scheme.Next), 0.22);
  if ((option.state & QStyle::State_Selected) != 0 && view_->SelectsBlock())
    back = Mixed(back, Paint(scheme.Next), 0.35);
  painter->fillRect(cell, back);
  const QString text = index.data(Qt::DisplayRole).toString();
  painter->setFont(Scaled(option.font, 1, marked));
  if (index.column() == kColQc && !text.isEmpty())
    DrawFlag(painter, option, text);
  else
    DrawText(painter, option, index, text);
  if (marked) {
    painter->fillRect(QRect(cell.left(), cell.top(), cell.width(), 2), Paint(scheme.Next));
    painter->fillRect(QRect(cell.left(), cell.bottom() - 1, cell.width(), 2), Paint(scheme.Next));
  }
  const QColor line = Paint(scheme.CellLine);
  painter->fillRect(QRect(cell.right(), cell.top(), 1, cell.height()), line);
  if (!marked) painter->fillRect(QRect(cell.left(), cell.bottom(), cell.width(), 1), line);
  DrawFrames(painter, option, index, marked && index.column() == view_->MarkedCol());
}

QSize CellPainter::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const {
  return {DigitsWidth(*view_, 7) + 2 * kCellPad, option.fontMetrics.height() + 6};
}

// The cell that the next value goes to has a coloured frame and an arrow; the ring of the focus has neither.
void CellPainter::DrawFrames(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                             bool next) const {
  const Scheme& scheme = SchemeFor(option.palette);
  if (next) {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(Paint(scheme.Next), 3));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
    const double middle = option.rect.center().y() + 0.5;
    const double half = option.rect.height() / 4.0;
    const double left = option.rect.left() + 4;
    painter->setPen(Qt::NoPen);
    painter->setBrush(Paint(scheme.Next));
    painter->drawPolygon(
        QPolygonF({{left, middle - half}, {left + 1.4 * half, middle}, {left, middle + half}}));
    painter->restore();
  }
  if (index != view_->currentIndex()) return;
  if (view_->hasFocus()) {
    DrawFocusRing(*painter, option.rect.adjusted(next ? 3 : 0, next ? 3 : 0, next ? -4 : -1, next ? -4 : -1),
                  option.palette);
    return;
  }
  painter->setPen(QPen(Paint(scheme.Faint), 1, Qt::DotLine));
  painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
}

}  // namespace kelp
