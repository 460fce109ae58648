// SPDX-License-Identifier: GPL-3.0-or-later
// Option buttons and check boxes whose mark is plain in every colour scheme: the style's own all but
// disappears in dark ones.
#pragma once

#include <QCheckBox>
#include <QRadioButton>

namespace kelp {

class ChoiceButton : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

class TickBox : public QCheckBox {
 public:
  using QCheckBox::QCheckBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace kelp
