// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/frm_acquire.hpp"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollArea>

#include "desktop/windows/access_keys.hpp"
#include "desktop/windows/accessible.hpp"
#include "desktop/windows/grid_view.hpp"
#include "desktop/windows/look.hpp"
#include "desktop/windows/marked_edit.hpp"
#include "desktop/windows/signs.hpp"
#include "desktop/windows/stability_view.hpp"
#include "desktop/windows/strip_chart_view.hpp"
#include "desktop/windows/texts.hpp"
#include "desktop/windows/wrap_text.hpp"

namespace kelp {

namespace {

// The two sides shrink to their least height before the page scrolls; with the labels that wrap in it, Qt's
// own layout would keep the height that it likes best.
class SideBySide : public QHBoxLayout {
 public:
  using QHBoxLayout::QHBoxLayout;
  [[nodiscard]] bool hasHeightForWidth() const override { return false; }
};

}  // namespace

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
  NameScrollBars(scroll);
  auto* page = new QWidget(scroll);
  auto* station = new QVBoxLayout;
  station->setSpacing(4);
  station->addWidget(MakeHeader());
  station->addWidget(MakeStandards());
  station->addWidget(grid_, 1);
  station->addWidget(MakeHistory());
  auto* sides = new SideBySide(page);
  sides->setContentsMargins(3, 2, 3, 2);
  sides->setSpacing(5);
  sides->addWidget(MakeFluorometer(), 2);
  sides->addLayout(station, 3);
  scroll->setWidget(page);

  band_ = new AlarmBand(this);
  connect(band_->SeenButton(), &QPushButton::clicked, this, [this] {
    call_.Seen();
    ShowGlance();
  });
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(band_);
  layout->addWidget(MakeTopLine());
  layout->addWidget(scroll, 1);
  layout->addWidget(MakeStatusBar(soundSwitch));
  SetTabs(soundSwitch);
  ShowPanel();
  ShowGlance();
}

void FrmAcquireWindow::ShowChanges() {
  ScreenWindow::ShowChanges();
  chart_->ShowChanges();
  stability_->ShowChanges();
  ShowPanel();
  ShowGlance();
}

void FrmAcquireWindow::resizeEvent(QResizeEvent* event) {
  ScreenWindow::resizeEvent(event);
  topLine_->setFixedHeight(std::max(fontMetrics().height() * 5 / 2, height() / 17));
  PlaceRunButtons(height() < fontMetrics().height() * 42);
}

QRect FrmAcquireWindow::ReadingColumns() const {
  const QWidget* cells = grid_->viewport();
  const int left = grid_->columnViewportPosition(kColRb);
  const int width = grid_->columnWidth(kColRb) + grid_->columnWidth(kColRa);
  return {cells->mapToGlobal(QPoint(left, 0)), QSize(width, cells->height())};
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
  reading_ = plain("txtReading", -1, 6, Qt::AlignHCenter);
  SetLook(reading_, 1, true);
  reading_->FillWithText(16);
  for (int i = 0; i < 3; ++i) SetLook(plain("txtStats", i, i == 0 ? 4 : 6, Qt::AlignRight), 1.15, true);
  plain("Text1", -1, 0, Qt::AlignLeft);
  for (int i = 0; i < 10; ++i) box("txtRead", i, 6, Qt::AlignRight);
  for (int k = 1; k <= 20; ++k) box("txtMean", k, 6, Qt::AlignRight)->SetUsable();
  plain("txtBlank", kBoxAutoCriterion, 6, Qt::AlignLeft);
  for (int i = 0; i < kBoxAutoCriterion; ++i)
    standards_.push_back(Controls.Use("txtBlank", i, new MarkedEdit(this)));
  instruction_ = Controls.Use("Text4", -1, new InstructionBox(this));
  chart_ = Controls.Use("pctCanvas", -1, new StripChartView(kelp_.run, this));
  stability_ = new StabilityView(kelp_, this);
  grid_ = Controls.Use(
      "datalog", -1,
      new GridView(kelp_.frmAcquire.datalog, {"frmAcquire", "datalog"}, Controls.Reporter(), this));
  SetLook(grid_, 0.93);
  Controls.Use("StatusBar1", -1, new WrapText(this));
}

// Names for screen readers, where no label beside a widget gives one, and the keys that press it.
void FrmAcquireWindow::NameWidgets() const {
  for (int i = 0; i < 10; ++i) Controls("txtRead", i)->setAccessibleName("Read " + QString::number(i + 1));
  for (int k = 1; k <= 20; ++k) Controls("txtMean", k)->setAccessibleName("Mean " + QString::number(k));
  const char* const stats[] = {"Read counter", "Raw reading", "Standard deviation"};
  for (int i = 0; i < 3; ++i) Controls("txtStats", i)->setAccessibleName(stats[i]);
  Controls("txtBlank", kBoxAutoCriterion)->setAccessibleName("Autoread criterion");
  Controls("txtReading")->setAccessibleName("Average fluorometer reading");
  Controls("Text1")->setAccessibleName("Fluorometer output");
  Controls("Text4")->setAccessibleName("Status and instructions");
  Controls("pctCanvas")->setAccessibleName("Strip chart of the last readings");
  Controls("datalog")->setAccessibleName("Samples of the station");
  Controls("StatusBar1")->setAccessibleName("Status");
  NameBox(Controls.As<QComboBox>("Combo1"), "Operator's initials");
  for (int i = 0; i < kelp_.frmAcquire.txtStaInfo.kCount; ++i)
    Controls.Pair("lblStaInfo", i, "txtStaInfo", i);
  for (int i = 0; i < kelp_.frmAcquire.txtBlank.kCount; ++i) Controls.Pair("lblBlank", i, "txtBlank", i);
  for (int i = 0; i < kelp_.frmAcquire.txtStats.kCount; ++i) Controls.Pair("lblStats", i, "txtStats", i);
  Controls.Pair("lblStaInfo", 14, "Combo1", -1);
  SetAccessKeys(Controls, {{"cmdUndo", -1, 'U'}, {"Command6", -1, 'W'}, {"Check1", -1, 'A'}});
  // "Save &Blank" must not take Alt+B from [Back], nor any caption a letter of another button.
  KeepAccessKeysFree(Controls("Command1"), "PQBKUWAE");
  SetKeyHint(Controls("datalog"), "F11 comes here");
  SetKeyHint(Controls("Check1"), "F12 switches it");
  SetKeyHint(Controls("cmdUndo"), "Ctrl+Z does it");
}

// From the button that goes on, through the run's buttons and the station's boxes, to the grid.
void FrmAcquireWindow::SetTabs(QWidget* soundSwitch) const {
  std::vector<QWidget*> chain;
  const auto add = [&](const char* control, int index = -1) { chain.push_back(Controls(control, index)); };
  for (const char* button :
       {"Command1", "Check1", "Command2", "Command4", "Command5", "cmdUndo", "Command6", "Command3"})
    add(button);
  for (int i = 0; i < kelp_.frmAcquire.Option1.kCount; ++i) add("Option1", i);
  for (int i = 0; i < kelp_.frmAcquire.txtStaInfo.kCount; ++i) add("txtStaInfo", i);
  add("Combo1");
  for (int i = 0; i < kBoxAutoCriterion; ++i) add("txtBlank", i);
  add("datalog");
  for (int k = 1; k <= kelp_.frmAcquire.txtMean.kLast; ++k) add("txtMean", k);
  chain.push_back(soundSwitch);
  chain.push_back(band_->SeenButton());
  SetTabChain(chain);
}

}  // namespace kelp
