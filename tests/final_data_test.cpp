// SPDX-License-Identifier: GPL-3.0-or-later
// The final data: a table of published readings whose results were worked out to 60 digits by another
// program (Python's decimal module) from the formulas in docs/method.md, and its files.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/error.hpp"
#include "review/final_files.hpp"
#include "stage/memory_disk.hpp"

namespace kelp {

namespace {

// One reading with its constants, as texts, and what comes of it.
struct Row {
  std::string rb, ra, beginBlank, endBlank, f, tau, postF, postTau, filv, exv, depth;
  std::string chla, phaeo, ratio, flag, blank;
};

std::vector<Row> ReadRows() {
  std::ifstream file(KELP_SOURCE_DIR "/tests/data/final_data.csv");
  std::vector<Row> rows;
  std::string line;
  for (std::getline(file, line); std::getline(file, line);) {
    std::istringstream cells(line);
    std::string Row::*const columns[] = {&Row::rb,    &Row::ra,    &Row::beginBlank, &Row::endBlank,
                                         &Row::f,     &Row::tau,   &Row::postF,      &Row::postTau,
                                         &Row::filv,  &Row::exv,   &Row::depth,      &Row::chla,
                                         &Row::phaeo, &Row::ratio, &Row::flag,       &Row::blank};
    rows.emplace_back();
    for (const auto column : columns) std::getline(cells, rows.back().*column, ',');
  }
  return rows;
}

StationFile StationOf(const Row& row) {
  const auto box = [](const std::string& text) { return text.empty() ? "0" : text; };
  StationFile station;
  station.Path = "q:\\c\\chl001";
  station.ProcNum = "001";
  station.Cruise = "0707SL";
  station.Station = "93.3 70";
  station.F = row.f;
  station.Tau = row.tau;
  station.Blank = {box(row.beginBlank), row.endBlank.empty() ? "-99.00" : row.endBlank};
  StationSample sample;
  sample.Bottle = "07";
  sample.Rb = row.rb;
  sample.Ra = row.ra;
  sample.FilV = row.filv;
  sample.ExV = row.exv;
  sample.Depth = row.depth;
  station.Samples = {sample};
  return station;
}

std::optional<double> Number(const std::string& text) {
  return text.empty() ? std::nullopt : std::optional(Val(text));
}

std::string Cell(const FinalData& data, std::size_t row, const std::string& column) {
  return data.Rows.at(row).Cells.at(FinalColumnIndex(column));
}

}  // namespace

TEST(FinalData, AgreeToThePrintedDigitWithAnIndependentCalculation) {
  const std::vector<Row> rows = ReadRows();
  ASSERT_GE(rows.size(), 40U);
  for (const Row& row : rows) {
    const FinalData data =
        MakeFinalData({"q:\\c\\", "0707SL", {StationOf(row)}}, {Number(row.postF), Number(row.postTau)});
    ASSERT_EQ(data.Rows.size(), 1U);
    const std::pair<const char*, std::string> expected[] = {{"ChloroA", row.chla},
                                                            {"Phaeo", row.phaeo},
                                                            {"AR", row.ratio},
                                                            {"QCFlag", row.flag},
                                                            {"AverBlank", row.blank}};
    for (const auto& [column, text] : expected)
      EXPECT_EQ(Cell(data, 0, column), text) << column << " " << row.rb;
    EXPECT_EQ(Cell(data, 0, "PostCalF").empty(), row.postF.empty());
  }
}

TEST(FinalData, NamesEveryStationAndSampleThatHasNone) {
  const auto station = [](const char* procNum, auto change) {
    StationFile file = StationOf(ReadRows().at(1));
    file.Path = "q:\\c\\chl" + std::string(procNum);
    file.ProcNum = procNum;
    change(file);
    return file;
  };
  const Cruise cruise{
      "q:\\c\\",
      "0707SL",
      {station("001", [](StationFile& f) { f.Samples[0].Rb = "-99.000"; }),
       station("002",
               [](StationFile& f) {
                 f.Blank = {"-99.00", "0"};
               }),
       station("003", [](StationFile& f) { f.F = "0"; }), station("004", [](StationFile& f) { f.Tau = "1"; }),
       station("005", [](StationFile& f) { f.Station = "Lab Cal"; }),
       station("006", [](StationFile& f) { f.Samples[0].Ra = "0.0053"; }),
       station("007", [](StationFile& f) { f.Samples[0].Depth = "99999"; }),
       // A zeroed instrument's blank is a value; the table's blank serves where the boxes hold none.
       station("008",
               [](StationFile& f) {
                 f.Blank = {"0.0000", "0"};
               }),
       station("009",
               [](StationFile& f) {
                 f.Blank = {"0", "0"}, f.StoredBlank = "0.0050";
               })},
      {{"chl020", "is not whole"}}};
  const FinalData data = MakeFinalData(cruise, {});
  std::string rows;
  for (const FinalRow& row : data.Rows)
    rows += row.ProcNum + ":" + row.Cells[FinalColumnIndex("ChloroA")] + " ";
  EXPECT_EQ(rows, "001: 006: 007: 008:1.138 009:1.138 ");
  std::string left;
  for (const LeftOut& item : data.Left) left += item.File + " ";
  EXPECT_EQ(left, "chl020 chl002 chl003 chl004 chl005 ");
  ASSERT_EQ(data.Notes.size(), 3U);
  const std::string text = FinalDescription(cruise, data, {});
  for (const auto* list : {&data.Left, &data.Notes})
    for (const LeftOut& item : *list)
      EXPECT_NE(text.find(item.File + ": " + item.Reason), std::string::npos) << item.File;
  for (const FinalColumn& column : FinalColumns())
    EXPECT_NE(text.find(column.Description), std::string::npos);
}

// Any program that reads comma-separated values gets the cells back, and no cell becomes a formula.
TEST(FinalData, FilesAreQuotedWholeAndUtf8) {
  struct Cells {
    const char *remark, *field;
  };
  static constexpr Cells kCells[] = {{"torn, 50% left", "\"torn, 50% left\""},
                                     {"said \"clear\"", "\"said \"\"clear\"\"\""},
                                     {"=HYPERLINK(1)", "'=HYPERLINK(1)"},
                                     {"-99", "-99"},
                                     {"@x", "'@x"},
                                     {"a\r\nb", "a  b"},
                                     {"caf\xE9", "caf\xC3\xA9"},
                                     {"caf\xC3\xA9", "caf\xC3\xA9"},
                                     {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xC2\x80"}};
  MemoryDisk disk;
  Cruise cruise{"q:\\c\\", "0707SL"};
  for (const Cells& cells : kCells) {
    cruise.Stations.push_back(StationOf(ReadRows().at(1)));
    cruise.Stations.back().Samples[0].ReaderRemark = cells.remark;
  }
  const FinalData data = MakeFinalData(cruise, {});
  WriteFinalFiles(disk, FinalCsvPath(cruise), cruise, data, {});
  const std::string csv = disk.Files["q:\\c\\0707slfinal.csv"];
  const auto lines = Lines(csv);
  ASSERT_EQ(lines.size(), std::size(kCells) + 1);
  EXPECT_TRUE(csv.ends_with("\r\n"));
  EXPECT_NE(lines[0].find(",Depth [m],"), std::string::npos);
  for (std::size_t i = 0; i < std::size(kCells); ++i)
    EXPECT_TRUE(lines[i + 1].ends_with("," + std::string(kCells[i].field))) << lines[i + 1];
  EXPECT_TRUE(disk.Files.contains("q:\\c\\0707slfinal.txt"));
  EXPECT_THROW(WriteFinalFiles(disk, "q:\\c\\final.dat", cruise, data, {}), RunTimeError);
  // Written whole each time, or not at all.
  disk.FailAt = disk.Writes + 2;
  EXPECT_THROW(WriteFinalFiles(disk, FinalCsvPath(cruise), cruise, {}, {}), RunTimeError);
  EXPECT_EQ(disk.Files["q:\\c\\0707slfinal.csv"], csv);
}

}  // namespace kelp
