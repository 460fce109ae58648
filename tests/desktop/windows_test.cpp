// SPDX-License-Identifier: GPL-3.0-or-later
// Windows report what the operator does, by mouse or keyboard alone, and tell screen readers what they show.

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <set>

#include "desktop/windows/access_keys.hpp"
#include "desktop/windows/frm_acquire.hpp"
#include "desktop/windows/grid_view.hpp"
#include "desktop/windows/texts.hpp"
#include "desktop/windows/wrap_text.hpp"
#include "tests/desktop/windowed_station.hpp"

namespace kelp {
namespace {

TEST_F(WindowedStation, ReportsWhatTheOperatorDoes) {
  for (QWidget* button : {At("Command2"), At("Option1", 3), At("Option1", 3), At("Check1"), At("txtMean", 5)})
    QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(Reported([] {}),
            "click Command2; click Option1(3); click Option1(3); click Check1; click txtMean(5)");
  EXPECT_EQ(At<QPushButton>("Command2")->text(), "&Resume");
  EXPECT_TRUE(At<QRadioButton>("Option1", 3)->isChecked()) << "a second click takes nothing back";
  EXPECT_FALSE(At<QRadioButton>("Option1", 0)->isChecked());
  EXPECT_TRUE(desk.form().Check1.Value);

  auto* box = At<QLineEdit>("txtStaInfo", kStaLineSta);
  auto* initials = At<QComboBox>("Combo1");
  auto* grid = At<GridView>("datalog");
  const QPoint cell = grid->visualRect(grid->model()->index(2, kColRa)).center();
  box->setFocus();
  box->selectAll();
  EXPECT_EQ(Reported([&] { QTest::keyClicks(box, "9 "); }), "edit txtStaInfo(1)=9; edit txtStaInfo(1)=9 ");
  EXPECT_EQ(Reported([&] { emit initials->textActivated("HNL"); }), "edit Combo1=HNL");
  EXPECT_EQ(Reported([&] { QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell); }),
            "cell datalog 3,4");
  desk.Answers({Answer::No, Answer::No});
  EXPECT_EQ(Reported([&] { QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, cell); }),
            "dblclick datalog 3,4");
}

TEST_F(WindowedStation, TakesItsKeysBeforeTheWidgets) {
  auto* start = At("Command1");
  auto* grid = At("datalog");
  desk.caption() = "S&tandby";
  EXPECT_EQ(Press(start, Qt::Key_Space), "key frmAcquire 32");
  EXPECT_EQ(desk.caption(), "&Start") << "and the button was not clicked besides";
  EXPECT_EQ(Press(desk.windows.SoundSwitch(), Qt::Key_Return), "") << "not the run's button";
  for (QWidget* place : {start, At("Option1", 1), grid, At("txtStaInfo", 1), At("Combo1"),
                         static_cast<QWidget*>(desk.windows.SoundSwitch())}) {
    desk.Answers({Answer::No});
    EXPECT_EQ(Press(place, Qt::Key_F10), "key frmAcquire 1010");
  }
  // A space in a box or in a cell is a character.
  At<QLineEdit>("txtStaInfo", 1)->clear();
  EXPECT_EQ(Press(At("txtStaInfo", 1), Qt::Key_Space), "edit txtStaInfo(1)= ");
  desk.Do({.Kind = EventKind::SelectCell, .Place = {"frmAcquire", "datalog"}, .Row = 1, .Col = kColFiltCom});
  for (const int key : {Qt::Key_A, Qt::Key_Space, Qt::Key_B, Qt::Key_Backspace}) Press(grid, key);
  EXPECT_EQ(desk.cell(1, kColFiltCom), "a ");
  EXPECT_EQ(Press(grid, Qt::Key_Down), "cell datalog 2,12");

  // What the mouse does by a double click or on a mean box.
  desk.Answers({Answer::No});
  EXPECT_EQ(Press(grid, Qt::Key_Return, Qt::ControlModifier), "dblclick datalog 2,12");
  for (const int key : {Qt::Key_Enter, Qt::Key_Space})
    EXPECT_EQ(Press(At("txtMean", 4), key), "click txtMean(4)");
  ShowScreen(desk.kelp, desk.kelp.frmWhatsNext.Form);
  WaitFor("frmWhatsNext");
  EXPECT_EQ(Press(At("Option1", 5, "frmWhatsNext"), Qt::Key_Space), "key frmWhatsNext 32");
  EXPECT_TRUE(desk.kelp.frmWhatsNext.Option1[5].Value);
  EXPECT_EQ(Press(At("Option1", 1, "frmWhatsNext"), Qt::Key_Return, Qt::ControlModifier),
            "dblclick Option1(1)");

  // A key held down is pressed once.
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", true);
  start->setFocus();
  EXPECT_EQ(Reported([&] { QApplication::sendEvent(start, &held); }), "");
}

