// SPDX-License-Identifier: GPL-3.0-or-later
// Base files: created, found, loaded, reloaded, and the next station.
#include <gtest/gtest.h>

#include <tuple>

#include "files/base_file.hpp"
#include "tests/support/finished_station.hpp"
#include "workflow/open_station.hpp"

namespace kelp {

namespace {

const std::string kHeader =
    "93.3 70\r\nZEPHOR\r\n0.0 0.0 0.0 0.0\r\n0.0 0.0 0.0 0.0\r\n002   1 0.00987 2.011\r\n";

std::string SampleLines(int count) {
  std::string lines;
  for (int i = 0; i < count; ++i) lines += "2 07    3  138 8 \r\n";
  return lines;
}

// The login of a program whose station file 002 holds this text.
struct Login : StationFiles {
  explicit Login(const std::string& baseFile = "") {
    if (!baseFile.empty()) file("chl002") = baseFile;
    Start(kelp);
    Click("frmMain", "Command1", 0);
  }
  void Ok() { Click("frmLogin", "cmdOK"); }
  void Create(const std::string& number, const std::string& samples, const std::string& bottle) {
    Answers({Answer::Yes});
    Ok();
    Type("frmCreateBase", "Text1", 0, number);
    Type("frmCreateBase", "Text1", 2, samples);
    Type("frmCreateBase", "Text1", 3, bottle);
    Click("frmCreateBase", "cmdCreateBase", 0);
  }
};

}  // namespace

TEST(BaseFile, IsCreatedWithTheSpacingOfItsFormat) {
  struct Row {
    const char* number;
    const char *samples, *bottle, *name, *line5, *last;
  };
  static constexpr Row kRows[] = {
      {"1234", "2", "99", "chl1234", "1234   2 0.00987 2.011", "2 100    3  138 8 "},
      {"7", "100", "", "chl007", "007  100 0.00987 2.011", "2 99    3  138 8 "},
      {"2", "0", "1", "chl002", "002   0 0.00987 2.011", "002   0 0.00987 2.011"}};
  for (const Row& row : kRows) {
    Login program;
    program.Create(row.number, row.samples, row.bottle);
    const auto lines = Lines(program.file(row.name));
    ASSERT_EQ(lines.size(), 5U + static_cast<std::size_t>(Val(row.samples))) << program.LastBox();
    EXPECT_EQ(lines[4] + lines.back(), std::string(row.line5) + row.last);
    EXPECT_EQ(program.run().SampCount, static_cast<int>(Val(row.samples)));
    EXPECT_EQ(program.file(row.name + std::string(".csv")), std::string(kReadLogHeader) + "\r\n");
  }
}

TEST(BaseFile, NothingIsWrittenAfterANoNorInABadPlace) {
  Login program;
  program.disk.FailBelow = "q:\\";
  program.Create("2", "1", "7");
  EXPECT_TRUE(Contains(program.LastBox(), "\\0707\\chl\\: no space left")) << program.LastBox();
  program.disk.FailBelow.clear();
  program.file("chl002") = "mine";
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    program.Answers({answer});
    program.Click("frmCreateBase", "cmdCreateBase", 0);
    EXPECT_EQ(program.file("chl002") == "mine", answer == Answer::No);
  }
}

TEST(BaseFile, LinesAndFieldsBeyondTheTableAreNamed) {
  const std::string subscript = "Subscript out of range\nQ:";
  const std::tuple<std::string, int, std::string> rows[] = {
      {kHeader, 0, ""},
      {kHeader + SampleLines(100), 100, ""},
      {kHeader + SampleLines(100) + "\n", -1, subscript},
      {kHeader + "2 07\n\n2 08 3 138 8\n", 3, ""},
      {kHeader + "1 2 3 4 5 6 7 8 9 10 11 12 13 14 \n", 1, ""},
      {kHeader + "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15\n", -1, subscript},
      {kHeader + " 2 07\n", -1, "Invalid procedure call\nQ:"},
      {"93.3 70\r\nZEPHOR\r\n", -1, "File error\nQ:"}};
  for (const auto& [text, samples, message] : rows) {
    Login program(text);
    program.run().SampTbl(5, 1) = "kept";
    program.Ok();
    EXPECT_TRUE(StartsWith(program.LastBox(), message)) << program.LastBox();
    EXPECT_EQ(program.platform.Boxes.empty(), samples >= 0);
    EXPECT_EQ(program.run().SampTbl(5, 1) == "kept", samples < 0) << "the open station stays open";
    EXPECT_TRUE(samples < 0 || program.run().SampCount == samples);
    EXPECT_EQ(program.file("chl002"), text);
  }
}

