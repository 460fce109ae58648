// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/review/text_table.hpp"

#include <QHeaderView>
#include <algorithm>

namespace kelp {

void TextTableModel::Show(std::vector<QStringList> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

int TextTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int TextTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(headings_.size());
}

QVariant TextTableModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  const QString text = rows_[static_cast<std::size_t>(index.row())].value(index.column());
  // Texts of files are no markup.
  return role == Qt::ToolTipRole ? "<span>" + text.toHtmlEscaped() + "</span>" : text;
}

QVariant TextTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
  return headings_.value(section);
}

TextTable::TextTable(QWidget* parent, const QStringList& headings)
    : QTableView(parent), model_(new TextTableModel(this, headings)) {
  setModel(model_);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setAlternatingRowColors(true);
  verticalHeader()->hide();
  horizontalHeader()->setStretchLastSection(true);
  horizontalHeader()->setHighlightSections(false);
}

void TextTable::Show(std::vector<QStringList> rows) {
  model_->Show(std::move(rows));
  // The first rows tell how wide the columns are; two thousand of them would keep the analyst waiting.
  horizontalHeader()->setResizeContentsPrecision(50);
  for (int col = 0; col + 1 < model_->columnCount(); ++col) resizeColumnToContents(col);
}

void TextTable::Choose(int row) {
  selectionModel()->setCurrentIndex(model_->index(row, 0),
                                    QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

std::vector<int> TextTable::Chosen() const {
  std::vector<int> rows;
  for (const QModelIndex& index : selectionModel()->selectedRows()) rows.push_back(index.row());
  std::sort(rows.begin(), rows.end());
  return rows;
}

}  // namespace kelp
