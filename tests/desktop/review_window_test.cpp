// SPDX-License-Identifier: GPL-3.0-or-later
// The review in the desktop: its window by keyboard, its pictures on paper, the calibration's question.
#include <QComboBox>
#include <QImage>
#include <QLabel>
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

// A cruise of twelve stations, of which 004 has a blank that drifted and 012 is a dilution series.
std::vector<GeneratedStation> WithLab() {
  std::vector<GeneratedStation> stations = GenerateCruise(12);
  stations[3].EndBlank = 0.031;
  stations[11].Name = "LAB CAL";
  stations[11].Blank = stations[11].EndBlank = 0;
  stations[11].Samples.resize(3);
  for (int i = 0; auto& sample : stations[11].Samples) {
    sample.Rb = 10 * ++i;
    sample.Ra = sample.Rb / 2;
  }
  return stations;
}

struct ReviewedCruise : Desk {
  ReviewWindow review{kelp, [] { return std::nullopt; }};
  QTabWidget& tabs = *review.findChild<QTabWidget*>();

  explicit ReviewedCruise(const std::vector<GeneratedStation>& stations) {
    for (const GeneratedStation& station : stations)
      disk.Files[kChl + "chl" + station.ProcNum] = station.Text();
    review.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&review));
    review.Open(kChl);
  }
  [[nodiscard]] QString TabName() const { return tabs.tabText(tabs.currentIndex()); }
  template <class Widget>
  Widget& InTab(std::size_t index = 0) {
    return *PartsOf<Widget>(*tabs.currentWidget()).at(index);
  }
};

int DarkPixels(const QImage& image) {
  int dark = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) dark += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
  return dark;
}

}  // namespace

