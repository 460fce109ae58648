// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/grid_model.hpp"

#include <QColor>

#include "core/screens/acquire.hpp"
#include "desktop/windows/look.hpp"

namespace kelp {

namespace {

Qt::Alignment AlignmentOf(int col) {
  if (col == kColFiltCom || col == kColReadCom) return Qt::AlignLeft | Qt::AlignVCenter;
  return col == kColQc ? Qt::AlignCenter : Qt::AlignRight | Qt::AlignVCenter;
}

}  // namespace

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : grid_.Rows - 1; }
int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : grid_.Cols; }

QVariant GridModel::data(const QModelIndex& index, int role) const {
  // What ShowChanges announced: while a value waits for the disk, it is not to be seen yet.
  const Grid::Cell& cell = shown_.At(index.row() + 1, index.column());
  switch (role) {
    case Qt::DisplayRole: return FromProgram(cell.Text);
    case Qt::BackgroundRole: return QColor::fromRgb(cell.BackColor);
    case Qt::TextAlignmentRole: return int(AlignmentOf(index.column()));
    case Qt::ToolTipRole:
      // A remark is longer than its column.
      return PlainToolTip(index.column() >= kColFiltCom && !cell.Text.empty() ? cell.Text
                                                                              : grid_.ToolTipText);
    case Qt::AccessibleTextRole:
      return QString("%1, row %2: %3")
          .arg(FromProgram(grid_.Text(0, index.column())))
          .arg(index.row() + 1)
          .arg(FromProgram(cell.Text));
    default: return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) {
    if (role == Qt::TextAlignmentRole) return int(Qt::AlignCenter);
    return role == Qt::DisplayRole ? QVariant(section + 1 == markedRow_ ? u"\u25B6"_qs : QString())
                                   : QVariant();
  }
  if (role == Qt::TextAlignmentRole) return int(AlignmentOf(section));
  return role == Qt::DisplayRole ? QVariant(FromProgram(grid_.Text(0, section))) : QVariant();
}

void GridModel::ShowChanges() {
  for (int row = 0; row < grid_.Rows; ++row) {
    int first = -1;
    int last = -1;
    for (int col = 0; col < grid_.Cols; ++col) {
      const Grid::Cell& now = grid_.At(row, col);
      Grid::Cell& shown = shown_.At(row, col);
      if (now.Text == shown.Text && now.BackColor == shown.BackColor) continue;
      shown = now;
      if (first < 0) first = col;
      last = col;
    }
    if (first < 0) continue;
    if (row == 0)
      emit headerDataChanged(Qt::Horizontal, first, last);
    else
      emit dataChanged(index(row - 1, first), index(row - 1, last));
  }
}

void GridModel::SetMarkedRow(int row) {
  if (row == markedRow_) return;
  const int before = markedRow_;
  markedRow_ = row;
  for (const int changed : {before, row}) {
    if (changed < 1 || changed >= grid_.Rows) continue;
    emit headerDataChanged(Qt::Vertical, changed - 1, changed - 1);
    emit dataChanged(index(changed - 1, 0), index(changed - 1, grid_.Cols - 1));
  }
}

}  // namespace kelp
