// SPDX-License-Identifier: GPL-3.0-or-later
// Windows show every control of their screens and report what the operator does.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <set>

#include "desktop/windows/access_keys.hpp"
#include "desktop/windows/frm_acquire.hpp"
#include "desktop/windows/grid_view.hpp"
#include "desktop/windows/texts.hpp"
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
    // A caption whose letter another button has goes without.
    const std::string plain = Replaced(*text, "&", "");
    const std::string shown = TextOn(&widget).toStdString();
    EXPECT_TRUE(shown == *text || shown == plain) << what << " " << shown;
    EXPECT_EQ(!widget.isHidden(), control.Visible) << what;
    EXPECT_EQ(widget.isEnabledTo(widget.parentWidget()), control.Enabled) << what;
    // The key that does the same stands behind it.
    EXPECT_EQ(widget.toolTip().section('\n', 0, 0).toStdString(), control.ToolTipText) << what;
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
  static const char* const kKinds[] = {"click", "dblclick", "key",  "edit", "focus",
                                       "paste", "escape",   "cell", "close"};
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
      {"frmChangeStep", 11}, {"dlgRunRem", 7}, {"frmRecalc", 8},   {"frmEditCFG", 38}};
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

// The widgets of a kind; Qt's own search knows no kinds of ours.
template <class Part>
std::vector<Part*> PartsOf(const QWidget* window) {
  std::vector<Part*> parts;
  for (QWidget* widget : window->findChildren<QWidget*>())
    if (auto* part = dynamic_cast<Part*>(widget)) parts.push_back(part);
  return parts;
}

// The letters that buttons and labels underline: none is there twice, whatever the run's button says.
void ExpectLettersOnce(const QWidget& window, const std::string& where) {
  std::map<QChar, std::string> seen;
  for (const QWidget* widget : window.findChildren<const QWidget*>()) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (!widget->isVisible() || (label != nullptr && label->buddy() == nullptr)) continue;
    const QString text = widget->property("text").toString();
    const QChar letter = AccessKeyOf(text);
    if (letter.isNull()) continue;
    EXPECT_TRUE(seen.emplace(letter, text.toStdString()).second)
        << where << ": " << text.toStdString() << " and " << seen[letter];
  }
  EXPECT_GE(seen.size(), where == "frmAcquire"     ? 7U
                         : where == "frmMain"      ? 8U
                         : where == "frmWhatsNext" ? 12U
                                                   : 0U)
      << where;
}

// What a screen reader finds: no element without a name or with a role that says nothing, and the values.
void ExpectTold(QAccessibleInterface& element, const std::string& where) {
  const QString name = element.text(QAccessible::Name);
  const QString value = element.text(QAccessible::Value) + element.text(QAccessible::Description);
  const std::string what = where + "/" + name.toStdString();
  const bool silent = element.role() == QAccessible::Client || element.role() == QAccessible::NoRole;
  EXPECT_TRUE(!silent || value.isEmpty()) << what << " is a filler with the value " << value.toStdString();
  EXPECT_TRUE((value.isEmpty() && !element.state().focusable) || !name.trimmed().isEmpty())
      << what << " role " << element.role() << " " << value.toStdString();
  if (element.role() == QAccessible::Table) return;  // its cells name themselves
  for (int i = 0; i < element.childCount(); ++i)
    if (QAccessibleInterface* child = element.child(i); child != nullptr && !child->state().invisible)
      ExpectTold(*child, what);
}

TEST_F(WindowedStation, EveryWindowIsToldToScreenReadersAndHasItsLettersOnce) {
  for (int i = 0; i < 2; ++i) desk.Click("frmAcquire", "Command1");
  desk.Read(1.2345, 10);
  ASSERT_EQ(desk.kelp.frmAcquire.Command1.Caption, "Save &Blank");
  VisitScreens(desk.kelp, [&](std::string_view name, auto& /*screen*/) {
    ShowScreen(desk.kelp, name);
    QWidget* window = desk.windows.WindowOf(std::string(name));
    desk.windows.ShowChanges();
    ExpectLettersOnce(*window, std::string(name));
    ExpectTold(*QAccessible::queryAccessibleInterface(window), std::string(name));
    EXPECT_FALSE(window->windowIcon().isNull()) << name;
    if (name != "frmAcquire") HideScreen(desk.kelp, name);
  });
  const auto told = [&](const char* control, int index) {
    QAccessibleInterface* element = QAccessible::queryAccessibleInterface(At(control, index));
    return element->text(QAccessible::Name) + "=" + element->text(QAccessible::Value);
  };
  EXPECT_EQ(told("txtReading", -1), "Average fluorometer reading=1.2345");
  EXPECT_EQ(told("txtStats", 0), "Read counter=10");
  EXPECT_EQ(QAccessible::queryAccessibleInterface(At("Option1", 0))->role(), QAccessible::RadioButton);
  EXPECT_TRUE(QAccessible::queryAccessibleInterface(At("Option1", 0))->state().checked);

  static int alerts = 0;
  QAccessible::setActive(true);
  QAccessible::installUpdateHandler(
      [](QAccessibleEvent* event) { alerts += event->type() == QAccessible::Alert ? 1 : 0; });
  // The offscreen platform has no screen readers.
  const bool heard = QAccessible::isActive();
  alerts = 0;
  desk.Click("frmAcquire", "Command1");
  EXPECT_TRUE(!heard || alerts >= 2) << "the save, and what to load next";
  alerts = 0;
  SetWarning(desk.kelp, "READINGS ARE NOT SAFE ON THE DISK. ");
  desk.windows.ShowChanges();
  EXPECT_TRUE(!heard || alerts == 1) << "the alarm";
  QAccessible::installUpdateHandler(nullptr);
  QAccessible::setActive(false);
}

