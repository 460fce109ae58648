// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop program as a whole: real windows, keys and clicks, real files, and an instrument on a
// pseudo-terminal.
#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QWindow>
#include <algorithm>

#include "acquire/instrument_line.hpp"
#include "console/posix/pseudo_terminal.hpp"
#include "desktop/machine/desktop_run.hpp"
#include "desktop/machine/first_start.hpp"
#include "desktop/machine/machine_settings.hpp"
#include "desktop/machine/message_box.hpp"
#include "desktop/machine/settings_dialog.hpp"
#include "desktop/windows/value_widget.hpp"
#include "tests/desktop/modal.hpp"

namespace kelp {
namespace {

// Every file below a folder by its name there, in lower case. Dates, times and hours become "#": two runs
// never have the same.
std::map<QString, QString> FilesIn(const QString& folder) {
  static const QRegularExpression times(
      "\\d\\d:\\d\\d:\\d\\d|\\d\\d/\\d\\d/\\d{4}|\\d{4}-\\d\\d-\\d\\d|\\d+\\.\\d(?=,ROS)");
  std::map<QString, QString> files;
  QDirIterator found(folder, QDir::Files, QDirIterator::Subdirectories);
  while (found.hasNext()) {
    const QString name = found.next();
    QString text = QString::fromLatin1(Content(name));
    files[QDir(folder).relativeFilePath(name).toLower()] = text.replace(times, "#");
  }
  return files;
}

// Drives of their own, with the demonstration's configuration on drive c.
struct Drives {
  QTemporaryDir folder = {};
  Drives() {
    QDir(folder.path()).mkpath("drive_c/kelp");
    QFile::copy(KELP_SOURCE_DIR "/demo/kelp.cfg", folder.filePath("drive_c/kelp/kelp.cfg"));
    QFile::setPermissions(folder.filePath("drive_c/kelp/kelp.cfg"), QFile::ReadOwner | QFile::WriteOwner);
  }
  [[nodiscard]] QString Path(const QString& name) const { return folder.filePath(name); }
};

int RunProgram(const QString& program, const QStringList& words, QByteArray* errors) {
  QProcess process;
  process.start(program, words);
  process.waitForFinished(60000);
  *errors = process.readAllStandardError();
  return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

void WriteProgram(const QString& name, const QString& commands) {
  WriteFile(name, "#!/bin/sh\n" + commands.toUtf8() + "\n");
  QFile::setPermissions(name, QFile::ReadOwner | QFile::ExeOwner);
}

struct DesktopStation : testing::Test {
  Drives drives = {};
  std::unique_ptr<PseudoTerminal> instrument = std::make_unique<PseudoTerminal>();
  std::unique_ptr<DesktopRun> run = {};
  bool ended = false;
  std::vector<std::string> boxes = {};  ///< texts of the message boxes

  void Begin(const QString& device = {}) {
    BoxKeys::Rest = 0;
    Options options;
    options.Instrument = InstrumentKind::Device;
    if (!device.isEmpty()) {
      options.Drives = drives.folder.path().toStdString();
      options.Ports[1] = device.toStdString();
    }
    run = std::make_unique<DesktopRun>(std::move(options));
    run->Ended = [this] { ended = true; };
    run->windows().KeyRest = 0;
    run->Start();
  }

  [[nodiscard]] std::string& caption() const { return run->program().frmAcquire.Command1.Caption; }
  QWidget* Window(const char* screen) const { return run->windows().WindowOf(screen); }
  void Click(const char* screen, const char* control, int index = -1) const {
    QTest::mouseClick(run->windows().WidgetOf({screen, control, index}), Qt::LeftButton);
  }
  bool IsFront(const char* screen) const {
    return Eventually([&] {
      // The offscreen platform has no window manager that hands the activity on.
      if (QApplication::activeWindow() == nullptr) Window(screen)->activateWindow();
      return QApplication::activeWindow() == Window(screen);
    });
  }

  // Keys go to the window that has them, as from a keyboard.
  static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::activeWindow()->windowHandle(), key, modifiers);
    QCoreApplication::processEvents();
  }
  // The next message box gets this key, and is closed should the key do nothing there.
  void AtBox(Qt::Key key) {
    WhenModal<QMessageBox>([this, key](QMessageBox& box) {
      boxes.push_back(box.text().toStdString());
      QTest::keyClick(box.windowHandle(), key);
      QTimer::singleShot(1000, &box, &QWidget::close);
    });
  }

