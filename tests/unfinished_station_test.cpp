// SPDX-License-Identifier: GPL-3.0-or-later
// Unfinished stations are offered, wherever they lie and whatever came between; what can't be written is
// kept. Named after the ways in which the first version lost readings.
#include <gtest/gtest.h>

#include "tests/support/interrupted_station.hpp"

namespace kelp {

TEST(Record, Finding03LeavingAsksWhileSomethingIsNotOnTheDiskAndAnotherStationClearsNoWarning) {
  Program program;
  RunUntilPowerCut(program);
  for (const char* place : {"c:\\kelp\\record", "d:"}) {
    Resumed again(program.disk);
    again.disk.FailBelow = place;
    again.Click("frmAcquire", "Command1");
    TakeByHand(again, 1.5);
    ASSERT_EQ(Unsafe(again), place[0] == 'c') << "with either place gone a value is on a disk";
    if (place[0] != 'c') continue;
    // F10, Quit, the window's frame and the login's Quit: No is the default, and nothing happens.
    for (const Event& way :
         {Event{.Kind = EventKind::Key, .Place = {"frmAcquire"}, .Key = kKeyF1 + 9},
          Event{EventKind::Click, {"frmAcquire", "Command3"}}, Event{EventKind::Close, {"frmAcquire"}}}) {
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
  // No where it is offered, and No again where it is opened.
  Resumed again(program.disk, {Answer::No, Answer::No});
  EXPECT_EQ(again.cell(1, kColRb), "");
  Resumed third(again.disk, {Answer::Yes});
  EXPECT_EQ(third.platform.Boxes.size(), 1U) << "it is not offered at the start, only where it is opened";
  ExpectSameValues(third, program);
  // F2 after a No saves an empty station; what was accepted is in the record for good.
  again.LogIn({Answer::No, Answer::No, Answer::Yes}, &program.disk);
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
    MemoryDisk disk = program.disk;
    disk.Files[Lower(kConfigPath)] = elsewhere.disk.Files[Lower(kConfigPath)];
    Resumed again(disk);
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
  Resumed again(four.disk);
  EXPECT_EQ(again.form().txtBlank[0].Text, "0.0060");
  EXPECT_EQ(Lower(again.run().CsvFile), kChl + "chl1234.csv");
}

TEST(Record, Finding07And08ANewerBaseFileIsToldAndAnotherMachinesReadingsAreNotOffered) {
  Program program;
  RunUntilPowerCut(program);
  MemoryDisk shared = program.disk;
  shared.Files[kBase002] += "2 11    3  138 8 \r\n";
  Resumed again(shared, {Answer::No, Answer::No});
  const Message& question = again.platform.Boxes.front().message;
  EXPECT_TRUE(Contains(question.Text, "Its base file was written after that, by another machine"))
      << question.Text;
  EXPECT_TRUE(question.DefaultNo);

  // The other machine has its own c:, and the shares. It is told that the station is open here.
  Program other;
  other.platform.Machine = "LAB2";
  for (const auto& [path, text] : program.disk.Files)
    if (path[0] != 'c') other.disk.Files[path] = text;
  other.LogIn({Answer::No});
  EXPECT_TRUE(Contains(other.LastBox(), "chl002 is open on bench (user analyst, 11/24/2026 03:0"))
      << other.LastBox();
  EXPECT_TRUE(other.platform.Boxes.back().message.DefaultNo);
  EXPECT_EQ(other.run().CsvFile, "") << "after a No no station is open";
  // Yes opens it, without the first machine's readings; so does time.
  Program late;
  late.platform.Machine = "LAB2";
  late.disk.Files = other.disk.Files;
  late.platform.Advance(12 * 60'000);
  late.LogIn({});
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
  Resumed again(program.disk);
  ExpectSameValues(again, program);
  EXPECT_TRUE(again.disk.Exists("d:\\backup\\record-bench.db.taken"));
  // The same program goes on: it mends itself, and nothing is there twice afterwards.
  program.disk.FailBelow.clear();
  Tick(program.kelp);
  EXPECT_FALSE(Unsafe(program));
  EXPECT_TRUE(StartsWith(program.form().StatusBar1.Text, "Readings are safe on the disk again"));
  Resumed third(program.disk);
  int found = 0;
  for (const std::string& line : ListRecord(third.disk, "2"))
    found += Contains(line, "empty -> 1.5000") ? 1 : 0;
  EXPECT_EQ(found, 1);
  // The database vanishes in the middle: it is begun anew with the whole station.
  Resumed fourth(program.disk);
  fourth.disk.Files.erase(kRecord);
  fourth.disk.FailBelow = kRecord;
  fourth.Click("frmAcquire", "Command5");
  fourth.disk.FailBelow.clear();
  fourth.disk.Files.erase("d:\\backup\\record-bench.db");
  fourth.Key("frmAcquire", kKeyTab);
  Resumed fifth(fourth.disk);
  ExpectSameValues(fifth, fourth);
}

}  // namespace kelp
