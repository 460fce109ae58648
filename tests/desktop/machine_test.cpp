// The machine under the desktop program: its dialogs, printer, editor, settings and the run of passes.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QProcess>
#include <QSettings>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include "acquire/read_loop.hpp"
#include "desktop/machine/command_line.hpp"
#include "desktop/machine/file_dialog.hpp"
#include "desktop/machine/message_box.hpp"
#include "desktop/machine/report_pages.hpp"
#include "desktop/machine/report_printer.hpp"
#include "desktop/machine/runner.hpp"
#include "desktop/machine/settings_dialog.hpp"
#include "desktop/machine/sound.hpp"
#include "desktop/machine/text_editor.hpp"
#include "platform/scripted.hpp"
#include "tests/desktop/host_files.hpp"
#include "tests/desktop/modal.hpp"
#include "tests/support/program.hpp"

namespace kelp {
namespace {

TEST(MessageBoxes, AnswerWhatTheOperatorPressed) {
  constexpr Qt::Key kFrame = Qt::Key_unknown;
  struct Row {
    Buttons buttons;
    Qt::Key key;
    Answer answer;
  };
  const Row rows[] = {
      {Buttons::Ok, Qt::Key_Escape, Answer::Ok},           {Buttons::Ok, kFrame, Answer::Ok},
      {Buttons::OkCancel, Qt::Key_Escape, Answer::Cancel}, {Buttons::OkCancel, Qt::Key_Return, Answer::Ok},
      {Buttons::YesNo, Qt::Key_Escape, Answer::No},        {Buttons::YesNo, kFrame, Answer::No},
      {Buttons::YesNo, Qt::Key_Return, Answer::Yes},       {Buttons::YesNoCancel, kFrame, Answer::Cancel},
      {Buttons::YesNoCancel, Qt::Key_Y, Answer::Yes},      {Buttons::YesNoCancel, Qt::Key_N, Answer::No},
  };
  for (const Row& row : rows) {
    WhenModal<QMessageBox>([&](QMessageBox& box) {
      EXPECT_EQ(box.windowTitle(), "Current value > than0.1");
      EXPECT_EQ(box.text(), "<b>1 & 2</b>");
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_EQ(box.icon(), QMessageBox::Critical);
      row.key == kFrame ? static_cast<void>(box.close()) : QTest::keyClick(&box, row.key);
    });
    const Answer answer =
        ShowMessage(nullptr, {"<b>1 & 2</b>", "Current value > than0.1", row.buttons, Icon::Critical});
    EXPECT_EQ(answer, row.answer) << static_cast<int>(row.buttons) << " " << row.key;
  }
}

TEST(FileDialog, TurnsTheChoiceIntoAProgramPath) {
  QTemporaryDir data;
  QTemporaryDir elsewhere;
  QDir(data.path()).mkpath("drive_c/Data");
  WriteFile(data.filePath("drive_c/Data/chl001"), "x");
  WriteFile(elsewhere.filePath("chl002"), "x");
  const DriveMap drives(data.path().toStdString());
  const FileQuestion question{"Chl Data Files (Chl*)|Chl*", "c:\\data\\"};

  // A file on no drive is refused, with a word where the drives are; then one on drive c is taken.
  WhenModal<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.nameFilters(), QStringList("Chl Data Files (Chl*)"));
    EXPECT_EQ(dialog.directory().path(), data.filePath("drive_c/Data"));
    WhenModal<QMessageBox>([&](QMessageBox& box) {
      EXPECT_TRUE(box.text().contains(elsewhere.filePath("chl002"))) << box.text().toStdString();
      EXPECT_TRUE(box.text().contains(data.filePath("drive_c")));
      WhenModal<QFileDialog>([&](QFileDialog& again) { ChooseIn(again, "chl001"); });
      box.accept();
    });
    ChooseIn(dialog, elsewhere.filePath("chl002"));
  });
  EXPECT_EQ(AskForFile(nullptr, question, drives), "c:\\Data\\chl001");

  WhenModal<QFileDialog>([&](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(AskForFile(nullptr, {"cfg Files (*.cfg)|*.cfg", "q:\\nowhere"}, drives), std::nullopt);
  EXPECT_EQ(NameFilter("cfg Files (*.cfg)|*.cfg;*.txt"), "cfg Files (*.cfg *.txt)");
}

TEST(TextEditor, OpensTheMappedFile) {
  QTemporaryDir data;
  QDir(data.path()).mkpath("drive_c/My Data");
  WriteFile(data.filePath("drive_c/My Data/Chl001"), "x");
  const DriveMap drives(data.path().toStdString());
  const QString log = data.filePath("log");
  const QString editor = WriteProgram(data.filePath("my editor"), "echo run \"$@\" >> " + log.toUtf8());
  struct Row {
    const char* command;
    QString editor;
    QString trouble;  // a part of it
    QString written;
  };
  const Row rows[] = {
      {"notepad c:\\my data\\chl001", "\"" + editor + "\" -n 1", "",
       "run -n 1 " + data.filePath("drive_c/My Data/Chl001")},
      {"notepad c:\\..\\secret", editor, "c:", ""},
      {"notepad c:\\x", "/no/such/editor", "/no/such/editor", ""},
      {"format c:", editor, "format c:", ""},
  };
  for (const Row& row : rows) {
    QFile::remove(log);
    const QString trouble = QString::fromStdString(LaunchEditor(row.command, row.editor, drives));
    EXPECT_EQ(trouble.isEmpty(), !row.written.isEmpty()) << trouble.toStdString();
    if (row.written.isEmpty()) continue;
    EXPECT_TRUE(Eventually([&] { return QString::fromUtf8(Content(log)).trimmed() == row.written; }))
        << Content(log).toStdString();
  }
}

// The text of a PDF as it stands on the page.
QStringList PdfText(const QByteArray& pdf) {
  QProcess reader;
  reader.start("pdftotext", {"-layout", "-", "-"});
  reader.write(pdf);
  reader.closeWriteChannel();
  reader.waitForFinished();
  return QString::fromUtf8(reader.readAllStandardOutput()).split('\n');
}

TEST(Report, StandsInItsColumnsOnEveryPage) {
  const QString heading = "     TUBE NISK DEPTH  FILV EXTV    Rb      Ra     CHLA    PHAEO     AR   QC";
  const QString row = "     1001   1    10   138 10.0  10.1234  5.4321   0.123    0.045  1.864 ****";
  QStringList lines{heading, "    " + QString(74, '=')};
  for (int i = 0; i < 150; ++i) lines << row;
  lines << QString(100, 'x') + "y";
  const QStringList text = PdfText(PdfOf(lines, "t"));
  const QStringList headings = text.filter("TUBE");
  const QStringList rows = text.filter("1001");
  ASSERT_EQ(headings.size(), 1);
  ASSERT_EQ(rows.size(), 150);
  // Wider lines make the font smaller; columns and distances between them stay.
  const auto distance = [](const QString& line, const char* from, const char* to) {
    return static_cast<int>(line.indexOf(to) - line.indexOf(from));
  };
  for (const char* part : {"NISK", "Rb", "CHLA", "QC"})
    EXPECT_NEAR(distance(headings[0], "TUBE", part), distance(heading, "TUBE", part), 1) << part;
  EXPECT_NEAR(distance(rows[149], "1001", "****"), distance(row, "1001", "****"), 1);
  EXPECT_EQ(text.filter(QString(100, 'x') + "y").size(), 1);
  EXPECT_EQ(text.filter("Page ").size(), text.filter(QChar('\f')).size());
  EXPECT_GE(text.filter("Page ").size(), 2);
}

TEST(Report, IsOfferedAsPdfWhereNoPrinterIs) {
  MemoryDisk disk;
  disk.Files["c:\\data\\chl001.pdf"] = "an older report";
  ReportPrinter printer{QString()};
  std::vector<std::string> asked;
  const auto answer = [&](Answer which) {
    return [&asked, which](const Message& message) {
      asked.push_back(message.Text);
      return which;
    };
  };
  printer.EndDocument(answer(Answer::Yes), disk, "c:\\data\\chl001.pdf");
  EXPECT_TRUE(asked.empty()) << "nothing was printed";

  printer.AddLine("one");
  printer.EndDocument(answer(Answer::No), disk, "c:\\data\\chl001.pdf");
  printer.AddLine("two");
  printer.EndDocument(answer(Answer::Yes), disk, "c:\\data\\chl001.pdf");
  ASSERT_EQ(asked.size(), 2U);
  EXPECT_NE(asked[1].find("c:\\data\\chl001-2.pdf"), std::string::npos) << asked[1];
  EXPECT_EQ(disk.Files["c:\\data\\chl001.pdf"], "an older report");
  EXPECT_EQ(PdfText(QByteArray::fromStdString(disk.Files["c:\\data\\chl001-2.pdf"])).value(0).trimmed(),
            "two");

  disk.FailAt = disk.Writes + 1;
  printer.AddLine("three");
  EXPECT_THROW(printer.EndDocument(answer(Answer::Yes), disk, "c:\\data\\chl002.pdf"), FileError);
}

TEST(Report, GoesToTheFileChosenInThePrintDialog) {
  QTemporaryDir folder;
  MemoryDisk disk;
  ReportPrinter printer{QString()};
  const auto choose = [&](const QString& file) {
    WhenModal<QPrintDialog>([&](QPrintDialog& dialog) {
      dialog.findChild<QLineEdit*>("filename")->setText(file);
      dialog.accept();
    });
    printer.Choose(nullptr);
  };
  const auto print = [&](const char* line) {
    printer.AddLine(line);
    printer.EndDocument([](const Message&) { return Answer::No; }, disk, "c:\\x.pdf");
  };
  choose(folder.filePath("log.pdf"));
  print("first station");
  print("second station");
  EXPECT_EQ(PdfText(Content(folder.filePath("log.pdf"))).value(0).trimmed(), "first station");
  EXPECT_EQ(PdfText(Content(folder.filePath("log-2.pdf"))).value(0).trimmed(), "second station");
  QDir(folder.path()).removeRecursively();
  EXPECT_THROW(print("third station"), FileError);
}

TEST(Settings, AreKeptAndYieldToTheCommandLine) {
  MachineSettings settings;
  settings.Drives = {{'c', "/data/c"}, {'q', "/data/net"}};
  settings.Ports = {{1, "/dev/ttyUSB0"}, {12, "/dev/rfcomm1"}};
  settings.Editor = "\"/usr/bin/my editor\" -n";
  settings.Sound = false;
  EXPECT_FALSE(SettingsAreKept());
  EXPECT_EQ(SaveSettings(settings), "");
  EXPECT_TRUE(SettingsAreKept());
  settings.Drives.erase('q');
  EXPECT_EQ(SaveSettings(settings), "");
  const MachineSettings kept = LoadSettings();
  EXPECT_EQ(kept.Drives, settings.Drives);
  EXPECT_EQ(kept.Ports, settings.Ports);
  EXPECT_EQ(kept.Editor, settings.Editor);
  EXPECT_EQ(kept.Sound, false);

  const Options options = ReadCommandLine({"--drive", "D=/given/d", "--port", "12=/dev/pts/5"});
  const DriveMap drives = DrivesFor(kept, options);
  EXPECT_EQ(drives.DriveFolder('c'), "/data/c");
  EXPECT_EQ(drives.DriveFolder('d'), "/given/d");
  EXPECT_EQ(DrivesFor(kept, ReadCommandLine({"--drives", "/all"})).DriveFolder('c'), "/all/drive_c");
  EXPECT_EQ(DeviceFor(1, kept, options), "/dev/ttyUSB0");
  EXPECT_EQ(DeviceFor(12, kept, options), "/dev/pts/5");
  EXPECT_EQ(DeviceFor(2, kept, options), "/dev/ttyS1");
}

TEST(Settings, DialogKeepsWhatItShowsAndRefusesWhatCantBe) {
  MachineSettings settings;
  settings.Drives = {{'c', "/data/c"}, {'d', "/data/d"}};
  settings.Ports = {{3, "/dev/ttyUSB7"}};
  settings.Printer = "Laser";
  SettingsDialog dialog(nullptr, settings, Options(), true);
  EXPECT_EQ(dialog.Settings().Drives, settings.Drives);
  EXPECT_EQ(dialog.Settings().Ports, settings.Ports);
  EXPECT_EQ(dialog.Settings().Printer, "Laser");
  EXPECT_TRUE(dialog.Simulate());
  const auto tables = dialog.findChildren<QTableWidget*>();
  ASSERT_EQ(tables.size(), 2);
  struct Row {
    int table;
    const char* key;
    const char* problem;
  };
  const Row rows[] = {{0, "dd", "\"dd\" is no drive letter."},
                      {0, "C", "The drive letter c is there twice."},
                      {0, "e", ""},
                      {1, "one", "\"one\" is no port number."},
                      {1, "4", ""}};
  for (const Row& row : rows) {
    tables[row.table]->item(tables[row.table]->rowCount() - 1, 0)->setText(row.key);
    EXPECT_EQ(dialog.Problem(), row.problem);
  }
  qobject_cast<QComboBox*>(tables[1]->cellWidget(0, 1))->setCurrentText(" /dev/ttyACM0 ");
  EXPECT_EQ(dialog.Settings().Ports, (std::map<int, QString>{{4, "/dev/ttyACM0"}}));
  EXPECT_EQ(dialog.Settings().Drives, (std::map<char, QString>{{'c', "/data/c"}, {'e', "/data/d"}}));
}

TEST(CommandLine, TakesTheConsolesOptionsAndItsOwn) {
  struct Row {
    std::vector<std::string> words;
    const char* problem;
    InstrumentKind instrument = InstrumentKind::Device;
  };
  const Row rows[] = {
      {{}, ""},
      {{"--simulate", "-platform", "offscreen"}, "", InstrumentKind::Simulated},
      {{"--script", "a.ks", "--simulate=7", "--clock=2026-11-24T03:00:00"}, "", InstrumentKind::Simulated},
      {{"--simulate=x"}, "the seed of the simulated fluorometer is a whole number, not \"x\""},
      {{"--script"}, "--script wants a file", InstrumentKind::Device},
      {{"--port", "0=/x"}, "--port wants N=DEVICE, such as 1=/dev/ttyUSB0, not \"0=/x\""},
      {{"--instrument=sim"}, "unknown option \"--instrument=sim\"; --help lists the options"},
      {{"--clock", "2026-11-24T03:00:00"}, "--clock goes with --script only"},
  };
  for (const Row& row : rows) {
    const Options options = ReadCommandLine(row.words);
    EXPECT_EQ(options.Problem, row.problem);
    EXPECT_EQ(options.Instrument, row.instrument) << row.problem;
  }
}

TEST(Sounds, ArePlayedOnlyWhenOn) {
  const QTemporaryDir folder;
  const QString log = folder.filePath("log");
  WriteProgram(folder.filePath("pw-play"), "echo \"$@\" >> " + log.toUtf8());
  qputenv("PATH", folder.path().toUtf8() + ":" + qgetenv("PATH"));
  Sound sound;
  sound.On = false;
  sound.Play(Cue::Attention);
  sound.On = true;
  sound.Play(Cue::Saved);
  EXPECT_TRUE(Eventually([&] { return Content(log).endsWith("saved.wav\n"); }));
  EXPECT_EQ(Content(log).count('\n'), 1);
}

// A platform whose message boxes stay open for a while, in an event loop of their own.
struct SlowAnswers : ScriptedPlatform {
  using ScriptedPlatform::ScriptedPlatform;
  Answer Ask(const Message& message) override {
    runner->DialogOpens();
    const int before = looks;
    QTest::qWait(130);
    EXPECT_EQ(looks, before) << "a pass ran while the box was open";
    EXPECT_FALSE(runner->Post({.Kind = EventKind::Click, .Place = {"frmAcquire", "Command2"}}));
    runner->DialogClosed();
    return ScriptedPlatform::Ask(message);
  }
  std::size_t BytesWaiting() override {
    ++looks;
    return ScriptedPlatform::BytesWaiting();
  }
  Runner* runner = nullptr;
  int looks = 0;
};

TEST(Running, PassesAndTicksRunOnlyWhenWanted) {
  MemoryDisk disk;
  SlowAnswers platform(disk);
  Kelp kelp(platform);
  SetDefaultConfig(kelp.run);
  SaveConfig(kelp);
  Runner runner(kelp);
  platform.runner = &runner;
  int shown = 0;
  int ended = 0;
  runner.ShowChanges = [&] { ++shown; };
  runner.End = [&] { ++ended; };
  const auto looksIn = [&](int milliseconds) {
    const int before = platform.looks;
    QTest::qWait(milliseconds);
    return platform.looks - before;
  };
  const auto click = [&](const char* screen, const char* control, int index = -1) {
    return runner.Post({.Kind = EventKind::Click, .Place = {screen, control, index}});
  };
  runner.Start();
  ShowScreen(kelp, "frmAcquire");
  EXPECT_EQ(looksIn(120), 0) << "idle";

  StartReadLoop(kelp);
  kelp.frmAcquire.Command1.Caption = "Reading Blank";
  kelp.Timer1 = {true, 20};
  click("frmAcquire", "Check1");
  EXPECT_GE(looksIn(230), 3);
  EXPECT_FALSE(disk.Files.empty());

  click("frmAcquire", "Command2");  // paused
  EXPECT_EQ(looksIn(120), 0);
  click("frmAcquire", "Command2");
  EXPECT_GE(looksIn(120), 1);
  platform.Feed("\r\nA =  1.000 (RAW)");
  shown = 0;
  runner.BytesCame();
  EXPECT_EQ(shown, 1);

  platform.QueueAnswer(Answer::No);
  click("frmAcquire", "Command3");
  EXPECT_GE(looksIn(120), 1) << "goes on after the box";
  EXPECT_EQ(ended, 0);
  platform.QueueAnswer(Answer::Yes);
  click("frmAcquire", "Command3");
  EXPECT_EQ(ended, 1);
  EXPECT_EQ(looksIn(120), 0);
  EXPECT_FALSE(click("frmAcquire", "Command1"));
}

}  // namespace
}  // namespace kelp
