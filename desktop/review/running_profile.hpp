// SPDX-License-Identifier: GPL-3.0-or-later
// The profile so far of the station that is being run, in a small window: one key away from the readings,
// and the same key back.
#pragma once

#include <QTimer>
#include <QWidget>

#include "core/kelp.hpp"

namespace kelp {

class PictureView;

class RunningProfile : public QWidget {
 public:
  explicit RunningProfile(const Kelp& kelp, QWidget* parent = nullptr);
  /// Shows the window with the station as it is now, or hides it when it is shown.
  void Toggle();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Refresh();
  const Kelp& kelp_;
  PictureView* profile_;
  PictureView* ratio_;
  QTimer refresh_;  ///< the station goes on while its profile is looked at
};

}  // namespace kelp
