// Base files: created, found, loaded, reloaded, and the next station.
#include <gtest/gtest.h>

#include "files/base_file.hpp"
#include "tests/support/finished_station.hpp"

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
  void Create(const std::vector<std::string>& boxes) {
    Answers({Answer::Yes});
    Ok();
    for (std::size_t i = 0; i < boxes.size(); ++i)
      if (boxes[i] != "=") Type("frmCreateBase", "Text1", static_cast<int>(i), boxes[i]);
    Click("frmCreateBase", "cmdCreateBase", 0);
  }
};

}  // namespace

TEST(BaseFile, IsCreatedFromTheLogSheet) {
  struct Row {
    std::vector<std::string> boxes;
    const char* name;
    std::string line5;
    const char* last;
    bool labCal;
  };
  const Row rows[] = {
      {{"7", " 93.3 70 ", "12", "7"}, "chl007", "007  12 0.00987 2.011", "2 18    3  138 8 ", false},
      {{"801", "calibration", "9", "1"}, "chl801", "801   9 0.00987 2.011", "2 09    3  138 8 ", true},
      {{"1234", "SURFX", "2", "99"}, "chl1234", "1234   2 0.00987 2.011", "2 100    3  138 8 ", false},
      {{"007", "Labor", "100", "=", "21"}, "chl007", "007  100 0.00987 2.011", "2 106    3  138 8 ", true},
      {{"=", "a", "0"}, "chl002", "002   0 0.00987 2.011", "002   0 0.00987 2.011", false}};
  for (const Row& row : rows) {
    Login program;
    program.Create(row.boxes);
    const auto lines = Lines(program.file(row.name));
    ASSERT_EQ(lines.size(), 5U + static_cast<std::size_t>(Val(row.boxes[2]))) << program.LastBox();
    EXPECT_EQ(lines[0], Trim(row.boxes[1]));
    EXPECT_EQ(lines[1] + lines[2] + lines[3], "ZEPHOR0.0 0.0 0.0 0.00.0 0.0 0.0 0.0");
    EXPECT_EQ(lines[4], row.line5);
    EXPECT_EQ(lines.back(), row.last);
    EXPECT_EQ(program.run().LabCalRun, row.labCal);
    EXPECT_EQ(program.run().SampCount, static_cast<int>(lines.size()) - 5);
    EXPECT_EQ(program.cell(1, kColVial), lines.size() == 5 ? "" : row.boxes.size() > 4 ? "21" : "2");
    EXPECT_EQ(program.file(row.name + std::string(".csv")), std::string(kReadLogHeader) + "\r\n");
    EXPECT_FALSE(program.kelp.frmCreateBase.Form.Visible);
  }
}

TEST(BaseFile, BadBoxesAndBadFoldersWriteNothing) {
  struct Row {
    std::vector<std::string> boxes;
    const char* message;
  };
  const Row rows[] = {{{"=", "a", "101"}, "Max number of samples is 100!"},
                      {{"..\\7", "a", "1"}, "ProcNum \"..\\7\" can't be part of a file name."},
                      {{" ", "a", "1"}, "ProcNum \"\" can't be"},
                      {{"=", "a", "2", "32767"}, "Overflow"}};
  for (const Row& row : rows) {
    Login program;
    program.Answers({Answer::Yes, Answer::Ok});
    program.platform.QueueAnswer(Answer::Ok);
    const auto files = program.disk.Files;
    program.Ok();
    for (std::size_t i = 0; i < row.boxes.size(); ++i)
      if (row.boxes[i] != "=") program.Type("frmCreateBase", "Text1", static_cast<int>(i), row.boxes[i]);
    program.Click("frmCreateBase", "cmdCreateBase", 0);
    EXPECT_TRUE(StartsWith(program.LastBox(), row.message)) << program.LastBox();
    EXPECT_EQ(program.disk.Files, files);
    EXPECT_TRUE(program.kelp.frmCreateBase.Form.Visible);
  }
  Login program;
  program.disk.FailBelow = "q:\\";
  program.Create({"=", "a", "1"});
  EXPECT_TRUE(Contains(program.LastBox(), "Q:\\vault\\2007\\0707\\chl\\: no space left"))
      << program.LastBox();
  program.disk.FailBelow.clear();
  program.file("chl002") = "mine";
  program.Answers({Answer::No});
  program.Click("frmCreateBase", "cmdCreateBase", 0);
  EXPECT_EQ(program.file("chl002"), "mine");
  program.Answers({Answer::Yes});
  program.Click("frmCreateBase", "cmdCreateBase", 0);
  EXPECT_EQ(Lines(program.file("chl002")).size(), 6U);
}

TEST(BaseFile, LinesAndFieldsBeyondTheTableAreNamed) {
  struct Row {
    std::string text;
    int samples;  // -1: refused
    const char* message;
  };
  const Row rows[] = {
      {kHeader, 0, ""},
      {kHeader + SampleLines(100), 100, ""},
      {kHeader + SampleLines(101), -1,
       "Subscript out of range\nQ:\\vault\\2007\\0707\\chl\\chl002, line 106:"},
      {kHeader + SampleLines(100) + "\n", -1, "Subscript out of range\n"},
      {kHeader + "2 07\n\n2 08 3 138 8\n", 3, ""},
      {kHeader + "1 2 3 4 5 6 7 8 9 10 11 12 13 14 \n", 1, ""},
      {kHeader + "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15\n", -1, "Subscript out of range\n"},
      {kHeader + " 2 07\n", -1, "Invalid procedure call\nQ:\\vault\\2007\\0707\\chl\\chl002, line 6:"},
      {"93.3 70\r\nZEPHOR\r\n", -1, "File error\nQ:\\vault\\2007\\0707\\chl\\chl002: has 2 lines"},
      {"\n", -1, "File error\n"}};
  for (const Row& row : rows) {
    Login program(row.text);
    program.run().SampTbl(5, 1) = "kept";
    program.Ok();
    if (row.samples < 0) {
      EXPECT_TRUE(StartsWith(program.LastBox(), row.message)) << program.LastBox();
      EXPECT_EQ(program.run().SampTbl(5, 1), "kept");
    } else if (program.kelp.frmRecalc.Form.Visible || program.platform.Boxes.empty()) {
      EXPECT_EQ(program.run().SampCount, row.samples);
    } else {
      ADD_FAILURE() << program.LastBox();
    }
    EXPECT_EQ(program.file("chl002"), row.text);
  }
}

