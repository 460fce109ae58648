// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/review/review_window.hpp"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTabWidget>

#include "platform/error.hpp"

namespace kelp {

namespace {

constexpr int kPatience = 500;  // milliseconds without a word

}  // namespace

ReviewWindow::ReviewWindow(Kelp& kelp, std::function<std::optional<std::string>()> chooseFolder)
    : desk_{kelp}, where_(new QLabel(this)), tabs_(new QTabWidget(this)) {
  setWindowTitle("Review cruise");
  setObjectName("ReviewWindow");
  desk_.ChooseFolder = std::move(chooseFolder);
  desk_.Tell = [this](const QString& text) { where_->setText(text); };
  tabs_->addTab(stations_ = new StationsTab(desk_, this), "Stations");
  tabs_->addTab(profile_ = new ProfileTab(desk_, this), "Profile");
  tabs_->addTab(charts_ = new ChartsTab(desk_, this), "Control charts");
  tabs_->addTab(checks_ = new ChecksTab(desk_, this), "Checks");
  tabs_->addTab(calibration_ = new CalibrationTab(desk_, this), "Calibration");
  tabs_->addTab(final_ = new FinalTab(desk_, this), "Final data");
  checks_->Chosen = [this](const std::string& procNum) {
    profile_->Choose(procNum);
    tabs_->setCurrentWidget(profile_);
  };
  auto* folder = new QPushButton("&Other folder...", this);
  auto* again = new QPushButton("&Read again", this);
  again->setToolTip("F5");
  where_->setTextFormat(Qt::PlainText);
  auto* row = new QHBoxLayout;
  row->addWidget(folder);
  row->addWidget(again);
  row->addWidget(where_, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(tabs_, 1);
  layout->addLayout(row);
  QObject::connect(folder, &QPushButton::clicked, this, [this] {
    if (const auto chosen = desk_.ChooseFolder()) Open(*chosen);
  });
  QObject::connect(again, &QPushButton::clicked, this, [this] { Reload(); });
  resize(QSize(1120, 680).boundedTo(screen()->availableSize() - QSize(16, 48)));
}

void ReviewWindow::Open(const std::string& folder) {
  // While the progress is shown the other windows can be used: the button there, too.
  if (reading_) return;
  const QScopedValueRollback reading(reading_, true);
  folder_ = folder;
  QProgressDialog progress("Reading the stations of " + Text(folder) + "...", "Stop", 0, 1, this);
  progress.setWindowModality(Qt::WindowModal);
  progress.setMinimumDuration(kPatience);
  try {
    Cruise cruise =
        ReadCruise(desk_.Program.platform.disk(), folder, "", [&](std::size_t done, std::size_t all) {
          progress.setMaximum(static_cast<int>(all));
          progress.setValue(static_cast<int>(done));
          return !progress.wasCanceled() && !desk_.Program.Ended;
        });
    if (desk_.Program.Ended) return;
    if (progress.wasCanceled()) {
      where_->setText("Stopped: " + Text(folder) + " was not read to its end, and is not shown.");
      return;
    }
    desk_.Shown = std::make_shared<Review>(MakeReview(std::move(cruise), LimitsOf(desk_.Program.run)));
    where_->setText(desk_.Shown->Stations.empty() ? "No saved station in " + Text(folder) : Text(folder));
  } catch (const RunTimeError& error) {
    desk_.Shown = std::make_shared<Review>();
    where_->setText(Text(error.what()));
  }
  progress.reset();
  Refresh();
}

void ReviewWindow::Refresh() {
  stations_->Refresh();
  profile_->Refresh();
  charts_->Refresh();
  checks_->Refresh();
  calibration_->Refresh();
  final_->Refresh();
  const std::size_t findings = desk_.Shown->Findings.size();
  tabs_->setTabText(tabs_->indexOf(checks_), findings == 0 ? "Checks" : QString("Checks (%1)").arg(findings));
}

void ReviewWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F5)
    Reload();
  else if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

}  // namespace kelp
