// The desktop program as a whole: real windows, keys and clicks, real files, and an instrument on a
// pseudo-terminal.
#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QWindow>

#include "console/instrument_line.hpp"
#include "console/posix/pseudo_terminal.hpp"
#include "core/numbers.hpp"
#include "desktop/machine/desktop_run.hpp"
#include "desktop/machine/settings_dialog.hpp"
#include "desktop/windows/value_widget.hpp"
#include "tests/desktop/host_files.hpp"
#include "tests/desktop/modal.hpp"

namespace kelp {
namespace {

// Every file below a folder by its name there, in lower case. Dates and times become "#": two runs never
// have the same.
std::map<QString, QString> FilesIn(const QString& folder) {
  static const QRegularExpression times("\\d\\d:\\d\\d:\\d\\d|\\d\\d/\\d\\d/\\d{4}|\\d{4}-\\d\\d-\\d\\d");
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

int RunProgram(const QString& program, const QStringList& words, QByteArray* errors = nullptr) {
  QProcess process;
  process.start(program, words);
  process.waitForFinished(60000);
  if (errors != nullptr) *errors = process.readAllStandardError();
  return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

struct DesktopStation : testing::Test {
  Drives drives = {};
  std::unique_ptr<PseudoTerminal> instrument = std::make_unique<PseudoTerminal>();
  std::unique_ptr<DesktopRun> run = {};
  bool ended = false;

  void Begin(Options options) {
    run = std::make_unique<DesktopRun>(std::move(options));
    run->Ended = [this] { ended = true; };
    run->Start();
  }
  void Begin() {
    Options options;
    options.Instrument = InstrumentKind::Device;
    options.Drives = drives.folder.path().toStdString();
    options.Ports[1] = instrument->Path();
    Begin(options);
  }

  [[nodiscard]] FrmAcquire& form() const { return run->program().frmAcquire; }
  [[nodiscard]] std::string& caption() const { return form().Command1.Caption; }
  QWidget* Window(const char* screen) const { return run->windows().WindowOf(screen); }
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
  static void Type(const QString& text) {
    for (const QChar c : text) QTest::keyClick(QApplication::activeWindow()->windowHandle(), c.toLatin1());
  }
  // The next message box gets this key; its text is kept.
  std::vector<std::string> boxes = {};
  void AtBox(Qt::Key key) {
    WhenModal<QMessageBox>([this, key](QMessageBox& box) {
      boxes.push_back(box.text().toStdString());
      QTest::keyClick(&box, key);
    });
  }

  // Login and a new station, "&Start" is up afterwards.
  void OpenStation() {
    const auto click = [&](const char* screen, const char* control, int index = -1) {
      run->Post({.Kind = EventKind::Click, .Place = {screen, control, index}});
    };
    click("frmMain", "Command1", 0);
    AtBox(Qt::Key_Y);
    click("frmLogin", "cmdOK");
    run->Post({.Kind = EventKind::Edit, .Place = {"frmCreateBase", "Text1", 2}, .Text = "2"});
    click("frmCreateBase", "cmdCreateBase", 0);
  }

  // Lines of the instrument; each is taken before the next one comes.
  void Read(double value, int count) const {
    for (int i = 0; i < count; ++i) {
      const auto before = run->program().run.Chart.PointsAdded();
      instrument->Send(InstrumentLine(Fixed(value, 4)));
      ASSERT_TRUE(Eventually([&] { return run->program().run.Chart.PointsAdded() > before; })) << caption();
    }
  }
  // Space to begin, twelve reads, space to save.
  void ReadStep(double value, const char* saved, const char* next) {
    Key(Qt::Key_Space);
    Read(value, 16);
    EXPECT_EQ(caption(), saved);
    Key(Qt::Key_Space);
    EXPECT_EQ(caption(), next);
  }
};

// The same station for the console.
const char* const kStation =
    "click frmMain.Command1(0)\nanswer Yes\nclick frmLogin.cmdOK\n"
    "type frmCreateBase.Text1(1) 93.3 70\ntype frmCreateBase.Text1(2) 2\n"
    "type frmCreateBase.Text1(5) 07/14/2007\ntype frmCreateBase.Text1(6) 09:40:00\n"
    "click frmCreateBase.cmdCreateBase(0)\n"
    "key frmAcquire Space\n"
    "key frmAcquire Space\nread 0.0050 16\nkey frmAcquire Space\n"
    "key frmAcquire Space\nread 1.5400 16\nkey frmAcquire Space\n"
    "key frmAcquire Space\nread 5.0400 16\nkey frmAcquire Space\n"
    "key frmAcquire Space\nread 2.1234 16\nkey frmAcquire Space\n"
    "key frmAcquire Space\nread 1.1000 16\nkey frmAcquire Space\n"
    "key frmAcquire Space\nread 3.5000 16\nkey frmAcquire Space\n"
    "key frmAcquire Space\nread 1.9000 16\nkey frmAcquire Space\n"
    "click frmWhatsNext.Option1(2)\nclick frmWhatsNext.NextButton\n"
    "key frmAcquire Space\nread 0.0060 16\nkey frmAcquire Space\n"
    "click frmWhatsNext.NextButton\n";

TEST_F(DesktopStation, AStationByKeyboardAlone) {
  const QTemporaryDir player;
  const QString sounds = player.filePath("sounds");
  WriteProgram(player.filePath("pw-play"), "basename \"$1\" >> " + sounds.toUtf8());
  qputenv("PATH", player.path().toUtf8() + ":" + qgetenv("PATH"));
  // A first start: the settings dialog is opened from the welcome, and what is set there acts at once.
  WhenModal<QMessageBox>([&](QMessageBox& welcome) {
    EXPECT_TRUE(welcome.text().contains(qEnvironmentVariable("XDG_DATA_HOME") + "/kelp/drive_c"));
    WhenModal<SettingsDialog>([&](SettingsDialog& dialog) {
      dialog.AddDrive("c", drives.Path("drive_c"));
      dialog.AddDrive("d", drives.Path("drive_d"));
      dialog.AddDrive("q", drives.Path("drive_q"));
      dialog.AddPort("1", QString::fromStdString(instrument->Path()));
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
    QTest::keyClick(&welcome, Qt::Key_M, Qt::AltModifier);
  });
  Options options;
  options.Instrument = InstrumentKind::Device;
  Begin(options);

  ASSERT_TRUE(IsFront("frmMain"));
  Key(Qt::Key_Return);
  ASSERT_TRUE(IsFront("frmLogin"));
  AtBox(Qt::Key_Y);
  Key(Qt::Key_Return);
  ASSERT_TRUE(IsFront("frmCreateBase"));
  for (const char* text : {"", "93.3 70", "2", "", "", "07/14/2007", "09:40:00"}) {
    if (*text != '\0') Key(Qt::Key_A, Qt::ControlModifier);
    Type(text);
    Key(Qt::Key_Tab);
  }
  Key(Qt::Key_Return);
  ASSERT_TRUE(IsFront("frmAcquire"));
  Key(Qt::Key_Space);
  EXPECT_EQ(caption(), "Load Blank");
  ReadStep(0.0050, "Save &Blank", "Load Copro 3-1");
  QTest::qWait(1200);  // a tick of the per-read log
  ReadStep(1.5400, "Save 3-1", "Load Copro 2-5");
  ReadStep(5.0400, "Save 2-5", "Load 1st Sample");
  ReadStep(2.1234, "Save Rb", "Acidify");
  ReadStep(1.1000, "Save Ra", "Load Next Sample");
  ReadStep(3.5000, "Save Rb", "Acidify");
  ReadStep(1.9000, "Save Ra", "What's Next");
  ASSERT_TRUE(IsFront("frmWhatsNext"));
  Key(Qt::Key_E, Qt::AltModifier);
  EXPECT_TRUE(Eventually([&] { return run->program().frmWhatsNext.Option1[2].Value; }));
  Key(Qt::Key_Return);
  ASSERT_TRUE(IsFront("frmAcquire"));
  ReadStep(0.0060, "Save &Blank", "What's Next?");
  ASSERT_TRUE(IsFront("frmWhatsNext"));
  AtBox(Qt::Key_Y);
  Key(Qt::Key_Return);  // Print/Save ends the program
  EXPECT_TRUE(ended);
  for (const QWidget* window : QApplication::topLevelWidgets()) EXPECT_FALSE(window->isVisible());
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_NE(boxes[1].find("Q:\\vault\\2007\\0707\\chl\\chl002.pdf"), std::string::npos) << boxes[1];

  // Two blanks, two copros and two Ra were saved; two questions called, and each Rb calls for its acid.
  EXPECT_TRUE(Eventually([&] { return Content(sounds).count('\n') == 10; })) << Content(sounds).toStdString();
  EXPECT_EQ(Content(sounds).count("ask"), 4) << Content(sounds).toStdString();

  const Drives console;
  WriteFile(console.Path("station.ks"), kStation);
  QByteArray errors;
  ASSERT_EQ(
      RunProgram(KELP_CONSOLE, {"--drives", console.folder.path(), console.Path("station.ks")}, &errors), 0)
      << errors.toStdString();
  QFile::remove(console.Path("station.ks"));
  const auto expected = FilesIn(console.folder.path());
  auto files = FilesIn(drives.folder.path());
  files.erase("drive_q/vault/2007/0707/chl/chl002.pdf");
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

  // The printed report is the report of the ".prn" file, with its columns.
  const QString chl = drives.Path("drive_q/vault/2007/0707/chl/");
  QProcess reader;
  reader.start("pdftotext", {"-layout", chl + "chl002.pdf", "-"});
  reader.waitForFinished();
  const auto words = [](const QByteArray& text) { return QString::fromLatin1(text).simplified(); };
  EXPECT_EQ(words(reader.readAllStandardOutput()), words(Content(chl + "chl002.prn")));
}

TEST_F(DesktopStation, ClosingAWindowAsksWhatQuitAsks) {
  Begin();
  struct Row {
    const char* screen;
    const char* control;
    int index;
  };
  const Row rows[] = {
      {"frmMain", "Command1", 4}, {"frmAcquire", "Command3", -1}, {"frmWhatsNext", "StopButton", -1}};
  for (const Row& row : rows) {
    if (std::string(row.screen) != "frmMain") {
      HideScreen(run->program(), "frmMain");
      ShowScreen(run->program(), row.screen);
    }
    ASSERT_TRUE(IsFront(row.screen));
    boxes.clear();
    AtBox(Qt::Key_N);
    QTest::mouseClick(run->windows().WidgetOf({row.screen, row.control, row.index}), Qt::LeftButton);
    AtBox(Qt::Key_Escape);
    Window(row.screen)->close();
    ASSERT_EQ(boxes.size(), 2U) << row.screen;
    EXPECT_EQ(boxes[0], boxes[1]);
    EXPECT_TRUE(Window(row.screen)->isVisible());
    EXPECT_FALSE(ended);
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
  Options options;
  options.Instrument = InstrumentKind::Device;
  options.Drives = drives.folder.path().toStdString();
  options.Ports[1] = cable.toStdString();
  Begin(options);
  OpenStation();
  const auto shown = [&](const QString& text) {
    for (const auto* label : Window("frmAcquire")->findChildren<QLabel*>())
      if (label->isVisible() && label->text().contains(text)) return true;
    for (const auto* value : Window("frmAcquire")->findChildren<QWidget*>())
      if (const auto* box = dynamic_cast<const ValueWidget*>(value);
          box != nullptr && box->ShownText().contains(text))
        return true;
    return false;
  };
  EXPECT_TRUE(shown("Port closed"));
  for (int i = 0; i < 2; ++i)
    QTest::mouseClick(run->windows().WidgetOf({"frmAcquire", "Command1"}), Qt::LeftButton);
  EXPECT_TRUE(shown(cable + ") open"));
  Read(1.0, 3);
  instrument.reset();
  EXPECT_TRUE(Eventually([&] { return shown(cable + ") lost"); }));
  EXPECT_TRUE(Eventually([&] { return shown("Serial line lost, trying again every second"); }));
  instrument = std::make_unique<PseudoTerminal>();
  ASSERT_TRUE(plug());
  EXPECT_TRUE(Eventually([&] { return shown(cable + ") open"); }));
  Read(1.0, 2);
  EXPECT_EQ(int{run->program().run.ReadCount}, 5) << "nothing that was read is lost";
}

TEST_F(DesktopStation, FilesOpenInTheEditorOfTheSettings) {
  const QString log = drives.Path("log");
  const QString editor = drives.Path("editor");
  WriteProgram(editor, "echo \"$1\" >> " + log.toUtf8());
  QDir(drives.folder.path()).mkpath("drive_q/vault/2007/0707/chl");
  WriteFile(drives.Path("drive_q/vault/2007/0707/chl/chl001"), "x");
  Begin();
  WhenModal<SettingsDialog>([&](SettingsDialog& dialog) {
    dialog.findChild<QLineEdit*>("editor")->setText(editor);
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  QTest::mouseClick(run->windows().MachineSettingsButton(), Qt::LeftButton);
  const auto click = [&](int index) {
    QTest::mouseClick(run->windows().WidgetOf({"frmMain", "Command1", index}), Qt::LeftButton);
  };
  const QString folder = drives.Path("drive_q/vault/2007/0707/chl/");
  click(3);
  EXPECT_TRUE(Eventually([&] { return Content(log) == (folder + "0707SLblnk\n").toUtf8(); }))
      << Content(log).toStdString();
  WhenModal<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory().path() + "/", folder);
    ChooseIn(dialog, "chl001");
  });
  click(2);
  EXPECT_TRUE(Eventually([&] { return Content(log).endsWith((folder + "chl001\n").toUtf8()); }))
      << Content(log).toStdString();
}

// A script plays in the windows as on the console: output, exit status and files, byte for byte.
TEST(Scripts, PlayInTheWindowsAsOnTheConsole) {
  struct Row {
    const char* name;
    QByteArray script;
    int status;
  };
  const Row rows[] = {
      {"station", kStation, 0},
      {"quit", "answer Yes\nclick frmMain.Command1(4)\n", 0},
      {"expect", "expect frmMain.Command1(0) Walk\n", 1},
      {"wrong", "click frmAcquire.Command1\n", 2},
      {"no answer", "click frmMain.Command1(4)\n", 3},
      {"error", "type frmMain.Text1(0) 1\nclick frmMain.Command1(3)\nkey frmMain F1\nshow frmMain.Text1(0)\n",
       0},
  };
  for (const Row& row : rows) {
    QByteArray errors[2];
    std::map<QString, QString> files[2];
    for (int i = 0; i < 2; ++i) {
      const Drives drives;
      const QTemporaryDir place;
      WriteFile(place.filePath("s.ks"), row.script);
      const QStringList words{"--drives", drives.folder.path(), "--clock=2026-11-24T03:00:00", "--quick"};
      const int status =
          i == 0 ? RunProgram(KELP_CONSOLE, words + QStringList{place.filePath("s.ks")}, &errors[i])
                 : RunProgram(KELP_DESKTOP_PROGRAM, words + QStringList{"--script", place.filePath("s.ks")},
                              &errors[i]);
      EXPECT_EQ(status, row.status) << row.name << errors[i].toStdString();
      errors[i] = errors[i].trimmed().split('\n').last().replace(place.path().toUtf8(), "");
      files[i] = FilesIn(drives.folder.path());
    }
    if (row.status > 0) {
      EXPECT_EQ(errors[1].toStdString(), errors[0].toStdString());
    }
    EXPECT_EQ(files[0], files[1]) << row.name;
  }
}

}  // namespace
}  // namespace kelp
