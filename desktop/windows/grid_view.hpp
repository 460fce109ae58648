// SPDX-License-Identifier: GPL-3.0-or-later
// The sample grid: the current sample is marked and scrolled into view, the cell that the next value
// goes to is framed, and quality flags stand out.
#pragma once

#include <QTableView>

#include "core/controls.hpp"
#include "desktop/windows/grid_model.hpp"
#include "desktop/windows/link.hpp"

namespace kelp {

class GridView : public QTableView {
 public:
  GridView(const Grid& grid, FocusPlace place, Report report, QWidget* parent);

  void ShowChanges();
  /// Marks the current sample's row (0 for none) and frames its column that waits for a value (-1 none).
  void SetMarks(int row, int col);
  [[nodiscard]] int MarkedRow() const { return model_->MarkedRow(); }
  [[nodiscard]] int MarkedCol() const { return markedCol_; }

  /// More than one cell is selected.
  [[nodiscard]] bool SelectsBlock() const;

  static constexpr int kCellPad = 3;

  /// The current cell as the operator's double click.
  void ReportDoubleClick();

 protected:
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  void Copy() const;
  void Paste();
  void SetColumnWidths();
  void TakeCurrentCell();

  const Grid& grid_;
  FocusPlace place_;
  Report report_;
  GridModel* model_;
  int markedCol_ = -1;
  bool taking_ = false;  ///< the current cell is set by the program
};

}  // namespace kelp
