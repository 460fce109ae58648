// SPDX-License-Identifier: GPL-3.0-or-later
// The tables of two columns in the machine settings: what stands for what.
#pragma once

#include <QTableWidget>
#include <functional>

namespace kelp {

/// A table without rows; `name` is for those who can't see it.
QTableWidget* MakeTable(const QString& name, const QStringList& headings);

/// The text of a cell without blanks around it, of the combo box in it too.
QString CellText(const QTableWidget& table, int row, int col);

/// What is wrong with the first column of the rows that have a second one, or nothing: a key that is not
/// `good`, or one that is there twice. `what` names the keys.
QString ColumnProblem(const QTableWidget& table, const QString& what,
                      const std::function<bool(const QString&)>& good);

}  // namespace kelp
