// SPDX-License-Identifier: GPL-3.0-or-later
// A station of five samples in its window, and what the windows report of it.
#pragma once

#include "tests/desktop/desk.hpp"
#include "tests/desktop/modal.hpp"

namespace kelp {

struct WindowedStation : ::testing::Test {
  Desk desk;
  QWidget* acquire = desk.windows.WindowOf("frmAcquire");

  void SetUp() override {
    desk.OpenStation(5);
    WaitFor("frmAcquire");
    Reported([] {});
  }
  // A window counts as active in Qt's own wait already when the one that it belongs to is.
  void WaitFor(const std::string& screen) {
    const auto active = [&] { return QApplication::activeWindow() == desk.windows.WindowOf(screen); };
    ASSERT_TRUE(QTest::qWaitFor(active)) << screen;
  }
  template <class Widget = QWidget>
  Widget* At(const std::string& control, int index = -1, const std::string& screen = "frmAcquire") {
    return static_cast<Widget*>(desk.windows.WidgetOf({screen, control, index}));
  }
  /// Gives a widget the focus and presses a key there.
  std::string Press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    widget->setFocus();
    return Reported([&] { QTest::keyClick(widget, Qt::Key(key), modifiers); });
  }
  /// What the windows report since the last time and while `act` runs, without moves of the focus.
  std::string Reported(const std::function<void()>& act) {
    static const char* const kKinds[] = {"click", "dblclick", "key",  "edit", "focus",
                                         "paste", "escape",   "cell", "close"};
    act();
    QApplication::processEvents();
    std::string all;
    for (const Event& event : std::exchange(desk.events, {})) {
      if (event.Kind == EventKind::Focus) continue;
      const FocusPlace& place = event.Place;
      all += (all.empty() ? "" : "; ") + std::string(kKinds[static_cast<int>(event.Kind)]) + " ";
      all += place.Control.empty() ? place.Screen : place.Control;
      if (place.Index >= 0) all += "(" + std::to_string(place.Index) + ")";
      if (event.Kind == EventKind::Edit) all += "=" + event.Text;
      if (event.Kind == EventKind::Key) all += " " + std::to_string(event.Key);
      if (event.Row > 0) all += " " + std::to_string(event.Row) + "," + std::to_string(event.Col);
    }
    return all;
  }
  void Warn(const char* text) {
    SetWarning(desk.kelp, text);
    desk.windows.ShowChanges();
  }
};

}  // namespace kelp
