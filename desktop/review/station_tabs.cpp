// SPDX-License-Identifier: GPL-3.0-or-later
// Stations, profiles, control charts and checks.
#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>
#include <QSplitter>

#include "core/text.hpp"
#include "desktop/review/picture_view.hpp"
#include "desktop/review/tabs.hpp"
#include "desktop/review/text_table.hpp"
#include "review/chart_picture.hpp"
#include "review/profile_picture.hpp"

namespace kelp {

namespace {

QString Value(const Measured& value) { return value ? QString::number(*value, 'f', 4) : QStringLiteral("-"); }

QString Pair(const MeasuredPair& pair) { return Value(pair.Begin) + " / " + Value(pair.End); }

}  // namespace

StationsTab::StationsTab(ReviewDesk& desk, QWidget* parent)
    : QWidget(parent),
      desk_(desk),
      stations_(new TextTable(this, {"Station", "Line.Sta", "Read", "By", "Samples", "F", "tau", "Blank",
                                     "Copro low", "Copro high"})),
      left_(new TextTable(this, {"File left out", "Why"})),
      heading_(new QLabel(this)) {
  auto* layout = new QVBoxLayout(this);
  heading_->setTextFormat(Qt::PlainText);
  layout->addWidget(heading_);
  layout->addWidget(stations_, 4);
  layout->addWidget(left_, 1);
}

void StationsTab::Refresh() {
  const Review& review = *desk_.Shown;
  std::vector<QStringList> rows;
  for (std::size_t i = 0; i < review.Stations.size(); ++i) {
    const StationFile& file = review.Cruise.Stations[i];
    const Station& station = review.Stations[i];
    rows.push_back({Text(file.ProcNum), Text(file.Station), Text(file.ReadDate + " " + file.ReadTime),
                    Text(file.Analyst), QString::number(file.Samples.size()), Text(file.F), Text(file.Tau),
                    Pair(station.Blank), Pair(station.Copro1), Pair(station.Copro2)});
  }
  stations_->Show(std::move(rows));
  rows.clear();
  for (const LeftOut& left : review.Cruise.Left) rows.push_back({Text(left.File), Text(left.Reason)});
  left_->setVisible(!rows.empty());
  left_->Show(std::move(rows));
  if (review.Cruise.Folder.empty()) return heading_->setText("No stations are shown.");
  heading_->setText(Text("Cruise " + review.Cruise.Name + ", folder " + review.Cruise.Folder + ": " +
                         Counted(review.Stations.size(), "saved station") + ", " +
                         Counted(review.Cruise.Left.size(), "file") + " left out"));
}

ProfileTab::ProfileTab(ReviewDesk& desk, QWidget* parent)
    : QWidget(parent),
      desk_(desk),
      stations_(new TextTable(this, {"Station", "Line.Sta"})),
      profile_(new PictureView(this)),
      ratio_(new PictureView(this)) {
  stations_->setToolTip("Choose up to eight stations with Ctrl or Shift");
  stations_->setMaximumWidth(260);
  auto* layout = new QHBoxLayout(this);
  layout->addWidget(stations_);
  layout->addWidget(profile_, 1);
  layout->addWidget(ratio_, 1);
  QObject::connect(stations_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
                   [this] { ShowPictures(); });
}

void ProfileTab::Refresh() {
  std::vector<QStringList> rows;
  for (const Station& station : desk_.Shown->Stations)
    rows.push_back({Text(station.ProcNum), Text(station.Name)});
  stations_->Show(std::move(rows));
  if (!desk_.Shown->Stations.empty()) stations_->Choose(0);
  ShowPictures();
}

void ProfileTab::Choose(const std::string& procNum) {
  const std::vector<Station>& stations = desk_.Shown->Stations;
  for (std::size_t i = 0; i < stations.size(); ++i)
    if (stations[i].ProcNum == procNum) stations_->Choose(static_cast<int>(i));
}

void ProfileTab::ShowPictures() {
  std::vector<const Station*> chosen;
  for (const int row : stations_->Chosen())
    chosen.push_back(&desk_.Shown->Stations[static_cast<std::size_t>(row)]);
  if (chosen.empty()) {
    profile_->Clear();
    ratio_->Clear();
    return;
  }
  profile_->Show(ProfilePicture(chosen));
  ratio_->Show(RatioPicture(chosen));
}

ChartsTab::ChartsTab(ReviewDesk& desk, QWidget* parent)
    : QWidget(parent),
      desk_(desk),
      which_(new QComboBox(this)),
      chart_(new PictureView(this)),
      outside_(new TextTable(this, {"Station", "Value", "Outside"})) {
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(which_);
  layout->addWidget(chart_, 3);
  layout->addWidget(outside_, 1);
  QObject::connect(which_, &QComboBox::currentIndexChanged, this, [this] { ShowChart(); });
}

void ChartsTab::Refresh() {
  const int before = which_->currentIndex();
  which_->clear();
  for (const ControlChart& chart : desk_.Shown->Charts) which_->addItem(Text(chart.Name));
  which_->setCurrentIndex(qMin(qMax(before, 0), which_->count() - 1));
  ShowChart();
}

void ChartsTab::ShowChart() {
  const auto index = static_cast<std::size_t>(qMax(which_->currentIndex(), 0));
  std::vector<QStringList> rows;
  if (index < desk_.Shown->Charts.size()) {
    const ControlChart& chart = desk_.Shown->Charts[index];
    chart_->Show(ChartPicture(chart));
    for (const ChartPoint& point : chart.Points)
      if (!point.Outside.empty())
        rows.push_back({Text(point.ProcNum), point.End ? "end" : "begin", Text(point.Outside)});
  } else {
    chart_->Clear();
  }
  outside_->Show(std::move(rows));
}

ChecksTab::ChecksTab(ReviewDesk& desk, QWidget* parent)
    : QWidget(parent), desk_(desk), findings_(new TextTable(this, {"Station", "Where", "What"})) {
  findings_->setToolTip("Enter shows the station's profile");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(findings_);
  QObject::connect(findings_, &QTableView::activated, this, [this](const QModelIndex& index) {
    const Finding& finding = desk_.Shown->Findings[static_cast<std::size_t>(index.row())];
    if (!finding.ProcNum.empty()) Chosen(finding.ProcNum);
  });
}

void ChecksTab::Refresh() {
  std::vector<QStringList> rows;
  for (const Finding& finding : desk_.Shown->Findings)
    rows.push_back(
        {finding.ProcNum.empty() ? "all" : Text(finding.ProcNum), Text(finding.Where), Text(finding.Text)});
  findings_->Show(std::move(rows));
}

}  // namespace kelp
