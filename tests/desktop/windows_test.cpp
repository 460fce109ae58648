// Windows show every control of their screens and report what the operator does.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
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
  if (auto* edit = qobject_cast<QLineEdit*>(widget)) return edit->text();
  if (auto* button = qobject_cast<QAbstractButton*>(widget)) return button->text();
  if (auto* label = qobject_cast<QLabel*>(widget)) return label->text();
  if (auto* group = qobject_cast<QGroupBox*>(widget)) return group->title();
  if (auto* combo = qobject_cast<QComboBox*>(widget)) return combo->currentText();
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
    Check(name, -1, control);
  }
  template <class Control, int Count, int First>
  void operator()(std::string_view name, ControlArray<Control, Count, First>& controls) {
    for (int i = First; i <= controls.kLast; ++i) Check(name, i, controls[i]);
  }

  void Check(std::string_view name, int index, Grid& grid) {
    auto* view = dynamic_cast<GridView*>(Widget(name, index));
    ASSERT_NE(view, nullptr);
    for (int row = 0; row < grid.Rows; ++row)
      for (int col = 0; col < grid.Cols; ++col) {
        if (fill) grid.Text(row, col) = std::to_string(++count);
        const auto shown = row == 0 ? view->model()->headerData(col, Qt::Horizontal)
                                    : view->model()->index(row - 1, col).data();
        if (fill) continue;
        ASSERT_EQ(shown.toString().toStdString(), grid.Text(row, col)) << row << "," << col;
      }
  }

  template <class Control>
  void Check(std::string_view name, int index, Control& control) {
    if constexpr (requires { control.Caption; })
      CheckText(name, index, control, control.Caption);
    else
      CheckText(name, index, control, control.Text);
    if constexpr (requires { control.Value; }) {
      if (fill) control.Value = !control.Value;
      ASSERT_EQ(static_cast<QAbstractButton*>(Widget(name, index))->isChecked(), control.Value != fill);
    }
  }

  template <class Control>
  void CheckText(std::string_view name, int index, Control& control, std::string& text) {
    const std::string what = screen + "." + std::string(name) + "(" + std::to_string(index) + ")";
    QWidget* widget = Widget(name, index);
    ASSERT_NE(widget, nullptr) << what;
    EXPECT_TRUE(seen.insert(widget).second) << what << " shares its widget";
    EXPECT_EQ(TextOn(widget).toStdString(), text) << what;
    EXPECT_EQ(fill ? widget->isVisible() : !widget->isHidden(), control.Visible) << what;
    EXPECT_EQ(widget->isEnabledTo(widget->parentWidget()), control.Enabled) << what;
    if (fill) {
      // "&" starts an access key, "<" is no markup, a quote and a letter beyond ASCII stay what they are.
      text = "&v<" + std::to_string(++count) + "> \"\xC3\xA9";
      control.ToolTipText = "tip " + std::to_string(count);
      control.Enabled = !control.Enabled;
      control.Visible = !control.Visible;
    } else {
      EXPECT_EQ(widget->toolTip().toStdString(), control.ToolTipText) << what;
    }
  }

  QWidget* Widget(std::string_view name, int index) {
    return desk.windows.WidgetOf({screen, std::string(name), index});
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

std::string Told(const Event& event) {
  static const char* const kKinds[] = {"click", "dblclick", "key", "edit", "focus", "cell", "close"};
  std::string text = std::string(kKinds[static_cast<int>(event.Kind)]) + " " + event.Place.Screen;
  if (!event.Place.Control.empty()) text += "." + event.Place.Control;
  if (event.Place.Index >= 0) text += "(" + std::to_string(event.Place.Index) + ")";
  if (event.Kind == EventKind::Edit) text += "=" + event.Text;
  if (event.Kind == EventKind::Key) text += " " + std::to_string(event.Key);
  if (event.Row > 0) text += " " + std::to_string(event.Row) + "," + std::to_string(event.Col);
  return text;
}

// What the windows report while `act` runs, without moves of the focus.
template <class Act>
std::string Reported(Desk& desk, const Act& act) {
  QApplication::processEvents();
  desk.events.clear();
  act();
  QApplication::processEvents();
  std::string all;
  for (const Event& event : desk.events)
    if (event.Kind != EventKind::Focus) all += (all.empty() ? "" : "; ") + Told(event);
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
  QWidget* On(const std::string& screen, const std::string& control, int index = -1) {
    return desk.windows.WidgetOf({screen, control, index});
  }
  template <class Widget>
  Widget* At(const std::string& control, int index = -1) {
    return static_cast<Widget*>(On("frmAcquire", control, index));
  }
  void Open(const std::string& screen) {
    ShowScreen(desk.kelp, screen);
    WaitFor(screen);
  }
  /// Gives a widget the focus and presses a key there.
  std::string Press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    widget->setFocus();
    return Reported(desk, [&] { QTest::keyClick(widget, Qt::Key(key), modifiers); });
  }
};

