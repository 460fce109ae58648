// SPDX-License-Identifier: GPL-3.0-or-later
// Every file of a saved station, line by line, and what is left of a save that fails.
#include <gtest/gtest.h>

#include <set>

#include "files/database_csv.hpp"
#include "files/kept_copy.hpp"
#include "tests/support/finished_station.hpp"

namespace kelp {

namespace {

struct RemarkedStation : FinishedStation {
  RemarkedStation() : FinishedStation(2) {
    cell(1, kColFiltCom) = "torn <filter>, 50% left";
    cell(2, kColReadCom) = "see_note";
  }
};

std::size_t Count(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

// The names of the files that differ; the record, which guards them, is none of them.
std::string Differing(std::map<std::string, std::string> a, std::map<std::string, std::string> b) {
  std::string names;
  for (auto* files : {&a, &b}) {
    files->erase("c:\\kelp\\record.db");
    files->erase("q:\\vault\\2007\\0707\\chl\\chl002.lck");
    files->erase("d:\\backup\\record-bench.db");
  }
  for (const auto& [path, text] : b) names += a[path] == text ? "" : path + " ";
  for (const auto& [path, text] : a) names += b.contains(path) ? "" : path + " ";
  return names;
}

}  // namespace

TEST(ResultFiles, TheReportIsTheSameEverywhereAndRowsHaveAFieldForEachColumn) {
  RemarkedStation program;
  program.Save();
  EXPECT_TRUE(program.run().ResultsSaved);
  const std::string report = program.file("chl002.prn");
  EXPECT_TRUE(program.file("chl002").ends_with(" - see\\_note *\r\n" + report));
  EXPECT_EQ(Replaced(Replaced(program.file("chl002.htm"), "<B>", ""), "</B>", ""),
            "<html>\r\n<body>\r\n<pre>\r\n" + Replaced(report, "<filter>", "&lt;filter&gt;") +
                "</pre>\r\n</body>\r\n</html>\r\n");
  EXPECT_EQ(program.platform.Printed, Lines(report));
  const auto rows = Lines(program.file("0707SLChldb.csv") + program.file("0707SL002Chldb1.csv"));
  ASSERT_EQ(rows.size(), 6U);
  for (int i = 0; i < 6; ++i) EXPECT_EQ(Count(rows[i], ","), i < 3 ? 26U : 47U) << rows[i];
}

TEST(ResultFiles, ChecksAndSettingsDecideWhatIsWritten) {
  RemarkedStation program;
  for (CheckBox& box : program.kelp.frmWhatsNext.Check2) box.Value = false;
  program.form().txtStaInfo[kStaLineSta].Text = "<SURFX> & co";
  program.Save();
  EXPECT_TRUE(program.platform.Printed.empty());
  EXPECT_FALSE(program.Has("0707SLChldb.csv") || program.Has("0707SL002Chldb1.csv"));
  EXPECT_TRUE(Contains(program.file("chl002.htm"), "Station: &lt;SURFX&gt; &amp; co\r\n"));

  program.kelp.frmWhatsNext.Check2[1].Value = true;
  program.Configure(kCfgBlankToSave, "AVErent");
  program.Save();
  EXPECT_TRUE(Contains(program.file("0707SLChldb.csv"), ",8,0.0052,3.0000,"));
}

TEST(ResultFiles, NoKeptCopyIsEverLost) {
  RemarkedStation program;
  const std::string fresh = program.file("chl002");
  std::set<std::string> saved = {fresh};
  using namespace std::chrono;
  const auto day = local_days{year{2026} / 10 / 25};
  // Twice within a second, an hour that daylight saving gives again, midnight, and a clock set back.
  for (const int second : {1, 1, 9000, 9000, 86399, 86400, 0, 1}) {
    program.platform.SetClock(day + seconds{second});
    program.cell(1, kColReadCom) = "save " + std::to_string(saved.size());
    program.Save();
    saved.insert(program.file("chl002"));
  }
  EXPECT_EQ(program.file("chl002Base"), fresh) << "the first copy stays as it is";
  EXPECT_TRUE(program.Has("chl002Base10252026000001-2") && program.Has("chl002Base10252026023000"));
  for (const auto& [path, content] : program.disk.Files)
    if (StartsWith(path, Lower(kChl + "chl002base")) || path == Lower(kChl + "chl002")) saved.erase(content);
  EXPECT_TRUE(saved.empty()) << saved.size() << " saves are gone";
  EXPECT_EQ(Count(program.file("chl002.prn"), "B a y T R E K"), 8U);

  for (const auto& [path, station] : std::initializer_list<std::pair<const char*, const char*>>{
           {"q:\\Base\\chl007", "q:\\Base\\chl007"},
           {"q:\\Base\\chl007Base", "q:\\Base\\chl007"},
           {"q:\\chl007Base11242026030000-2", "q:\\chl007"},
           {"q:\\chl007Based", "q:\\chl007Based"},
           {"q:\\Base", "q:\\Base"}})
    EXPECT_EQ(StationPath(path), station);
}

TEST(ResultFiles, ASaveThatFailsAtAnyWriteKeepsAllAndRepeatedIsAsIfItHadNotFailed) {
  for (const int savesBefore : {0, 1}) {
    RemarkedStation whole;
    for (int i = 0; i < savesBefore; ++i) whole.Save();
    const auto old = whole.disk.Files;
    const int first = whole.disk.Writes + 1;
    whole.Save();
    EXPECT_GE(whole.disk.Writes - first, 7);
    for (int n = first; n <= whole.disk.Writes; ++n) {
      RemarkedStation program;
      for (int i = 0; i < savesBefore; ++i) program.Save();
      program.disk.FailAt = n;
      program.Save();
      // What the record can't take is kept beside it, and an alarm says so.
      const bool told = Contains(program.LastBox(), "no space left on the device");
      EXPECT_TRUE(told || program.run().ResultsSaved) << n;
      for (const auto& [path, text] : old) {
        if (path == "c:\\kelp\\record.db") continue;
        const std::string& now = program.disk.Files[path];
        EXPECT_TRUE(now == text || now == whole.disk.Files[path]) << n << path;
      }
      // The log goes on while the operator mends the trouble.
      program.run().RunDate = "11/24/2026,03:00:00";
      if (told) program.Save();
      for (auto& [path, text] : program.disk.Files) text = Replaced(text, "03:00:00", "02:59:58");
      EXPECT_EQ(Differing(program.disk.Files, whole.disk.Files), "") << n;
    }
  }
}

TEST(ResultFiles, ABadPlaceIsNamedAndTheSaveRepeatedTakesTheValuesAsTheyAreThen) {
  RemarkedStation program;
  // A folder in the place of the kept copy is one more name that exists.
  for (const char* name : {"chl002Base", "chl002.htm"}) program.disk.Folders.insert(Lower(kChl + name));
  program.Save();
  EXPECT_TRUE(Contains(program.LastBox(), "chl002.htm: is a folder")) << program.LastBox();
  EXPECT_TRUE(program.Has("chl002Base11242026030000"));
  program.disk.Folders.erase(Lower(kChl + "chl002.htm"));
  program.cell(1, kColRb) = "2.9990";
  program.Save();
  EXPECT_TRUE(program.run().ResultsSaved);
  EXPECT_TRUE(Contains(program.file("chl002"), " 2.9990 "));
}

TEST(ResultFiles, APrinterThatFailsCostsNoFileAndPrintsOnceItWorks) {
  RemarkedStation program;
  program.platform.PrinterTakes = 5;
  program.Save();
  EXPECT_TRUE(Contains(program.LastBox(), "printer: ")) << program.LastBox();
  EXPECT_FALSE(program.run().ResultsSaved);
  const auto files = program.disk.Files;
  program.platform.Printed.clear();
  program.platform.PrinterTakes = -1;
  program.Save();
  EXPECT_TRUE(program.run().ResultsSaved);
  EXPECT_EQ(program.platform.Printed, Lines(program.file("chl002.prn")));
  EXPECT_EQ(Differing(program.disk.Files, files), std::string(kConfigPath) + " ");
}

TEST(ResultFiles, WithoutAStationThereIsNothingToSave) {
  Program program;
  program.platform.QueueFile({});
  program.LogIn({Answer::No, Answer::Yes, Answer::Ok});
  program.Key("frmAcquire", kKeyF1 + 1);
  EXPECT_TRUE(StartsWith(program.LastBox(), "No station is open"));
  EXPECT_FALSE(program.disk.Exists(kChl + "chl002"));
}

}  // namespace kelp