TEST_F(WindowedStation, AnAlarmStandsAcrossTheScreenUntilItsCauseIsMended) {
  const auto* band = PartsOf<AlarmBand>(desk.windows.WindowOf("frmAcquire")).at(0);
  EXPECT_FALSE(band->isVisible());
  SetWarning(desk.kelp, "READINGS ARE NOT SAFE ON THE DISK. ");
  desk.windows.ShowChanges();
  EXPECT_TRUE(band->isVisible());
  EXPECT_TRUE(band->Words().startsWith("READINGS ARE NOT SAFE")) << band->Words().toStdString();
  EXPECT_TRUE(desk.windows.AlarmCalls());
  QTest::mouseClick(band->SeenButton(), Qt::LeftButton);
  EXPECT_FALSE(desk.windows.AlarmCalls());
  EXPECT_TRUE(band->isVisible()) << "seen is not mended";
  SetWarning(desk.kelp, "");
  desk.windows.ShowChanges();
  EXPECT_FALSE(band->isVisible());
}

TEST_F(WindowedStation, TheChooserStandsBesideTheReadingsOnItsChoice) {
  auto* acquire = static_cast<FrmAcquireWindow*>(desk.windows.WindowOf("frmAcquire"));
  desk.windows.KeyRest = 300;
  ShowScreen(desk.kelp, "frmWhatsNext");
  WaitFor("frmWhatsNext");
  QWidget* chooser = desk.windows.WindowOf("frmWhatsNext");
  EXPECT_FALSE(chooser->frameGeometry().intersects(acquire->ReadingColumns()));
  EXPECT_EQ(chooser->focusWidget(), At("Option1", 0, "frmWhatsNext"));
  EXPECT_EQ(Press(chooser->focusWidget(), Qt::Key_Space), "") << "meant for what was in front before";
  QTest::qWait(320);
  EXPECT_EQ(Press(chooser->focusWidget(), Qt::Key_Space), "key frmWhatsNext 32");
  bool warned = false;
  for (const auto* text : PartsOf<WrapText>(chooser))
    warned |= text->isVisible() && text->ShownText() == "Samples 1 to 5 have no reading";
  EXPECT_TRUE(warned);
  EXPECT_EQ(Press(chooser->focusWidget(), Qt::Key_Escape), "escape frmWhatsNext");
  EXPECT_FALSE(chooser->isVisible());
}

TEST_F(WindowedStation, CellsAreCopiedAndPastedAsSpreadsheetsDo) {
  auto* grid = At<GridView>("datalog");
  QApplication::clipboard()->setText("5\n10\n20\n");
  desk.Do({.Kind = EventKind::SelectCell, .Place = {"frmAcquire", "datalog"}, .Row = 2, .Col = kColDepth});
  EXPECT_EQ(Press(grid, Qt::Key_V, Qt::ControlModifier), "paste frmAcquire.datalog 2,2");
  EXPECT_EQ(desk.kelp.frmAcquire.datalog.Text(4, kColDepth), "20");
  for (int i = 0; i < 2; ++i) Press(grid, Qt::Key_Down, Qt::ShiftModifier);
  Press(grid, Qt::Key_Left, Qt::ShiftModifier);
  Press(grid, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "08\t5\n09\t10\n10\t20");
  desk.kelp.frmAcquire.cmdUndo.Enabled = true;
  EXPECT_EQ(Press(grid, Qt::Key_Z, Qt::ControlModifier), "click frmAcquire.cmdUndo");
  EXPECT_EQ(Press(At("txtStaInfo", 1), Qt::Key_Z, Qt::ControlModifier), "click frmAcquire.cmdUndo");
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
