// SPDX-License-Identifier: GPL-3.0-or-later
// The station's record: what was accepted once is never lost and can be taken back, whatever becomes of its
// database. Named after the ways in which the first version lost readings.
#include <gtest/gtest.h>

#include "app/take_calibration.hpp"
#include "record/database.hpp"
#include "record/old_journal.hpp"
#include "record/places.hpp"
#include "record/run_so_far.hpp"
#include "record/sqlite.hpp"
#include "tests/support/interrupted_station.hpp"

namespace kelp {

TEST(Record, APowerCutLosesNothingAndTheRunGoesOnAtTheAcid) {
  Program program;
  RunUntilPowerCut(program);
  Resumed again(program.disk);
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
  Resumed third(again.disk);
  ExpectSameValues(third, again);
  third.Click("frmAcquire", "Command1");
  EXPECT_EQ(third.caption(), "What's Next");
  EXPECT_TRUE(third.kelp.frmWhatsNext.Form.Visible);
  // The history names who, when, how, before and after.
  std::string history;
  for (const std::string& line : ListRecord(third.disk, "2")) history += line + "\n";
  EXPECT_TRUE(Contains(history,
                       "11/24/2026 03:00:40  TQB   bench       Rb of sample 1, bottle 07: empty -> "
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
  EXPECT_EQ(program.form().cmdUndo.ToolTipText,
            "Takes back Ra of sample 1, bottle 07: 1.0000 -> 0.0004 (F7)");
  doing([&] { program.Click("frmAcquire", "Command5"); });
  doing([&] {
    program.Click("frmWhatsNext", "Option1", 1), program.kelp.frmWhatsNext.Form.Visible = true,
                                                 program.Click("frmWhatsNext", "Option1", 1),
                                                 program.Click("frmWhatsNext", "NextButton");
  });
  ASSERT_EQ(int{program.run().SampCount}, 4);
  // Characters typed into one cell are one doing.
  Post(program.kelp, {EventKind::SelectCell, {"frmAcquire", "datalog"}, "", 0, 2, kColDepth});
  doing([&] {
    for (const int key : {int{'1'}, int{'0'}}) program.Key("frmAcquire", key);
  });
  ASSERT_EQ(program.cell(2, kColDepth), "310");
  Resumed again(program.disk);
  EXPECT_EQ(again.form().cmdUndo.ToolTipText, program.form().cmdUndo.ToolTipText);
  for (Program* one : {&program, static_cast<Program*>(&again)})
    for (std::size_t i = states.size(); i-- > 0;) {
      ASSERT_TRUE(one->Click("frmAcquire", "cmdUndo")) << i;
      EXPECT_EQ(values(*one), states[i]) << i << one->form().StatusBar1.Text;
      EXPECT_TRUE(StartsWith(one->form().StatusBar1.Text, "Taken back: ")) << i;
      EXPECT_FALSE(StartsWith(one->caption(), "Save")) << "the readings are gone: " << one->caption();
    }
  EXPECT_FALSE(again.form().cmdUndo.Enabled);
  EXPECT_EQ(again.form().cmdUndo.ToolTipText, "Nothing to take back");
  // All is taken back: there is nothing to go on with.
  Resumed third(again.disk, {});
  EXPECT_TRUE(third.platform.Boxes.empty()) << third.LastBox();
}

TEST(Record, ACalibrationThatIsTakenOverIsInTheRecordWithWhatItReplaced) {
  Program program;
  program.OpenStation(2);
  program.Answers({Answer::No, Answer::Yes});
  for (const bool taken : {false, true})
    ASSERT_EQ(TakeCalibration(program.kelp, {"990 (cal)", 0.1052, 0.0003, 2.01, 0.01}), taken);
  const std::vector<std::string> list = ListRecord(program.disk, "");
  ASSERT_EQ(list.size(), 5U) << "the station, a heading and one line for each value";
  EXPECT_EQ(list[2], "Changes of the configuration");
  EXPECT_TRUE(StartsWith(list[3], "11/24/2026 03:00:00  TQB  ")) << list[3];
  EXPECT_TRUE(list[3].ends_with("F: 0.00987 -> 0.105200 (calibration of station 990 (cal))")) << list[3];
  EXPECT_TRUE(list[4].ends_with("tau: 2.011 -> 2.0100 (calibration of station 990 (cal))")) << list[4];
  for (const std::string& line : ListRecord(program.disk, "002")) EXPECT_FALSE(Contains(line, "0.1052"));
  // It neither is a station's value nor hides one.
  TakeByHand(program, 0.005);
  EXPECT_FALSE(Unsafe(program));
}

TEST(Record, Finding01ACutOffSectionOfAnOldJournalDoesNotHideTheWholeOneAndItIsTakenOverOnce) {
  const auto section = [](const std::string& rb, const std::string& rows) {
    std::string text;
    for (const std::string& line :
         {std::string("station 1 0 ") + kBase002, "SampCount 0 0 " + rows, std::string("grid 1 3 1.9999"),
          "grid 1 3 " + rb, "table 5 7 " + rb, std::string("txtBlank 0 0 0.0050"),
          std::string("BeginBlankText 0 0 0.0050"), std::string("RunDate 0 0 11/23/2026,02:10:31"),
          std::string("SampNum 0 0 1")})
      text += OldJournalLine(line);
    return text;
  };
  Program program;
  program.OpenStation(2);
  const std::string cut = section("2.0000", "3");
  for (std::size_t length = 0; length < cut.size(); length += 17) {
    const std::string journal = section("2.0000", "2") + cut.substr(0, length);
    MemoryDisk disk = program.disk;
    disk.Files["d:\\backup\\chl002.jnl"] = journal;
    Resumed again(disk);
    EXPECT_EQ(again.LastBox(),
              "Station 002 () has 2 values that are not saved, the last of 11/23/2026 02:10:31. "
              "Go on with it? Y/N");
    ASSERT_EQ(again.cell(1, kColRb), "2.0000") << length;
    EXPECT_EQ(again.run().BeginBlankText, "0.0050");
    EXPECT_EQ(again.disk.Files["d:\\backup\\chl002.jnl.taken"], journal);
    EXPECT_FALSE(again.disk.Exists("d:\\backup\\chl002.jnl"));
  }
}

TEST(Record, ARecordOfAnOlderKelpGivesEveryPlaceBackByItsName) {
  Program program;
  program.OpenStation(2);
  Database record(program.disk, kRecordPath);
  RecordedEvent event = record.AllEvents().back();
  event.Step = ++event.Uid;
  event.Kind = kStore;
  event.Values.clear();
  // These names are on the disks of ships.
  for (const std::string& word :
       Words("SampCount=2 SampNum=2 TubeNum=77 StepName=COPROS RunDate=11/23/2026 LabCalRun=1 "
             "CtdDate=11/22/2026 "
             "CtdTime=01:02:03 CastType=CTD BeginBlankText=.5 EndBlankText=.6 LowStdText=1.1 HighStdText=9.9 "
             "RbReading=2.5 RaReading=1.5 ReadFlag=1 RaAccepted=1 SecondCopro=1 TraceColor=255 "
             "Command1=Acidify "
             "Option1.Caption(1)=EndStnd Option1.Value(1)=1 Combo1=XY txtBlank(6)=1.53 txtStaInfo(3)=0.5 "
             "datalog(2,3)=2.5000 SampTbl(6,7)=2.5000")) {
    const std::string value = word.substr(word.find('=') + 1);
    event.Values.push_back({word.substr(0, word.find('=')), "", value, value});
  }
  record.Write({event});
  Resumed again(program.disk);
  UndoLast(again.kelp);
  Values now;
  VisitPlaces(again.kelp,
              [&](const KeptPlace& at, const auto& field) { now[TextOf(at)] = ValueText(field); });
  for (const RecordedValue& value : event.Values) EXPECT_EQ(now[value.Place], value.After) << value.Place;
}

// A database after somebody else's hands were in it.
static std::string Changed(const std::string& content, const char* sql) {
  Connection connection("record", {}, false);
  connection.Take(content);
  connection.Run(sql);
  return connection.Content();
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
                                                            {"of another program", other},
                                                            {"longer", whole + "x"}};
  const char* const numbersMayRepeat =
      "PRAGMA writable_schema=1; DELETE FROM sqlite_master WHERE name='sqlite_autoindex_event_1';"
      "UPDATE sqlite_master SET sql=replace(sql, ' UNIQUE', '') WHERE name='event'";
  const char* const repeated =
      "DROP TRIGGER event_no_replace; INSERT INTO event SELECT 99, uid, run, step, NULL, 'note', at, "
      "machine, analyst, station, number, name, cruise, how, NULL, NULL, mark, rows FROM event WHERE "
      "kind='load'";
  cases.emplace_back("with a number twice, longer",
                     Changed(Changed(whole, numbersMayRepeat), repeated) + "x");
  for (std::size_t length = 1; length < whole.size(); length += whole.size() / 23)
    cases.emplace_back("cut at " + std::to_string(length), whole.substr(0, length));
  for (const auto& [what, content] : cases) {
    // It is so at the start, and it becomes so while the station runs.
    MemoryDisk disk = program.disk;
    disk.Files[kRecord] = content;
    Resumed again(disk);
    EXPECT_TRUE(again.disk.Exists("c:\\kelp\\record-20261124-030000.db")) << what;
    EXPECT_TRUE(again.disk.Files["c:\\kelp\\record-20261124-030000.db"] == content) << what;
    EXPECT_EQ(again.platform.Boxes.back().message.Title, "The record was set aside") << what;
    EXPECT_TRUE(what.find("longer") == what.npos || again.cell(3, kColRb) == "3.0000")
        << "what can be read is taken over";
    again.Click("frmAcquire", "Command1");
    TakeByHand(again, 0.006);
    EXPECT_FALSE(Unsafe(again)) << what;
    Resumed third(again.disk);
    EXPECT_EQ(third.form().txtBlank[0].Text, again.form().txtBlank[0].Text) << what;
  }
  // A folder of that name; and a database that vanishes in the middle of a station.
  MemoryDisk disk = program.disk;
  disk.Files.erase(kRecord);
  disk.Folders.insert(kRecord);
  Resumed folder(disk, {Answer::Ok});
  folder.Click("frmAcquire", "Command1");
  TakeByHand(folder, 0.006);
  EXPECT_TRUE(Unsafe(folder)) << "a folder in memory can't be moved: the spare has the value";
  EXPECT_TRUE(folder.disk.Exists("d:\\backup\\record-bench.db"));
}

// Damage that the database takes without a word, in the middle of a station and at its begin.
TEST(Record, WhatDamageHidesIsWrittenAgainWhereItCanBeRead) {
  const char* const damages[] = {
      "CREATE TRIGGER lost BEFORE INSERT ON value BEGIN SELECT RAISE(IGNORE); END",
      "DROP TRIGGER event_no_update; UPDATE event SET station = 'elsewhere' WHERE kind = 'load'",
      "DROP TRIGGER event_no_update; UPDATE event SET kind = 'note' WHERE kind = 'load'",
      // An older copy of it was put back.
      "DROP TRIGGER event_no_delete; DROP TRIGGER value_no_delete;"
      "DELETE FROM value WHERE event = (SELECT max(id) FROM event);"
      "DELETE FROM event WHERE id = (SELECT max(id) FROM event)",
      "INSERT INTO event SELECT 99, 99, 99, 99, NULL, 'load', at, machine, analyst, station, number, name, "
      "cruise, how, "
      "NULL, NULL, mark, rows FROM event WHERE kind = 'load'",
  };
  for (const char* damage : damages) {
    SCOPED_TRACE(damage);
    Program program;
    RunUntilPowerCut(program);
    // The disk fails once, so that the record is opened anew with the next value.
    program.disk.FailBelow = "c:\\kelp";
    program.Type("frmAcquire", "txtBlank", 0, "0.006");
    EXPECT_TRUE(Unsafe(program));
    program.disk.FailBelow.clear();
    program.disk.Files[kRecord] = Changed(program.disk.Files[kRecord], damage);
    program.Click("frmAcquire", "Command1");
    TakeByHand(program, 1.5);
    EXPECT_FALSE(Unsafe(program)) << program.kelp.record.Trouble;
    Resumed again(program.disk);
    ExpectSameValues(again, program);
  }
}

}  // namespace kelp