TEST_F(WindowedStation, ClosingAWindowAsksWhatQuitAsks) {
  const std::tuple<const char*, const char*, int> rows[] = {
      {"frmMain", "Command1", 4}, {"frmAcquire", "Command3", -1}, {"frmWhatsNext", "StopButton", -1}};
  for (const auto& [screen, control, index] : rows) {
    ShowScreen(desk.kelp, *FindWindow(desk.kelp, screen));
    desk.Answers({Answer::No, Answer::No});
    desk.Click(screen, control, index);
    const std::string asked = desk.LastBox();
    QWidget* window = desk.windows.WindowOf(screen);
    EXPECT_EQ(Reported([&] { window->close(); }), std::string("close ") + screen);
    EXPECT_EQ(desk.LastBox(), asked);
    EXPECT_TRUE(window->isVisible() && desk.platform.AnswersWaiting() == 0) << screen;
  }
}

TEST_F(WindowedStation, FocusGoesBothWays) {
  EXPECT_EQ(acquire->focusWidget(), At("Command1"));
  // A click with the mouse on a button leaves the space bar to the run.
  QTest::mouseClick(At("Command4"), Qt::LeftButton);
  EXPECT_EQ(acquire->focusWidget(), At("Command1"));
  // Into a box by the mouse, on by Enter, and its value is checked when it is left.
  auto* tau = At<QLineEdit>("txtStaInfo", kStaTau);
  QTest::mouseClick(tau, Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(desk.kelp.Focus.Control + std::to_string(desk.kelp.Focus.Index), "txtStaInfo4");
  const auto type = [&](const char* text, Qt::Key leave) {
    tau->setFocus();
    tau->selectAll();
    QTest::keyClicks(tau, text);
    QTest::keyClick(tau, leave);
    QApplication::processEvents();
    return tau->actions().size();  // the sign in the box
  };
  EXPECT_EQ(type("abc", Qt::Key_Return), 1);
  EXPECT_TRUE(tau->toolTip().startsWith("tau is to be a number"));
  EXPECT_EQ(acquire->focusWidget(), At("txtStaInfo", kStaTau + 1));
  EXPECT_TRUE(At<QLineEdit>("txtStaInfo", kStaTau + 1)->hasSelectedText()) << "ready to be typed over";
  EXPECT_EQ(type("2.1", Qt::Key_Tab), 0);
}

// The letters that buttons and labels underline: none is there twice, whatever the run's button says.
std::size_t LettersOnce(const QWidget& window) {
  std::map<QChar, std::string> seen;
  for (const QWidget* widget : window.findChildren<const QWidget*>()) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (!widget->isVisible() || (label != nullptr && label->buddy() == nullptr)) continue;
    const QString text = widget->property("text").toString();
    const QChar letter = AccessKeyOf(text);
    EXPECT_TRUE(letter.isNull() || seen.emplace(letter, text.toStdString()).second)
        << text.toStdString() << " and " << seen[letter];
  }
  return seen.size();
}

// How many places Tab leads to.
std::size_t TabStops(const QWidget& window) {
  std::set<QWidget*> stops;
  for (QWidget* stop = window.focusWidget(); stop != nullptr && stops.insert(stop).second;
       stop = window.focusWidget())
    QTest::keyClick(stop, Qt::Key_Tab);
  return stops.size();
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

TEST_F(WindowedStation, EveryWindowIsRunByTheKeyboardAndToldToScreenReaders) {
  struct Row {
    const char* screen;
    std::size_t stops, letters;
  };
  const Row rows[] = {{"frmMain", 9, 9},       {"frmLogin", 3, 3},       {"frmAcquire", 58, 7},
                      {"frmCreateBase", 9, 2}, {"frmWhatsNext", 12, 12}, {"frmChangeStep", 11, 2},
                      {"dlgRunRem", 7, 7},     {"frmRecalc", 8, 3},      {"frmEditCFG", 38, 4},
                      {"frmProgress", 0, 0}};
  std::size_t screens = 0;
  VisitScreens(desk.kelp, [&](std::string_view, auto&) { ++screens; });
  ASSERT_EQ(std::size(rows), screens);
  for (int i = 0; i < 2; ++i) desk.Click("frmAcquire", "Command1");
  desk.Read(1.2345, 10);
  ASSERT_EQ(desk.caption(), "Save &Blank");
  for (const auto& [screen, stops, letters] : rows) {
    SCOPED_TRACE(screen);
    ShowScreen(desk.kelp, *FindWindow(desk.kelp, screen));
    QWidget* window = desk.windows.WindowOf(screen);
    desk.windows.ShowChanges();
    EXPECT_EQ(TabStops(*window), stops);
    EXPECT_EQ(LettersOnce(*window), letters);
    ExpectTold(*QAccessible::queryAccessibleInterface(window), screen);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window->windowIcon().isNull(); }));
    if (window != acquire) HideScreen(desk.kelp, *FindWindow(desk.kelp, screen));
  }
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
  Warn("READINGS ARE NOT SAFE ON THE DISK. ");
  EXPECT_TRUE(!heard || alerts == 1) << "the alarm";
  QAccessible::installUpdateHandler(nullptr);
  QAccessible::setActive(false);
}

