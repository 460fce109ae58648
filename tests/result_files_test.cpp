// Every file of a saved station, line by line, and what is left of a save that fails.
#include <gtest/gtest.h>

#include "files/database_csv.hpp"
#include "files/kept_copy.hpp"
#include "tests/support/finished_station.hpp"

namespace kelp {

namespace {

constexpr const char* kReport =
    "\r\n\r\n"
    "     B a y T R E K   F l u o r o m e t e r   D a t a   L o g\r\n"
    "\r\n"
    "    Expedition: BayTREK 0707SL                          Cast 002\r\n"
    "    Ship: Sea Lantern                           Station: 93.3 70\r\n"
    "    Filtered: 11/23/2026 11:30:00 PM           Fluorometer: ZEPHOR\r\n"
    "    Read: 11/24/2026 02:59:58                 F=0.109, tau=2.288\r\n"
    "    Read by: TQB                        begin/end: 0.0050/0.0054\r\n"
    "                                        Copro 3-1: 1.5310/1.5290\r\n"
    "                                        Copro 2-5: 5.0310/5.0290\r\n"
    "\r\n"
    "     TUBE NISK DEPTH  FILV EXTV    Rb      Ra     CHLA    PHAEO     AR   QC\r\n"
    "    ==========================================================================\r\n"
    "       2    07     3   138    8  3.0000  1.5000  16.837  4.777   2.00    *\r\n"
    "       3    08     3   138    8  4.0000  2.0000  22.450  6.393   2.00    *\r\n";

constexpr const char* kTable =
    "93.3 70\r\n"
    "ZEPHOR\r\n"
    "0.0050 0.0054 0.0 0.0\r\n"
    "0.0 0.0 0.0 0.0\r\n"
    "002   2 0.00987 2.011\r\n"
    "2 07 3 138 8 2 2.00 3.0000 1.5000 16.837 4.777 torn_<filter>,_50%_left - *\r\n"
    "2 08 3 138 8 3 2.00 4.0000 2.0000 22.450 6.393 - see\\_note *\r\n";

const std::string kCruiseRows =
    "0707SL,93.3,70,002,07,2,138,8,0.0050,3.0000,1.5000,16.837,3,11/23/2026,11:30:00,11/24/2026,02:59:58,TQB,"
    "ZEPHOR,1.5310,5.0310,0.109,2.288,ROS,,torn <filter>  50% left,\r\n"
    "0707SL,93.3,70,002,08,3,138,8,0.0050,4.0000,2.0000,22.450,3,11/23/2026,11:30:00,11/24/2026,02:59:58,TQB,"
    "ZEPHOR,1.5310,5.0310,0.109,2.288,ROS,,,see_note\r\n";

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

// The names of the files that differ; the journal, which guards them, is none of them.
std::string Differing(std::map<std::string, std::string> a, std::map<std::string, std::string> b) {
  std::string names;
  for (auto* files : {&a, &b}) files->erase("d:\\backup\\chl002.jnl");
  for (const auto& [path, text] : b) names += a[path] == text ? "" : path + " ";
  for (const auto& [path, text] : a) names += b.contains(path) ? "" : path + " ";
  return names;
}

}  // namespace

TEST(ResultFiles, EveryFileHoldsWhatItIsToHold) {
  RemarkedStation program;
  const std::string fresh = program.file("chl002");
  const std::string config = program.disk.Files[kConfigPath];
  program.Save();
  EXPECT_TRUE(program.run().ResultsSaved);
  EXPECT_EQ(program.file("chl002"), std::string(kTable) + kReport);
  EXPECT_EQ(program.file("chl002Base"), fresh);
  EXPECT_EQ(program.file("chl002.prn"), kReport);
  const std::string page = Replaced(kReport, "     B a y T R E K   F l u o r o m e t e r   D a t a   L o g",
                                    "<B>     B a y T R E K   F l u o r o m e t e r   D a t a   L o g</B>");
  EXPECT_EQ(program.file("chl002.htm"),
            "<html>\r\n<body>\r\n<pre>\r\n" + page + "</pre>\r\n</body>\r\n</html>\r\n");
  EXPECT_EQ(program.file("0707SLChldb.csv"), std::string(kCruiseCsvHeader) + "\r\n" + kCruiseRows);
  EXPECT_EQ(program.disk.Files["c:\\kelp\\kelp.002"], config);
  std::string printed;
  for (const std::string& line : program.platform.Printed) printed += line + "\r\n";
  EXPECT_EQ(printed, kReport);

  const auto rows = Lines(program.file("0707SL002Chldb1.csv"));
  EXPECT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0], kStationCsvHeader);
  EXPECT_EQ(rows[1],
            "0707SL,93.3,70,002,07,2,138,8,0.0050,3.0000,1.5000,2.00,16.837,4.777,3,11/23/2026,11:30:00,"
            "11/24/2026,02:59:58,TQB,ZEPHOR,1.5310,5.0310,0.109,2.288,*,,,,,,0.0052,,,,,,,ROS,,,,,,,"
            "torn <filter>  50% left,,");
  for (const std::string& row : rows) EXPECT_EQ(Count(row, ","), 47U) << row;
}

