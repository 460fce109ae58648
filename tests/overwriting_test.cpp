// SPDX-License-Identifier: GPL-3.0-or-later
// Nothing is overwritten, run or reported silently. Named after the ways in which the first version did.
#include <gtest/gtest.h>

#include "tests/support/interrupted_station.hpp"

namespace kelp {

TEST(Record, Finding11AConfigurationChangedBySomebodyElseIsOverwrittenOnYesOnly) {
  FinishedStation program;
  std::string& file = program.disk.Files[Lower(kConfigPath)];
  const std::string theirs = Replaced(file, "Sea Lantern", "Sea Urchin ");
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    file = theirs;
    program.Answers({Answer::Yes, answer});
    program.Key("frmAcquire", kKeyF1 + 1);
    EXPECT_EQ(program.platform.Boxes.back().message.Title, "Overwrite");
    EXPECT_TRUE(program.platform.Boxes.back().message.DefaultNo);
    EXPECT_TRUE(Contains(program.LastBox(), ": lines 01.")) << program.LastBox();
    EXPECT_EQ(Contains(file, "Sea Urchin"), answer == Answer::No);
    EXPECT_EQ(Contains(file, "003                                21 - "), answer == Answer::Yes);
  }
}

TEST(Record, Finding12TheReadLogWaitsForNoDiskUntilAValueIsStoredOrReadingStops) {
  Program program;
  program.OpenStation(2);
  program.Click("frmAcquire", "Command1");
  const std::set<std::string> log = {"d:\\backup\\chl002.tmp", kBase002 + ".csv"};
  const auto unflushed = [&] { return program.disk.Unflushed; };
  program.Click("frmAcquire", "Command1");
  program.Read(0.005, 10);
  Tick(program.kelp);
  EXPECT_EQ(unflushed(), log);
  program.Click("frmAcquire", "Command1");
  EXPECT_TRUE(unflushed().empty()) << "a value was stored";
  program.Click("frmAcquire", "Command1");
  Tick(program.kelp);
  program.Click("frmAcquire", "Command2");
  EXPECT_TRUE(unflushed().empty()) << "paused";
  program.Click("frmAcquire", "Command2");
  Tick(program.kelp);
  EXPECT_EQ(unflushed(), log);
  program.caption() = "&Start";
  Pass(program.kelp);
  EXPECT_TRUE(unflushed().empty()) << "the loop has ended";
}

TEST(Record, Finding13DatabaseRowsStayRowsAndNoSpreadsheetRunsThem) {
  FinishedStation program(1);
  const std::pair<const char*, const char*> remarks[] = {{"a \"torn\" one", "a 'torn' one"},
                                                         {"=1+2", "'=1+2"},
                                                         {"+CMD", "'+CMD"},
                                                         {"@SUM(A1)", "'@SUM(A1)"},
                                                         {"-cmd", "'-cmd"},
                                                         {"-99.000", "-99.000"},
                                                         {"-.", "'-."},
                                                         {" =1", "'=1"}};
  for (const auto& [typed, written] : remarks) {
    program.cell(1, kColReadCom) = typed;
    program.Save();
    const std::string row = Lines(program.file("0707SLChldb.csv")).back();
    EXPECT_EQ(row.substr(row.rfind(',') + 1), written);
  }
}

TEST(Record, Finding14OverwritingABaseFileKeepsItsResults) {
  FinishedStation program;
  program.Save();
  const std::string results = program.file("chl002");
  program.kelp.frmCreateBase = {};
  ShowScreen(program.kelp, program.kelp.frmCreateBase.Form);
  program.Type("frmCreateBase", "Text1", 0, "2");
  program.Type("frmCreateBase", "Text1", 2, "1");
  program.Answers({Answer::Yes});
  program.Click("frmCreateBase", "cmdCreateBase", 0);
  EXPECT_NE(program.file("chl002"), results);
  EXPECT_EQ(program.file("chl002Base11242026030000"), results);
}

TEST(Record, Finding15StandardsAndRemarksAreReportedAndASecondSaveAppendsNoRow) {
  FinishedStation program;
  const char* standards[] = {"5.0310", "5.0290", "47.1000", "46.9000"};
  for (int i = 0; i < 4; ++i) program.form().txtBlank[kBoxLowStandard + i].Text = standards[i];
  program.cell(2, kColFiltCom) = "torn filter";
  program.cell(2, kColReadCom) = "re-read";
  program.Save();
  const std::string footer =
      "\r\n    Low standard: 5.0310/5.0290   High standard: 47.1000/46.9000\r\n"
      "    Remark, bottle 08, filterer: torn filter\r\n    Remark, bottle 08, reader: re-read\r\n";
  EXPECT_TRUE(program.file("chl002").ends_with(footer)) << program.file("chl002");
  EXPECT_TRUE(program.file("chl002.prn").ends_with(footer));
  const std::string rows = program.file("0707SLChldb.csv");
  // Typed values keep the time of their first save.
  const std::string dated = "Read: 11/24/2026 02:59:58";
  EXPECT_TRUE(Contains(program.file("chl002"), dated));
  program.platform.Advance(600'000);
  program.Save();
  EXPECT_TRUE(Contains(program.file("chl002"), dated));
  program.run().RunDate = "11/24/2026,03:10:00";
  program.Save();
  EXPECT_TRUE(Contains(program.form().StatusBar1.Text, "no rows were added"))
      << program.form().StatusBar1.Text;
  EXPECT_EQ(program.file("0707SLChldb.csv"), rows);
  // Opened again, also by another run of the program, it is the same station.
  StationFiles again;
  again.Reopen(program);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(again.form().txtBlank[kBoxLowStandard + i].Text, standards[i]);
  again.Save();
  EXPECT_EQ(again.file("0707SLChldb.csv"), rows);
  again.cell(1, kColRb) = "9.0000";
  again.Save();
  EXPECT_TRUE(Contains(again.form().StatusBar1.Text, "older rows stand before the new ones"));
  EXPECT_EQ(Lines(again.file("0707SLChldb.csv")).size(), Lines(rows).size() + 3);
}

}  // namespace kelp