TEST_F(WindowedStation, AnAlarmStandsAcrossTheScreenUntilItsCauseIsMended) {
  const auto* band = PartsOf<AlarmBand>(*acquire).at(0);
  EXPECT_FALSE(band->isVisible());
  Warn("READINGS ARE NOT SAFE ON THE DISK. ");
  EXPECT_TRUE(band->isVisible() && desk.windows.AlarmCalls());
  EXPECT_TRUE(band->Words().startsWith("READINGS ARE NOT SAFE")) << band->Words().toStdString();
  QTest::mouseClick(band->SeenButton(), Qt::LeftButton);
  EXPECT_TRUE(band->isVisible() && !desk.windows.AlarmCalls()) << "seen is not mended";
  Warn("");
  EXPECT_FALSE(band->isVisible());
}

TEST_F(WindowedStation, TheChooserStandsBesideTheReadingsOnItsChoice) {
  desk.windows.KeyRest = 300;
  ShowScreen(desk.kelp, desk.kelp.frmWhatsNext.Form);
  WaitFor("frmWhatsNext");
  QWidget* chooser = desk.windows.WindowOf("frmWhatsNext");
  EXPECT_FALSE(
      chooser->frameGeometry().intersects(static_cast<FrmAcquireWindow*>(acquire)->ReadingColumns()));
  EXPECT_EQ(chooser->focusWidget(), At("Option1", 0, "frmWhatsNext"));
  EXPECT_EQ(Press(chooser->focusWidget(), Qt::Key_Space), "") << "meant for what was in front before";
  QTest::qWait(320);
  EXPECT_EQ(Press(chooser->focusWidget(), Qt::Key_Space), "key frmWhatsNext 32");
  bool warned = false;
  for (const auto* text : PartsOf<WrapText>(*chooser))
    warned |= text->isVisible() && text->ShownText() == "Samples 1 to 5 have no reading";
  EXPECT_TRUE(warned);
  EXPECT_EQ(Press(chooser->focusWidget(), Qt::Key_Escape), "escape frmWhatsNext");
  EXPECT_FALSE(chooser->isVisible());
}

TEST_F(WindowedStation, CellsAreCopiedAndPastedAsSpreadsheetsDo) {
  auto* grid = At<GridView>("datalog");
  QApplication::clipboard()->setText("5\n10\n20\n");
  desk.Do({.Kind = EventKind::SelectCell, .Place = {"frmAcquire", "datalog"}, .Row = 2, .Col = kColDepth});
  EXPECT_EQ(Press(grid, Qt::Key_V, Qt::ControlModifier), "paste datalog 2,2");
  EXPECT_EQ(desk.cell(4, kColDepth), "20");
  for (int i = 0; i < 2; ++i) Press(grid, Qt::Key_Down, Qt::ShiftModifier);
  Press(grid, Qt::Key_Left, Qt::ShiftModifier);
  Press(grid, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "08\t5\n09\t10\n10\t20");
  desk.form().cmdUndo.Enabled = true;
  EXPECT_EQ(Press(grid, Qt::Key_Z, Qt::ControlModifier), "click cmdUndo");
  EXPECT_EQ(Press(At("txtStaInfo", 1), Qt::Key_Z, Qt::ControlModifier), "click cmdUndo");
}

TEST_F(WindowedStation, KeepsWindowsWhereTheyWere) {
  ShowScreen(desk.kelp, desk.kelp.dlgRunRem.Form);
  desk.windows.WindowOf("dlgRunRem")->setGeometry(40, 60, 500, 300);
  const QByteArray kept = desk.windows.Geometry();
  Desk later;
  later.windows.RestoreGeometry(kept);
  later.windows.RestoreGeometry("no geometry at all");
  later.OpenStation(1);
  ShowScreen(later.kelp, later.kelp.dlgRunRem.Form);
  EXPECT_EQ(later.windows.WindowOf("dlgRunRem")->size(), QSize(500, 300));
}

}  // namespace
}  // namespace kelp