TEST(ResultFiles, ChecksAndSettingsDecideWhatIsWritten) {
  RemarkedStation program;
  program.kelp.frmWhatsNext.Check2[0].Value = false;
  program.kelp.frmWhatsNext.Check2[1].Value = false;
  program.form().txtStaInfo[kStaLineSta].Text = "<SURFX> & co";
  program.Save();
  EXPECT_TRUE(program.platform.Printed.empty());
  EXPECT_FALSE(program.Has("0707SLChldb.csv") || program.Has("0707SL002Chldb1.csv"));
  EXPECT_TRUE(Contains(program.file("chl002.htm"), "Station: &lt;SURFX&gt; &amp; co\r\n"));
  EXPECT_TRUE(Contains(program.file("chl002.prn"), "Station: <SURFX> & co\r\n"));

  program.kelp.frmWhatsNext.Check2[1].Value = true;
  program.Configure(kCfgBlankToSave, "AVErent");
  program.run().CastType = "ROS, deep";
  program.Save();
  EXPECT_TRUE(Contains(program.file("0707SLChldb.csv"), ",8,0.0052,3.0000,"));
  EXPECT_TRUE(Contains(program.file("0707SLChldb.csv"), ",ROS  deep,"));
  EXPECT_EQ(program.run().CtdTime, "11:30:00") << "the half of the day is cut off";
}

TEST(ResultFiles, NoKeptCopyIsEverLost) {
  RemarkedStation program;
  const std::string fresh = program.file("chl002");
  std::vector<std::string> saved;
  for (int i = 0; i < 3; ++i) {
    program.cell(1, kColReadCom) = "save " + std::to_string(i);
    program.Save();
    saved.push_back(program.file("chl002"));
  }
  EXPECT_EQ(program.file("chl002Base"), fresh) << "the first copy stays as it is";
  EXPECT_EQ(program.file("chl002Base11242026030000"), saved[0]);
  EXPECT_EQ(program.file("chl002Base11242026030000-2"), saved[1]) << "two saves within one second";
  EXPECT_EQ(Count(program.file("chl002.prn"), "B a y T R E K"), 3U);

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
    EXPECT_GE(whole.disk.Writes - first, 8);
    for (int n = first; n <= whole.disk.Writes; ++n) {
      RemarkedStation program;
      for (int i = 0; i < savesBefore; ++i) program.Save();
      program.disk.FailAt = n;
      program.Save();
      // Only the journal, which has done its work by then, may fail to go without a word.
      const bool told = Contains(program.LastBox(), "no space left on the device");
      EXPECT_TRUE(told || program.run().ResultsSaved) << n;
      for (const auto& [path, text] : old) {
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

TEST(ResultFiles, ABadPlaceIsNamedAndTheSaveCanBeRepeated) {
  for (const char* name :
       {"chl002.prn", "chl002Base", "chl002.htm", "0707SLChldb.csv", "0707SL002Chldb1.csv"}) {
    RemarkedStation program;
    const std::string folder = Lower(kChl + name);
    program.disk.Folders.insert(folder);
    program.Save();
    // A folder in the place of the kept copy is one more name that exists.
    const bool copy = name == std::string("chl002Base");
    EXPECT_EQ(Contains(program.LastBox(), name), !copy) << program.LastBox();
    EXPECT_EQ(program.run().ResultsSaved, copy);
    EXPECT_EQ(copy, program.Has("chl002Base11242026030000"));
    program.disk.Folders.erase(folder);
    if (!copy) program.Save();
    EXPECT_TRUE(program.run().ResultsSaved) << name;
    EXPECT_EQ(program.file("chl002"), std::string(kTable) + kReport);
    EXPECT_EQ(Count(program.file("chl002.prn"), "Cast 002"), 1U);
  }
  RemarkedStation program;
  program.disk.FailBelow = "q:\\vault";
  program.Save();
  EXPECT_TRUE(Contains(program.LastBox(), "Q:\\vault\\2007\\0707\\chl\\chl002.prn"));
  EXPECT_TRUE(program.platform.Boxes.back().message.ReportsError);
  program.cell(1, kColRb) = "2.9990";
  program.disk.FailBelow.clear();
  program.Save();
  EXPECT_TRUE(Contains(program.file("chl002"), " 2.9990 "));
}

TEST(ResultFiles, APrinterThatFailsCostsNoFileAndPrintsOnceItWorks) {
  for (const int takes : {0, 5}) {
    RemarkedStation program;
    program.platform.PrinterTakes = takes;
    program.Save();
    EXPECT_TRUE(Contains(program.LastBox(), "printer: ")) << program.LastBox();
    EXPECT_FALSE(program.run().ResultsSaved);
    EXPECT_EQ(program.run().ProcNum, "002") << "the station stays open";
    const auto files = program.disk.Files;
    EXPECT_EQ(program.file("chl002"), std::string(kTable) + kReport);
    EXPECT_EQ(Lines(program.file("0707SLChldb.csv")).size(), 3U);
    program.platform.Printed.clear();
    program.platform.PrinterTakes = -1;
    program.Save();
    EXPECT_TRUE(program.run().ResultsSaved);
    EXPECT_EQ(program.platform.Printed.size(), Lines(kReport).size());
    EXPECT_EQ(Differing(program.disk.Files, files), std::string(kConfigPath) + " ");
  }
}

TEST(ResultFiles, WithoutAStationThereIsNothingToSave) {
  Program program;
  Start(program.kelp);
  program.Click("frmMain", "Command1", 0);
  program.Answers({Answer::No});
  program.platform.QueueFile({});
  program.Click("frmLogin", "cmdOK");
  program.Answers({Answer::Yes, Answer::Ok});
  program.Key("frmAcquire", kKeyF1 + 1);
  EXPECT_TRUE(StartsWith(program.LastBox(), "No station is open"));
  EXPECT_FALSE(program.disk.Exists(kChl + "chl002"));
}

}  // namespace kelp
