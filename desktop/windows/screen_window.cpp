// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/screen_window.hpp"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QGridLayout>
#include <QScrollArea>
#include <algorithm>

#include "desktop/windows/look.hpp"

namespace kelp {

ScreenWindow::ScreenWindow(const Kelp& kelp, std::string screen, const Window& form, Report report)
    : Controls(this, std::move(screen), std::move(report)), kelp_(kelp), form_(form) {
  setObjectName(FromProgram(Screen()));
}

void ScreenWindow::ShowChanges() {
  if (form_.Caption != shownCaption_) {
    shownCaption_ = form_.Caption;
    setWindowTitle(FromProgram(shownCaption_));
  }
  Controls.ShowChanges();
}

QSize ScreenWindow::sizeHint() const {
  QSize size = QWidget::sizeHint();
  for (const QScrollArea* scroll : findChildren<QScrollArea*>())
    size += scroll->widget()->sizeHint().expandedTo(scroll->sizeHint()) - scroll->sizeHint();
  return size;
}

void ScreenWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(kelp_.Ended);
  if (!kelp_.Ended) Controls.Reporter()({.Kind = EventKind::Close, .Place = {Screen(), ""}});
}

void AddField(QGridLayout* layout, int row, int col, const Binder& controls, const std::string& label,
              int labelIndex, const std::string& box, int boxIndex) {
  controls.Pair(label, labelIndex, box, boxIndex);
  layout->addWidget(controls(label, labelIndex), row, col);
  layout->addWidget(controls(box, boxIndex), row, col + 1);
}

void SetTabChain(const std::vector<QWidget*>& widgets) {
  for (std::size_t i = 1; i < widgets.size(); ++i) QWidget::setTabOrder(widgets[i - 1], widgets[i]);
}

QBoxLayout* MakeButtonRow(const std::vector<QWidget*>& buttons) {
  auto* row = new QHBoxLayout;
  row->addStretch();
  int width = 0;
  for (const QWidget* button : buttons) width = std::max(width, button->sizeHint().width());
  for (QWidget* button : buttons) {
    button->setMinimumWidth(width);
    button->setMinimumHeight(button->fontMetrics().height() * 2);  // for gloves
    row->addWidget(button);
  }
  return row;
}

}  // namespace kelp
