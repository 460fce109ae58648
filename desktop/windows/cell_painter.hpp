// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the cells of the sample grid, in the colours of the scheme: the reading columns lighter than the
// rest.
#pragma once

#include <QStyledItemDelegate>

namespace kelp {

class GridView;

class CellPainter : public QStyledItemDelegate {
 public:
  explicit CellPainter(GridView* view);

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  void DrawFrames(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                  bool next) const;

  GridView* view_;
};

}  // namespace kelp
