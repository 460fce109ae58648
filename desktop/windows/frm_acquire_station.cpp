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
#include "desktop/windows/value_widget.hpp"

namespace kelp {

namespace {

constexpr int kHeaderColumns = 5;
constexpr int kInitialsLabel = 14;

}  // namespace

QWidget* FrmAcquireWindow::MakeHeader() const {
  auto* layout = new QGridLayout(header_);
  layout->setContentsMargins(8, 4, 8, 6);
  layout->setHorizontalSpacing(6);
  layout->setVerticalSpacing(3);
  const auto place = [&](int at, QWidget* label, QWidget* box) {
    const int col = at % kHeaderColumns * 2;
    static_cast<QLabel*>(label)->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    layout->addWidget(label, at / kHeaderColumns, col);
    layout->addWidget(box, at / kHeaderColumns, col + 1);
    box->setMinimumWidth(DigitsWidth(*box, at == kStaFiltDate ? 11 : 8));
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    layout->setColumnStretch(col + 1, 1);
  };
  for (int i = 0; i < kelp_.frmAcquire.txtStaInfo.kCount; ++i)
    place(i, Controls("lblStaInfo", i), Controls("txtStaInfo", i));
  place(kInitialsLabel, Controls("lblStaInfo", kInitialsLabel), Controls("Combo1"));
  return header_;
}

QWidget* FrmAcquireWindow::MakeStandards() const {
  auto* group = new QGroupBox("Blanks and standards", header_->parentWidget());
  auto* layout = new QGridLayout(group);
  layout->setContentsMargins(8, 2, 8, 6);
  layout->setHorizontalSpacing(4);
  layout->setVerticalSpacing(2);
  // Begin and end value side by side, a gap between the pairs; long labels take two lines.
  for (int i = 0; i < kBoxAutoCriterion; ++i) {
    const int col = i / 2 * 3 + i % 2;
    auto* label = static_cast<QLabel*>(Controls("lblBlank", i));
    SetLook(label, 0.87);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    label->setFixedHeight(label->fontMetrics().lineSpacing() * 2 + 2);
    layout->addWidget(label, 0, col);
    QWidget* box = Controls("txtBlank", i);
    box->setMinimumWidth(DigitsWidth(*box, 7));
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    layout->addWidget(box, 1, col);
    layout->setColumnStretch(col, 1);
    if (col % 3 == 1) layout->setColumnMinimumWidth(col + 1, i == kBoxAutoCriterion - 1 ? 0 : 8);
  }
  return group;
}

ValueBox* FrmAcquireWindow::MakeStatusText(int digits) {
  auto* text = new ValueBox(digits, ValueBox::Frame::None, Qt::AlignLeft, this);
  // On a narrow screen the status texts are cut before the window is too wide for it.
  text->setMinimumWidth(DigitsWidth(*this, 4));
  return text;
}

QWidget* FrmAcquireWindow::MakeStatusBar(QAbstractButton* soundSwitch) {
  auto* bar = new QFrame(this);
  auto* layout = new QHBoxLayout(bar);
  layout->setContentsMargins(8, 2, 8, 2);
  layout->setSpacing(4);
  station_ = MakeStatusText(18);
  sample_ = MakeStatusText(14);
  port_ = MakeStatusText(22);
  lastFile_ = MakeStatusText(24);
  lastFile_->SetElide(Qt::ElideLeft);
  station_->setAccessibleName("Station");
  sample_->setAccessibleName("Current sample");
  port_->setAccessibleName("Serial port");
  lastFile_->setAccessibleName("Last file written");
  const auto divide = [&] {
    auto* line = new QFrame(bar);
    line->setFrameShape(QFrame::VLine);
    line->setFrameShadow(QFrame::Sunken);
    layout->addWidget(line);
  };
  layout->addWidget(Controls("StatusBar1"), 1);
  for (ValueBox* text : {station_, sample_, port_, lastFile_}) {
    divide();
    layout->addWidget(text);
  }
  divide();
  soundSwitch->setParent(bar);
  layout->addWidget(soundSwitch);
  return bar;
}

void FrmAcquireWindow::SetPortState(const QString& text) {
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
  readsSign_->Set(panel.ReadsMet, QString("of %1").arg(panel.MinReads));
  grid_->SetMarks(panel.Row, panel.Col);
  for (std::size_t i = 0; i < standards_.size(); ++i)
    standards_[i]->SetMarked(static_cast<int>(i) == panel.Box);
  show(step_, FromProgram(panel.Step));
  show(station_, "Station " + FromProgram(panel.Station));
  const QString sample = panel.Samples == 0 ? QString("No samples")
                                            : QString("Sample %1 of %2").arg(panel.Sample).arg(panel.Samples);
  show(sample_, sample);
}

}  // namespace kelp
