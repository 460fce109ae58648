// Windows show every control of their screens and report what the operator does.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <set>

#include "desktop/windows/grid_view.hpp"
#include "desktop/windows/value_widget.hpp"
#include "tests/desktop/desk.hpp"

namespace kelp {
namespace {

QString TextOn(QWidget* widget) {
  if (auto* box = dynamic_cast<ValueWidget*>(widget)) return box->ShownText();
  for (const char* name : {"text", "title", "currentText"})
    if (const QVariant text = widget->property(name); text.isValid()) return text.toString();
  return "(no such widget)";
}

// Gives every control of a screen a value of its own, and then compares widgets with controls.
struct Checker {
  Desk& desk;
  std::string screen;
  bool fill;
  int count = 0;
  std::set<QWidget*> seen = {};

  template <class Control>
  void operator()(std::string_view name, Control& control, int /*alias*/ = -1) {
    Visit(name, -1, control);
  }
  template <class Control, int Count, int First>
  void operator()(std::string_view name, ControlArray<Control, Count, First>& controls) {
    for (int i = First; i <= controls.kLast; ++i) Visit(name, i, controls[i]);
  }
  template <class Control>
  void Visit(std::string_view name, int index, Control& control) {
    const std::string what = screen + "." + std::string(name) + "(" + std::to_string(index) + ")";
    QWidget* widget = desk.windows.WidgetOf({screen, std::string(name), index});
    ASSERT_NE(widget, nullptr) << what;
    Check(what, *widget, control);
  }

  void Check(const std::string& what, QWidget& widget, Grid& grid) {
    const auto* cells = dynamic_cast<GridView&>(widget).model();
    for (int row = 0; row < grid.Rows; ++row)
      for (int col = 0; col < grid.Cols; ++col) {
        const auto shown =
            row == 0 ? cells->headerData(col, Qt::Horizontal) : cells->index(row - 1, col).data();
        if (fill)
          grid.Text(row, col) = std::to_string(++count);
        else
          ASSERT_EQ(shown.toString().toStdString(), grid.Text(row, col)) << what << row << "," << col;
      }
  }

  template <class Control>
  void Check(const std::string& what, QWidget& widget, Control& control) {
    std::string* text = nullptr;
    if constexpr (requires { control.Caption; })
      text = &control.Caption;
    else
      text = &control.Text;
    if constexpr (requires { control.Value; }) {
      if (fill) control.Value = !control.Value;
      ASSERT_EQ(static_cast<QAbstractButton&>(widget).isChecked(), control.Value != fill) << what;
    }
    if (fill) {
      // "&" starts an access key, "<" is no markup, a quote and a letter beyond ASCII stay what they are.
      *text = "&v<" + std::to_string(++count) + "> \"\xC3\xA9";
      control.ToolTipText = "tip " + std::to_string(count);
      control.Enabled = !control.Enabled;
      control.Visible = !control.Visible;
      return;
    }
    EXPECT_TRUE(seen.insert(&widget).second) << what << " shares its widget";
    EXPECT_EQ(TextOn(&widget).toStdString(), *text) << what;
    EXPECT_EQ(!widget.isHidden(), control.Visible) << what;
    EXPECT_EQ(widget.isEnabledTo(widget.parentWidget()), control.Enabled) << what;
    EXPECT_EQ(widget.toolTip().toStdString(), control.ToolTipText) << what;
  }
};

TEST(Windows, ShowEveryControlOfEveryScreen) {
  Desk desk;
  VisitScreens(desk.kelp, [&](std::string_view name, auto& screen) {
    const std::string screenName(name);
    ShowScreen(desk.kelp, screenName);
    ASSERT_TRUE(desk.windows.WindowOf(screenName)->isVisible()) << name;
    Checker filling{desk, screenName, true};
    screen.VisitControls(screen, filling);
    screen.Form.Caption = "title of " + screenName;
    desk.windows.ShowChanges();
    EXPECT_EQ(desk.windows.WindowOf(screenName)->windowTitle().toStdString(), screen.Form.Caption);
    Checker comparing{desk, screenName, false};
    screen.VisitControls(screen, comparing);
    HideScreen(desk.kelp, screenName);
    EXPECT_FALSE(desk.windows.WindowOf(screenName)->isVisible()) << name;
  });
  EXPECT_TRUE(desk.events.empty()) << "a widget that the program writes reports nothing";
}

// What the windows report while `act` runs, without moves of the focus.
template <class Act>
std::string Reported(Desk& desk, const Act& act) {
  static const char* const kKinds[] = {"click", "dblclick", "key", "edit", "focus", "cell", "close"};
  QApplication::processEvents();
  desk.events.clear();
  act();
  QApplication::processEvents();
  std::string all;
  for (const Event& event : desk.events) {
    if (event.Kind == EventKind::Focus) continue;
    all += std::string(all.empty() ? "" : "; ") + kKinds[static_cast<int>(event.Kind)] + " " +
           event.Place.Screen + (event.Place.Control.empty() ? "" : ".") + event.Place.Control;
    if (event.Place.Index >= 0) all += "(" + std::to_string(event.Place.Index) + ")";
    if (event.Kind == EventKind::Edit) all += "=" + event.Text;
    if (event.Kind == EventKind::Key) all += " " + std::to_string(event.Key);
    if (event.Row > 0) all += " " + std::to_string(event.Row) + "," + std::to_string(event.Col);
  }
  return all;
}

struct WindowedStation : ::testing::Test {
  Desk desk;