TEST(BaseFile, ASearchTakesTheNumberFromTheNameChosen) {
  for (const auto& [name, number] : {std::pair<std::string, std::string>{"chl801", "801"},
                                     {"chl1234", "234"},
                                     {"chl801Base", "801"},
                                     {"chl801.csv", "002"}}) {
    Login program;
    program.file(name) = kHeader + SampleLines(2);
    program.Answers({Answer::No});
    program.platform.QueueFile(kChl + name);
    program.Ok();
    EXPECT_EQ(program.run().ProcNum, number) << name;
    EXPECT_EQ(Contains(program.LastBox(), "is no base file"), name == "chl801.csv") << program.LastBox();
  }
}

TEST(BaseFile, ReloadingTheKeptCopyRunsTheStationAnew) {
  FinishedStation program(2);
  program.Save();
  StationFiles again;
  again.Reopen(program);
  again.Click("frmRecalc", "Command1", 1);
  EXPECT_EQ(again.run().StepName, "RELOAD");
  EXPECT_EQ(again.run().BaseFile, "Q:\\vault\\2007\\0707\\chl\\chl002Base");
  EXPECT_EQ(again.kelp.Shown, std::vector<std::string>{"frmAcquire"});
  EXPECT_EQ(again.cell(1, kColRb), "");
  again.cell(1, kColRb) = "9.0000";
  again.Save();
  EXPECT_EQ(again.run().BaseFile, "Q:\\vault\\2007\\0707\\chl\\chl002");
  EXPECT_TRUE(Contains(again.file("chl002"), " 9.0000 "));
  EXPECT_EQ(again.file("chl002Base"), program.file("chl002Base"));
  EXPECT_EQ(again.file("chl002Base11242026030000"), program.file("chl002")) << "the first run's results";
  EXPECT_TRUE(StartsWith(again.file("chl002.prn"), program.file("chl002.prn"))) << "the data append";
}

TEST(BaseFile, RecalculationNumbersVialsAndTakesTheBlankTyped) {
  FinishedStation program(5);
  program.Save();
  StationFiles again;
  again.Reopen(program);
  again.Type("frmRecalc", "Text1", 0, "21");
  again.Type("frmRecalc", "Text1", 1, "1.0");
  again.Click("frmRecalc", "Command1", 0);
  EXPECT_EQ(again.run().StepName, "RECALC");
  EXPECT_EQ(again.cell(1, kColVial) + again.cell(5, kColVial), "2125");
  EXPECT_EQ(again.cell(1, kColAcidR), "4.00") << "(3 - 1) / (1.5 - 1)";
  EXPECT_EQ(again.kelp.Shown.front(), "frmWhatsNext");
  again.Save();
  EXPECT_TRUE(Contains(again.file("chl002"), "begin/end: 1.0/0.0054"));
}

TEST(BaseFile, TheNextStationTakesTheNumberTypedAndNothingWhenItIsRefused) {
  FinishedStation program(2);
  program.form().txtBlank[kBoxEndBlank].Text = program.run().EndBlankText = "";
  program.file("chl042") = kHeader + SampleLines(2);
  program.file("chl043") = kHeader + " 2\r\n";
  program.Type("frmAcquire", "txtStaInfo", 0, "42");
  OpenNextStation(program.kelp);
  EXPECT_EQ(program.run().ProcNum, "042");
  EXPECT_EQ(program.run().BeginBlankText, "0.0050") << "without an end blank the begin blank is kept";
  EXPECT_EQ(program.form().StatusBar1.Text, "End values moved to beginning");
  const std::string grid = program.cell(1, kColVial);
  program.form().txtBlank[kBoxLowStandard].Text = "0.5";
  EXPECT_THROW(OpenNextStation(program.kelp), RunTimeError);
  EXPECT_EQ(program.run().ProcNum + program.form().txtStaInfo[kStaProcNum].Text, "042042");
  EXPECT_EQ(program.cell(1, kColVial), grid);
  EXPECT_EQ(program.form().txtBlank[kBoxLowStandard].Text, "0.5");
}

TEST(BaseFile, SamplesAreAddedUpTo100) {
  FinishedStation program(99);
  program.cell(99, kColBottle) = "12";
  AddSample(program.kelp);
  EXPECT_EQ(program.cell(100, kColBottle) + "," + program.cell(100, kColVial), "13,101");
  program.Answers({Answer::Ok});
  AddSample(program.kelp);
  EXPECT_EQ(program.LastBox(), "100 Samples is max!  Split your samples into separate runs...");
  program.Save();
  EXPECT_TRUE(Contains(program.file("chl002"), "\r\n002  100 "));
}

}  // namespace kelp
