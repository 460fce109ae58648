// SPDX-License-Identifier: GPL-3.0-or-later
// Binds the widgets of a window to the controls of its screen, through the screen's own list: every
// control in the list gets a widget here, and no widget is bound in another way. The window then only
// puts the widgets into its layout.
#pragma once

#include <QHash>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "desktop/windows/link.hpp"

namespace kelp {

class Binder {
 public:
  Binder(QWidget* window, std::string screen, Report report)
      : window_(window), screen_(std::move(screen)), report_(std::move(report)) {}

  /// Takes a widget of the window's own making for a control; to be called before Bind. `index` is -1
  /// for a control that is no array member.
  template <class Widget>
  Widget* Use(const std::string& control, int index, Widget* widget) {
    own_[{control, index}] = widget;
    return widget;
  }

  /// Gives every control of the screen a widget, which shows its value.
  template <class Screen>
  void Bind(Screen& screen) {
    screen.VisitControls(screen, Visitor{*this});
  }

  /// The widget of a control. A name that the screen's list does not hold is a fault of the program.
  [[nodiscard]] QWidget* operator()(const std::string& control, int index = -1) const;
  /// The same as what it must be; another widget is a fault of the program too.
  template <class Wanted>
  [[nodiscard]] Wanted* As(const std::string& control, int index = -1) const {
    return kelp::As<Wanted>((*this)(control, index), {screen_, control, index});
  }
  /// The same, or null.
  [[nodiscard]] QWidget* Find(const std::string& control, int index) const;
  /// The place of the control that a widget shows, or null.
  [[nodiscard]] const FocusPlace* PlaceOf(const QObject* widget) const;

  /// Lets a label name a box: its access key goes there, and a screen reader reads it.
  void Pair(const std::string& label, int labelIndex, const std::string& box, int boxIndex) const;

  void ShowChanges();

  [[nodiscard]] const std::string& Screen() const { return screen_; }
  [[nodiscard]] const Report& Reporter() const { return report_; }

 private:
  struct Visitor {
    Binder& binder;
    template <class Control>
    void operator()(std::string_view name, Control& control, int /*alias*/ = -1) {
      binder.Add(name, -1, control);
    }
    template <class Control, int Count, int First>
    void operator()(std::string_view name, ControlArray<Control, Count, First>& controls) {
      for (int i = First; i <= controls.kLast; ++i) binder.Add(name, i, controls[i]);
    }
  };

  template <class Control>
  void Add(std::string_view name, int index, Control& control) {
    const std::pair key(std::string(name), index);
    const auto own = own_.find(key);
    Keep(key, MakeLink({screen_, key.first, index}, control, own == own_.end() ? nullptr : own->second,
                       window_, report_));
  }
  void Keep(const std::pair<std::string, int>& key, std::unique_ptr<Link> link);

  QWidget* window_;
  std::string screen_;
  Report report_;
  std::map<std::pair<std::string, int>, QWidget*> own_ = {};
  std::map<std::pair<std::string, int>, Link*> byName_ = {};
  QHash<const QObject*, const Link*> byWidget_ = {};
  std::vector<std::unique_ptr<Link>> links_ = {};
};

}  // namespace kelp