  // Keys that mean nothing now, or twice the same: nothing that is stored changes.
  static void Stumble() {
    for (const Qt::Key key :
         {Qt::Key_X, Qt::Key_Escape, Qt::Key_F12, Qt::Key_F12, Qt::Key_Backspace, Qt::Key_Return})
      Key(key);
  }

  void ExpectTheFilesOfTheConsole() const;

  // Lines of the instrument; each is taken before the next one comes.
  void Read(const char* value, int count) const {
    for (int i = 0; i < count; ++i) {
      const auto before = run->program().run.Chart.PointsAdded();
      instrument->Send(InstrumentLine(value));
      ASSERT_TRUE(Eventually([&] { return run->program().run.Chart.PointsAdded() > before; })) << caption();
    }
  }
};

struct Reading {
  const char* value;
  const char* saved;  ///< the button once the value may be saved
  const char* next;   ///< and once it is
};
const Reading kReadings[] = {
    {"0.0050", "Save &Blank", "Load Copro 3-1"}, {"1.5400", "Save 3-1", "Load Copro 2-5"},
    {"5.0400", "Save 2-5", "Load 1st Sample"},   {"2.1234", "Save Rb", "Acidify"},
    {"1.1000", "Save Ra", "Load Next Sample"},   {"3.5000", "Save Rb", "Acidify"},
    {"1.9000", "Save Ra", "What's Next"},        {"0.0060", "Save &Blank", "What's Next?"}};

// The same station for the console.
QByteArray StationScript() {
  QByteArray script =
      "click frmMain.Command1(0)\nanswer Yes\nclick frmLogin.cmdOK\n"
      "type frmCreateBase.Text1(1) 93.3 70\ntype frmCreateBase.Text1(2) 2\n"
      "type frmCreateBase.Text1(5) 07/14/2007\ntype frmCreateBase.Text1(6) 09:40:00\n"
      "click frmCreateBase.cmdCreateBase(0)\nkey frmAcquire Space\n";
  for (const Reading& reading : kReadings) {
    if (&reading == std::end(kReadings) - 1)
      script += "click frmWhatsNext.Option1(2)\nclick frmWhatsNext.NextButton\n";
    script += "key frmAcquire Space\nread " + QByteArray(reading.value) + " 16\nkey frmAcquire Space\n";
  }
  return script + "click frmWhatsNext.NextButton\n";
}

// The files of a station run in the windows are those of the same script on the console.
void DesktopStation::ExpectTheFilesOfTheConsole() const {
  const Drives console;
  const QTemporaryDir place;
  WriteFile(place.filePath("s.ks"), StationScript());
  QByteArray errors;
  ASSERT_EQ(RunProgram(KELP_CONSOLE, {"--drives", console.folder.path(), place.filePath("s.ks")}, &errors), 0)
      << errors.toStdString();
  auto expected = FilesIn(console.folder.path());
  auto files = FilesIn(drives.folder.path());
  files.erase("drive_q/vault/2007/0707/chl/chl002.pdf");
  // The record's events have numbers and times of their own.
  EXPECT_EQ(files.erase("drive_c/kelp/record.db") + expected.erase("drive_c/kelp/record.db"), 2U);
  EXPECT_GE(expected.size(), 10U);
  for (const auto& [name, text] : expected) {
    // The per-read log has a line for each second of the run, which the instrument here does not take.
    static const QRegularExpression perRead("[^\\n]*,#,#,[^\\n]*\\n");
    const bool log = name.endsWith("chl002.csv") || name.endsWith(".tmp");
    const auto lines = [&](QString all) { return log ? all.remove(perRead) : all; };
    EXPECT_EQ(lines(files[name]).toStdString(), lines(text).toStdString()) << name.toStdString();
    EXPECT_FALSE(log && !files[name].contains(perRead)) << name.toStdString();
    files.erase(name);
  }
  EXPECT_TRUE(files.empty()) << files.begin()->first.toStdString();
}

TEST_F(DesktopStation, AStationByKeyboardAlone) {
  const QTemporaryDir player;
  const QString sounds = player.filePath("sounds");
  WriteProgram(player.filePath("pw-play"), "echo $(head -c 4 \"$1\") $(basename \"$1\") >> " + sounds);
  qputenv("PATH", player.path().toUtf8() + ":" + qgetenv("PATH"));
  // A first start: the settings dialog is opened from the welcome, and what is set there acts at once.
  WhenModal<FirstStart>([&](FirstStart& welcome) {
    WhenModal<SettingsDialog>([&](SettingsDialog& dialog) {
      for (const QString letter : {"c", "d", "q"}) dialog.AddDrive(letter, drives.Path("drive_" + letter));
      dialog.AddPort("1", QString::fromStdString(instrument->Path()));
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
    QTest::keyClick(&welcome, Qt::Key_M, Qt::AltModifier);
  });
  Begin();

  ASSERT_TRUE(IsFront("frmMain"));
  Key(Qt::Key_Return);
  ASSERT_TRUE(IsFront("frmLogin"));
  AtBox(Qt::Key_Y);
  Key(Qt::Key_Return);
  ASSERT_TRUE(IsFront("frmCreateBase"));
  for (const QString text : {"", "93.3 70", "2", "", "", "07/14/2007", "09:40:00"}) {
    if (!text.isEmpty()) Key(Qt::Key_A, Qt::ControlModifier);
    for (const QChar c : text) Key(Qt::Key(c.toLatin1()));
    Key(Qt::Key_Tab);
  }
  Key(Qt::Key_Return);
  ASSERT_TRUE(IsFront("frmAcquire"));
  Key(Qt::Key_Space);
  EXPECT_EQ(caption(), "Load Blank");
  for (const Reading& reading : kReadings) {
    if (&reading == std::end(kReadings) - 1) {
      ASSERT_TRUE(IsFront("frmWhatsNext"));
      Key(Qt::Key_E, Qt::AltModifier);
      EXPECT_TRUE(Eventually([&] { return run->program().frmWhatsNext.Option1[2].Value; }));
      Key(Qt::Key_Return);
      ASSERT_TRUE(IsFront("frmAcquire"));
      run->windows().SoundSwitch()->toggle();
    }
    Stumble();
    Key(Qt::Key_Space);
    Read(reading.value, 8);
    Stumble();
    Read(reading.value, 8);
    EXPECT_EQ(caption(), reading.saved);
    Key(Qt::Key_Space);
    EXPECT_EQ(caption(), reading.next);
    if (&reading == kReadings) QTest::qWait(1200);  // a tick of the per-read log
  }
  ASSERT_TRUE(IsFront("frmWhatsNext"));
  AtBox(Qt::Key_Y);     // the box's key, not the screen's
  Key(Qt::Key_Return);  // Print/Save ends the program
  EXPECT_TRUE(ended);
  for (const QWidget* window : QApplication::topLevelWidgets()) EXPECT_FALSE(window->isVisible());
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_NE(boxes[1].find("Q:\\vault\\2007\\0707\\chl\\chl002.pdf"), std::string::npos) << boxes[1];

  // Seven values could be saved; a blank, two copros and two Ra were, a question called, and each Rb calls
  // for its acid.
  EXPECT_TRUE(Eventually([&] { return Content(sounds).count('\n') == 15; })) << Content(sounds).toStdString();
  const std::pair<const char*, int> cues[] = {{"can-save", 7}, {"saved", 5}, {"acid", 2}, {"question", 1}};
  for (const auto& [cue, count] : cues)
    EXPECT_EQ(Content(sounds).count(QByteArray("RIFF ") + cue), count)
        << cue << Content(sounds).toStdString();
  run.reset();
  EXPECT_FALSE(LoadSettings().Sound);

  ExpectTheFilesOfTheConsole();

  // The printed report is the report of the ".prn" file.
  const QString chl = drives.Path("drive_q/vault/2007/0707/chl/");
  EXPECT_EQ(PdfText(chl + "chl002.pdf").simplified(),
            QString::fromLatin1(Content(chl + "chl002.prn")).simplified());
}

TEST_F(DesktopStation, AStationByTheMouseAlone) {
  Begin(QString::fromStdString(instrument->Path()));
  ASSERT_TRUE(IsFront("frmMain"));
  Click("frmMain", "Command1", 0);
  ASSERT_TRUE(IsFront("frmLogin"));
  const auto press = [this](QMessageBox::StandardButton button) {
    WhenModal<QMessageBox>(
        [button](QMessageBox& box) { QTest::mouseClick(box.button(button), Qt::LeftButton); });
  };
  press(QMessageBox::Yes);
  Click("frmLogin", "cmdOK");
  // What the sample log says is typed: there is no other way to bring it in.
  const std::pair<int, const char*> boxesTyped[] = {{1, "93.3 70"}, {2, "2"}, {5, "07/14/2007"}, {6, "9:40"}};
  for (const auto& [box, text] : boxesTyped)
    run->Post({.Kind = EventKind::Edit, .Place = {"frmCreateBase", "Text1", box}, .Text = text});
  Click("frmCreateBase", "cmdCreateBase", 0);
  ASSERT_TRUE(IsFront("frmAcquire"));
  Click("frmAcquire", "Command1");
  for (const Reading& reading : kReadings) {
    if (&reading == std::end(kReadings) - 1) {
      ASSERT_TRUE(IsFront("frmWhatsNext"));
      Click("frmWhatsNext", "Option1", 2);
      Click("frmWhatsNext", "NextButton");
      ASSERT_TRUE(IsFront("frmAcquire"));
    }
    Click("frmAcquire", "Command1");
    Read(reading.value, 16);
    EXPECT_EQ(caption(), reading.saved);
    Click("frmAcquire", "Command1");
    EXPECT_EQ(caption(), reading.next);
    if (&reading == kReadings) QTest::qWait(1200);
  }
  ASSERT_TRUE(IsFront("frmWhatsNext"));
  press(QMessageBox::Yes);
  Click("frmWhatsNext", "NextButton");
  EXPECT_TRUE(ended);
  run.reset();
  ExpectTheFilesOfTheConsole();
}

TEST_F(DesktopStation, ClosingAWindowAsksWhatQuitAsks) {
  Begin(QString::fromStdString(instrument->Path()));
  const std::tuple<const char*, const char*, int> rows[] = {
      {"frmMain", "Command1", 4}, {"frmAcquire", "Command3", -1}, {"frmWhatsNext", "StopButton", -1}};
  for (const auto& [screen, control, index] : rows) {
    if (index < 0) HideScreen(run->program(), "frmMain");
    ShowScreen(run->program(), screen);
    ASSERT_TRUE(IsFront(screen));
    boxes.clear();
    AtBox(Qt::Key_N);
    Click(screen, control, index);
    AtBox(Qt::Key_Escape);
    Window(screen)->close();
    ASSERT_EQ(boxes.size(), 2U) << screen;
    EXPECT_EQ(boxes[0], boxes[1]);
    EXPECT_TRUE(Window(screen)->isVisible() && !ended);
  }
  AtBox(Qt::Key_Y);
  Window("frmAcquire")->close();
  EXPECT_TRUE(ended);
}

TEST_F(DesktopStation, AnUnpluggedLineIsToldAndOpenedAgain) {
  const QString cable = drives.Path("cable");
  const auto plug = [&] {
    QFile::remove(cable);
    return QFile::link(QString::fromStdString(instrument->Path()), cable);
  };
  ASSERT_TRUE(plug());
  Begin(cable);
  run->Post({.Kind = EventKind::Click, .Place = {"frmMain", "Command1", 0}});
  AtBox(Qt::Key_Y);
  run->Post({.Kind = EventKind::Click, .Place = {"frmLogin", "cmdOK"}});
  run->Post({.Kind = EventKind::Click, .Place = {"frmCreateBase", "cmdCreateBase", 0}});
  const auto shown = [&](const QString& text) {
    return Eventually([&] {
      const auto widgets = Window("frmAcquire")->findChildren<QWidget*>();
      return std::any_of(widgets.begin(), widgets.end(), [&](QWidget* widget) {
        const auto* box = dynamic_cast<ValueWidget*>(widget);
        return box != nullptr && box->ShownText().contains(text);
      });
    });
  };
  EXPECT_TRUE(shown("Port closed"));
  for (int i = 0; i < 2; ++i) Click("frmAcquire", "Command1");
  EXPECT_TRUE(shown(cable + ") open"));
  Read("1.0000", 3);
  instrument.reset();
  EXPECT_TRUE(shown(cable + ") lost"));
  instrument = std::make_unique<PseudoTerminal>();
  ASSERT_TRUE(plug());
  EXPECT_TRUE(shown(cable + ") open"));
  Read("1.0000", 2);
  EXPECT_EQ(int{run->program().run.ReadCount}, 5) << "nothing that was read is lost";
}

TEST_F(DesktopStation, FilesOpenInTheEditorOfTheSettings) {
  const QString log = drives.Path("log");
  const QString folder = drives.Path("drive_q/vault/2007/0707/chl/");
  WriteProgram(drives.Path("my editor"), "echo run \"$@\" >> " + log);
  QDir(folder).mkpath(".");
  WriteFile(folder + "chl001", "x");
  Begin(QString::fromStdString(instrument->Path()));
  WhenModal<SettingsDialog>([&](SettingsDialog& dialog) {
    dialog.findChild<QLineEdit*>("editor")->setText("\"" + drives.Path("my editor") + "\" -n");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  QTest::mouseClick(run->windows().MachineSettingsButton(), Qt::LeftButton);
  const auto opened = [&](const QString& file) {
    return Eventually([&] { return Content(log).endsWith(("run -n " + folder + file + "\n").toUtf8()); });
  };
  Click("frmMain", "Command1", 3);
  EXPECT_TRUE(opened("0707SLblnk")) << Content(log).toStdString();
  // A file on no drive is refused, with a word where the drives are.
  WhenModal<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().path() + "/", folder);
    WhenModal<QMessageBox>([&](QMessageBox& box) {
      EXPECT_TRUE(box.text().contains(drives.Path("drive_c"))) << box.text().toStdString();
      WhenModal<QFileDialog>([&](QFileDialog& again) { ChooseIn(again, "chl001"); });
      box.accept();
    });
    ChooseIn(dialog, log);
  });
  Click("frmMain", "Command1", 2);
  EXPECT_TRUE(opened("chl001")) << Content(log).toStdString();
}

// A script plays in the windows as on the console: output, exit status and files, byte for byte.
TEST(Scripts, PlayInTheWindowsAsOnTheConsole) {
  const std::pair<QByteArray, int> rows[] = {
      {StationScript(), 0},
      {"expect frmMain.Command1(0) Walk\n", 1},
      {"click frmAcquire.Command1\n", 2},
      {"click frmMain.Command1(4)\n", 3},
      {"type frmMain.Text1(0) 1\nclick frmMain.Command1(3)\nkey frmMain F1\nshow frmMain.Text1(0)\n", 0}};
  for (const auto& [script, expected] : rows) {
    const QTemporaryDir place;
    const QString file = place.filePath("s.ks");
    WriteFile(file, script);
    QByteArray errors[2];
    std::map<QString, QString> files[2];
    for (int i = 0; i < 2; ++i) {
      const Drives drives;
      QStringList words{"--drives", drives.folder.path(), "--clock=2026-11-24T03:00:00", "--quick"};
      if (i == 1) words << "--script";
      const int status = RunProgram(i == 0 ? KELP_CONSOLE : KELP_DESKTOP_PROGRAM, words << file, &errors[i]);
      EXPECT_EQ(status, expected) << errors[i].toStdString();
      errors[i] = errors[i].trimmed().split('\n').last();
      files[i] = FilesIn(drives.folder.path());
    }
    EXPECT_TRUE(expected == 0 || errors[0] == errors[1]) << errors[1].toStdString();
    EXPECT_EQ(files[0], files[1]) << script.toStdString();
  }
}

}  // namespace
}  // namespace kelp