  void SetUp() override {
    desk.OpenStation(5);
    WaitFor("frmAcquire");
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
    return Reported(desk, [&] { QTest::keyClick(widget, Qt::Key(key), modifiers); });
  }
  std::string Clicked(QWidget* widget) {
    return Reported(desk, [&] { QTest::mouseClick(widget, Qt::LeftButton); });
  }
};

TEST_F(WindowedStation, ReportsWhatTheOperatorDoes) {
  EXPECT_EQ(Clicked(At("Command2")), "click frmAcquire.Command2");
  EXPECT_EQ(At<QPushButton>("Command2")->text(), "&Resume");
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Clicked(At("Option1", 3)), "click frmAcquire.Option1(3)");
    EXPECT_TRUE(At<QRadioButton>("Option1", 3)->isChecked()) << "a second click takes nothing back";
  }
  EXPECT_FALSE(At<QRadioButton>("Option1", 0)->isChecked());
  EXPECT_EQ(Clicked(At("Check1")), "click frmAcquire.Check1");
  EXPECT_TRUE(desk.kelp.frmAcquire.Check1.Value);
  EXPECT_EQ(Clicked(At("txtMean", 5)), "click frmAcquire.txtMean(5)") << "a single click is enough";

  auto* box = At<QLineEdit>("txtStaInfo", kStaLineSta);
  box->setFocus();
  box->selectAll();
  EXPECT_EQ(Reported(desk, [&] { QTest::keyClicks(box, "9 "); }),
            "edit frmAcquire.txtStaInfo(1)=9; edit frmAcquire.txtStaInfo(1)=9 ");
  auto* initials = At<QComboBox>("Combo1");
  EXPECT_EQ(Reported(desk, [&] { emit initials->textActivated(initials->itemText(1)); }),
            "edit frmAcquire.Combo1=" + initials->itemText(1).toStdString());

  auto* grid = At<GridView>("datalog");
  const QPoint cell = grid->visualRect(grid->model()->index(2, kColRa)).center();
  EXPECT_EQ(Reported(desk, [&] { QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell); }),
            "cell frmAcquire.datalog 3,4");
  for (int i = 0; i < 2; ++i) desk.platform.QueueAnswer(Answer::No);
  EXPECT_EQ(Reported(desk, [&] { QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, cell); }),
            "dblclick frmAcquire.datalog 3,4");
  EXPECT_EQ(Reported(desk, [&] { desk.windows.WindowOf("frmAcquire")->close(); }), "close frmAcquire");
  EXPECT_TRUE(desk.windows.WindowOf("frmAcquire")->isVisible());
}

TEST_F(WindowedStation, TakesItsKeysBeforeTheWidgets) {
  auto* start = At("Command1");
  auto* grid = At("datalog");
  desk.kelp.frmAcquire.Command1.Caption = "S&tandby";
  EXPECT_EQ(Press(start, Qt::Key_Space), "key frmAcquire 32");
  EXPECT_EQ(desk.kelp.frmAcquire.Command1.Caption, "&Start") << "and the button was not clicked besides";
  EXPECT_EQ(Press(desk.windows.SoundSwitch(), Qt::Key_Return), "") << "not the run's button";
  for (QWidget* place : {start, At("Option1", 1), grid, At("txtStaInfo", 1), At("Combo1"),
                         static_cast<QWidget*>(desk.windows.SoundSwitch())}) {
    desk.platform.QueueAnswer(Answer::No);
    EXPECT_EQ(Press(place, Qt::Key_F10), "key frmAcquire 1010");
  }
  // A space in a box or in a cell is a character.
  At<QLineEdit>("txtStaInfo", 1)->clear();
  EXPECT_EQ(Press(At("txtStaInfo", 1), Qt::Key_Space), "edit frmAcquire.txtStaInfo(1)= ");
  desk.Do({.Kind = EventKind::SelectCell, .Place = {"frmAcquire", "datalog"}, .Row = 1, .Col = kColFiltCom});
  for (const int key : {Qt::Key_A, Qt::Key_Space, Qt::Key_B, Qt::Key_Backspace}) Press(grid, key);
  EXPECT_EQ(desk.kelp.frmAcquire.datalog.Text(1, kColFiltCom), "a ");
  EXPECT_EQ(Press(grid, Qt::Key_Down), "cell frmAcquire.datalog 2,12");

  // What the mouse does by a double click or on a mean box.
  desk.platform.QueueAnswer(Answer::No);
  EXPECT_EQ(Press(grid, Qt::Key_Return, Qt::ControlModifier), "dblclick frmAcquire.datalog 2,12");
  for (const int key : {Qt::Key_Enter, Qt::Key_Space})
    EXPECT_EQ(Press(At("txtMean", 4), key), "click frmAcquire.txtMean(4)");
  ShowScreen(desk.kelp, "frmWhatsNext");
  WaitFor("frmWhatsNext");
  EXPECT_EQ(Press(At("Option1", 5, "frmWhatsNext"), Qt::Key_Space), "key frmWhatsNext 32");
  EXPECT_TRUE(desk.kelp.frmWhatsNext.Option1[5].Value);
  EXPECT_EQ(Press(At("Option1", 1, "frmWhatsNext"), Qt::Key_Return, Qt::ControlModifier),
            "dblclick frmWhatsNext.Option1(1)");

  // A key held down is pressed once.
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", true);
  start->setFocus();
  EXPECT_EQ(Reported(desk, [&] { QApplication::sendEvent(start, &held); }), "");
}

