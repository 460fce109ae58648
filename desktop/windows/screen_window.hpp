// SPDX-License-Identifier: GPL-3.0-or-later
// The window of one screen: its title, its bound controls, and closing by its frame, which is a question
// to the program and never closes by itself.
#pragma once

#include <QWidget>

#include "core/kelp.hpp"
#include "desktop/windows/binder.hpp"

class QBoxLayout;
class QGridLayout;

namespace kelp {

class ScreenWindow : public QWidget {
 public:
  ScreenWindow(const Kelp& kelp, std::string screen, const Window& form, Report report);

  /// Shows what changed in the screen since the last time.
  virtual void ShowChanges();

  /// A scroll area counts as large as what it holds.
  [[nodiscard]] QSize sizeHint() const override;

  [[nodiscard]] const std::string& Screen() const { return Controls.Screen(); }

  Binder Controls;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  const Kelp& kelp_;
  const Window& form_;
  std::string shownCaption_;
};

/// Puts a label and its box into a row of a grid layout, the label in front, from column `col` on.
void AddField(QGridLayout* layout, int row, int col, const Binder& controls, const std::string& label,
              int labelIndex, const std::string& box, int boxIndex);

/// The order of the Tab key.
void SetTabChain(const std::vector<QWidget*>& widgets);

/// Buttons of the same width in one row, the first one the button that goes on.
QBoxLayout* MakeButtonRow(const std::vector<QWidget*>& buttons);

}  // namespace kelp
