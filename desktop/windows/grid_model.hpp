// SPDX-License-Identifier: GPL-3.0-or-later
// The core's grid as a table for Qt: row 0 of the grid is the table's header, row n its row n - 1.
#pragma once

#include <QAbstractTableModel>

#include "core/controls.hpp"

namespace kelp {

class GridModel : public QAbstractTableModel {
 public:
  explicit GridModel(const Grid& grid, QObject* parent)
      : QAbstractTableModel(parent), grid_(grid), shown_(grid) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  /// Announces the cells that changed since the last time.
  void ShowChanges();

  /// The grid row of the current sample, 0 for none; it is marked beside the row.
  void SetMarkedRow(int row);
  [[nodiscard]] int MarkedRow() const { return markedRow_; }

 private:
  const Grid& grid_;
  Grid shown_;
  int markedRow_ = 0;
};

}  // namespace kelp
