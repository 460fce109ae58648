// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop program as a whole: real windows, keys and clicks, real files, and an instrument on a
// pseudo-terminal.

#include <algorithm>

#include "desktop/machine/first_start.hpp"
#include "desktop/machine/machine_settings.hpp"
#include "desktop/machine/settings_dialog.hpp"
#include "desktop/windows/value_widget.hpp"
#include "tests/desktop/desktop_station.hpp"

namespace kelp {
namespace {

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
  RunStation();
  for (const QWidget* window : QApplication::topLevelWidgets()) EXPECT_FALSE(window->isVisible());
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_NE(boxes[1].find("Q:\\vault\\2007\\0707\\chl\\chl002.pdf"), std::string::npos) << boxes[1];

  // Blank, copros and samples, all but the last Ra twice since they were taken back, which is no save; an Rb
  // calls for its acid, and so does an Ra that was taken back.
  EXPECT_TRUE(Eventually([&] { return Content(sounds).count('\n') == 28; })) << Content(sounds).toStdString();
  const std::pair<const char*, int> cues[] = {{"can-save", 13}, {"saved", 9}, {"acid", 5}, {"question", 1}};
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
  mouse = true;
  RunStation();
  run.reset();
  ExpectTheFilesOfTheConsole();
}

TEST_F(DesktopStation, AnUnpluggedLineIsToldAndOpenedAgain) {
  const QString cable = drives.Path("cable");
  const auto plug = [&] {
    QFile::remove(cable);
    return QFile::link(QString::fromStdString(instrument->Path()), cable);
  };
  ASSERT_TRUE(plug());
  Begin(cable);
  const auto shown = [&](const QString& text) {
    return Eventually([&] {
      const auto parts = PartsOf<ValueWidget>(*Window("frmAcquire"));
      return std::any_of(parts.begin(), parts.end(),
                         [&](const ValueWidget* part) { return part->ShownText().contains(text); });
    });
  };
  OpenStation();
  EXPECT_TRUE(shown("Port closed"));
  for (int i = 0; i < 2; ++i) DoButton();
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
      {"include " KELP_SOURCE_DIR "/demo/manual.ks\n", 0},
      {"expect frmMain.Command1(0) Walk\n", 1},
      {"click frmAcquire.Command1\n", 2},
      {"click frmMain.Command1(4)\n", 3},
      {"type frmMain.Text1(0) 1\nclick frmMain.Command1(3)\nkey frmMain F1\nshow frmMain.Text1(0)\n", 0}};
  for (const auto& [script, expected] : rows) {
    const QStringList words{"--clock=2026-11-24T03:00:00", "--quick"};
    const Played console = Play(KELP_CONSOLE, words + QStringList{"--instrument=sim", "s.ks"}, script);
    const Played windows =
        Play(KELP_DESKTOP_PROGRAM, words + QStringList{"--simulate", "--script", "s.ks"}, script);
    EXPECT_EQ(console.status, expected) << console.error.toStdString();
    EXPECT_EQ(windows.status, expected) << windows.error.toStdString();
    EXPECT_TRUE(expected == 0 || windows.error == console.error) << windows.error.toStdString();
    EXPECT_EQ(windows.files, console.files) << script.toStdString();
  }
}

}  // namespace
}  // namespace kelp
