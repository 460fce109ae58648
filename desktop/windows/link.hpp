// SPDX-License-Identifier: GPL-3.0-or-later
// A link holds one control of a screen and the widget that shows it. It keeps a copy of what the widget
// shows, so that only what changed is touched and no widget is ever read back, and it reports what the
// operator did with the widget. A widget that the program itself writes reports nothing.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "app/door.hpp"
#include "core/controls.hpp"

namespace kelp {

/// Takes an event to the program.
using Report = std::function<void(const Event&)>;

/// A widget as what its control takes it for. Another one is a fault of the program.
template <class Wanted>
Wanted* As(QWidget* widget, const FocusPlace& place) {
  auto* wanted = dynamic_cast<Wanted*>(widget);
  if (wanted == nullptr)
    qFatal("%s.%s(%d) is no %s", place.Screen.c_str(), place.Control.c_str(), place.Index,
           Wanted::staticMetaObject.className());
  return wanted;
}

class Link {
 public:
  Link(FocusPlace place, QWidget* widget) : Place(std::move(place)), Widget(widget) {}
  virtual ~Link() = default;
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;

  /// Shows what changed in the control since the last time.
  virtual void ShowChanges() = 0;

  const FocusPlace Place;
  QWidget* const Widget;
};

/// Links a control to `widget`, or to a usual widget of its kind made for it when `widget` is null, and
/// shows its value. The control must outlive the link.
std::unique_ptr<Link> MakeLink(FocusPlace place, Label& control, QWidget* widget, QWidget* parent,
                               const Report& report);
std::unique_ptr<Link> MakeLink(FocusPlace place, Button& control, QWidget* widget, QWidget* parent,
                               const Report& report);
std::unique_ptr<Link> MakeLink(FocusPlace place, TextBox& control, QWidget* widget, QWidget* parent,
                               const Report& report);
std::unique_ptr<Link> MakeLink(FocusPlace place, OptionButton& control, QWidget* widget, QWidget* parent,
                               const Report& report);
std::unique_ptr<Link> MakeLink(FocusPlace place, CheckBox& control, QWidget* widget, QWidget* parent,
                               const Report& report);
std::unique_ptr<Link> MakeLink(FocusPlace place, ComboBox& control, QWidget* widget, QWidget* parent,
                               const Report& report);
std::unique_ptr<Link> MakeLink(FocusPlace place, Grid& control, QWidget* widget, QWidget* parent,
                               const Report& report);

}  // namespace kelp
