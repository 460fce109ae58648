// SPDX-License-Identifier: GPL-3.0-or-later
// Texts that tell: what to do now, what happened, what must not be overlooked. None of them is ever cut off.
#pragma once

#include <QFrame>

#include "app/alarms.hpp"
#include "desktop/windows/value_widget.hpp"
#include "desktop/windows/wrap_text.hpp"

class QPushButton;

namespace kelp {

/// What the operator is to do now: up to three lines, as large as the space allows. The acid instruction
/// looks like no other one.
class InstructionBox : public ValueWidget {
 public:
  explicit InstructionBox(QWidget* parent);
  /// `time` stands beside the acid instruction: how long the acid is in.
  void SetAcid(bool acid, const QString& time);
  [[nodiscard]] bool Acid() const { return acid_; }
  void ShowText(const QString& text) override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool acid_ = false;
  QString time_;
};

/// The band across the screen: sign, words, and a button for "I have seen it". Hidden while all is well.
class AlarmBand : public QFrame {
 public:
  explicit AlarmBand(QWidget* parent);
  void ShowAlarms(const std::vector<Alarm>& alarms, bool calling);
  [[nodiscard]] QPushButton* SeenButton() const { return seen_; }
  [[nodiscard]] QString Words() const { return words_->ShownText(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  WrapText* words_;
  QPushButton* seen_;
  std::vector<Alarm> shown_ = {};
};

}  // namespace kelp