TEST_F(WindowedStation, LeavesTheKeysOfADialogAlone) {
  QWidget dialog;
  QPushButton button("No", &dialog);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  bool clicked = false;
  QObject::connect(&button, &QPushButton::clicked, &button, [&] { clicked = true; });
  EXPECT_EQ(Press(&button, Qt::Key_Space), "");
  EXPECT_TRUE(clicked);
}

TEST_F(WindowedStation, FocusGoesBothWays) {
  const auto focus = [&] { return desk.windows.WindowOf("frmAcquire")->focusWidget(); };
  EXPECT_EQ(focus(), At("Command1"));
  // A click with the mouse on a button leaves the space bar to the run.
  QTest::mouseClick(At("Command4"), Qt::LeftButton);
  EXPECT_EQ(focus(), At("Command1"));
  // Into a box by the mouse, on by Enter, and its value is checked when it is left.
  auto* tau = At<QLineEdit>("txtStaInfo", kStaTau);
  QTest::mouseClick(tau, Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(desk.kelp.Focus.Control + std::to_string(desk.kelp.Focus.Index), "txtStaInfo4");
  tau->selectAll();
  QTest::keyClicks(tau, "abc");
  QTest::keyClick(tau, Qt::Key_Return);
  EXPECT_EQ(focus(), At("txtStaInfo", kStaTau + 1));
  EXPECT_TRUE(At<QLineEdit>("txtStaInfo", kStaTau + 1)->hasSelectedText()) << "ready to be typed over";
  EXPECT_EQ(tau->actions().size(), 1) << "the sign in the box";
  EXPECT_TRUE(tau->toolTip().startsWith("tau is to be a number"));
  tau->setFocus();
  tau->selectAll();
  QTest::keyClicks(tau, "2.1");
  QTest::keyClick(tau, Qt::Key_Tab);
  QApplication::processEvents();
  EXPECT_TRUE(tau->actions().isEmpty());
}

// Everything that can be done can be reached by Tab, and everything reached has a name.
TEST_F(WindowedStation, EveryWindowIsRunByTheKeyboard) {
  const std::pair<const char*, std::size_t> rows[] = {
      {"frmMain", 9},        {"frmLogin", 3},  {"frmAcquire", 58}, {"frmCreateBase", 9}, {"frmWhatsNext", 12},
      {"frmChangeStep", 11}, {"dlgRunRem", 7}, {"frmRecalc", 8},   {"frmEditCFG", 37}};
  for (const auto& [screen, count] : rows) {
    ShowScreen(desk.kelp, screen);
    QWidget* window = desk.windows.WindowOf(screen);
    std::set<QWidget*> stops;
    while (stops.insert(window->focusWidget()).second) {
      QWidget* stop = window->focusWidget();
      ASSERT_NE(stop, nullptr) << screen;
      const QString name = QAccessible::queryAccessibleInterface(stop)->text(QAccessible::Name);
      EXPECT_FALSE(name.trimmed().isEmpty()) << screen << " " << stop->metaObject()->className();
      QTest::keyClick(stop, Qt::Key_Tab);
    }
    EXPECT_EQ(stops.size(), count) << screen;
    HideScreen(desk.kelp, screen);
  }
}

TEST_F(WindowedStation, KeepsWindowsWhereTheyWere) {
  ShowScreen(desk.kelp, "dlgRunRem");
  desk.windows.WindowOf("dlgRunRem")->setGeometry(40, 60, 500, 300);
  const QByteArray kept = desk.windows.Geometry();
  Desk later;
  later.windows.RestoreGeometry(kept);
  later.windows.RestoreGeometry("no geometry at all");
  later.OpenStation(1);
  ShowScreen(later.kelp, "dlgRunRem");
  EXPECT_EQ(later.windows.WindowOf("dlgRunRem")->size(), QSize(500, 300));
}

}  // namespace
}  // namespace kelp
