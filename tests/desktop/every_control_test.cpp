// SPDX-License-Identifier: GPL-3.0-or-later
// Windows show every control of their screens.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <set>

#include "desktop/windows/grid_view.hpp"
#include "desktop/windows/value_widget.hpp"
#include "tests/desktop/desk.hpp"

namespace kelp {
namespace {

QString TextOn(const QWidget& widget) {
  if (const auto* box = dynamic_cast<const ValueWidget*>(&widget)) return box->ShownText();
  for (const char* name : {"text", "title", "currentText"})
    if (const QVariant text = widget.property(name); text.isValid()) return text.toString();
  return "(no such widget)";
}

// Gives every control of a screen values of its own, and then compares the widgets with them.
struct Checker {
  Desk& desk;
  std::string screen;
  bool fill;
  int count = 0;
  std::set<QWidget*> seen = {};

  void operator()(std::string_view name, int index, auto& control) {
    const FocusPlace place{screen, std::string(name), index};
    SCOPED_TRACE(screen + "." + place.Control + "(" + std::to_string(index) + ")");
    QWidget* widget = desk.windows.WidgetOf(place);
    ASSERT_NE(widget, nullptr);
    EXPECT_TRUE(seen.insert(widget).second) << "it shares its widget";
    if constexpr (requires { control.Caption; })
      Check(*widget, control, control.Caption);
    else if constexpr (requires { control.ColWidth; })
      Check(*static_cast<GridView&>(*widget).model(), control);
    else
      Check(*widget, control, control.Text);
  }

  void Check(const QAbstractItemModel& cells, Grid& grid) {
    for (int row = 0; row < grid.Rows; ++row)
      for (int col = 0; col < grid.Cols; ++col) {
        if (fill) {
          grid.Text(row, col) = std::to_string(++count);
          continue;
        }
        const QVariant shown =
            row == 0 ? cells.headerData(col, Qt::Horizontal) : cells.index(row - 1, col).data();
        ASSERT_EQ(shown.toString().toStdString(), grid.Text(row, col)) << row << "," << col;
      }
  }
  void Check(const QWidget& widget, auto& control, std::string& text) {
    if constexpr (requires { control.Value; }) {
      if (fill) control.Value = !control.Value;
      EXPECT_EQ(static_cast<const QAbstractButton&>(widget).isChecked(), control.Value != fill);
    }
    if (fill) {
      // "&" starts an access key, "<" is no markup, a quote and a letter beyond ASCII stay what they are.
      text = "&v<" + std::to_string(++count) + "> \"\xC3\xA9";
      control.ToolTipText = "tip " + std::to_string(count);
      control.Enabled = !control.Enabled;
      control.Visible = !control.Visible;
      return;
    }
    // A caption whose letter another button has goes without; the key that does the same is behind the
    // tooltip.
    const std::string shown = TextOn(widget).toStdString();
    EXPECT_TRUE(shown == text || shown == AsRead(text)) << shown;
    EXPECT_EQ(!widget.isHidden(), control.Visible);
    EXPECT_EQ(widget.isEnabledTo(widget.parentWidget()), control.Enabled);
    EXPECT_EQ(widget.toolTip().section('\n', 0, 0).toStdString(), control.ToolTipText);
  }
};

TEST(Windows, ShowEveryControlOfEveryScreen) {
  Desk desk;
  VisitScreens(desk.kelp, [&](std::string_view name, auto& screen) {
    ShowScreen(desk.kelp, screen.Form);
    const QWidget* window = desk.windows.WindowOf(std::string(name));
    EXPECT_TRUE(window->isVisible()) << name;
    screen.Form.Caption = "title of " + std::string(name);
    for (const bool fill : {true, false}) {
      VisitEach(screen, Checker{desk, std::string(name), fill});
      desk.windows.ShowChanges();
    }
    EXPECT_EQ(window->windowTitle().toStdString(), screen.Form.Caption);
    HideScreen(desk.kelp, screen.Form);
    EXPECT_FALSE(window->isVisible()) << name;
  });
  EXPECT_TRUE(desk.events.empty()) << "a widget that the program writes reports nothing";
}

}  // namespace
}  // namespace kelp
