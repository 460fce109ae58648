// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/review/running_profile.hpp"

#include <QBoxLayout>
#include <QKeyEvent>

#include "desktop/review/picture_view.hpp"
#include "review/profile_picture.hpp"

namespace kelp {

namespace {

constexpr int kRefresh = 1000;  // milliseconds

}  // namespace

RunningProfile::RunningProfile(const Kelp& kelp, QWidget* parent)
    : QWidget(parent, Qt::Window),
      kelp_(kelp),
      profile_(new PictureView(this)),
      ratio_(new PictureView(this)) {
  setObjectName("RunningProfile");
  setWindowTitle("Profile so far (Ctrl+P or Esc goes back)");
  auto* layout = new QHBoxLayout(this);
  layout->addWidget(profile_, 1);
  layout->addWidget(ratio_, 1);
  resize(920, 480);
  QObject::connect(&refresh_, &QTimer::timeout, this, [this] {
    if (isVisible()) Refresh();
  });
  refresh_.setInterval(kRefresh);
}

void RunningProfile::Toggle() {
  if (isVisible()) {
    refresh_.stop();
    hide();
    return;
  }
  Refresh();
  refresh_.start();
  show();
  raise();
  activateWindow();
}

void RunningProfile::Refresh() {
  const Station station = MeasuredStation(OpenStation(kelp_));
  profile_->Show(ProfilePicture({&station}));
  ratio_->Show(RatioPicture({&station}));
}

void RunningProfile::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Print) || event->key() == Qt::Key_Escape)
    Toggle();
  else
    QWidget::keyPressEvent(event);
}

}  // namespace kelp
