// SPDX-License-Identifier: GPL-3.0-or-later
// A saved station opened again shows what was saved, and saved again gives the same files.
#include <gtest/gtest.h>

#include <random>
#include <tuple>

#include "files/table_field.hpp"
#include "tests/support/finished_station.hpp"

namespace kelp {

namespace {

const std::string kTexts[] = {"",       "-",        "--",       "_",        "see_note 2",   "two  blanks",
                              " first", "last ",    "\\",       "\\_",      "\\n",          "\\-",
                              "a,b;c",  "<b>&amp;", "\"it's\"", "tab\tbed", "\xC3\xA9\xFF", "br\neak",
                              "\r\n",   "7.1230"};

std::string HeaderTexts(Program& program) {
  static constexpr int kBlankBoxes[] = {0, 1, 6, 7, 8, 9};
  static constexpr int kHeaderBoxes[] = {kStaProcNum, kStaLineSta,  kStaFluorometer, kStaF,
                                         kStaTau,     kStaFiltDate, kStaFiltTime,    kStaAveBlank};
  std::string texts = program.form().Combo1.Text;
  for (const int box : kBlankBoxes) texts += "|" + program.form().txtBlank[box].Text;
  for (const int box : kHeaderBoxes) texts += "|" + program.form().txtStaInfo[box].Text;
  return texts + "|" + program.run().BeginBlankText + "|" + program.run().EndBlankText + "|" +
         program.run().RunDate;
}

}  // namespace

TEST(RoundTrip, EveryGeneratedStationComesBackCellForCellAndSavesTheSameFiles) {
  std::mt19937 random(7);
  for (const int samples : {1, 2, 3, 9, 10, 37, 99, 100, 5, 5, 5, 5}) {
    FinishedStation program(samples);
    // Every cell has a text or a number that some operator may have typed.
    for (int row = 1; row <= samples; ++row)
      for (int col = 0; col < program.form().datalog.Cols; ++col)
        program.cell(row, col) = kTexts[random() % std::size(kTexts)];
    program.form().txtStaInfo[kStaFluorometer].Text = "AWOL 2";
    program.Save();
    StationFiles again;
    again.Reopen(program);
    EXPECT_EQ(again.run().SampCount, samples);
    ExpectSameGrid(again, program);
    EXPECT_EQ(HeaderTexts(again), HeaderTexts(program));

    const std::string report = program.file("chl002.prn");
    again.Save();
    EXPECT_TRUE(again.run().ResultsSaved) << again.LastBox();
    for (const char* name : {"chl002", "chl002.htm", "chl002Base"})
      EXPECT_EQ(again.file(name), program.file(name)) << name;
    EXPECT_EQ(again.file("chl002Base11242026030000"), program.file("chl002"));
    EXPECT_EQ(again.file("chl002.prn"), report + report);
    EXPECT_EQ(again.file("0707SLChldb.csv"), program.file("0707SLChldb.csv")) << "the same rows only once";
  }
}

TEST(RoundTrip, FieldsHoldNoBlankAndTextsTypedByHandAreTakenAsTheyAre) {
  for (const std::string& text : kTexts) {
    const std::string field = FieldFromCell(text);
    EXPECT_TRUE(!field.empty() && field.find_first_of(" \r\n") == std::string::npos) << field;
    EXPECT_EQ(CellFromField(field), text) << field;
  }
  EXPECT_EQ(FieldFromCell("too dark"), "too_dark");
  EXPECT_EQ(CellFromField("c:\\data\\"), "c:\\data\\");
}

TEST(RoundTrip, UnreadValuesComeBackUnread) {
  static constexpr std::tuple<const char*, const char*, const char*> kRows[] = {
      {"0", "", ""}, {"-99.00", "", "2.0000"}, {"0.0000", "0.0000", ""}, {"0", "", nullptr}};
  for (const auto& [begin, beginText, rb] : kRows) {
    FinishedStation program(2);
    program.form().txtBlank[0].Text = begin;
    program.run().BeginBlankText = beginText;
    program.form().txtStaInfo[kStaAveBlank].Text = program.run().BeginBlankText.empty() ? "" : "0.0027";
    program.form().txtStaInfo[kStaFiltDate].Text = "";
    program.cell(1, kColRb) = rb != nullptr ? rb : "";
    // Saved before any reading, it was not run already.
    if (rb == nullptr) program.cell(1, kColRa) = program.cell(2, kColRb) = program.cell(2, kColRa) = "";
    program.Save();
    StationFiles again;
    again.Reopen(program);
    ExpectSameGrid(again, program);
    // A box that was never read is filed as missing, and comes back so.
    const std::string before = HeaderTexts(program);
    EXPECT_EQ(HeaderTexts(again), Replaced(before, "TQB|0|", "TQB|-99.00|"));
    EXPECT_EQ(again.kelp.frmRecalc.Form.Visible, rb != nullptr);
  }
}

}  // namespace kelp
