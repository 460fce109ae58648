// SPDX-License-Identifier: GPL-3.0-or-later
// The station's side of the acquisition screen, the status bar, and what the panel says beside the
// controls' own values.
#include <QAbstractButton>
#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

#include "desktop/windows/frm_acquire.hpp"
#include "desktop/windows/grid_view.hpp"
#include "desktop/windows/look.hpp"
#include "desktop/windows/marked_edit.hpp"
#include "desktop/windows/signs.hpp"
#include "desktop/windows/texts.hpp"
#include "desktop/windows/value_widget.hpp"

namespace kelp {

namespace {

constexpr int kHeaderColumns = 5;
constexpr int kInitialsLabel = 14;

}  // namespace

QWidget* FrmAcquireWindow::MakeHeader() const {
  auto* layout = new QGridLayout(header_);
  layout->setContentsMargins(6, 3, 6, 4);
  layout->setHorizontalSpacing(3);
  layout->setVerticalSpacing(3);
  const auto place = [&](int at, QLabel* label, QWidget* box) {
    const int col = at % kHeaderColumns * 2;
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    layout->addWidget(label, at / kHeaderColumns, col);
    layout->addWidget(box, at / kHeaderColumns, col + 1);
    SetLook(label, 0.93);
    box->setMinimumWidth(DigitsWidth(*box, at == kStaFiltDate ? 11 : at == kStaFiltTime ? 8 : 7));
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    layout->setColumnStretch(col + 1, 1);
  };
  for (int i = 0; i < kelp_.frmAcquire.txtStaInfo.kCount; ++i)
    place(i, Controls.As<QLabel>("lblStaInfo", i), Controls("txtStaInfo", i));
  place(kInitialsLabel, Controls.As<QLabel>("lblStaInfo", kInitialsLabel), Controls("Combo1"));
  return header_;
}

QWidget* FrmAcquireWindow::MakeStandards() const {
  auto* group = new QGroupBox("Blanks and standards", header_->parentWidget());
  auto* layout = new QGridLayout(group);
  layout->setContentsMargins(6, 2, 6, 4);
  layout->setHorizontalSpacing(3);
  layout->setVerticalSpacing(2);
  // Begin and end value side by side, a gap between the pairs; long labels take two lines.
  for (int i = 0; i < kBoxAutoCriterion; ++i) {
    const int col = i / 2 * 3 + i % 2;
    auto* label = Controls.As<QLabel>("lblBlank", i);
    SetLook(label, 0.87);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    label->setFixedHeight(label->fontMetrics().lineSpacing() * 2 + 2);
    layout->addWidget(label, 0, col);
    QWidget* box = Controls("txtBlank", i);
    SetLook(box, 0.93);
    box->setMinimumWidth(DigitsWidth(*box, 7));
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    layout->addWidget(box, 1, col);
    layout->setColumnStretch(col, 1);
    if (col % 3 == 1) layout->setColumnMinimumWidth(col + 1, i == kBoxAutoCriterion - 1 ? 0 : 6);
  }
  return group;
}

QWidget* FrmAcquireWindow::MakeHistory() const {
  constexpr int kColumns = 10;
  auto* group = new QGroupBox("Reads and means", header_->parentWidget());
  auto* layout = new QGridLayout(group);
  layout->setContentsMargins(6, 2, 6, 4);
  layout->setSpacing(2);
  const auto fill = [&](const char* control, int first, int count, int top) {
    for (int i = 0; i < count; ++i) {
      QWidget* box = Controls(control, first + i);
      SetLook(box, 0.87);
      box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
      box->setMinimumWidth(DigitsWidth(*box, 6) + 4);
      layout->addWidget(box, top + i / kColumns, i % kColumns);
    }
  };
  fill("txtRead", 0, 10, 0);
  layout->setRowMinimumHeight(1, 2);
  fill("txtMean", 1, 20, 2);
  return group;
}

ValueBox* FrmAcquireWindow::MakeStatusText(const char* name) {
  auto* text = new ValueBox(0, ValueBox::Frame::None, Qt::AlignLeft, this);
  text->setAccessibleName(name);
  text->SetWhole();
  return text;
}

// What happened has a line, or more, to itself; below it stands where the run stands.
QWidget* FrmAcquireWindow::MakeStatusBar(QAbstractButton* soundSwitch) {
  auto* bar = new QFrame(this);
  auto* state = new QHBoxLayout;
  state->setSpacing(4);
  station_ = MakeStatusText("Station");
  sample_ = MakeStatusText("Current sample");
  port_ = MakeStatusText("Serial port");
  lastFile_ = new ValueBox(0, ValueBox::Frame::None, Qt::AlignLeft, this);
  lastFile_->setAccessibleName("Last file written");
  const auto divide = [&] {
    auto* line = new QFrame(bar);
    line->setFrameShape(QFrame::VLine);
    line->setFrameShadow(QFrame::Sunken);
    state->addWidget(line);
  };
  for (ValueBox* text : {station_, sample_, port_}) {
    state->addWidget(text);
    divide();
  }
  // Only the path of the last file gives way where the window is narrow; its tooltip has all of it.
  lastFile_->SetElide(Qt::ElideLeft);
  lastFile_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  state->addWidget(lastFile_, 1);
  divide();
  soundSwitch->setParent(bar);
  state->addWidget(soundSwitch);
  auto* layout = new QVBoxLayout(bar);
  layout->setContentsMargins(8, 1, 8, 1);
  layout->setSpacing(0);
  layout->addWidget(Controls("StatusBar1"));
  layout->addLayout(state);
  GiveGround(bar);
  return bar;
}

void FrmAcquireWindow::SetPortState(const QString& text) {
  if (port_->ShownText() == text) return;
  port_->ShowText(text);
  port_->setToolTip(text);
}

void FrmAcquireWindow::SetLastFile(const QString& text) {
  lastFile_->ShowText(text);
  lastFile_->setToolTip(text);
}

void FrmAcquireWindow::ShowPanel() {
  const PanelState panel = PanelOf(kelp_);
  const auto show = [](ValueBox* box, const QString& text) {
    if (box->ShownText() != text) box->ShowText(text);
  };
  sdSign_->Set(panel.SdMet, u"\u2264 "_qs + FromProgram(panel.Criterion));
  grid_->SetMarks(panel.Row, panel.Col);
  for (std::size_t i = 0; i < standards_.size(); ++i)
    standards_[i]->SetMarked(static_cast<int>(i) == panel.Box);
  show(station_, "Station " + FromProgram(panel.Station));
  const QString sample = panel.Samples == 0 ? QString("No samples")
                                            : QString("Sample %1 of %2").arg(panel.Sample).arg(panel.Samples);
  show(sample_, sample);
}

void FrmAcquireWindow::ShowGlance() {
  const Glance glance = GlanceAt(kelp_);
  const auto show = [&](ValueWidget* box, std::string Glance::*text) {
    if (glance.*text != glance_.*text) box->ShowText(FromProgram(glance.*text));
  };
  show(step_, &Glance::Step);
  show(last_, &Glance::Last);
  show(beside_, &Glance::Beside);
  if (glance.State != glance_.State || glance.StateWords != glance_.StateWords)
    plate_->Set(glance.State, FromProgram(glance.StateWords));
  reading_->SetFaint(glance.Faint);
  if (glance.Enough != glance_.Enough || glance.NeedWords != glance_.NeedWords)
    readsSign_->Set(glance.Enough, FromProgram(glance.NeedWords));
  glance_ = glance;
  instruction_->SetAcid(glance.State == SaveState::Acid, FromProgram(acid_.Listen(kelp_)));
  const std::vector<Alarm> alarms = AlarmsOf(kelp_);
  const bool calling = call_.Listen(alarms);
  band_->ShowAlarms(alarms, calling);
}

}  // namespace kelp