TEST_F(WindowedStation, ReportsWhatTheOperatorDoes) {
  const auto clicked = [&](QWidget* widget) {
    return Reported(desk, [&] { QTest::mouseClick(widget, Qt::LeftButton); });
  };
  EXPECT_EQ(clicked(At<QWidget>("Command2")), "click frmAcquire.Command2");
  EXPECT_EQ(At<QPushButton>("Command2")->text(), "&Resume");
  EXPECT_EQ(clicked(At<QWidget>("Option1", 3)), "click frmAcquire.Option1(3)");
  EXPECT_TRUE(At<QRadioButton>("Option1", 3)->isChecked());
  EXPECT_FALSE(At<QRadioButton>("Option1", 0)->isChecked());
  EXPECT_EQ(clicked(At<QWidget>("Option1", 3)), "click frmAcquire.Option1(3)");
  EXPECT_TRUE(At<QRadioButton>("Option1", 3)->isChecked()) << "a second click takes nothing back";
  EXPECT_EQ(clicked(At<QWidget>("Check1")), "click frmAcquire.Check1");
  EXPECT_TRUE(desk.kelp.frmAcquire.Check1.Value);

  auto* box = At<QLineEdit>("txtStaInfo", kStaLineSta);
  box->setFocus();
  box->selectAll();
  EXPECT_EQ(
      Reported(desk, [&] { QTest::keyClicks(box, "9 0"); }),
      "edit frmAcquire.txtStaInfo(1)=9; edit frmAcquire.txtStaInfo(1)=9 ; edit frmAcquire.txtStaInfo(1)=9 0");
  EXPECT_EQ(desk.kelp.frmAcquire.txtStaInfo[kStaLineSta].Text, "9 0");
  auto* initials = At<QComboBox>("Combo1");
  EXPECT_EQ(Reported(desk, [&] { emit initials->textActivated(initials->itemText(1)); }),
            "edit frmAcquire.Combo1=" + initials->itemText(1).toStdString());

  auto* grid = At<GridView>("datalog");
  const QPoint cell = grid->visualRect(grid->model()->index(2, kColRa)).center();
  EXPECT_EQ(Reported(desk, [&] { QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell); }),
            "cell frmAcquire.datalog 3,4");
  desk.platform.QueueAnswer(Answer::No);
  EXPECT_EQ(Reported(desk, [&] { QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, cell); }),
            "dblclick frmAcquire.datalog 3,4");
  desk.platform.QueueAnswer(Answer::No);
  EXPECT_EQ(Reported(desk, [&] { desk.windows.WindowOf("frmAcquire")->close(); }), "close frmAcquire");
  EXPECT_TRUE(desk.windows.WindowOf("frmAcquire")->isVisible());
}

