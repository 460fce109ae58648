// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/grid_view.hpp"

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <array>

#include "core/screens/acquire.hpp"
#include "desktop/windows/accessible.hpp"
#include "desktop/windows/cell_painter.hpp"
#include "desktop/windows/look.hpp"

namespace kelp {

namespace {

// The digits that a column needs at the least, where the grid's own widths do not fit: no value is cut.
constexpr std::array<int, 14> kLeastDigits = {4, 3, 4, 7, 7, 6, 6, 4, 4, 4, 4, 3, 5, 5};

}  // namespace

GridView::GridView(const Grid& grid, FocusPlace place, Report report, QWidget* parent)
    : QTableView(parent),
      grid_(grid),
      place_(std::move(place)),
      report_(std::move(report)),
      model_(new GridModel(grid, this)) {
  setModel(model_);
  setItemDelegate(new CellPainter(this));
  // The program types into the cell itself, key by key.
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ContiguousSelection);
  setTabKeyNavigation(false);
  setCornerButtonEnabled(false);
  setHorizontalScrollMode(ScrollPerPixel);
  setWordWrap(false);
  setShowGrid(false);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setMinimumSectionSize(fontMetrics().height());
  horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
  verticalHeader()->setHighlightSections(false);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  NameScrollBars(this);
  SetColumnWidths();
  TakeCurrentCell();
  connect(this, &QAbstractItemView::doubleClicked, this, [this] { ReportDoubleClick(); });
}

void GridView::ShowChanges() {
  model_->ShowChanges();
  TakeCurrentCell();
}

void GridView::SetMarks(int row, int col) {
  if (row == model_->MarkedRow() && col == markedCol_) return;
  const bool moved = row != model_->MarkedRow();
  markedCol_ = col;
  model_->SetMarkedRow(row);
  if (row < 1) return;
  for (int c = kColRb; c <= kColRa; ++c) update(model_->index(row - 1, c));
  if (moved) scrollTo(model_->index(row - 1, std::max(col, 0)));
}

void GridView::ReportDoubleClick() {
  const QModelIndex cell = currentIndex();
  if (!cell.isValid()) return;
  report_({.Kind = EventKind::DblClick, .Place = place_, .Row = cell.row() + 1, .Col = cell.column()});
}

bool GridView::SelectsBlock() const {
  const QItemSelection& ranges = selectionModel()->selection();
  return !ranges.isEmpty() && (ranges.first().width() > 1 || ranges.first().height() > 1);
}

// As spreadsheets do: tabs between cells, line breaks between rows.
void GridView::Copy() const {
  QModelIndexList cells = selectionModel()->selectedIndexes();
  if (cells.isEmpty() && currentIndex().isValid()) cells << currentIndex();
  std::sort(cells.begin(), cells.end());
  QString text;
  for (qsizetype i = 0; i < cells.size(); ++i) {
    if (i > 0) text += cells[i].row() == cells[i - 1].row() ? '\t' : '\n';
    text += cells[i].data().toString();
  }
  QApplication::clipboard()->setText(text);
}

void GridView::Paste() {
  QModelIndex first = currentIndex();
  for (const QModelIndex& cell : selectionModel()->selectedIndexes())
    first = first.siblingAtColumn(std::min(first.column(), cell.column()))
                .siblingAtRow(std::min(first.row(), cell.row()));
  if (!first.isValid()) return;
  report_({.Kind = EventKind::Paste,
           .Place = place_,
           .Text = ToProgram(QApplication::clipboard()->text()),
           .Row = first.row() + 1,
           .Col = first.column()});
}

void GridView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy))
    Copy();
  else if (event->matches(QKeySequence::Paste))
    Paste();
  else
    QTableView::keyPressEvent(event);
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  SetColumnWidths();
  if (const int row = model_->MarkedRow(); row > 0) scrollTo(model_->index(row - 1, std::max(markedCol_, 0)));
}

void GridView::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  viewport()->update(visualRect(currentIndex()));
}

void GridView::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  viewport()->update(visualRect(currentIndex()));
}

void GridView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange) SetColumnWidths();
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  viewport()->update(visualRect(previous));
  viewport()->update(visualRect(current));
  if (taking_ || !current.isValid()) return;
  report_(
      {.Kind = EventKind::SelectCell, .Place = place_, .Row = current.row() + 1, .Col = current.column()});
}

// 100 twips of the grid's own widths hold a digit. Where that is too wide for the window every column gets
// what its longest value needs; the comments share what is left.
void GridView::SetColumnWidths() {
  const int height = fontMetrics().height() + 6;
  verticalHeader()->setDefaultSectionSize(height);
  verticalHeader()->setFixedWidth(height * 3 / 4);
  const auto twips = [&](std::size_t col) { return col < grid_.ColWidth.size() ? grid_.ColWidth[col] : 0; };
  const auto width = [&](int col, bool least) {
    const auto at = static_cast<std::size_t>(col);
    const int own = twips(at) == 0 ? 8 : twips(at) / 100;
    const int header = fontMetrics().horizontalAdvance(FromProgram(grid_.Text(0, col))) + kCellPad + 2;
    return std::max(header, DigitsWidth(*this, least ? std::min(own, kLeastDigits[at]) : own) + 2 * kCellPad);
  };
  int wanted = 0;
  for (int col = 0; col < grid_.Cols; ++col) wanted += width(col, false);
  const bool least = wanted > viewport()->width();
  for (int col = 0; col < grid_.Cols; ++col) {
    setColumnWidth(col, width(col, least));
    if (twips(static_cast<std::size_t>(col)) == 0)
      horizontalHeader()->setSectionResizeMode(col, QHeaderView::Stretch);
  }
}

void GridView::TakeCurrentCell() {
  const QModelIndex cell = model_->index(grid_.Row - 1, grid_.Col);
  if (!cell.isValid() || cell == currentIndex()) return;
  taking_ = true;
  setCurrentIndex(cell);
  taking_ = false;
}

}  // namespace kelp
