// SPDX-License-Identifier: GPL-3.0-or-later
// A table of texts that can be chosen from but not edited, as large as a cruise may be.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <QTableView>
#include <vector>

namespace kelp {

class TextTableModel : public QAbstractTableModel {
 public:
  TextTableModel(QObject* parent, QStringList headings)
      : QAbstractTableModel(parent), headings_(std::move(headings)) {}

  void Show(std::vector<QStringList> rows);
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QStringList headings_;
  std::vector<QStringList> rows_ = {};
};

/// A view of whole rows, the last column as wide as there is room.
class TextTable : public QTableView {
 public:
  TextTable(QWidget* parent, const QStringList& headings);
  void Show(std::vector<QStringList> rows);
  /// Chooses one row, whatever keys are held.
  void Choose(int row);
  /// The chosen rows, from the top down.
  [[nodiscard]] std::vector<int> Chosen() const;

 private:
  TextTableModel* model_;
};

}  // namespace kelp
