// SPDX-License-Identifier: GPL-3.0-or-later
// The review in the desktop: its window by keyboard, its pictures on paper, the calibration's question.
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>

#include "desktop/review/picture_painter.hpp"
#include "desktop/review/picture_view.hpp"
#include "desktop/review/review_window.hpp"
#include "desktop/review/running_profile.hpp"
#include "desktop/review/text_table.hpp"
#include "review/profile_picture.hpp"
#include "simulator/generated_cruise.hpp"
#include "tests/desktop/desk.hpp"
#include "tests/desktop/modal.hpp"

namespace kelp {
namespace {

const std::string kChl = "q:\\vault\\2007\\0707\\chl\\";

struct ReviewDeskOf : Desk {
  ReviewWindow review{kelp, [] { return std::nullopt; }};

  explicit ReviewDeskOf(std::vector<GeneratedStation> stations) {
    for (const GeneratedStation& station : stations)
      disk.Files[kChl + "chl" + station.ProcNum] = station.Text();
    review.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&review));
    review.Open(kChl);
  }
  QTabWidget& tabs() { return *review.findChild<QTabWidget*>(); }
  template <class Widget>
  Widget& InTab() {
    return *PartsOf<Widget>(*tabs().currentWidget()).at(0);
  }
  std::string ConfigLine(CfgLine line) { return CfgValue(kelp.run, line); }
};

std::vector<GeneratedStation> WithLab() {
  std::vector<GeneratedStation> stations = GenerateCruise(12);
  stations[3].EndBlank = 0.031;
  stations[11].Name = "LAB CAL";
  stations[11].Blank = stations[11].EndBlank = 0;
  stations[11].Samples.resize(3);
  for (std::size_t i = 0; i < 3; ++i) {
    stations[11].Samples[i].Rb = 10 * (static_cast<double>(i) + 1);
    stations[11].Samples[i].Ra = stations[11].Samples[i].Rb / 2;
  }
  return stations;
}

int DarkPixels(const QImage& image) {
  int dark = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) dark += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
  return dark;
}

}  // namespace

