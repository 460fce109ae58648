// SPDX-License-Identifier: GPL-3.0-or-later
// The "Machine settings" dialog: drives to folders, port numbers to devices, the text editor, and the
// simulated fluorometer for this run.
#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QTableWidget>
#include <functional>

#include "desktop/machine/machine_settings.hpp"

namespace kelp {

class SettingsDialog : public QDialog {
 public:
  /// `simulate` is whether the simulated fluorometer is read now. What the command line gave is told
  /// in the dialog: it holds for this run whatever is set here.
  SettingsDialog(QWidget* parent, const MachineSettings& settings, const Options& options, bool simulate);

  /// What the dialog stands on. Editor, drives and ports are trimmed; empty rows are left out.
  [[nodiscard]] MachineSettings Settings() const;
  [[nodiscard]] bool Simulate() const { return simulate_->isChecked(); }

  /// Adds a row, which becomes the current one.
  void AddDrive(const QString& letter, const QString& folder);
  void AddPort(const QString& number, const QString& device);

  /// Lets a sound be heard when it is switched on.
  std::function<void(Cue)> Hear = [](Cue) {};

  /// Says what can't be taken, or is empty: a drive that is no letter, a port that is no number, one
  /// that is there twice.
  [[nodiscard]] QString Problem() const;

 protected:
  void accept() override;

 private:
  QWidget* DrivesBox();
  QWidget* PortsBox();
  QWidget* EditorBox();
  QWidget* LookBox();
  QWidget* SoundsBox();
  void FitToScreen(QWidget* content, QWidget* buttons);
  void ChooseFolder();
  void FindPorts();

  MachineSettings settings_;
  QTableWidget* drives_ = nullptr;
  QTableWidget* ports_ = nullptr;
  QLineEdit* editor_ = nullptr;
  QCheckBox* simulate_ = nullptr;
  QCheckBox* preview_ = nullptr;
  QButtonGroup* scheme_ = nullptr;
  std::map<Cue, QCheckBox*> sounds_ = {};
};

}  // namespace kelp
