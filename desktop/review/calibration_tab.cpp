// SPDX-License-Identifier: GPL-3.0-or-later
// Calibration from a LAB/CAL station, into the configuration.
#include <QBoxLayout>
#include <QComboBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

#include "core/text.hpp"
#include "desktop/review/picture_view.hpp"
#include "desktop/review/tabs.hpp"
#include "platform/error.hpp"
#include "review/chart_picture.hpp"

namespace kelp {

namespace {

enum TubeCol { kTube, kRbCol, kRaCol, kConcentration, kResidual, kTubeCols };

QTableWidgetItem* ReadOnly(const QString& text) {
  auto* item = new QTableWidgetItem(text);
  item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  return item;
}

QString Value(const Measured& value) { return value ? QString::number(*value, 'f', 4) : QStringLiteral("-"); }

}  // namespace

CalibrationTab::CalibrationTab(ReviewDesk& desk, QWidget* parent)
    : QWidget(parent),
      desk_(desk),
      station_(new QComboBox(this)),
      weights_(new QComboBox(this)),
      tubes_(new QTableWidget(0, kTubeCols, this)),
      text_(new QLabel(this)),
      picture_(new PictureView(this)),
      take_(new QPushButton("&Put into kelp.cfg...", this)) {
  weights_->addItems({"each reading counts the same", "each tube counts the same (1/C²)"});
  tubes_->setHorizontalHeaderLabels({"Tube", "Rb", "Ra", "Chl-a (µg/L extract)", "Residual"});
  tubes_->verticalHeader()->hide();
  tubes_->setTabKeyNavigation(false);
  tubes_->horizontalHeader()->setStretchLastSection(true);
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  auto* form = new QFormLayout;
  form->addRow("&Station", station_);
  form->addRow("&Weights", weights_);
  auto* left = new QVBoxLayout;
  left->addLayout(form);
  left->addWidget(tubes_, 1);
  left->addWidget(text_);
  left->addWidget(take_, 0, Qt::AlignLeft);
  auto* layout = new QHBoxLayout(this);
  layout->addLayout(left, 1);
  layout->addWidget(picture_, 1);
  QObject::connect(station_, &QComboBox::currentIndexChanged, this, [this] { ShowTubes(); });
  QObject::connect(weights_, &QComboBox::currentIndexChanged, this, [this] { Calculate(); });
  QObject::connect(tubes_, &QTableWidget::cellChanged, this, [this] { Calculate(); });
  QObject::connect(take_, &QPushButton::clicked, this, [this] { TakeOver(); });
}

void CalibrationTab::Refresh() {
  const std::vector<Station>& stations = desk_.Shown->Stations;
  const QSignalBlocker quiet(station_);
  station_->clear();
  lab_.clear();
  for (std::size_t i = 0; i < stations.size(); ++i) {
    if (!IsLabStation(stations[i].Name)) continue;
    lab_.push_back(i);
    station_->addItem(Text(stations[i].ProcNum + "  " + stations[i].Name));
  }
  ShowTubes();
}

const Station* CalibrationTab::Current() const {
  const auto index = static_cast<std::size_t>(qMax(station_->currentIndex(), 0));
  return index < lab_.size() ? &desk_.Shown->Stations[lab_[index]] : nullptr;
}

void CalibrationTab::ShowTubes() {
  {
    const QSignalBlocker quiet(tubes_);
    const Station* station = Current();
    tubes_->setRowCount(station == nullptr ? 0 : static_cast<int>(station->Samples.size()));
    for (int row = 0; row < tubes_->rowCount(); ++row) {
      const Sample& sample = station->Samples[static_cast<std::size_t>(row)];
      tubes_->setItem(row, kTube, ReadOnly(Text(SampleName(*station, static_cast<std::size_t>(row)))));
      tubes_->setItem(row, kRbCol, ReadOnly(Value(sample.Rb)));
      tubes_->setItem(row, kRaCol, ReadOnly(Value(sample.Ra)));
      tubes_->setItem(row, kConcentration, new QTableWidgetItem);
      tubes_->setItem(row, kResidual, ReadOnly(""));
    }
    tubes_->resizeColumnsToContents();
  }
  Calculate();
}

void CalibrationTab::Calculate() {
  result_.reset();
  picture_->Clear();
  take_->setEnabled(false);
  const Station* station = Current();
  if (station == nullptr) {
    text_->setText(
        "No station of this folder has LAB or CAL in its name. Run the dilution series as a station of "
        "that name (for example \"LAB CAL\"), one sample for each tube.");
    return;
  }
  std::vector<std::string> texts;
  const QSignalBlocker quiet(tubes_);
  for (int row = 0; row < tubes_->rowCount(); ++row) {
    texts.push_back(tubes_->item(row, kConcentration)->text().toStdString());
    tubes_->item(row, kResidual)->setText("");
  }
  try {
    const std::vector<CalibrationTube> tubes = CalibrationTubes(*station, texts);
    const auto weights = weights_->currentIndex() == 0 ? Weights::Equal : Weights::Relative;
    const CalibrationResult result = Calibrate(tubes, weights);
    QStringList lines;
    for (const std::string& line : CalibrationText(result, desk_.Shown->Limits)) lines << Text(line);
    text_->setText(lines.join('\n'));
    std::size_t tube = 0;
    for (int row = 0; row < tubes_->rowCount() && tube < tubes.size(); ++row)
      if (!Trim(texts[static_cast<std::size_t>(row)]).empty())
        tubes_->item(row, kResidual)->setText(QString::number(result.Residuals[tube++], 'f', 2) + " %");
    picture_->Show(CalibrationPicture(tubes, result));
    result_ = {station->ProcNum + " (" + station->Name + ")", result.F, result.FSd, result.Tau, result.TauSd};
    take_->setEnabled(true);
  } catch (const RunTimeError& error) {
    text_->setText("Type the chlorophyll-a of each tube. " + Text(error.what()));
  }
}

void CalibrationTab::TakeOver() {
  if (!result_ || !TakeCalibration(desk_.Program, *result_)) return;
  desk_.Tell("The calibration of station " + Text(result_->Station) + " is in kelp.cfg.");
}

}  // namespace kelp