TEST_F(WindowedStation, TakesItsKeysBeforeTheWidgets) {
  const std::string space = "key frmAcquire 32";
  const std::string f10 = "key frmAcquire 1010";
  auto* start = At<QWidget>("Command1");
  auto* grid = At<QWidget>("datalog");
  desk.kelp.frmAcquire.Command1.Caption = "S&tandby";
  EXPECT_EQ(Press(start, Qt::Key_Space), space);
  EXPECT_EQ(desk.kelp.frmAcquire.Command1.Caption, "&Start") << "and the button was not clicked besides";
  EXPECT_EQ(Press(desk.windows.SoundSwitch(), Qt::Key_Return), "") << "not the run's button";
  for (QWidget* place : {start, At<QWidget>("Option1", 1), grid, At<QWidget>("txtStaInfo", 1),
                         At<QWidget>("Combo1"), static_cast<QWidget*>(desk.windows.SoundSwitch())}) {
    desk.platform.QueueAnswer(Answer::No);
    EXPECT_EQ(Press(place, Qt::Key_F10), f10);
  }
  // A space in a box or in a cell is a character.
  At<QLineEdit>("txtStaInfo", 1)->clear();
  EXPECT_EQ(Press(At<QWidget>("txtStaInfo", 1), Qt::Key_Space), "edit frmAcquire.txtStaInfo(1)= ");
  desk.Do({.Kind = EventKind::SelectCell, .Place = {"frmAcquire", "datalog"}, .Row = 1, .Col = kColFiltCom});
  for (const int key : {Qt::Key_A, Qt::Key_Space, Qt::Key_B, Qt::Key_Backspace}) Press(grid, key);
  EXPECT_EQ(desk.kelp.frmAcquire.datalog.Text(1, kColFiltCom), "a ");
  EXPECT_EQ(Press(grid, Qt::Key_Down), "cell frmAcquire.datalog 2,12");

  // The double clicks by key, and the mean boxes by key and by mouse.
  desk.platform.QueueAnswer(Answer::No);
  EXPECT_EQ(Press(grid, Qt::Key_Return, Qt::ControlModifier), "dblclick frmAcquire.datalog 2,12");
  EXPECT_EQ(Press(At<QWidget>("txtMean", 4), Qt::Key_Enter), "click frmAcquire.txtMean(4)");
  EXPECT_EQ(Press(At<QWidget>("txtMean", 4), Qt::Key_Space), "click frmAcquire.txtMean(4)");
  QTest::mouseClick(At<QWidget>("txtMean", 5), Qt::LeftButton);
  EXPECT_EQ(desk.events.back().Kind, EventKind::Click);
  EXPECT_EQ(desk.events.back().Place.Index, 5);
  Open("frmWhatsNext");
  EXPECT_EQ(Press(On("frmWhatsNext", "Option1", 5), Qt::Key_Space), "key frmWhatsNext 32");
  EXPECT_TRUE(desk.kelp.frmWhatsNext.Option1[5].Value);
  EXPECT_EQ(Press(On("frmWhatsNext", "Option1", 1), Qt::Key_Return, Qt::ControlModifier),
            "dblclick frmWhatsNext.Option1(1)");
  EXPECT_EQ(desk.kelp.run.SampCount, 6);

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
  int clicks = 0;
  QObject::connect(&button, &QPushButton::clicked, &button, [&] { ++clicks; });
  EXPECT_EQ(Press(&button, Qt::Key_Space), "");
  EXPECT_EQ(clicks, 1);
}

