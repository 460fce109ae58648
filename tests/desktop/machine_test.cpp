// SPDX-License-Identifier: GPL-3.0-or-later
// The machine under the desktop program: its dialogs, printer, editor and settings.

#include <QDir>
#include <QMessageBox>
#include <QPrintDialog>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QThread>

#include "desktop/machine/command_line.hpp"
#include "desktop/machine/message_box.hpp"
#include "desktop/machine/qt_platform.hpp"
#include "desktop/machine/report_pages.hpp"
#include "desktop/machine/report_printer.hpp"
#include "desktop/machine/settings_dialog.hpp"
#include "desktop/machine/text_editor.hpp"
#include "platform/host.hpp"
#include "platform/scripted.hpp"
#include "stage/program.hpp"
#include "tests/desktop/modal.hpp"

namespace kelp {
namespace {

TEST(SlowDisk, IsWaitedForWhileTheWindowsLive) {
  QTemporaryDir folder;
  DriveMap drives{folder.path().toStdString()};
  const std::unique_ptr<Disk> disk = MakeHostDisk(drives);
  FluorometerLine line([](int) { return std::string(); }, [] { return std::string(); });
  const QString none;
  QtPlatform platform(*disk, drives, line, none, none);
  QTimer timer;
  int ticks = 0;
  QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
  timer.start(20);
  platform.Aside([] { QThread::msleep(500); });
  EXPECT_GE(ticks, 10);
  EXPECT_THROW(platform.Aside([] { throw FileError("c:\\x", "no space"); }), FileError);
}

TEST(MessageBoxes, AnswerWhatTheOperatorPressed) {
  constexpr Qt::Key kFrame = Qt::Key_unknown;  // closes the box by its frame
  const std::tuple<Buttons, bool, Qt::Key, Answer> rows[] = {
      {Buttons::YesNo, true, Qt::Key_Return, Answer::No},
      {Buttons::YesNo, false, Qt::Key_Return, Answer::Yes},
      {Buttons::YesNo, false, Qt::Key_Escape, Answer::No},
      {Buttons::YesNo, false, kFrame, Answer::No},
      {Buttons::YesNoCancel, true, Qt::Key_Y, Answer::Yes},
      {Buttons::YesNoCancel, false, Qt::Key_N, Answer::No},
      {Buttons::YesNoCancel, false, kFrame, Answer::Cancel},
      {Buttons::OkCancel, false, Qt::Key_Return, Answer::Ok},
      {Buttons::OkCancel, false, Qt::Key_Escape, Answer::Cancel},
      {Buttons::Ok, false, Qt::Key_Escape, Answer::Ok}};
  BoxKeys::Rest = 0;
  for (const auto& [buttons, defaultNo, key, answer] : rows) {
    WhenModal<QMessageBox>([&, pressed = key](QMessageBox& box) {
      EXPECT_EQ(box.windowTitle(), "Current value > than0.1");
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_EQ(box.icon(), QMessageBox::Critical);
      pressed == kFrame ? static_cast<void>(box.close()) : QTest::keyClick(&box, pressed);
    });
    const Message message{"<b>1 & 2</b>", "Current value > than0.1", buttons, Icon::Critical, false, false,
                          defaultNo};
    EXPECT_EQ(ShowMessage(nullptr, message), answer) << int(buttons) << " " << key;
  }
}

// The space bar that was meant for the next value answers no question, nor does any key of the first moments.
TEST(MessageBoxes, TakeNoKeyThatWasMeantForSomethingElse) {
  BoxKeys::Rest = 700;
  std::string pressed;
  WhenModal<QMessageBox>([&](QMessageBox& box) {
    const auto press = [&](int key, const char* name) {
      QTest::keyClick(box.focusWidget(), Qt::Key(key));
      if (box.isVisible()) pressed += name;
    };
    press(Qt::Key_Return, "early Return ");
    press(Qt::Key_Y, "early Y ");
    QTest::qWait(720);
    press(Qt::Key_Space, "Space ");
    press(Qt::Key_Tab, "Tab ");
    press(Qt::Key_Space, "Space behind Tab ");
    box.close();
  });
  ShowMessage(nullptr, {"Save anyways? Y/N", "", Buttons::YesNo});
  EXPECT_EQ(pressed, "early Return early Y Space Tab ");
  BoxKeys::Rest = 0;
}

TEST(TextEditor, SaysWhyAFileIsNotOpened) {
  const std::pair<const char*, QString> rows[] = {
      {"notepad c:\\..\\secret", "true"}, {"notepad c:\\x", "/no/such/editor"}, {"format c:", "true"}};
  for (const auto& [command, editor] : rows)
    EXPECT_NE(LaunchEditor(command, editor, DriveMap("/")), "") << command;
}

TEST(Report, StandsInItsColumnsOnEveryPage) {
  const QString heading = "     TUBE NISK DEPTH  FILV EXTV    Rb      Ra     CHLA    PHAEO     AR   QC";
  const QString row = "     1001   1    10   138 10.0  10.1234  5.4321   0.123    0.045  1.864 ****";
  // Wider lines make the font smaller; columns and distances between them stay.
  QStringList lines{heading, "    " + QString(74, '=')};
  for (int i = 0; i < 150; ++i) lines << row;
  lines << QString(100, 'x') + "y";
  const QTemporaryDir folder;
  WriteFile(folder.filePath("pdf"), PdfOf(lines, "t"));
  const QStringList text = PdfText(folder.filePath("pdf")).split('\n');
  ASSERT_EQ(text.filter("TUBE").size(), 1);
  ASSERT_EQ(text.filter("1001").size(), 150);
  const auto distance = [](const QString& line, const char* from, const char* to) {
    return static_cast<int>(line.indexOf(to) - line.indexOf(from));
  };
  for (const char* part : {"NISK", "Rb", "CHLA", "QC"})
    EXPECT_NEAR(distance(text.filter("TUBE")[0], "TUBE", part), distance(heading, "TUBE", part), 1) << part;
  EXPECT_NEAR(distance(text.filter("1001")[149], "1001", "****"), distance(row, "1001", "****"), 1);
  EXPECT_EQ(text.filter(lines.last()).size(), 1);
  EXPECT_GE(text.filter("Page ").size(), 2);
}

TEST(Report, IsOfferedAsPdfWhereNoPrinterIsAndGoesToTheFileChosen) {
  const QTemporaryDir folder;
  MemoryDisk disk;
  disk.Files["c:\\data\\chl001.pdf"] = "an older report";
  ReportPrinter printer{QString()};
  std::string asked;
  const auto print = [&](const char* line, Answer answer) {
    asked.clear();
    if (*line != '\0') printer.AddLine(line);
    const auto ask = [&](const Message& message) {
      asked = message.Text;
      return answer;
    };
    printer.EndDocument(ask, disk, "c:\\data\\chl001.pdf");
  };
  print("", Answer::Yes);
  EXPECT_EQ(asked, "") << "nothing was printed";
  print("one", Answer::No);
  EXPECT_EQ(disk.Files.size(), 1U);
  print("two", Answer::Yes);
  EXPECT_NE(asked.find("c:\\data\\chl001-2.pdf"), std::string::npos) << asked;
  EXPECT_EQ(disk.Files["c:\\data\\chl001.pdf"], "an older report");
  WriteFile(folder.filePath("two"), QByteArray::fromStdString(disk.Files["c:\\data\\chl001-2.pdf"]));
  EXPECT_EQ(PdfText(folder.filePath("two")).section('\n', 0, 0).trimmed(), "two") << "and no line before it";
  disk.FailAt = disk.Writes + 1;
  EXPECT_THROW(print("three", Answer::Yes), FileError);

  WhenModal<QPrintDialog>([&](QPrintDialog& dialog) {
    dialog.findChild<QLineEdit*>("filename")->setText(folder.filePath("log.pdf"));
    dialog.accept();
  });
  printer.Choose(nullptr);
  print("first station", Answer::No);
  print("second station", Answer::No);
  EXPECT_TRUE(PdfText(folder.filePath("log.pdf")).contains("first station"));
  EXPECT_TRUE(PdfText(folder.filePath("log-2.pdf")).contains("second station"));
  QDir(folder.path()).removeRecursively();
  EXPECT_THROW(print("third station", Answer::No), FileError);
}

TEST(Settings, DialogRefusesWhatCantBeAndTheRestIsKept) {
  EXPECT_FALSE(SettingsAreKept());
  MachineSettings settings;
  settings.Drives = {{'c', "/data/c"}, {'d', "/data/d"}};
  settings.Ports = {{1, "/dev/rfcomm1"}, {3, "/dev/ttyUSB7"}};
  settings.Editor = "\"/usr/bin/my editor\" -n";
  settings.Printer = "Laser";
  settings.SoundsOff = {Cue::Saved};
  settings.Scheme = SchemeChoice::Dark;
  EXPECT_EQ(SaveSettings(settings), "");
  SettingsDialog dialog(nullptr, LoadSettings(), Options(), true);
  EXPECT_TRUE(dialog.Simulate());
  const std::tuple<int, const char*, const char*> rows[] = {{0, "dd", "\"dd\" is no drive letter."},
                                                            {0, "C", "The drive letter c is there twice."},
                                                            {0, "e", ""},
                                                            {1, "one", "\"one\" is no port number."},
                                                            {1, "12", ""}};
  for (const auto& [table, key, problem] : rows) {
    const auto* cells = dialog.findChildren<QTableWidget*>()[table];
    cells->item(cells->rowCount() - 1, 0)->setText(key);
    EXPECT_EQ(dialog.Problem(), problem);
  }
  EXPECT_EQ(SaveSettings(dialog.Settings()), "");
  EXPECT_TRUE(SettingsAreKept());
  const MachineSettings kept = LoadSettings();
  EXPECT_EQ(kept.Drives, (std::map<char, QString>{{'c', "/data/c"}, {'e', "/data/d"}}));
  EXPECT_EQ(kept.Editor + kept.Printer, settings.Editor + "Laser");
  EXPECT_EQ(kept.SoundsOff, settings.SoundsOff);
  EXPECT_EQ(kept.Scheme, SchemeChoice::Dark);

  // The command line is for one run and comes before them.
  const Options options = ReadCommandLine({"--drive", "D=/given/d", "--port", "12=/dev/pts/5"});
  EXPECT_EQ(DrivesFor(kept, options).DriveFolder('c'), "/data/c");
  EXPECT_EQ(DrivesFor(kept, options).DriveFolder('d'), "/given/d");
  EXPECT_EQ(DrivesFor(kept, ReadCommandLine({"--drives", "/all"})).DriveFolder('c'), "/all/drive_c");
  const std::pair<int, const char*> devices[] = {{1, "/dev/rfcomm1"}, {2, "/dev/ttyS1"}, {12, "/dev/pts/5"}};
  for (const auto& [port, device] : devices) EXPECT_EQ(DeviceFor(port, kept, options), device);
  EXPECT_EQ(DeviceFor(12, kept, Options()), "/dev/ttyUSB7");
}

// What the console's reader sees is tested there.
TEST(CommandLine, HasOptionsOfItsOwn) {
  const std::pair<std::vector<std::string>, const char*> rows[] = {
      {{"--script", "a.ks", "--simulate=7", "--clock=2026-11-24T03:00:00", "-platform", "offscreen"}, ""},
      {{"--script"}, "--script wants a file"},
      {{"a.ks"}, "unknown option \"a.ks\"; --help lists the options"},
      {{"--clock", "2026-11-24T03:00:00"}, "--clock goes with --script only"}};
  for (const auto& [words, problem] : rows) EXPECT_EQ(ReadCommandLine(words).Problem, problem);
  EXPECT_EQ(ReadCommandLine({"--simulate"}).Instrument, InstrumentKind::Simulated);
  EXPECT_EQ(ReadCommandLine({"--script=a.ks"}).Instrument, InstrumentKind::Script);
}

}  // namespace
}  // namespace kelp