TEST(ReviewWindow, IsWorkedByKeyboardAndLeadsFromAFindingToItsProfile) {
  ReviewedCruise desk(WithLab());
  EXPECT_EQ(desk.tabs.count(), 6);
  EXPECT_EQ(desk.InTab<TextTable>().model()->rowCount(), 12);
  for (int i = 0; i < 3; ++i) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(desk.TabName(), "Checks (2)");
  auto& findings = desk.InTab<TextTable>();
  findings.setFocus();
  findings.Choose(0);
  QTest::keyClick(&findings, Qt::Key_Return);
  ASSERT_EQ(desk.TabName(), "Profile");
  const auto& shown = desk.InTab<PictureView>().Shown();
  EXPECT_TRUE(shown && shown->Title.starts_with("Profile, station 004"));
  // A second station beside it, then a file that came meanwhile.
  QTest::keyClick(&desk.InTab<TextTable>(), Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(desk.InTab<PictureView>().Shown()->Title, "Profile, stations 004, 005");
  desk.disk.Files[kChl + "chl013"] = "half";
  QTest::keyClick(&desk.review, Qt::Key_F5);
  desk.tabs.setCurrentIndex(0);
  EXPECT_EQ(desk.InTab<TextTable>(1).model()->rowCount(), 1);
  QTest::keyClick(&desk.review, Qt::Key_Escape);
  EXPECT_FALSE(desk.review.isVisible());
}

TEST(ReviewWindow, TellsAFolderThatHoldsNothing) {
  ReviewedCruise desk({});
  const auto said = [&] {
    QString all;
    for (const QLabel* label : desk.review.findChildren<QLabel*>()) all += label->text();
    return all;
  };
  EXPECT_TRUE(said().contains("no folder"));
  desk.disk.Folders.insert("q:\\empty");
  desk.review.Open("q:\\empty\\");
  EXPECT_TRUE(said().contains("No saved station in q:\\empty\\"));
  for (int tab = 0; tab < desk.tabs.count(); ++tab) {
    desk.tabs.setCurrentIndex(tab);
    EXPECT_FALSE(desk.review.grab().isNull());
  }
}

TEST(ReviewWindow, PutsACalibrationIntoTheConfigurationOnlyWithAYes) {
  ReviewedCruise desk(WithLab());
  desk.tabs.setCurrentIndex(4);
  auto& tubes = desk.InTab<QTableWidget>();
  auto& put = *PartsOf<QPushButton>(*desk.tabs.currentWidget()).back();
  ASSERT_EQ(tubes.rowCount(), 3);
  EXPECT_FALSE(put.isEnabled());
  for (int row = 0; row < 3; ++row) tubes.item(row, 3)->setText(QString::number(100 * (row + 1)));
  tubes.item(1, 3)->setText("abc");
  EXPECT_FALSE(put.isEnabled()) << "a concentration that is no number";
  tubes.item(1, 3)->setText("200");
  ASSERT_TRUE(put.isEnabled());
  const auto afterwards = [&](Answer answer) {
    desk.Answers({answer});
    put.click();
    return CfgValue(desk.kelp.run, kCfgMachineFactor) + " " + CfgValue(desk.kelp.run, kCfgAcidRatio);
  };
  EXPECT_EQ(afterwards(Answer::No), "0.00987 2.011");
  EXPECT_TRUE(desk.platform.Boxes.back().message.DefaultNo);
  // A disk that refuses the file leaves the lines as they were, and says so.
  desk.disk.FailAt = desk.disk.Writes + 1;
  EXPECT_EQ(afterwards(Answer::Yes), "0.00987 2.011");
  EXPECT_TRUE(desk.platform.Boxes.back().message.ReportsError);
  EXPECT_EQ(afterwards(Answer::Yes), "0.010000 2.0000");
  EXPECT_NE(desk.kelp.Status.find("F 0.00987 -> 0.010000"), std::string::npos) << desk.kelp.Status;
  EXPECT_NE(desk.disk.Files[Lower(kConfigPath)].find("0.010000                           07 - Machine"),
            std::string::npos);
}

TEST(ReviewWindow, WritesTheFinalDataAndRefusesAnImpossibleConstant) {
  ReviewedCruise desk(WithLab());
  desk.tabs.setCurrentIndex(5);
  auto& factor = desk.InTab<QLineEdit>();
  auto& write = desk.InTab<QPushButton>();
  for (const char* text : {"0", "x", "-1", "0.0102"}) {
    factor.setText(text);
    emit factor.editingFinished();
    EXPECT_EQ(write.isEnabled(), factor.text() == "0.0102") << text;
  }
  write.click();
  EXPECT_EQ(Lines(desk.disk.Files[kChl + "0707slfinal.csv"]).size(), 11U * 12 + 1);
  EXPECT_NE(desk.disk.Files[kChl + "0707slfinal.txt"].find("chl012: holds tubes"), std::string::npos);
}

TEST(Pictures, LookTheSameInEveryFile) {
  MemoryDisk disk;
  disk.Files["q:\\chl001"] = GenerateCruise(1)[0].Text();
  const Station station = MeasuredStation(ReadStationFile(disk, "q:\\chl001"));
  const Picture picture = ProfilePicture({&station});
  const QTemporaryDir folder;
  for (const char* name : {"p.svg", "p.pdf", "p.png"}) {
    EXPECT_EQ(ExportPicture(picture, folder.filePath(name)), "");
    EXPECT_GT(Content(folder.filePath(name)).size(), 2000) << name;
  }
  const QImage image(folder.filePath("p.png"));
  EXPECT_EQ(image.size(), QSize(920, 800));
  EXPECT_GT(DarkPixels(image), 4000);
  // In grey the bands, marks and texts differ by lightness; in the dark scheme the paper is dark.
  QImage dark(460, 400, QImage::Format_RGB32);
  QPainter painter(&dark);
  PaintPicture(painter, picture, QRectF(dark.rect()), kDarkPalette);
  painter.end();
  EXPECT_GT(DarkPixels(dark), 460 * 400 * 3 / 4);
  for (const QString& never :
       {folder.filePath("p.gif"), QString("/nowhere/p.png"), QString("/nowhere/p.pdf")})
    EXPECT_NE(ExportPicture(picture, never), "") << never.toStdString();
}

TEST(RunningProfile, IsOneKeyAwayAndSendsTheProgramNothing) {
  Desk desk;
  RunningProfile profile(desk.kelp);
  desk.windows.ProfileWanted = [&] { profile.Toggle(); };
  const auto shows = [&](QWidget* place, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    QTest::keyClick(place, key, modifiers);
    return profile.isVisible();
  };
  Start(desk.kelp);
  EXPECT_FALSE(shows(desk.windows.WindowOf("frmMain")->focusWidget(), Qt::Key_P))
      << "only while a station runs";
  desk.OpenStation(3);
  QWidget* acquire = desk.windows.WindowOf("frmAcquire")->focusWidget();
  desk.events.clear();
  EXPECT_TRUE(shows(acquire, Qt::Key_P)) << "also before the first reading";
  EXPECT_TRUE(desk.events.empty());
  EXPECT_FALSE(shows(&profile, Qt::Key_P));
  desk.cell(1, kColRb) = "2.0000";
  desk.cell(1, kColRa) = "1.0000";
  desk.cell(1, kColChla) = "1.138";
  EXPECT_TRUE(shows(acquire, Qt::Key_P));
  EXPECT_EQ(PartsOf<PictureView>(profile).at(0)->Shown()->Marks.size(), 1U);
  EXPECT_FALSE(shows(&profile, Qt::Key_Escape, Qt::NoModifier));
}

}  // namespace kelp