TEST(BaseFile, AMissingOneIsCreatedSearchedForOrPassedOver) {
  Login passed;
  passed.file("chl004") = kHeader + SampleLines(2);
  passed.Answers({Answer::Cancel, Answer::Cancel});
  passed.Ok();
  EXPECT_EQ(passed.platform.Boxes.back().message.Text,
            "Q:\\vault\\2007\\0707\\chl\\chl003 not found!  Yes to create file, No to search, Cancel to load "
            "next sta.");
  EXPECT_EQ(passed.run().ProcNum + passed.form().txtStaInfo[kStaProcNum].Text, "004004");
  EXPECT_EQ(passed.run().BaseFile, "Q:\\vault\\2007\\0707\\chl\\chl004");

  struct Row {
    const char* name;
    const char* procNum;  // "": refused
  };
  static constexpr Row kRows[] = {
      {"chl801", "801"}, {"chl1234", "234"}, {"chl801Base", "801"}, {"chl801.csv", ""}};
  for (const Row& row : kRows) {
    Login program;
    program.file(row.name) = kHeader + SampleLines(2);
    program.Answers({Answer::No});
    program.platform.QueueFile(kChl + row.name);
    program.Ok();
    const bool refused = *row.procNum == '\0';
    EXPECT_EQ(program.run().ProcNum, refused ? "002" : row.procNum) << row.name;
    EXPECT_EQ(Contains(program.LastBox(), "is no base file"), refused) << program.LastBox();
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
  EXPECT_FALSE(again.kelp.frmRecalc.Form.Visible);
  EXPECT_EQ(again.kelp.Shown.front(), "frmAcquire");
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
  EXPECT_EQ(again.run().TubeNum, 25);
  EXPECT_EQ(again.form().txtStaInfo[kStaVial].Text, "21");
  EXPECT_EQ(again.cell(1, kColAcidR), "4.00") << "(3 - 1) / (1.5 - 1)";
  EXPECT_EQ(again.kelp.Shown.front(), "frmWhatsNext");
  EXPECT_FALSE(again.kelp.frmRecalc.Form.Visible);
  again.Save();
  EXPECT_TRUE(Contains(again.file("chl002"), "begin/end: 1.0/0.0054"));
}

TEST(BaseFile, TheNextStationTakesEndValuesAndTheNumberTyped) {
  FinishedStation program(2);
  for (const char* name : {"chl003", "chl042"}) program.file(name) = kHeader + SampleLines(2);
  OpenNextStation(program.kelp);
  EXPECT_EQ(program.run().BaseFile, "Q:\\vault\\2007\\0707\\chl\\Chl003") << "the capital C";
  EXPECT_EQ(program.run().BeginBlankText + program.run().EndBlankText, "0.0054");
  const char* boxes[] = {"0.0054", "0", "1.5290", "0", "5.0290", "0"};
  static constexpr int kBoxes[] = {0, 1, 6, 7, 8, 9};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(program.form().txtBlank[kBoxes[i]].Text, boxes[i]) << i;
  EXPECT_EQ(program.form().StatusBar1.Text, "End values moved to beginning");
  EXPECT_EQ(program.cell(1, kColVial), "4") << "the tubes go on";
  EXPECT_EQ(program.cell(1, kColRb), "");
  program.form().txtBlank[kBoxCopro1].Text = "1.5";
  program.Type("frmAcquire", "txtStaInfo", 0, "42");
  OpenNextStation(program.kelp);
  EXPECT_EQ(program.run().ProcNum, "042");
  EXPECT_EQ(program.run().BeginBlankText, "0.0054") << "without an end blank the begin blank is kept";
  EXPECT_EQ(program.form().txtBlank[kBoxCopro1].Text, "1.5");
  program.file("chl043") = kHeader + " 2\r\n";
  const std::string grid = program.cell(1, kColVial);
  EXPECT_THROW(OpenNextStation(program.kelp), RunTimeError);
  EXPECT_EQ(program.run().ProcNum + program.form().txtStaInfo[kStaProcNum].Text, "042042");
  EXPECT_EQ(program.cell(1, kColVial), grid);
}

TEST(BaseFile, SamplesAreAddedUpTo100) {
  FinishedStation program(99);
  program.cell(99, kColBottle) = "12";
  AddSample(program.kelp);
  EXPECT_EQ(program.cell(100, kColBottle) + "," + program.cell(100, kColVial), "13,101");
  EXPECT_EQ(program.run().SampNum, 100);
  EXPECT_EQ(program.caption(), "Load Added Sample");
  program.Answers({Answer::Ok});
  AddSample(program.kelp);
  EXPECT_EQ(program.LastBox(), "100 Samples is max!  Split your samples into separate runs...");
  program.Save();
  EXPECT_TRUE(Contains(program.file("chl002"), "\r\n002  100 "));
}

}  // namespace kelp
