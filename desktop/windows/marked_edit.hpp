// SPDX-License-Identifier: GPL-3.0-or-later
// A text box that can be marked as the place the next value goes to: an arrow and a frame.
#pragma once

#include <QLineEdit>

namespace kelp {

class MarkedEdit : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

  void SetMarked(bool marked);
  [[nodiscard]] bool Marked() const { return marked_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool marked_ = false;
};

}  // namespace kelp
