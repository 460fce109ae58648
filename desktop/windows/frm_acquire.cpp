#include "desktop/windows/frm_acquire.hpp"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QGroupBox>
#include <QScrollArea>

#include "desktop/windows/grid_view.hpp"
#include "desktop/windows/look.hpp"
#include "desktop/windows/marked_edit.hpp"
#include "desktop/windows/strip_chart_view.hpp"

namespace kelp {

FrmAcquireWindow::FrmAcquireWindow(Kelp& kelp, const Report& report, QAbstractButton* soundSwitch)
    : ScreenWindow(kelp, "frmAcquire", kelp.frmAcquire.Form, report), kelp_(kelp) {
  MakeOwnWidgets();
  Controls.Bind(kelp.frmAcquire);
  NameWidgets();

  // On a screen too small for the panel it scrolls; nothing becomes unreachable.
  auto* scroll = new QScrollArea(this);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setFocusPolicy(Qt::NoFocus);
  auto* page = new QWidget(scroll);
  auto* station = new QVBoxLayout;
  station->addWidget(MakeHeader());
  station->addWidget(MakeStandards());
  station->addWidget(grid_, 1);
  auto* sides = new QHBoxLayout(page);
  sides->setContentsMargins(8, 6, 8, 4);
  sides->setSpacing(10);
  sides->addWidget(MakeFluorometer(), 2);
  sides->addLayout(station, 3);
  scroll->setWidget(page);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(scroll, 1);
  layout->addWidget(MakeStatusBar(soundSwitch));
  SetTabs(soundSwitch);
  ShowPanel();
}

void FrmAcquireWindow::ShowChanges() {
  ScreenWindow::ShowChanges();
  chart_->ShowChanges();
  ShowPanel();
}

// Widgets that are no usual ones of their kind.
void FrmAcquireWindow::MakeOwnWidgets() {
  const auto box = [this](const char* control, int index, int digits, Qt::Alignment align) {
    return Controls.Use(control, index, new ValueBox(digits, ValueBox::Frame::Line, align, this));
  };
  const auto plain = [this](const char* control, int index, int digits, Qt::Alignment align) {
    return Controls.Use(control, index, new ValueBox(digits, ValueBox::Frame::None, align, this));
  };
  fluorometer_ = Controls.Use("Frame1", -1, new QGroupBox(this));
  header_ = Controls.Use("Frame2", -1, new QGroupBox(this));
  ValueBox* reading = plain("txtReading", -1, 6, Qt::AlignHCenter);
  SetLook(reading, 1, true);
  reading->FillWithText(16);
  for (int i = 0; i < 3; ++i) SetLook(plain("txtStats", i, i == 0 ? 5 : 6, Qt::AlignRight), 1.25, true);
  plain("Text1", -1, 0, Qt::AlignLeft);
  for (int i = 0; i < 10; ++i) box("txtRead", i, 7, Qt::AlignRight);
  for (int k = 1; k <= 20; ++k) box("txtMean", k, 7, Qt::AlignRight)->SetUsable();
  plain("txtBlank", kBoxAutoCriterion, 7, Qt::AlignLeft);
  for (int i = 0; i < kBoxAutoCriterion; ++i)
    standards_.push_back(Controls.Use("txtBlank", i, new MarkedEdit(this)));
  Controls.Use("Text4", -1, new InstructionBox(this));
  chart_ = Controls.Use("pctCanvas", -1, new StripChartView(kelp_.run, this));
  grid_ = Controls.Use(
      "datalog", -1,
      new GridView(kelp_.frmAcquire.datalog, {"frmAcquire", "datalog"}, Controls.Reporter(), this));
  SetLook(grid_, 0.93);
  Controls.Use("StatusBar1", -1, MakeStatusText(0));
}

// Names for screen readers, where no label beside a widget gives one.
void FrmAcquireWindow::NameWidgets() const {
  for (int i = 0; i < 10; ++i) Controls("txtRead", i)->setAccessibleName("Read " + QString::number(i + 1));
  for (int k = 1; k <= 20; ++k) Controls("txtMean", k)->setAccessibleName("Mean " + QString::number(k));
  Controls("txtReading")->setAccessibleName("Average fluorometer reading");
  Controls("Text1")->setAccessibleName("Fluorometer output");
  Controls("Text4")->setAccessibleName("Status and instructions");
  Controls("pctCanvas")->setAccessibleName("Strip chart of the last readings");
  Controls("datalog")->setAccessibleName("Samples of the station");
  Controls("StatusBar1")->setAccessibleName("Status");
  for (int i = 0; i < kelp_.frmAcquire.txtStaInfo.kCount; ++i)
    Controls.Pair("lblStaInfo", i, "txtStaInfo", i);
  for (int i = 0; i < kelp_.frmAcquire.txtBlank.kCount; ++i) Controls.Pair("lblBlank", i, "txtBlank", i);
  for (int i = 0; i < kelp_.frmAcquire.txtStats.kCount; ++i) Controls.Pair("lblStats", i, "txtStats", i);
  Controls.Pair("lblStaInfo", 14, "Combo1", -1);
}

// From the button that goes on, through the run's buttons and the station's boxes, to the grid.
void FrmAcquireWindow::SetTabs(QWidget* soundSwitch) const {
  std::vector<QWidget*> chain;
  const auto add = [&](const char* control, int index = -1) { chain.push_back(Controls(control, index)); };
  for (const char* button : {"Command1", "Command2", "Command4", "Command5", "cmdUndo", "Command6", "Command3"})
    add(button);
  for (int i = 0; i < kelp_.frmAcquire.Option1.kCount; ++i) add("Option1", i);
  add("Check1");
  for (int i = 0; i < kelp_.frmAcquire.txtStaInfo.kCount; ++i) add("txtStaInfo", i);
  add("Combo1");
  for (int i = 0; i < kBoxAutoCriterion; ++i) add("txtBlank", i);
  add("datalog");
  for (int k = 1; k <= kelp_.frmAcquire.txtMean.kLast; ++k) add("txtMean", k);
  chain.push_back(soundSwitch);
  SetTabChain(chain);
}

}  // namespace kelp
