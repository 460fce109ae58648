#include "desktop/windows/grid_view.hpp"

#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>

#include "core/screens/acquire.hpp"
#include "desktop/windows/look.hpp"

namespace kelp {

namespace {

constexpr int kCellPad = 4;
constexpr QRgb kLine = 0xFFC6C6C6;

// Draws a cell with the colours of the grid, whatever the desktop's scheme is: dark text on its light
// cells.
class CellPainter : public QStyledItemDelegate {
 public:
  explicit CellPainter(GridView* view) : QStyledItemDelegate(view), view_(view) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const bool marked = index.row() + 1 == view_->MarkedRow();
    const QColor accent = option.palette.color(QPalette::Highlight);
    auto back = index.data(Qt::BackgroundRole).value<QColor>();
    if (marked) back = Mixed(back, accent, 0.22);
    painter->fillRect(option.rect, back);
    const QString text = index.data(Qt::DisplayRole).toString();
    painter->setFont(Scaled(option.font, 1, marked));
    if (index.column() == kColQc && !text.isEmpty())
      DrawFlag(painter, option, text);
    else
      DrawText(painter, option, index, text);
    if (marked) {
      painter->fillRect(QRect(option.rect.left(), option.rect.top(), option.rect.width(), 2), accent);
      painter->fillRect(QRect(option.rect.left(), option.rect.bottom() - 1, option.rect.width(), 2), accent);
    }
    painter->fillRect(QRect(option.rect.right(), option.rect.top(), 1, option.rect.height()), QColor(kLine));
    if (!marked)
      painter->fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1),
                        QColor(kLine));
    DrawFrames(painter, option, index, marked && index.column() == view_->MarkedCol());
  }

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& /*index*/) const override {
    return {DigitsWidth(*view_, 7) + 2 * kCellPad, option.fontMetrics.height() + 6};
  }

 private:
  static void DrawText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                       const QString& text) {
    painter->setPen(Qt::black);
    const QRect inner = option.rect.adjusted(kCellPad, 0, -kCellPad, 0);
    painter->drawText(inner, index.data(Qt::TextAlignmentRole).toInt(),
                      painter->fontMetrics().elidedText(text, Qt::ElideRight, inner.width()));
  }

  // A flag is a dark plate with light, bold asterisks: it is seen without its colour too.
  static void DrawFlag(QPainter* painter, const QStyleOptionViewItem& option, const QString& text) {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(text.size() >= 3 ? 0x9c1c1c : 0x8a4b00));
    painter->drawRoundedRect(QRectF(option.rect).adjusted(2.5, 2.5, -3.5, -3.5), 3, 3);
    painter->setPen(Qt::white);
    painter->setFont(Scaled(option.font, 1, true));
    // An asterisk stands high on its line.
    painter->drawText(option.rect.adjusted(0, option.rect.height() / 6, 0, 0), Qt::AlignCenter, text);
    painter->restore();
  }

  void DrawFrames(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                  bool next) const {
    const QColor accent = option.palette.color(QPalette::Highlight);
    if (next) {
      painter->setPen(QPen(accent.darker(120), 3));
      painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
    }
    if (index != view_->currentIndex()) return;
    painter->setPen(view_->hasFocus() ? QPen(Qt::black, 2) : QPen(QColor(0x707070), 1, Qt::DotLine));
    painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
  }

  GridView* view_;
};

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
  setSelectionMode(NoSelection);
  setTabKeyNavigation(false);
  setCornerButtonEnabled(false);
  setHorizontalScrollMode(ScrollPerPixel);
  setWordWrap(false);
  setShowGrid(false);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
  verticalHeader()->setHighlightSections(false);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
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

// 100 twips of the grid's own widths hold a digit. The comments share what is left.
void GridView::SetColumnWidths() {
  const int height = fontMetrics().height() + 6;
  verticalHeader()->setDefaultSectionSize(height);
  verticalHeader()->setFixedWidth(height * 3 / 4);
  for (int col = 0; col < grid_.Cols; ++col) {
    const auto at = static_cast<std::size_t>(col);
    const int twips = at < grid_.ColWidth.size() ? grid_.ColWidth[at] : 0;
    const int header = fontMetrics().horizontalAdvance(FromProgram(grid_.Text(0, col))) + 2 * kCellPad + 2;
    setColumnWidth(col, std::max(header, DigitsWidth(*this, twips == 0 ? 8 : twips / 100) + 2 * kCellPad));
    if (twips == 0) horizontalHeader()->setSectionResizeMode(col, QHeaderView::Stretch);
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
