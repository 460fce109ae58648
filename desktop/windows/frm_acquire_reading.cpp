// SPDX-License-Identifier: GPL-3.0-or-later
// The line across the top of the acquisition screen, and the fluorometer's side: the average reading large
// enough to be read from across the bench, its SD and read counter beside their criteria, the charts, what to
// do now, and the buttons that do it.
#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "desktop/windows/frm_acquire.hpp"
#include "desktop/windows/look.hpp"
#include "desktop/windows/signs.hpp"
#include "desktop/windows/stability_view.hpp"
#include "desktop/windows/strip_chart_view.hpp"
#include "desktop/windows/texts.hpp"
#include "desktop/windows/wrap_text.hpp"

namespace kelp {

namespace {

constexpr int kCounter = 0;
constexpr int kRawReading = 1;
constexpr int kSd = 2;

void Fade(QWidget* widget) { SetInk(widget, FaintText); }

}  // namespace

QWidget* FrmAcquireWindow::MakeTopLine() {
  auto* line = topLine_ = new QWidget(this);
  step_ = new ValueBox(0, ValueBox::Frame::None, Qt::AlignLeft, line);
  step_->setAccessibleName("Step");
  SetLook(step_, 1, true);
  step_->FillWithText(3.2);
  last_ = new ValueBox(0, ValueBox::Frame::None, Qt::AlignRight, line);
  last_->setAccessibleName("Last result");
  last_->FillWithText(2.4);
  plate_ = new StatePlate(line);
  auto* layout = new QHBoxLayout(line);
  layout->setContentsMargins(10, 4, 8, 2);
  layout->setSpacing(10);
  layout->addWidget(step_, 5);
  layout->addWidget(last_, 3);
  layout->addWidget(plate_);
  GiveGround(line);
  return line;
}

QWidget* FrmAcquireWindow::MakeFluorometer() {
  auto* layout = new QVBoxLayout(fluorometer_);
  layout->setContentsMargins(5, 4, 5, 5);
  layout->setSpacing(5);
  layout->addWidget(MakeReading(), 6);
  layout->addWidget(chart_, 4);
  layout->addWidget(stability_, 3);
  layout->addWidget(instruction_);
  layout->addLayout(MakeRunButtons());
  layout->addLayout(MakeStepSelector());
  return fluorometer_;
}

QWidget* FrmAcquireWindow::MakeReading() {
  auto* panel = new QFrame(fluorometer_);
  panel->setFrameShape(QFrame::StyledPanel);
  panel->setBackgroundRole(QPalette::Base);
  panel->setAutoFillBackground(true);
  sdSign_ = new Sign(panel);
  readsSign_ = new Sign(panel);
  sdSign_->setAccessibleName("SD criterion");
  readsSign_->setAccessibleName("Reads needed");
  const auto caption = [](QWidget* label) {
    SetLook(label, 0.93);
    Fade(label);
  };
  for (int i = 0; i < kelp_.frmAcquire.lblStats.kCount; ++i) caption(Controls("lblStats", i));
  for (QWidget* sign : {sdSign_, readsSign_}) SetLook(sign, 0.93);
  caption(Controls("lblBlank", kBoxAutoCriterion));
  Fade(Controls("txtBlank", kBoxAutoCriterion));
  Fade(Controls("Text1"));

  auto* stats = new QGridLayout;
  stats->setHorizontalSpacing(4);
  stats->setVerticalSpacing(1);
  stats->setColumnStretch(2, 1);
  // Behind the two values each row has widths of its own: the instrument's line is to be seen whole.
  const auto row = [&](int at, int index, QWidget* beside, std::initializer_list<QWidget*> more) {
    stats->addWidget(Controls("lblStats", index), at, 0);
    stats->addWidget(Controls("txtStats", index), at, 1);
    auto* rest = new QHBoxLayout;
    rest->setSpacing(4);
    rest->addWidget(beside, 1);
    for (QWidget* widget : more) rest->addWidget(widget);
    stats->addLayout(rest, at, 2);
  };
  row(0, kSd, sdSign_, {Controls("lblStats", kCounter), Controls("txtStats", kCounter), readsSign_});
  row(1, kRawReading, Controls("Text1"),
      {Controls("lblBlank", kBoxAutoCriterion), Controls("txtBlank", kBoxAutoCriterion)});

  auto* layout = new QVBoxLayout(panel);
  layout->setContentsMargins(5, 4, 5, 5);
  layout->setSpacing(2);
  // Beside the number stands what it is when it is no value of this item.
  beside_ = new WrapText(panel);
  beside_->setAccessibleName("Age of the reading");
  beside_->SetColor(WarnInk);
  SetLook(beside_, 1.2, true);
  beside_->setFixedWidth(DigitsWidth(*beside_, 8));
  auto* number = new QHBoxLayout;
  number->setSpacing(4);
  number->addWidget(reading_, 1);
  number->addWidget(beside_);
  layout->addLayout(number, 1);
  layout->addLayout(stats);
  GiveGround(panel);
  return panel;
}

QLayout* FrmAcquireWindow::MakeRunButtons() {
  QWidget* start = Controls("Command1");
  SetLook(start, 1.5, true);
  // The caption is the sub-step and changes all the time; the button stands still.
  start->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  start->setMinimumHeight(start->fontMetrics().height() * 17 / 10);
  runButtons_ = new QGridLayout;
  runButtons_->setSpacing(4);
  PlaceRunButtons(false);
  // Autoread decides whether the button is pressed at all: it stands beside it.
  auto* going = new QHBoxLayout;
  going->setSpacing(8);
  going->addWidget(start, 1);
  going->addWidget(Controls("Check1"));
  auto* layout = new QVBoxLayout;
  layout->setSpacing(4);
  layout->addLayout(going);
  layout->addLayout(runButtons_);
  return layout;
}

// Two rows of three, for gloves; one row where the screen is low.
void FrmAcquireWindow::PlaceRunButtons(bool oneRow) {
  if (runButtons_->count() > 0 &&
      (runButtons_->rowCount() == 1 || runButtons_->itemAtPosition(1, 0) == nullptr) == oneRow)
    return;
  const char* const buttons[] = {"Command2", "Command4", "Command5", "cmdUndo", "Command6", "Command3"};
  for (int i = 0; i < 6; ++i) {
    QWidget* widget = Controls(buttons[i]);
    runButtons_->removeWidget(widget);
    // [Pause] and [Resume] take the same room.
    const int letters = widget->fontMetrics().horizontalAdvance("Resume") + 12;
    widget->setMinimumWidth(i == 4 ? widget->fontMetrics().horizontalAdvance("What's Next Tester") + 12
                                   : letters);
    runButtons_->addWidget(widget, oneRow ? 0 : i / 3, oneRow ? i : i % 3);
  }
}

QLayout* FrmAcquireWindow::MakeStepSelector() const {
  auto* layout = new QHBoxLayout;
  layout->setSpacing(6);
  for (int i = 0; i < kelp_.frmAcquire.Option1.kCount; ++i) layout->addWidget(Controls("Option1", i));
  layout->addStretch();
  return layout;
}

}  // namespace kelp
