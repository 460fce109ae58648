// The station's record: what was accepted once is never lost, whatever becomes of files, disks and answers.
// Named after the ways in which the first version lost readings.
#include <gtest/gtest.h>

#include "record/database.hpp"
#include "record/old_journal.hpp"
#include "record/record.hpp"
#include "tests/support/finished_station.hpp"

namespace kelp {

namespace {

const std::string kRecord = "c:\\kelp\\record.db";
const std::string kBase002 = "q:\\vault\\2007\\0707\\chl\\chl002";

void TakeByHand(Program& program, double value) {
  program.Click("frmAcquire", "Command1");
  program.Read(value, 10);
  program.Click("frmAcquire", "Command1");
}

// Blank and copros, sample 1 read, sample 2 skipped with a remark, the Rb of sample 3: then the power goes.
void RunUntilPowerCut(Program& program) {
  program.OpenStation(4);
  program.Click("frmAcquire", "Command1");
  for (const double value : {0.005, 1.53, 5.03, 2.0, 1.0}) TakeByHand(program, value);
  program.Key("frmAcquire", kKeyF1 + 8);
  program.Type("dlgRunRem", "Text1", -1, "torn filter*, 50% left");
  program.Click("dlgRunRem", "Option1", 3);
  program.Click("dlgRunRem", "OKButton");
  Tick(program.kelp);
  program.Click("frmAcquire", "Command5");
  program.Click("frmAcquire", "Command1");
  program.Read(3.0, 10);
  program.Click("frmAcquire", "Command1");
  ASSERT_EQ(program.caption(), "Acidify");
}

void GoOn(Program& again, const MemoryDisk& disk, std::initializer_list<Answer> answers = {Answer::Yes}) {
  again.disk.Files = disk.Files, again.disk.Folders = disk.Folders;
  again.Answers(answers);
  Start(again.kelp);
  again.Click("frmMain", "Command1", 0);
  again.Click("frmLogin", "cmdOK");
}

void ExpectSameValues(Program& again, Program& before) {
  ExpectSameGrid(again, before);
  for (int box = 0; box < 10; ++box)
    EXPECT_EQ(again.form().txtBlank[box].Text, before.form().txtBlank[box].Text) << box;
}

bool Unsafe(Program& program) {
  EXPECT_EQ(program.kelp.record.Unsafe,
            StartsWith(program.form().StatusBar1.Text, "READINGS ARE NOT SAFE ON THE DISK"));
  return program.kelp.record.Unsafe;
}

// Ends the first station, and the program dies in the second one before its first reading.
void RunIntoSecondStation(Program& program) {
  program.disk.Files[kBase002.substr(0, kBase002.size() - 1) + "3"] =
      "90.90 80\r\nZEPHOR\r\n0.0 0.0 0.0 0.0\r\n0.0 0.0 0.0 0.0\r\n003   1 0.00987 2.011\r\n2 07    3  138 8 \r\n";
  program.OpenStation(1);
  program.Click("frmAcquire", "Command1");
  for (const double value : {0.005, 1.53, 5.03, 2.0, 1.0}) TakeByHand(program, value);
  program.Click("frmWhatsNext", "Option1", 0);
  program.Click("frmWhatsNext", "NextButton");
  ASSERT_EQ(program.run().ProcNum, "003");
}

}  // namespace

TEST(Record, APowerCutLosesNothingAndTheRunGoesOnAtTheAcid) {
  Program program;
  RunUntilPowerCut(program);
  Program again;
  GoOn(again, program.disk);
  EXPECT_EQ(again.LastBox(),
            "Station 002 (93.3 70) has 9 values that are not saved, the last of 11/24/2026 03:01:00. "
            "Go on with it? Y/N");
  EXPECT_FALSE(again.platform.Boxes.back().message.DefaultNo);
  ExpectSameValues(again, program);
  EXPECT_EQ(again.caption(), "&Start");
  again.Click("frmAcquire", "Command1");
  EXPECT_EQ(again.caption(), "Acidify");
  TakeByHand(again, 1.5);
  EXPECT_EQ(again.cell(3, kColAcidR), "2.00");
  EXPECT_EQ(again.caption(), "Load Next Sample");
  // The restored station crashes too, now behind the last sample.
  TakeByHand(again, 2.5);
  TakeByHand(again, 1.5);
  ASSERT_EQ(again.caption(), "What's Next");
  Program third;
  GoOn(third, again.disk);
  ExpectSameValues(third, again);
  third.Click("frmAcquire", "Command1");
  EXPECT_EQ(third.caption(), "What's Next");
  EXPECT_TRUE(third.kelp.frmWhatsNext.Form.Visible);
  // The history names who, when, how, before and after.
  std::string history;
  for (const std::string& line : ListRecord(third.disk, "2")) history += line + "\n";
  EXPECT_TRUE(Contains(history, "11/24/2026 03:00:40  TQB   bench       Rb of sample 1, bottle 07: empty -> "
                                "2.0000 (by hand, 10 reads, SD 0.0000)\n"))
      << history;
  EXPECT_TRUE(Contains(history, "gone on with after an interruption\n"));
  EXPECT_THROW(ListRecord(third.disk, "9"), FileError);
}

TEST(Record, UndoGoesBackStepByStepToTheLoadAlsoAfterACrash) {
  Program program;
  const auto values = [](Program& p) {
    std::string all = p.run().StepName + "|" + std::to_string(int{p.run().SampNum}) + "|" +
                      std::to_string(int{p.run().SampCount}) + "|" + p.run().BeginBlankText + "|";
    for (int row = 1; row <= 6; ++row)
      for (int col = 0; col < 14; ++col) all += p.cell(row, col) + "," + p.run().SampTbl(row + 4, col) + ",";
    for (const TextBox& box : p.form().txtBlank) all += box.Text + ",";
    return all;
  };
  program.OpenStation(3);
  EXPECT_FALSE(program.form().cmdUndo.Enabled);
  program.Click("frmAcquire", "Command1");
  std::vector<std::string> states;
  const auto doing = [&](const auto& what) {
    states.push_back(values(program));
    what();
  };
  for (const double value : {0.005, 1.53, 5.03, 2.0, 1.0}) {
    program.Click("frmAcquire", "Command1");
    program.Read(value, 10);
    doing([&] { program.Click("frmAcquire", "Command1"); });
  }
  program.form().txtReading.Text = "0.0004";
  doing([&] { program.Key("frmAcquire", kKeyF1 + 6); });
  EXPECT_EQ(program.form().cmdUndo.ToolTipText, "Takes back Ra of sample 1, bottle 07: 1.0000 -> 0.0004 (F7)");
  doing([&] { program.Click("frmAcquire", "Command5"); });
  doing([&] { program.Click("frmWhatsNext", "Option1", 1), program.kelp.frmWhatsNext.Form.Visible = true,
              program.Click("frmWhatsNext", "Option1", 1), program.Click("frmWhatsNext", "NextButton"); });
  ASSERT_EQ(int{program.run().SampCount}, 4);
  // Characters typed into one cell are one doing.
  Post(program.kelp, {EventKind::SelectCell, {"frmAcquire", "datalog"}, "", 0, 2, kColDepth});
  doing([&] {
    for (const int key : {'1', '0'}) program.Key("frmAcquire", key);
  });
  ASSERT_EQ(program.cell(2, kColDepth), "310");
  Program again;
  GoOn(again, program.disk);
  EXPECT_EQ(again.form().cmdUndo.ToolTipText, program.form().cmdUndo.ToolTipText);
  for (Program* one : {&program, &again})
    for (std::size_t i = states.size(); i-- > 0;) {
      ASSERT_TRUE(one->Click("frmAcquire", "cmdUndo")) << i;
      EXPECT_EQ(values(*one), states[i]) << i << one->form().StatusBar1.Text;
      EXPECT_TRUE(StartsWith(one->form().StatusBar1.Text, "Taken back: ")) << i;
      EXPECT_FALSE(StartsWith(one->caption(), "Save")) << "the readings are gone: " << one->caption();
    }
  EXPECT_FALSE(again.form().cmdUndo.Enabled);
  EXPECT_EQ(again.form().cmdUndo.ToolTipText, "Nothing to take back");
  // All is taken back: there is nothing to go on with.
  Program third;
  GoOn(third, again.disk, {});
  EXPECT_TRUE(third.platform.Boxes.empty()) << third.LastBox();
}

TEST(Record, Finding01ACutOffSectionOfAnOldJournalDoesNotHideTheWholeOneAndItIsTakenOverOnce) {
  const auto section = [](const std::string& rb, const std::string& rows) {
    std::string text;
    for (const std::string& line :
         {std::string("station 1 0 ") + kBase002, "SampCount 0 0 " + rows, "grid 1 3 " + rb, "table 5 7 " + rb,
          std::string("txtBlank 0 0 0.0050"), std::string("BeginBlankText 0 0 0.0050"),
          std::string("RunDate 0 0 11/23/2026,02:10:31"), std::string("SampNum 0 0 1")})
      text += OldJournalLine(line);
    return text;
  };
  Program program;
  program.OpenStation(2);
  const std::string cut = section("2.0000", "3");
  for (std::size_t length = 0; length < cut.size(); length += 17) {
    const std::string journal = section("2.0000", "2") + cut.substr(0, length);
    Program again;
    MemoryDisk disk = program.disk;
    disk.Files["d:\\backup\\chl002.jnl"] = journal;
    GoOn(again, disk);
    EXPECT_EQ(again.LastBox(), "Station 002 () has 2 values that are not saved, the last of 11/23/2026 02:10:31. "
                               "Go on with it? Y/N");
    ASSERT_EQ(again.cell(1, kColRb), "2.0000") << length;
    EXPECT_EQ(again.run().BeginBlankText, "0.0050");
    EXPECT_EQ(again.disk.Files["d:\\backup\\chl002.jnl.taken"], journal);
    EXPECT_FALSE(again.disk.Exists("d:\\backup\\chl002.jnl"));
  }
}

TEST(Record, Finding02ADatabaseThatCanNotBeUsedIsSetAsideAndCostsNoValue) {
  Program program;
  RunUntilPowerCut(program);
  const std::string whole = program.disk.Files[kRecord];
  std::string newer = whole;
  newer[63] = 9;  // the version of the record
  std::string other = whole;
  other[71] = 'X';  // whose database it is
  std::vector<std::pair<std::string, std::string>> cases = {{"a text", std::string(5000, 'x')},
                                                            {"newer", newer},
                                                            {"of another program", other}};
  for (std::size_t length = 1; length < whole.size(); length += whole.size() / 23)
    cases.emplace_back("cut at " + std::to_string(length), whole.substr(0, length));
  for (const auto& [what, content] : cases) {
    // It is so at the start, and it becomes so while the station runs.
    Program again;
    MemoryDisk disk = program.disk;
    disk.Files[kRecord] = content;
    for (int i = 0; i < 2; ++i) again.platform.QueueAnswer(i == 0 ? Answer::Ok : Answer::Yes);
    GoOn(again, disk, {});
    EXPECT_TRUE(again.disk.Exists("c:\\kelp\\record-20261124-030000.db")) << what;
    EXPECT_TRUE(again.disk.Files["c:\\kelp\\record-20261124-030000.db"] == content) << what;
    EXPECT_EQ(again.platform.Boxes.front().message.Title, "The record was set aside") << what;
    again.Click("frmAcquire", "Command1");
    TakeByHand(again, 0.006);
    EXPECT_FALSE(Unsafe(again)) << what;
    Program third;
    GoOn(third, again.disk);
    EXPECT_EQ(third.form().txtBlank[0].Text, again.form().txtBlank[0].Text) << what;
  }
  // A folder of that name; and a database that vanishes in the middle of a station.
  Program folder;
  MemoryDisk disk = program.disk;
  disk.Files.erase(kRecord);
  disk.Folders.insert(kRecord);
  GoOn(folder, disk, {Answer::Ok});
  folder.Click("frmAcquire", "Command1");
  TakeByHand(folder, 0.006);
  EXPECT_TRUE(Unsafe(folder)) << "a folder in memory can't be moved: the spare has the value";
  EXPECT_TRUE(folder.disk.Exists("d:\\backup\\record-bench.db"));
}

TEST(Record, Finding03LeavingAsksWhileSomethingIsNotOnTheDiskAndAnotherStationClearsNoWarning) {
  Program program;
  RunUntilPowerCut(program);
  for (const char* place : {"c:\\kelp\\record", "d:"}) {
    Program again;
    GoOn(again, program.disk);
    again.disk.FailBelow = place;
    again.Click("frmAcquire", "Command1");
    TakeByHand(again, 1.5);
    ASSERT_EQ(Unsafe(again), place[0] == 'c') << "with either place gone a value is on a disk";
    if (place[0] != 'c') continue;
    // F10, Quit, the window's frame and the login's Quit: No is the default, and nothing happens.
    for (const Event& way : {Event{.Kind = EventKind::Key, .Place = {"frmAcquire"}, .Key = kKeyF1 + 9},
                             Event{EventKind::Click, {"frmAcquire", "Command3"}},
                             Event{EventKind::Close, {"frmAcquire"}}}) {
      again.Answers({Answer::Yes, Answer::No});
      Post(again.kelp, way);
      EXPECT_EQ(again.platform.Boxes.back().message.Title, "Readings are not safe!");
      EXPECT_TRUE(again.platform.Boxes.back().message.DefaultNo);
      EXPECT_FALSE(again.kelp.Ended);
      EXPECT_EQ(again.cell(3, kColRa), "1.5000");
    }
    // Yes at F10: the values wait on, and the station set up anew does not end the alarm.
    again.Answers({Answer::Yes, Answer::Yes, Answer::Yes});
    again.Key("frmAcquire", kKeyF1 + 9);
    EXPECT_TRUE(Unsafe(again));
    again.disk.FailBelow.clear();
    again.Click("frmLogin", "cmdOK");
    EXPECT_FALSE(Unsafe(again));
    EXPECT_EQ(again.cell(3, kColRa), "1.5000");
  }
}

TEST(Record, Finding04NoSetsAsideAndTheStationCanBeRestoredLaterByItsNumber) {
  Program program;
  RunUntilPowerCut(program);
  Program again;
  // No where it is offered, and No again where it is opened.
  GoOn(again, program.disk, {Answer::No, Answer::No});
  EXPECT_EQ(again.cell(1, kColRb), "");
  Program third;
  GoOn(third, again.disk, {Answer::Yes});
  EXPECT_EQ(third.platform.Boxes.size(), 1U) << "it is not offered at the start, only where it is opened";
  ExpectSameValues(third, program);
  // F2 after a No saves an empty station; what was accepted is in the record for good.
  GoOn(again, program.disk, {Answer::No, Answer::No, Answer::Yes});
  again.Key("frmAcquire", kKeyF1 + 1);
  std::string history;
  for (const std::string& line : ListRecord(again.disk, "002")) history += line + "\n";
  EXPECT_TRUE(Contains(history, "Rb of sample 3, bottle 09: empty -> 3.0000"));
}

TEST(Record, Finding05And06CarriedValuesComeBackForTheSecondStationThatTheConfigurationDoesNotName) {
  Program program;
  RunIntoSecondStation(program);
  EXPECT_EQ(program.form().txtBlank[0].Text, "0.0050");
  // The configuration names station 004 by now, on another path and of another cruise.
  Program elsewhere;
  elsewhere.disk.Files = program.disk.Files;
  LoadConfig(elsewhere.kelp);
  for (const bool moved : {false, true}) {
    if (moved) elsewhere.Configure(kCfgDataPath, "Q:\\vault\\2026\\");
    if (moved) elsewhere.Configure(kCfgCruise, "2611XX");
    Program again;
    MemoryDisk disk = program.disk;
    disk.Files[Lower(kConfigPath)] = elsewhere.disk.Files[Lower(kConfigPath)];
    GoOn(again, disk);
    EXPECT_EQ(again.LastBox(),
              "Station 003 (90.90 80) has 3 values that are not saved, the last of 11/24/2026 03:00:50. "
              "Go on with it? Y/N");
    ExpectSameValues(again, program);
    EXPECT_EQ(again.run().BeginBlankText, "0.0050");
    EXPECT_EQ(again.run().ProcNum, "003");
    EXPECT_EQ(again.run().CruiseID, "0707SL");
    EXPECT_EQ(Lower(again.run().DbCsvFile), "q:\\vault\\2007\\0707\\chl\\0707slchldb.csv");
  }
  // A station of four digits, found by search: its path names it.
  Program four;
  four.disk.Files[kChl + "chl1234"] = program.disk.Files[kBase002];
  four.platform.QueueFile(kChl + "chl1234");
  four.LogIn({Answer::No});
  four.Click("frmAcquire", "Command1");
  TakeByHand(four, 0.006);
  Program again;
  GoOn(again, four.disk);
  EXPECT_EQ(again.form().txtBlank[0].Text, "0.0060");
  EXPECT_EQ(Lower(again.run().CsvFile), kChl + "chl1234.csv");
}

TEST(Record, Finding07And08ANewerBaseFileIsToldAndAnotherMachinesReadingsAreNotOffered) {
  Program program;
  RunUntilPowerCut(program);
  MemoryDisk shared = program.disk;
  shared.Files[kBase002] += "2 11    3  138 8 \r\n";
  Program again;
  GoOn(again, shared, {Answer::No, Answer::No});
  const Message& question = again.platform.Boxes.front().message;
  EXPECT_TRUE(Contains(question.Text, "Its base file was written after that, by another machine")) << question.Text;
  EXPECT_TRUE(question.DefaultNo);

  // The other machine has its own c:, and the shares. It is told that the station is open here.
  Program other;
  other.platform.Machine = "LAB2";
  for (const auto& [path, text] : program.disk.Files)
    if (path[0] != 'c') other.disk.Files[path] = text;
  other.Answers({Answer::No});
  Start(other.kelp);
  other.Click("frmMain", "Command1", 0);
  other.Click("frmLogin", "cmdOK");
  EXPECT_TRUE(Contains(other.LastBox(), "chl002 is open on bench (user analyst, 11/24/2026 03:0")) << other.LastBox();
  EXPECT_TRUE(other.platform.Boxes.back().message.DefaultNo);
  EXPECT_EQ(other.run().CsvFile, "") << "after a No no station is open";
  // Yes opens it, without the first machine's readings; so does time.
  Program late;
  late.platform.Machine = "LAB2";
  late.disk.Files = other.disk.Files;
  late.platform.Advance(12 * 60'000);
  GoOn(late, late.disk, {});
  EXPECT_EQ(late.cell(1, kColRb), "");
  EXPECT_NE(late.run().CsvFile, "");
}

TEST(Record, Finding09WhileTheRecordCanNotBeWrittenTheValuesAreBesideTheTemporaryCopy) {
  Program program;
  RunUntilPowerCut(program);
  program.disk.FailBelow = "c:\\kelp\\record";
  program.Click("frmAcquire", "Command1");
  program.Read(1.5, 10);
  program.Click("frmAcquire", "Command1");
  EXPECT_TRUE(Contains(program.kelp.Warning, "they are in D:\\backup\\record-bench.db meanwhile"))
      << program.kelp.Warning;
  SetStatus(program.kelp, "something else");
  EXPECT_TRUE(Unsafe(program));
  Program again;
  GoOn(again, program.disk);
  ExpectSameValues(again, program);
  EXPECT_TRUE(again.disk.Exists("d:\\backup\\record-bench.db.taken"));
  // The same program goes on: it mends itself, and nothing is there twice afterwards.
  program.disk.FailBelow.clear();
  Tick(program.kelp);
  EXPECT_FALSE(Unsafe(program));
  EXPECT_TRUE(StartsWith(program.form().StatusBar1.Text, "Readings are safe on the disk again"));
  Program third;
  GoOn(third, program.disk);
  int found = 0;
  for (const std::string& line : ListRecord(third.disk, "2")) found += Contains(line, "empty -> 1.5000") ? 1 : 0;
  EXPECT_EQ(found, 1);
  // The database vanishes in the middle: it is begun anew with the whole station.
  Program fourth;
  GoOn(fourth, program.disk);
  fourth.disk.Files.erase(kRecord);
  fourth.disk.FailBelow = kRecord;
  fourth.Click("frmAcquire", "Command5");
  fourth.disk.FailBelow.clear();
  fourth.disk.Files.erase("d:\\backup\\record-bench.db");
  fourth.Key("frmAcquire", kKeyTab);
  Program fifth;
  GoOn(fifth, fourth.disk);
  ExpectSameValues(fifth, fourth);
}

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
  const std::pair<const char*, const char*> remarks[] = {
      {"a \"torn\" one", "a 'torn' one"}, {"=1+2", "'=1+2"}, {"+CMD", "'+CMD"}, {"@SUM(A1)", "'@SUM(A1)"},
      {"-cmd", "'-cmd"},                  {"-99.000", "-99.000"}, {"-.", "'-."}, {" =1", "'=1"}};
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
  ShowScreen(program.kelp, "frmCreateBase");
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
  program.run().RunDate = "11/24/2026,03:10:00";
  program.Save();
  EXPECT_TRUE(Contains(program.form().StatusBar1.Text, "no rows were added")) << program.form().StatusBar1.Text;
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
