// SPDX-License-Identifier: GPL-3.0-or-later
// A station in the real windows, by keyboard or mouse, with an instrument on a pseudo-terminal, and what it
// and the console's scripts leave on the drives.
#pragma once

#include <QDir>
#include <QDirIterator>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QWindow>

#include "acquire/instrument_line.hpp"
#include "console/posix/pseudo_terminal.hpp"
#include "desktop/machine/desktop_run.hpp"
#include "desktop/machine/message_box.hpp"
#include "tests/desktop/modal.hpp"

namespace kelp {

// Every file below a folder by its name there, in lower case. Dates, times and hours become "#": two runs
// never have the same.
inline std::map<QString, QString> FilesIn(const QString& folder) {
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

// What came of a script that was played on drives of its own.
struct Played {
  int status;
  QString error;  ///< the last line on standard error
  std::map<QString, QString> files;
};

inline Played Play(const QString& program, const QStringList& words, const QByteArray& script) {
  const Drives drives;
  const QTemporaryDir place;
  WriteFile(place.filePath("s.ks"), script);
  QProcess process;
  process.setWorkingDirectory(place.path());
  process.start(program, QStringList{"--drives", drives.folder.path()} + words);
  process.waitForFinished(60000);
  return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
          QString::fromUtf8(process.readAllStandardError()).trimmed().split('\n').last(),
          FilesIn(drives.folder.path())};
}

inline void WriteProgram(const QString& name, const QString& commands) {
  WriteFile(name, "#!/bin/sh\n" + commands.toUtf8() + "\n");
  QFile::setPermissions(name, QFile::ReadOwner | QFile::ExeOwner);
}

// Blank, copros, Rb and Ra of two samples; then the end blank.
inline constexpr const char* kReadings[] = {"0.0050", "1.5400", "5.0400", "2.1234",
                                            "1.1000", "3.5000", "1.9000"};
inline constexpr const char* kEndBlank = "0.0060";

struct DesktopStation : testing::Test {
  Drives drives = {};
  std::unique_ptr<PseudoTerminal> instrument = std::make_unique<PseudoTerminal>();
  std::unique_ptr<DesktopRun> run = {};
  bool mouse = false;  ///< the operator uses the mouse alone, else the keyboard alone
  bool ended = false;
  std::vector<std::string> boxes = {};  ///< texts of the message boxes
  QByteArray script = {};               ///< what was done, for the console

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
  // Says Yes to the next message box, which is closed should that do nothing there.
  void AnswerYes() {
    script += "answer Yes\n";
    WhenModal<QMessageBox>([this](QMessageBox& box) {
      boxes.push_back(box.text().toStdString());
      mouse ? QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton)
            : QTest::keyClick(box.windowHandle(), Qt::Key_Y);
      QTimer::singleShot(1000, &box, &QWidget::close);
    });
  }
  // What a station is run by: a click on a control, or the key that does the same.
  void Do(const char* screen, const QByteArray& control, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    const QList<QByteArray> name = control.chopped(control.endsWith(')')).split('(');
    ASSERT_TRUE(IsFront(screen));
    script += QByteArray("click ") + screen + "." + control + "\n";
    mouse ? Click(screen, name[0].data(), name.size() > 1 ? name[1].toInt() : -1) : Key(key, modifiers);
  }
  void DoButton() { Do("frmAcquire", "Command1", Qt::Key_Space); }

  // Keys that mean nothing now, or twice the same: nothing that is stored changes.
  void Stumble() const {
    if (mouse) return;
    for (const Qt::Key key :
         {Qt::Key_X, Qt::Key_Escape, Qt::Key_F12, Qt::Key_F12, Qt::Key_Backspace, Qt::Key_Return})
      Key(key);
  }

  void OpenStation();
  void ReadAndSave(const char* value);
  void RunStation();
  void ExpectTheFilesOfTheConsole() const;

  // Lines of the instrument; each is taken before the next one comes.
  void Read(const QByteArray& value, int count) {
    script += "read " + value + " " + QByteArray::number(count) + "\n";
    for (int i = 0; i < count; ++i) {
      const auto before = run->program().run.Chart.PointsAdded();
      instrument->Send(InstrumentLine(value.toStdString()));
      ASSERT_TRUE(Eventually([&] { return run->program().run.Chart.PointsAdded() > before; })) << caption();
    }
  }
};

// What the sample log says is typed into the create screen: there is no other way to bring it in.
inline void DesktopStation::OpenStation() {
  Do("frmMain", "Command1(0)", Qt::Key_Return);
  AnswerYes();
  Do("frmLogin", "cmdOK", Qt::Key_Return);
  ASSERT_TRUE(IsFront("frmCreateBase"));
  const QByteArray texts[] = {"", "93.3 70", "2", "", "", "07/14/2007", "9:40"};
  for (int box = 0; box < 7; ++box) {
    if (mouse) Click("frmCreateBase", "Text1", box);
    if (!texts[box].isEmpty()) {
      Key(Qt::Key_A, Qt::ControlModifier);
      script += "type frmCreateBase.Text1(" + QByteArray::number(box) + ") " + texts[box] + "\n";
    }
    for (const char c : texts[box]) Key(Qt::Key(c));
    if (!mouse) Key(Qt::Key_Tab);
  }
  Do("frmCreateBase", "cmdCreateBase(0)", Qt::Key_Return);
}

inline void DesktopStation::ReadAndSave(const char* value) {
  ASSERT_TRUE(IsFront("frmAcquire"));
  Stumble();
  DoButton();
  Read(value, 8);
  Stumble();
  Read(value, 8);
  DoButton();
  if (mouse || run->program().frmWhatsNext.Form.Visible) return;
  // The wrong tube: taken back and read again.
  Do("frmAcquire", "cmdUndo", Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(run->program().Status.starts_with("Taken back: ")) << run->program().Status;
  DoButton();
  Read(value, 16);
  DoButton();
}

// The whole station, its sound switched off before the end blank; Print/Save ends the program.
inline void DesktopStation::RunStation() {
  OpenStation();
  DoButton();
  for (const char* value : kReadings) ReadAndSave(value);
  QTest::qWait(1200);  // a tick of the per-read log
  Do("frmWhatsNext", "Option1(2)", Qt::Key_E, Qt::AltModifier);
  EXPECT_TRUE(Eventually([&] { return run->program().frmWhatsNext.Option1[2].Value; }));
  Do("frmWhatsNext", "NextButton", Qt::Key_Return);
  run->windows().SoundSwitch()->toggle();
  ReadAndSave(kEndBlank);
  AnswerYes();  // the box's key, not the screen's
  Do("frmWhatsNext", "NextButton", Qt::Key_Return);
  EXPECT_TRUE(ended);
}

// The files of a station run in the windows are those of the same script on the console.
inline void DesktopStation::ExpectTheFilesOfTheConsole() const {
  auto [status, error, expected] = Play(KELP_CONSOLE, {"s.ks"}, script);
  ASSERT_EQ(status, 0) << error.toStdString();
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

}  // namespace kelp
