// The fluorometer's side of the acquisition screen: the average reading large enough to be read from
// across the bench, its SD and read counter beside their criteria, the chart, what to do now, and the
// buttons that do it.
#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "desktop/windows/frm_acquire.hpp"
#include "desktop/windows/look.hpp"
#include "desktop/windows/strip_chart_view.hpp"

namespace kelp {

namespace {

constexpr int kCounter = 0;
constexpr int kRawReading = 1;
constexpr int kSd = 2;
constexpr int kHistoryColumns = 5;

void Fade(QWidget* widget) { SetInk(widget, FaintText); }

QLabel* MakeCaption(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  Fade(label);
  return label;
}

}  // namespace

QWidget* FrmAcquireWindow::MakeFluorometer() {
  auto* layout = new QVBoxLayout(fluorometer_);
  layout->setContentsMargins(8, 6, 8, 8);
  layout->setSpacing(7);
  layout->addWidget(MakeReading(), 5);
  layout->addWidget(chart_, 4);
  layout->addWidget(Controls("Text4"));
  layout->addLayout(MakeRunButtons());
  layout->addLayout(MakeStepSelector());
  layout->addLayout(MakeHistory());
  return fluorometer_;
}

QWidget* FrmAcquireWindow::MakeReading() {
  auto* panel = new QFrame(fluorometer_);
  panel->setFrameShape(QFrame::StyledPanel);
  panel->setBackgroundRole(QPalette::Base);
  panel->setAutoFillBackground(true);
  sdSign_ = new Sign(panel);
  readsSign_ = new Sign(panel);
  for (int i = 0; i < kelp_.frmAcquire.lblStats.kCount; ++i) Fade(Controls("lblStats", i));
  Fade(Controls("lblBlank", kBoxAutoCriterion));
  Fade(Controls("txtBlank", kBoxAutoCriterion));
  Fade(Controls("Text1"));

  auto* stats = new QGridLayout;
  stats->setHorizontalSpacing(6);
  stats->setVerticalSpacing(1);
  const auto row = [&](int at, int col, int index, QWidget* beside) {
    stats->addWidget(Controls("lblStats", index), at, col);
    stats->addWidget(Controls("txtStats", index), at, col + 1);
    stats->addWidget(beside, at, col + 2);
  };
  row(0, 0, kSd, sdSign_);
  row(0, 4, kCounter, readsSign_);
  row(1, 0, kRawReading, Controls("Text1"));
  stats->addWidget(Controls("lblBlank", kBoxAutoCriterion), 1, 4);
  stats->addWidget(Controls("txtBlank", kBoxAutoCriterion), 1, 5, 1, 2);
  stats->setColumnStretch(2, 1);

  auto* layout = new QVBoxLayout(panel);
  layout->setContentsMargins(8, 4, 8, 6);
  layout->setSpacing(2);
  step_ = new ValueBox(0, ValueBox::Frame::None, Qt::AlignLeft, panel);
  step_->setAccessibleName("Step");
  SetLook(step_, 1.1, true);
  Fade(step_);
  layout->addWidget(step_);
  layout->addWidget(Controls("txtReading"), 1);
  layout->addLayout(stats);
  return panel;
}

QLayout* FrmAcquireWindow::MakeRunButtons() const {
  QWidget* start = Controls("Command1");
  SetLook(start, 1.5, true);
  // The caption is the sub-step and changes all the time; the button stands still.
  start->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  start->setMinimumHeight(start->fontMetrics().height() * 2);
  auto* others = new QHBoxLayout;
  others->setSpacing(4);
  for (const char* button : {"Command2", "Command4", "Command5", "cmdUndo", "Command6", "Command3"}) {
    QWidget* widget = Controls(button);
    // [Pause] and [Resume] take the same room.
    widget->setMinimumWidth(
        std::max(widget->sizeHint().width(), widget->fontMetrics().averageCharWidth() * 11));
    others->addWidget(widget, 1);
  }
  auto* layout = new QVBoxLayout;
  layout->setSpacing(5);
  layout->addWidget(start);
  layout->addLayout(others);
  return layout;
}

QLayout* FrmAcquireWindow::MakeStepSelector() const {
  auto* layout = new QHBoxLayout;
  layout->setSpacing(8);
  for (int i = 0; i < kelp_.frmAcquire.Option1.kCount; ++i) layout->addWidget(Controls("Option1", i));
  layout->addStretch();
  layout->addWidget(Controls("Check1"));
  return layout;
}

QLayout* FrmAcquireWindow::MakeHistory() {
  auto* layout = new QGridLayout;
  layout->setSpacing(2);
  const auto fill = [&](const char* control, int first, int count, int top) {
    for (int i = 0; i < count; ++i)
      layout->addWidget(Controls(control, first + i), top + i / kHistoryColumns, 1 + i % kHistoryColumns);
  };
  layout->addWidget(MakeCaption("Reads", fluorometer_), 0, 0);
  fill("txtRead", 0, 10, 0);
  layout->setRowMinimumHeight(2, 3);
  layout->addWidget(MakeCaption("Means", fluorometer_), 3, 0);
  fill("txtMean", 1, 20, 3);
  for (int i = 1; i <= kHistoryColumns; ++i) layout->setColumnStretch(i, 1);
  return layout;
}

}  // namespace kelp
