// SPDX-License-Identifier: GPL-3.0-or-later
// The final data: a table of published readings whose results were worked out to 60 digits by another
// program (Python's decimal module) from the formulas in docs/method.md, and its files.
#include <gtest/gtest.h>

#include "platform/error.hpp"
#include "review/final_files.hpp"
#include "tests/support/generated_cruise.hpp"
#include "tests/support/memory_disk.hpp"

namespace kelp {

namespace {

struct Row {
  const char *rb, *ra, *beginBlank, *endBlank, *f, *tau, *postF, *postTau, *filv, *exv, *depth;
  const char *chla, *phaeo, *ratio, *flag, *blank;
};

constexpr Row kRows[] = {
    {"100", "50", "0.0000", "", "0.109", "2.288", "", "", "138", "8", "10", "561.239", "161.637", "2.00", "",
     "0.00000"},
    {"2.0000", "1.0000", "0.0050", "0.0056", "0.00987", "2.011", "", "", "138", "8", "3", "1.138", "0.006",
     "2.01", "*", "0.00530"},
    {"4.5000", "2.5000", "0.0050", "0.0056", "0.00987", "2.011", "0.01010", "2.050", "138", "8", "3", "2.281",
     "0.651", "1.80", "", "0.00530"},
    {"0.0040", "0.0030", "0.0050", "", "0.00987", "2.011", "", "", "138", "8", "5", "-99.000", "-99.000",
     "-99.00", "****", "0.00500"},
    {"1.2000", "0.0030", "0.0050", "0.0060", "0.00987", "2.011", "", "", "138", "8", "90", "-99.000",
     "-99.000", "-99.00", "****", "0.00550"},
    {"1.0000", "0.6000", "", "0.0100", "0.00987", "2.011", "0.00990", "", "0", "0", "50", "0.456", "0.224",
     "1.68", "", "0.01000"},
    {"1.0000", "0.6000", "0.0100", "", "0.00987", "2.011", "", "2.100", "0", "10", "100", "0.557", "0.310",
     "1.68", "", "0.01000"},
    {"46.9000", "23.1000", "0.0350", "0.0150", "0.0123", "1.95", "0.0117", "1.99", "142", "10", "0", "40.847",
     "-2.432", "2.03", "", "0.02500"},
    {"43.4376", "44.9518", "0.0052", "", "0.12831", "1.712", "", "", "250", "8", "12", "-14.949", "330.894",
     "0.97", "****", "0.00520"},
    {"15.2466", "7.8531", "0.0083", "0.0072", "0.11237", "2.312", "", "2.371", "500", "8", "121", "23.202",
     "9.826", "1.94", "****", "0.00775"},
    {"20.5264", "13.3477", "0.0172", "0.0111", "0.07663", "2.351", "", "2.402", "138", "10", "3", "68.822",
     "107.134", "1.54", "*", "0.01415"},
    {"8.8472", "5.2119", "0.0237", "", "0.11067", "1.712", "0.10682", "", "138", "10", "3", "68.880", "1.112",
     "1.70", "", "0.02370"},
    {"3.3578", "1.7081", "0.0092", "", "0.12041", "1.863", "0.12041", "1.842", "142", "5.5", "80", "16.719",
     "-2.041", "1.97", "**", "0.00920"},
    {"17.4408", "10.7848", "0.0236", "", "0.09990", "2.286", "0.09633", "", "500", "10", "3", "23.217",
     "25.055", "1.62", "", "0.02360"},
    {"37.8081", "16.8098", "0.0090", "", "0.01113", "2.326", "", "2.326", "500", "10", "3", "8.199", "0.500",
     "2.25", "***", "0.00900"},
    {"22.5389", "13.9625", "0.0288", "0.0073", "0.09963", "2.014", "", "", "138", "8", "80", "98.385",
     "63.819", "1.62", "", "0.01805"},
    {"33.9292", "16.0088", "0.0022", "0.0281", "0.04349", "2.012", "0.04145", "2.057", "500", "8", "200",
     "23.948", "-1.837", "2.12", "****", "0.01515"},
    {"41.1624", "22.7035", "0.0006", "", "0.03712", "2.049", "0.03647", "2.060", "500", "10", "3", "26.466",
     "7.859", "1.81", "", "0.00060"},
    {"27.2385", "14.0919", "0.0022", "0.0056", "0.11272", "2.210", "0.11650", "2.188", "142", "10", "12",
     "194.605", "55.435", "1.93", "", "0.00390"},
    {"14.2160", "8.9310", "0.0187", "", "0.07692", "1.785", "", "1.742", "142", "5.5", "200", "36.368",
     "10.457", "1.59", "", "0.01870"},
    {"20.8137", "17.7332", "0.0166", "0.0187", "0.04595", "1.984", "", "", "138", "5.5", "100", "11.375",
     "52.993", "1.17", "", "0.01765"},
    {"26.4434", "12.5164", "0.0276", "", "0.06298", "2.123", "0.06589", "2.102", "250", "10", "38", "68.161",
     "-0.163", "2.12", "**", "0.02760"},
    {"2.7660", "1.2388", "0.0236", "", "0.01831", "2.152", "0.01863", "", "500", "5.5", "38", "0.580",
     "-0.048", "2.26", "***", "0.02360"},
    {"39.8127", "31.3229", "0.0260", "0.0021", "0.05783", "1.994", "", "2.002", "142", "10", "100", "69.219",
     "185.538", "1.27", "", "0.01405"},
    {"41.3831", "25.7865", "0.0025", "0.0086", "0.06079", "2.219", "", "", "500", "10", "81", "34.518",
     "35.035", "1.60", "", "0.00555"},
    {"40.4634", "34.0976", "0.0298", "", "0.08189", "2.022", "0.08149", "2.057", "500", "10", "100", "20.406",
     "93.113", "1.19", "", "0.02980"},
    {"18.2641", "9.9290", "0.0054", "", "0.12424", "2.015", "0.13011", "2.017", "142", "8", "38", "118.498",
     "24.841", "1.84", "", "0.00540"},
    {"34.2365", "20.6454", "0.0210", "", "0.09061", "1.926", "", "1.889", "250", "10", "12", "103.540",
     "39.048", "1.66", "", "0.02100"},
    {"13.7139", "7.1606", "0.0053", "0.0082", "0.04201", "2.014", "0.04392", "2.016", "138", "5.5", "41",
     "22.278", "2.406", "1.92", "*", "0.00675"},
    {"35.6661", "23.7295", "0.0186", "0.0245", "0.09290", "2.029", "", "2.067", "500", "8", "80", "34.672",
     "37.498", "1.50", "", "0.02155"},
    {"36.1680", "25.0483", "0.0102", "0.0104", "0.10199", "2.047", "", "", "138", "8", "120", "128.538",
     "174.492", "1.44", "", "0.01030"},
    {"31.6091", "24.1429", "0.0079", "0.0151", "0.02894", "1.864", "", "", "142", "5.5", "200", "18.055",
     "32.365", "1.31", "", "0.01150"},
    {"29.6641", "13.0163", "0.0162", "0.0233", "0.10379", "2.199", "", "", "138", "10", "3", "229.636",
     "-14.689", "2.28", "***", "0.01975"},
    {"10.0436", "6.9513", "0.0158", "0.0179", "0.07876", "1.922", "0.07999", "", "500", "8", "100", "8.187",
     "8.740", "1.45", "", "0.01685"},
    {"39.9297", "18.7719", "0.0128", "", "0.01410", "2.344", "0.01357", "", "138", "5.5", "81", "20.347",
     "3.899", "2.13", "****", "0.01280"},
    {"33.5623", "19.7417", "0.0050", "0.0163", "0.11842", "2.399", "", "2.402", "250", "5.5", "120", "61.715",
     "61.680", "1.70", "", "0.01065"},
    {"2.2173", "1.3425", "0.0178", "0.0239", "0.06576", "2.183", "", "2.169", "142", "5.5", "41", "4.123",
     "3.202", "1.66", "", "0.02085"},
    {"44.1664", "19.1591", "0.0255", "", "0.08734", "2.047", "0.08995", "2.100", "250", "10", "200",
     "171.271", "-30.596", "2.31", "****", "0.02550"},
    {"4.9262", "3.7026", "0.0283", "0.0077", "0.06105", "2.227", "0.06186", "", "500", "8", "200", "2.184",
     "5.885", "1.33", "", "0.01800"},
    {"37.5471", "36.6621", "0.0108", "0.0058", "0.03036", "1.779", "0.03091", "1.820", "250", "10", "38",
     "2.441", "78.385", "1.02", "****", "0.00830"},
    {"25.4974", "19.6270", "0.0157", "0.0271", "0.09975", "1.727", "", "", "500", "8", "100", "22.257",
     "31.782", "1.30", "", "0.02140"},
    {"15.0384", "12.6715", "0.0113", "", "0.07551", "2.208", "0.07927", "", "142", "8", "81", "18.862",
     "103.016", "1.19", "", "0.01130"},
    {"30.9989", "19.8028", "0.0264", "0.0205", "0.10988", "1.957", "0.10743", "", "142", "5.5", "12",
     "96.354", "66.548", "1.57", "*", "0.02345"},
    {"4.3314", "3.4531", "0.0098", "0.0133", "0.03308", "2.279", "0.03209", "2.268", "138", "8", "38",
     "2.962", "11.818", "1.26", "****", "0.01155"},
};

StationFile StationOf(const Row& row) {
  const auto box = [](const char* text) { return std::string(*text == '\0' ? "0" : text); };
  StationFile station;
  station.Path = "q:\\c\\chl001";
  station.ProcNum = "001";
  station.Cruise = "0707SL";
  station.Station = "93.3 70";
  station.F = row.f;
  station.Tau = row.tau;
  station.Blank = {box(row.beginBlank), *row.endBlank == '\0' ? "-99.00" : row.endBlank};
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

std::optional<double> Number(const char* text) {
  return *text == '\0' ? std::nullopt : std::optional(Val(text));
}

std::string Cell(const FinalData& data, std::size_t row, const std::string& column) {
  return data.Rows.at(row).Cells.at(FinalColumnIndex(column));
}

}  // namespace

TEST(FinalData, AgreeToThePrintedDigitWithAnIndependentCalculation) {
  static_assert(std::size(kRows) >= 40);
  for (const Row& row : kRows) {
    const FinalData data =
        MakeFinalData({"q:\\c\\", "0707SL", {StationOf(row)}}, {Number(row.postF), Number(row.postTau)});
    ASSERT_EQ(data.Rows.size(), 1U);
    const std::pair<const char*, const char*> expected[] = {{"ChloroA", row.chla},
                                                            {"Phaeo", row.phaeo},
                                                            {"AR", row.ratio},
                                                            {"QCFlag", row.flag},
                                                            {"AverBlank", row.blank}};
    for (const auto& [column, text] : expected)
      EXPECT_EQ(Cell(data, 0, column), text) << column << " " << row.rb;
    EXPECT_EQ(Cell(data, 0, "PostCalF").empty(), *row.postF == '\0');
  }
}

TEST(FinalData, NamesEveryStationAndSampleThatHasNone) {
  const auto station = [](const char* procNum, auto change) {
    StationFile file = StationOf(kRows[1]);
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

TEST(FinalData, RefuseConstantsThatCannotBe) {
  const std::pair<PostCalibration, const char*> rows[] = {{{0.0, {}}, "F after the cruise"},
                                                          {{-1.0, {}}, "F after"},
                                                          {{{}, 1.0}, "tau after"},
                                                          {{{}, 0.0}, "tau after"}};
  for (const auto& [post, field] : rows) {
    try {
      MakeFinalData({}, post);
      ADD_FAILURE() << field;
    } catch (const RunTimeError& error) {
      EXPECT_NE(std::string(error.what()).find(field), std::string::npos) << error.what();
    }
  }
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
    cruise.Stations.push_back(StationOf(kRows[1]));
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
