// SPDX-License-Identifier: GPL-3.0-or-later
// The first start on a machine: one page that says where files will lie, which device the fluorometer is on,
// and lets both be changed and tried, or the simulated fluorometer be used.
#pragma once

#include <QDialog>
#include <functional>

#include "desktop/machine/fluorometer_line.hpp"
#include "desktop/machine/machine_settings.hpp"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace kelp {

class FirstStart : public QDialog {
 public:
  FirstStart(const MachineSettings& settings, const Options& options);

  /// What the page stands on; folders and devices that are the machine's own are not kept.
  [[nodiscard]] MachineSettings Settings() const;
  [[nodiscard]] bool Simulate() const;
  /// The operator asked for the machine settings.
  [[nodiscard]] bool WantsSettings() const { return wantsSettings_; }

 private:
  QWidget* FolderBox();
  QWidget* InstrumentBox();
  void TestPort();
  void TellTest();

  MachineSettings settings_;
  Options options_;
  QString folder_;  ///< the folder of drive c where nothing else is chosen
  QString device_;
  QLineEdit* drive_ = nullptr;
  QRadioButton* simulate_ = nullptr;
  QComboBox* port_ = nullptr;
  QPushButton* test_ = nullptr;
  QLabel* told_ = nullptr;
  FluorometerLine line_;
  QTimer end_;
  std::string came_ = {};
  bool wantsSettings_ = false;
};

}  // namespace kelp
