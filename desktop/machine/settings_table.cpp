// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/settings_table.hpp"

#include <QComboBox>
#include <QHeaderView>
#include <QSet>

namespace kelp {

QTableWidget* MakeTable(const QString& name, const QStringList& headings) {
  auto* table = new QTableWidget(0, 2);
  table->setAccessibleName(name);
  table->setHorizontalHeaderLabels(headings);
  table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  table->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
  table->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
  table->setMinimumHeight(4 * table->fontMetrics().height());
  table->verticalHeader()->hide();
  table->setSelectionMode(QAbstractItemView::SingleSelection);
  table->setTabKeyNavigation(false);
  return table;
}

QString CellText(const QTableWidget& table, int row, int col) {
  if (const auto* combo = qobject_cast<QComboBox*>(table.cellWidget(row, col)))
    return combo->currentText().trimmed();
  const QTableWidgetItem* item = table.item(row, col);
  return item == nullptr ? QString() : item->text().trimmed();
}

QString ColumnProblem(const QTableWidget& table, const QString& what,
                      const std::function<bool(const QString&)>& good) {
  QSet<QString> seen;
  for (int row = 0; row < table.rowCount(); ++row) {
    const QString key = CellText(table, row, 0).toLower();
    if (CellText(table, row, 1).isEmpty()) continue;
    if (!good(key)) return QStringLiteral("\"%1\" is no %2.").arg(key, what);
    if (seen.contains(key)) return QStringLiteral("The %1 %2 is there twice.").arg(what, key);
    seen.insert(key);
  }
  return {};
}

}  // namespace kelp
