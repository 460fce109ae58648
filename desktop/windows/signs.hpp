// SPDX-License-Identifier: GPL-3.0-or-later
// Signs that are told apart by colour, shape and words: none of them needs its colour.
#pragma once

#include "app/glance.hpp"
#include "desktop/windows/value_widget.hpp"

namespace kelp {

/// A plain sign beside a criterion: a disc with a tick and a word when it is met, a ring when not.
class Sign : public ValueWidget {
 public:
  explicit Sign(QWidget* parent);
  void Set(bool met, const QString& words);
  [[nodiscard]] bool Met() const { return met_; }
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool met_ = false;
  QString words_;
};

/// The save state, as a plate that is read from two metres away.
class StatePlate : public ValueWidget {
 public:
  explicit StatePlate(QWidget* parent);
  void Set(SaveState state, const QString& words);
  [[nodiscard]] SaveState State() const { return state_; }
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  SaveState state_ = SaveState::Idle;
};

}  // namespace kelp
