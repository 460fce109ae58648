// SPDX-License-Identifier: GPL-3.0-or-later
// Saved stations as values, and all stations of a folder as a cruise.
#include <gtest/gtest.h>

#include "files/cruise.hpp"
#include "files/database_csv.hpp"
#include "review/station.hpp"
#include "simulator/generated_cruise.hpp"
#include "tests/support/finished_station.hpp"

namespace kelp {

namespace {

const std::string kFolder = "q:\\c\\";

}  // namespace

TEST(StationFile, HoursToRunNeedTwoWholeTimesInTheirOrder) {
  struct Row {
    const char *filtDate, *filtTime, *readDate, *readTime, *hours;
  };
  static constexpr Row kRows[] = {{"11/22/2026", "01:10:00 PM", "11/24/2026", "03:10:00", "38.0"},
                                  {"11/24/2026", "00:00:00", "11/24/2026", "00:12:00", "0.2"},
                                  {"11/24/2026", "03:00:00", "11/24/2026", "02:00:00", ""},
                                  {"", "03:00:00", "11/24/2026", "02:00:00", ""},
                                  {"11/31/2026", "03:00:00", "11/24/2026", "02:00:00", ""}};
  for (const Row& row : kRows) {
    const auto hours = HoursToRun(row.filtDate, row.filtTime, row.readDate, row.readTime);
    EXPECT_EQ(hours ? HoursText(*hours) : "", row.hours) << row.filtTime;
  }
}

TEST(Cruise, ListsWhatItLeavesOutAndWhy) {
  MemoryDisk disk;
  std::vector<GeneratedStation> stations = GenerateCruise(6);
  std::swap(stations[0].Read, stations[2].Read);
  stations[4].Cruise = "0801XX";
  for (const GeneratedStation& station : stations)
    disk.Files[kFolder + "chl" + station.ProcNum] = station.Text();
  const std::string whole = disk.Files[kFolder + "chl006"];
  const auto report = whole.find("\r\n\r\n");
  struct Row {
    const char* file;
    std::string content, why;
  };
  const Row rows[] = {
      {"chl010", "", "has 0 lines"},
      {"chl011", whole.substr(0, 200), "tells of 12 samples but"},
      {"chl012", whole.substr(0, report + 2), "no whole report heading"},
      {"chl013", whole.substr(0, whole.find("    Read by")), "no whole report heading"},
      {"chl014", "93.3 70\r\nZEPHOR\r\n0 0 0 0\r\n0 0 0 0\r\n014   1 0.00987 2.011\r\n2 07    3  138 8 \r\n",
       "has no results yet"},
      {"chl015", Replaced(whole, "2 02 ", " 2 02 "), "line 7: the line begins with a blank"},
      {"chl016", Replaced(whole, "2 02 ", "2 02 3 4 5 6 7 8 9 10 11 "), "line 7: station table row"},
      {"chl017", whole, "line 5 station 006"},
      {"chl005", disk.Files[kFolder + "chl005"], "belongs to cruise 0801XX"}};
  for (const Row& row : rows) disk.Files[kFolder + row.file] = row.content;
  // These tell of no station.
  for (const char* name : {"chl001.prn", "chl001.htm", "chl001Base", "chl001Base11242026030000", "notes.txt"})
    disk.Files[kFolder + Lower(name)] = whole;
  disk.Files[kFolder + "sub\\chl090"] = whole;

  const Cruise cruise = ReadCruise(disk, kFolder);
  EXPECT_EQ(cruise.Name, "0707SL");
  std::string order;
  for (const StationFile& station : cruise.Stations) order += station.ProcNum + " ";
  EXPECT_EQ(order, "003 002 001 004 006 ");
  ASSERT_EQ(cruise.Left.size(), std::size(rows));
  for (const Row& row : rows) {
    const auto found = std::find_if(cruise.Left.begin(), cruise.Left.end(),
                                    [&](const LeftOut& left) { return left.File == row.file; });
    ASSERT_NE(found, cruise.Left.end()) << row.file;
    EXPECT_NE(found->Reason.find(row.why), std::string::npos) << found->Reason;
  }
  EXPECT_EQ(ReadCruise(disk, kFolder, "0801XX").Stations.size(), 1U);
  EXPECT_TRUE(ReadCruise(disk, kFolder + "sub").Stations.empty());
  EXPECT_THROW(ReadCruise(disk, "q:\\nowhere\\"), RunTimeError);
  std::size_t reads = 0;
  ReadCruise(disk, kFolder, "", [&](std::size_t done, std::size_t) { return reads = done, done < 3; });
  EXPECT_EQ(reads, 3U);
}

}  // namespace kelp
