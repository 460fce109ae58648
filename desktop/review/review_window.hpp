// SPDX-License-Identifier: GPL-3.0-or-later
// The window "Review cruise": the saved stations of a folder, in tabs.
#pragma once

#include <QWidget>

#include "desktop/review/tabs.hpp"

class QTabWidget;

namespace kelp {

class ReviewWindow : public QWidget {
 public:
  /// `chooseFolder` lets the analyst choose a folder and returns its program path.
  ReviewWindow(Kelp& kelp, std::function<std::optional<std::string>()> chooseFolder);

  /// Reads the folder (progress from half a second on) and shows it; a folder that can't be read is told
  /// in the window.
  void Open(const std::string& folder);
  /// Reads the shown folder again.
  void Reload() { Open(folder_); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Refresh();
  ReviewDesk desk_;
  std::string folder_;
  bool reading_ = false;
  QLabel* where_;
  QTabWidget* tabs_;
  StationsTab* stations_;
  ProfileTab* profile_;
  ChartsTab* charts_;
  ChecksTab* checks_;
  CalibrationTab* calibration_;
  FinalTab* final_;
};

}  // namespace kelp