TEST(ReviewWindow, IsWorkedByKeyboardAndLeadsFromAFindingToItsProfile) {
  ReviewDeskOf desk(WithLab());
  EXPECT_EQ(desk.tabs().count(), 6);
  EXPECT_EQ(desk.InTab<TextTable>().model()->rowCount(), 12);
  for (int i = 0; i < 3; ++i) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(desk.tabs().tabText(desk.tabs().currentIndex()), "Checks (2)");
  auto& findings = desk.InTab<TextTable>();
  findings.setFocus();
  findings.Choose(0);
  QTest::keyClick(&findings, Qt::Key_Return);
  ASSERT_EQ(desk.tabs().tabText(desk.tabs().currentIndex()), "Profile");
  const auto& shown = desk.InTab<PictureView>().Shown();
  ASSERT_TRUE(shown);
  EXPECT_EQ(shown->Title.find("Profile, station 004"), 0U) << shown->Title;
  // A second station beside it, then a file that came meanwhile.
  auto& stations = desk.InTab<TextTable>();
  QTest::keyClick(&stations, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(desk.InTab<PictureView>().Shown()->Title, "Profile, stations 004, 005");
  desk.disk.Files[kChl + "chl013"] = "half";
  QTest::keyClick(&desk.review, Qt::Key_F5);
  desk.tabs().setCurrentIndex(0);
  EXPECT_EQ(PartsOf<TextTable>(*desk.tabs().currentWidget()).at(1)->model()->rowCount(), 1);
  QTest::keyClick(&desk.review, Qt::Key_Escape);
  EXPECT_FALSE(desk.review.isVisible());
}

TEST(ReviewWindow, TellsAFolderThatHoldsNothing) {
  ReviewDeskOf desk({});
  const auto said = [&] {
    QString all;
    for (const QLabel* label : desk.review.findChildren<QLabel*>()) all += label->text();
    return all;
  };
  EXPECT_TRUE(said().contains("no folder"));
  desk.disk.Folders.insert("q:\\empty");
  desk.review.Open("q:\\empty\\");
  EXPECT_TRUE(said().contains("No saved station in q:\\empty\\"));
  for (int tab = 0; tab < desk.tabs().count(); ++tab) {
    desk.tabs().setCurrentIndex(tab);
    EXPECT_FALSE(desk.review.grab().isNull());
  }
}

TEST(ReviewWindow, PutsACalibrationIntoTheConfigurationOnlyWithAYes) {
  ReviewDeskOf desk(WithLab());
  desk.tabs().setCurrentIndex(4);
  auto& tubes = desk.InTab<QTableWidget>();
  auto& take = *desk.tabs().currentWidget()->findChild<QPushButton*>();
  ASSERT_EQ(tubes.rowCount(), 3);
  const auto button = [&]() -> QPushButton& {
    for (auto* found : desk.tabs().currentWidget()->findChildren<QPushButton*>())
      if (found->text().contains("kelp.cfg")) return *found;
    return take;
  };
  EXPECT_FALSE(button().isEnabled());
  const char* texts[] = {"100", "abc", "300"};
  for (int row = 0; row < 3; ++row) tubes.item(row, 3)->setText(texts[row]);
  EXPECT_FALSE(button().isEnabled()) << "a concentration that is no number";
  tubes.item(1, 3)->setText("200");
  ASSERT_TRUE(button().isEnabled());
  const std::string before = desk.disk.Files["c:\\kelp\\kelp.cfg"];
  desk.platform.QueueAnswer(Answer::No);
  button().click();
  EXPECT_EQ(desk.disk.Files["c:\\kelp\\kelp.cfg"], before);
  EXPECT_TRUE(desk.platform.Boxes.back().message.DefaultNo);
  // A disk that refuses the file leaves the lines as they were, and says so.
  desk.platform.QueueAnswer(Answer::Yes);
  desk.disk.FailAt = desk.disk.Writes + 1;
  button().click();
  EXPECT_TRUE(desk.platform.Boxes.back().message.ReportsError);
  EXPECT_EQ(desk.ConfigLine(kCfgMachineFactor), "0.00987");
  desk.platform.QueueAnswer(Answer::Yes);
  button().click();
  EXPECT_EQ(desk.ConfigLine(kCfgMachineFactor) + " " + desk.ConfigLine(kCfgAcidRatio), "0.010000 2.0000");
  EXPECT_NE(desk.kelp.Status.find("F 0.00987 -> 0.010000"), std::string::npos) << desk.kelp.Status;
  EXPECT_NE(desk.disk.Files["c:\\kelp\\kelp.cfg"].find("0.010000                           07 - Machine"),
            std::string::npos);
}

TEST(ReviewWindow, WritesTheFinalDataAndRefusesAnImpossibleConstant) {
  ReviewDeskOf desk(WithLab());
  desk.tabs().setCurrentIndex(5);
  auto boxes = desk.tabs().currentWidget()->findChildren<QLineEdit*>();
  ASSERT_EQ(boxes.size(), 2);
  auto& write = *desk.tabs().currentWidget()->findChild<QPushButton*>();
  for (const char* bad : {"0", "x", "-1"}) {
    boxes[0]->setText(bad);
    emit boxes[0]->editingFinished();
    EXPECT_FALSE(write.isEnabled()) << bad;
  }
  boxes[0]->setText("0.0102");
  emit boxes[0]->editingFinished();
  write.click();
  EXPECT_EQ(Lines(desk.disk.Files[kChl + "0707slfinal.csv"]).size(), 11U * 12 + 1);
  EXPECT_NE(desk.disk.Files[kChl + "0707slfinal.txt"].find("chl012: holds tubes"), std::string::npos);
}

TEST(Pictures, LookTheSameInEveryFile) {
  const QTemporaryDir folder;
  const Station station = MeasuredStation([] {
    MemoryDisk disk;
    disk.Files["q:\\chl001"] = GenerateCruise(1)[0].Text();
    return ReadStationFile(disk, "q:\\chl001");
  }());
  const Picture picture = ProfilePicture({&station});
  const auto file = [&](const char* name) { return folder.filePath(name); };
  for (const char* name : {"p.svg", "p.pdf", "p.png"}) {
    EXPECT_EQ(ExportPicture(picture, file(name)), "");
    EXPECT_GT(Content(file(name)).size(), 2000) << name;
  }
  const QImage image(file("p.png"));
  EXPECT_EQ(image.size(), QSize(920, 800));
  EXPECT_GT(DarkPixels(image), 4000);
  // In grey the bands, marks and texts differ by lightness; in the dark scheme the paper is dark.
  QImage dark(460, 400, QImage::Format_RGB32);
  QPainter painter(&dark);
  PaintPicture(painter, picture, QRectF(dark.rect()), kDarkPalette);
  painter.end();
  EXPECT_GT(DarkPixels(dark), 460 * 400 * 3 / 4);
  EXPECT_NE(ExportPicture(picture, file("p.gif")), "");
  EXPECT_NE(ExportPicture(picture, "/nowhere/p.png"), "");
  EXPECT_NE(ExportPicture(picture, "/nowhere/p.pdf"), "");
}

TEST(RunningProfile, IsOneKeyAwayAndSendsTheProgramNothing) {
  Desk desk;
  RunningProfile profile(desk.kelp);
  int wanted = 0;
  desk.windows.ProfileWanted = [&] {
    ++wanted;
    profile.Toggle();
  };
  Start(desk.kelp);
  QTest::keyClick(desk.windows.WindowOf("frmMain")->focusWidget(), Qt::Key_P, Qt::ControlModifier);
  EXPECT_EQ(wanted, 0) << "only while a station runs";
  desk.OpenStation(3);
  QWidget* acquire = desk.windows.WindowOf("frmAcquire");
  desk.events.clear();
  QTest::keyClick(acquire->focusWidget(), Qt::Key_P, Qt::ControlModifier);
  ASSERT_TRUE(profile.isVisible()) << "also before the first reading";
  EXPECT_TRUE(desk.events.empty());
  QTest::keyClick(&profile, Qt::Key_P, Qt::ControlModifier);
  EXPECT_FALSE(profile.isVisible());
  desk.kelp.frmAcquire.datalog.Text(1, kColRb) = "2.0000";
  desk.kelp.frmAcquire.datalog.Text(1, kColRa) = "1.0000";
  desk.kelp.frmAcquire.datalog.Text(1, kColChla) = "1.138";
  QTest::keyClick(acquire->focusWidget(), Qt::Key_P, Qt::ControlModifier);
  EXPECT_EQ(PartsOf<PictureView>(profile).at(0)->Shown()->Marks.size(), 1U);
  QTest::keyClick(&profile, Qt::Key_Escape);
  EXPECT_FALSE(profile.isVisible());
}

}  // namespace kelp
