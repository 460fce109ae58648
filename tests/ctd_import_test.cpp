// SPDX-License-Identifier: GPL-3.0-or-later
// Station, cast type and times from the CTD's header and mark files.
#include <gtest/gtest.h>

#include <tuple>

#include "core/date_time.hpp"
#include "files/ctd_import.hpp"
#include "stage/program.hpp"

namespace kelp {

namespace {

constexpr const char* kHeader = "q:\\vault\\2007\\0707\\ctd\\0707007.hdr";
constexpr const char* kMarks = "q:\\vault\\2007\\0707\\mrk\\0707007.mrk";

// The station's number is given in one digit: the import fills it up.
struct Cast : Program {
  Cast(const std::string& header, const std::string& marks) {
    disk.Files[kHeader] = header;
    disk.Files[kMarks] = marks;
    run().ProcNum = "7";
  }

  /// What the import of both files throws, or "".
  std::string Failure() {
    try {
      ImportCtdHeader(kelp);
      ImportCtdMark(kelp);
      return "";
    } catch (const RunTimeError& error) {
      return std::string(ErrorName(error.kind())) + ": " + error.what();
    }
  }
};

}  // namespace

TEST(CtdImport, TheHeaderIsReadByPosition) {
  static constexpr std::tuple<const char*, const char*, const char*, const char*> kRows[] = {
      {"** Station:x 93.3 70  ", "93.3 70", "-", ""},      // the character behind the key is skipped
      {"** Status of Station: 9", "Station: 9", "-", ""},  // counted from the first "Sta"
      {"** station: 93.3 70", "-", "-", ""},
      {"** TYPE: UNDERWAY Type: x", "-", "UNDERWAY Type: x", ""},
      {"** Station: 1 TYPE: CTD", "1 TYPE: CTD", "CTD", ""},
      {"* a=b UpLoad Time = Nov 24", "-", "-", "UpLoad Time = Nov 24"},  // counted from the first "="
      {"** Station: ", "", "-", ""},
  };
  for (const auto& [line, station, type, date] : kRows) {
    Cast program("* first line\r\n" + std::string(line) + "\r\n", "");
    program.form().txtStaInfo[kStaLineSta].Text = program.run().CastType = "-";
    EXPECT_EQ(program.Failure(), "") << line;
    EXPECT_EQ(program.run().ProcNum, "007");
    EXPECT_EQ(program.form().txtStaInfo[kStaLineSta].Text, station) << line;
    EXPECT_EQ(program.run().CastType, type) << line;
    EXPECT_EQ(CfgValue(program.run(), kCfgCastDate), date) << line;
  }
}

TEST(CtdImport, TheLastMarkPlusAnHourIsTheFiltration) {
  static constexpr std::pair<const char*, const char*> kRows[] = {
      {"mark 1  11/24/2026 22:30:00\r\n mark 2  2026-11-24 23:30:00", "11/25/2026 00:30:00"},
      {"mark,1, Dec 31 2026 23:00:01\nVolt#1 mar\nMark 11/24/2026 10:00:00\n", "01/01/2027 00:00:01"},
      {"mark  9/5/2026 1:05:09 PM\r\n", "09/05/2026 14:05:09"},
      {"mark  7/9/2026 12:00:01 am\r\n", "07/09/2026 01:00:01"},
      // Only the last 21 characters are read: a month of two digits with AM or PM is one too long.
      {"mark 11/24/2026 11:05:09 PM\r\n", "01/25/2026 00:05:09"},
      {"mark  02/29/2024 00:00:00\r\n", "02/29/2024 01:00:00"},
      {"no such line\r\n", "- -"}};
  for (const auto& [marks, filtered] : kRows) {
    Cast program("", marks);
    program.form().txtStaInfo[kStaFiltDate].Text = program.form().txtStaInfo[kStaFiltTime].Text = "-";
    EXPECT_EQ(program.Failure(), "") << marks;
    EXPECT_EQ(
        program.form().txtStaInfo[kStaFiltDate].Text + " " + program.form().txtStaInfo[kStaFiltTime].Text,
        filtered);
  }
}

TEST(CtdImport, ABadLineIsNamedByFileAndLine) {
  static constexpr std::tuple<const char*, const char*, const char*> kRows[] = {
      {"\r\nStation:\r\n", "", "Overflow: Q:\\vault\\2007\\0707\\CTD\\0707007.hdr, line 2: \"Station:\""},
      {"Cast type:", "", "Overflow: Q:\\vault\\2007\\0707\\CTD\\0707007.hdr, line 1: \"TYPE:\""},
      {"UpLoad Time =\n", "", "Overflow: Q:\\vault\\2007\\0707\\CTD\\0707007.hdr, line 1: \"UpLoad Time =\""},
      {"", "\nmark 2\r\n", "Type mismatch: Q:\\vault\\2007\\0707\\mrk\\0707007.mrk, line 2: "},
      {"", "mark  02/29/2026 00:00:00", "Type mismatch: "},
      {"", "mark  13/01/2026 00:00:00", "Type mismatch: "},
      {"", "mark  07/09/2026 24:00:00", "Type mismatch: "},
      {"", "mark  7/9/2026 13:00:00 PM", "Type mismatch: "},
      {"", "mark 07/09/2026", "Type mismatch: "}};
  for (const auto& [header, marks, failure] : kRows) {
    const std::string told = Cast(header, marks).Failure();
    EXPECT_TRUE(StartsWith(told, failure)) << told;
  }
}

TEST(CtdImport, TheFoldersDifferAndAStationOpensWithABadFile) {
  Program program;
  program.Configure(kCfgCruise, "07");
  program.Configure(kCfgDataPath, "q:\\data\\");
  program.Configure(kCfgMarkDir, "q:\\ctd");
  program.disk.Files["q:\\dctd\\07002.hdr"] = "Station: 80 60\r\nTYPE:\r\n";
  program.disk.Files["q:\\ctd\\07002.mrk"] = "mark 5, bottle  11/24/2026 22:30:00\r\n";
  program.OpenStation(2);
  EXPECT_TRUE(Contains(program.LastBox(), "07002.hdr, line 2:")) << program.LastBox();
  EXPECT_EQ(program.form().txtStaInfo[kStaLineSta].Text, "80 60");
  EXPECT_EQ(program.form().txtStaInfo[kStaFiltTime].Text, "23:30:00");
  EXPECT_EQ(program.run().SampCount, 2);
}

}  // namespace kelp