TEST_F(WindowedStation, FocusGoesBothWays) {
  const auto focus = [&] { return desk.windows.WindowOf("frmAcquire")->focusWidget(); };
  EXPECT_EQ(focus(), On("frmAcquire", "Command1"));
  // A click with the mouse on a button leaves the space bar to the run.
  QTest::mouseClick(At<QWidget>("Command4"), Qt::LeftButton);
  EXPECT_EQ(focus(), On("frmAcquire", "Command1"));
  // Into a box by the mouse, on by Enter, and its value is checked when it is left.
  auto* tau = At<QLineEdit>("txtStaInfo", kStaTau);
  QTest::mouseClick(tau, Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(desk.kelp.Focus.Control + std::to_string(desk.kelp.Focus.Index), "txtStaInfo4");
  tau->selectAll();
  QTest::keyClicks(tau, "abc");
  QTest::keyClick(tau, Qt::Key_Return);
  EXPECT_EQ(focus(), On("frmAcquire", "txtStaInfo", kStaTau + 1));
  EXPECT_TRUE(At<QLineEdit>("txtStaInfo", kStaTau + 1)->hasSelectedText()) << "ready to be typed over";
  EXPECT_EQ(tau->actions().size(), 1) << "the sign in the box";
  EXPECT_TRUE(tau->toolTip().startsWith("tau is to be a number"));
  QTest::keyClick(focus(), Qt::Key_Tab, Qt::ShiftModifier);
  EXPECT_EQ(focus(), tau);
  tau->selectAll();
  QTest::keyClicks(tau, "2.1");
  QTest::keyClick(tau, Qt::Key_Tab);
  QApplication::processEvents();
  EXPECT_TRUE(tau->actions().isEmpty());
}

// Everything that can be done can be reached by Tab, and everything reached has a name.
TEST_F(WindowedStation, EveryWindowIsRunByTheKeyboard) {
  struct Row {
    const char* screen;
    int stops;
  };
  const Row rows[] = {{"frmMain", 8},       {"frmLogin", 3},      {"frmAcquire", 58},
                      {"frmCreateBase", 9}, {"frmWhatsNext", 12}, {"frmChangeStep", 11},
                      {"dlgRunRem", 7},     {"frmRecalc", 8},     {"frmEditCFG", 37}};
  for (const Row& row : rows) {
    ShowScreen(desk.kelp, row.screen);
    QWidget* window = desk.windows.WindowOf(row.screen);
    std::set<QWidget*> stops;
    while (stops.insert(window->focusWidget()).second) {
      QWidget* stop = window->focusWidget();
      ASSERT_NE(stop, nullptr) << row.screen;
      auto* accessible = QAccessible::queryAccessibleInterface(stop);
      EXPECT_FALSE(accessible->text(QAccessible::Name).trimmed().isEmpty())
          << row.screen << " " << stop->metaObject()->className();
      QTest::keyClick(stop, Qt::Key_Tab);
    }
    EXPECT_EQ(static_cast<int>(stops.size()), row.stops) << row.screen;
    HideScreen(desk.kelp, row.screen);
  }
}

// Keys go to the window in front, wherever it has its focus.
struct Keyboard {
  Desk& desk;

  void Press(int key) {
    QTest::keyClick(desk.windows.FrontWindow()->focusWidget(), Qt::Key(key));
    QApplication::processEvents();
  }
  void Type(const char* text) { QTest::keyClicks(desk.windows.FrontWindow()->focusWidget(), text); }
  /// The space bar begins a reading; it comes in and the space bar saves it.
  void Measure(double value) {
    Press(Qt::Key_Space);
    desk.Read(value, 10);
    Press(Qt::Key_Space);
  }
};

TEST(Keyboard, RunsAStationWithoutTheMouse) {
  Desk desk;
  Keyboard hands{desk};
  Start(desk.kelp);
  hands.Press(Qt::Key_Space);  // [Run Samples]
  ASSERT_EQ(desk.kelp.Shown.front(), "frmLogin");
  hands.Press(Qt::Key_Down);
  desk.platform.QueueAnswer(Answer::Yes);
  hands.Press(Qt::Key_Return);
  ASSERT_EQ(desk.kelp.Shown.front(), "frmCreateBase");
  for (const char* text : {"002", "93.3 70", "2", "7", "21", "11/23/2026", "21:40:00"}) {
    hands.Type(text);
    hands.Press(Qt::Key_Return);
  }
  hands.Press(Qt::Key_Return);  // [Create File]
  ASSERT_EQ(desk.kelp.Shown.front(), "frmAcquire");
  EXPECT_EQ(desk.kelp.run.ProcNum, "002");
  EXPECT_EQ(desk.kelp.frmAcquire.Combo1.Text, Words(CfgValue(desk.kelp.run, kCfgInitials))[1]);

  hands.Press(Qt::Key_Space);
  for (const double value : {0.0141, 1.53, 5.03}) hands.Measure(value);
  for (const double value : {2.5, 1.25, 3.0, 2.0}) hands.Measure(value);
  EXPECT_EQ(desk.kelp.Shown.front(), "frmWhatsNext");
  const Grid& grid = desk.kelp.frmAcquire.datalog;
  const char* const rows[][4] = {{"21", "07", "2.5000", "1.2500"}, {"22", "08", "3.0000", "2.0000"}};
  for (int row = 1; row <= 2; ++row)
    for (int col : {kColVial, kColBottle, kColRb, kColRa})
      EXPECT_EQ(grid.Text(row, col), rows[row - 1][col < 2 ? col : col - 1]) << row << "," << col;
  EXPECT_FALSE(grid.Text(2, kColChla).empty());
  EXPECT_EQ(desk.kelp.frmAcquire.txtBlank[kBoxBeginBlank].Text, "0.0141");
  EXPECT_EQ(desk.kelp.frmAcquire.txtBlank[kBoxCopro2].Text, "5.0300");

  // A remark, and the chooser's "End Blank".
  QTest::keyClick(desk.windows.WidgetOf({"frmAcquire", "Command1"}), Qt::Key_F9);
  ASSERT_EQ(desk.kelp.Shown.front(), "dlgRunRem");
  hands.Type("torn filter");
  for (int i = 0; i < 5; ++i) hands.Press(Qt::Key_Tab);
  hands.Press(Qt::Key_Space);  // [OK]
  EXPECT_EQ(desk.kelp.run.SampTbl(1, kTblReaderRemark), "torn filter");
  hands.Press(Qt::Key_Tab);
  hands.Press(Qt::Key_Return);  // [Cancel]
  ASSERT_EQ(desk.kelp.Shown.front(), "frmWhatsNext");
  desk.windows.WidgetOf({"frmWhatsNext", "Option1", 2})->setFocus();
  hands.Press(Qt::Key_Space);
  desk.windows.WidgetOf({"frmWhatsNext", "NextButton"})->setFocus();
  hands.Press(Qt::Key_Return);
  EXPECT_EQ(desk.kelp.frmAcquire.Command1.Caption, "Load Blank");
  EXPECT_EQ(desk.kelp.Shown.front(), "frmAcquire");
}

TEST_F(WindowedStation, KeepsWindowsWhereTheyWere) {
  Open("dlgRunRem");
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

int main(int argc, char** argv) {
  // Window tests need no display.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  ::testing::InitGoogleTest(&argc, argv);
  const QApplication app(argc, argv);
  return RUN_ALL_TESTS();
}
