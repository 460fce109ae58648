// A crash in the middle of a station: what the journal gives back, whatever became of it.
#include <gtest/gtest.h>

#include "files/journal_text.hpp"
#include "tests/support/finished_station.hpp"

namespace kelp {

namespace {

constexpr const char* kJournal = "d:\\backup\\chl002.jnl";

std::vector<JournalLine> Section(const std::string& journal) {
  return LastSection(journal, "q:\\vault\\2007\\0707\\chl\\chl002");
}

std::string JournalOf(const std::string& station) {
  return SectionHead(station) + JournalText({"grid", 1, 3, "7.7777"});
}

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
  program.kelp.dlgRunRem.Form.Visible = true;
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

}  // namespace

TEST(Journal, APowerCutLosesNothingAndTheRunGoesOnAtTheAcid) {
  Program program;
  RunUntilPowerCut(program);
  Program again;
  again.LogIn({Answer::Yes}, &program.disk);
  EXPECT_EQ(again.platform.Boxes.front().message.Title, "Restore readings?");
  ExpectSameGrid(again, program);
  for (int box = 0; box < 10; ++box)
    EXPECT_EQ(again.form().txtBlank[box].Text, program.form().txtBlank[box].Text);
  EXPECT_EQ(again.run().BeginBlankText, "0.0050");
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
  third.LogIn({Answer::Yes}, &again.disk);
  EXPECT_EQ(third.cell(4, kColRa), "1.5000");
  third.Click("frmAcquire", "Command1");
  EXPECT_EQ(third.caption(), "What's Next");
  EXPECT_TRUE(third.kelp.frmWhatsNext.Form.Visible);
}

TEST(Journal, ADamagedJournalIsUsedUpToTheDamage) {
  Program program;
  RunUntilPowerCut(program);
  const std::string whole = program.disk.Files[kJournal];
  const std::size_t stored = whole.find("grid 1 3 2.0000*");
  ASSERT_NE(stored, std::string::npos);
  for (std::size_t length = 0; length <= whole.size(); length += length < stored ? 37 : 7) {
    MemoryDisk disk = program.disk;
    std::string& journal = disk.Files[kJournal];
    journal = whole.substr(0, length);
    if (length % 2 == 1 && !journal.empty()) journal.back() ^= 1;
    const bool usable = !Section(journal).empty();
    Program again;
    again.LogIn({Answer::Yes}, &disk);
    ASSERT_EQ(!again.platform.Boxes.empty(), usable) << length;
    const std::string& rb = again.cell(1, kColRb);
    // The line counts from its last check digit on, or behind its end when the byte there is damaged.
    ASSERT_EQ(rb, length >= stored + (length % 2 == 1 ? 27 : 24) ? "2.0000" : "") << length;
    ASSERT_GE(again.run().SampNum, 1);
    ASSERT_TRUE(!usable || Section(again.disk.Files[kJournal]).size() > 10) << "written anew, whole";
  }
}

TEST(Journal, NoLeavesTheFileAndAnotherCruiseIsNeverOffered) {
  Program program;
  RunUntilPowerCut(program);
  const std::string before = program.disk.Files[kJournal];
  Program again;
  again.LogIn({Answer::No}, &program.disk);
  EXPECT_EQ(again.disk.Files[kJournal], before);
  EXPECT_EQ(again.cell(1, kColRb), "");
  again.Click("frmAcquire", "Command1");
  TakeByHand(again, 0.006);
  EXPECT_TRUE(StartsWith(again.disk.Files[kJournal], before)) << "the new run begins a section of its own";
  Program third;
  third.LogIn({Answer::Yes}, &again.disk);
  EXPECT_EQ(third.run().BeginBlankText, "0.0060");
  EXPECT_EQ(third.cell(1, kColRb), "");

  MemoryDisk other = program.disk;
  other.Files["q:\\vault\\2026\\chl002"] = other.Files["q:\\vault\\2007\\0707\\chl\\chl002"];
  Program elsewhere;
  elsewhere.Configure(kCfgDataPath, "Q:\\vault\\2026\\");
  other.Files[Lower(kConfigPath)] = elsewhere.disk.Files[Lower(kConfigPath)];
  elsewhere.LogIn({Answer::Yes}, &other);
  EXPECT_EQ(elsewhere.platform.AnswersWaiting(), 1U);
}

TEST(Journal, OutlivesResetsMessagesAndWhatBecomesOfItsFile) {
  // A reset clears the screen, not the journal.
  Program program;
  RunUntilPowerCut(program);
  program.Answers({Answer::Yes, Answer::Yes});
  program.Key("frmAcquire", kKeyF1 + 9);
  program.Click("frmLogin", "cmdOK");
  EXPECT_EQ(program.cell(1, kColRa), "1.0000");
  EXPECT_NE(program.run().RunDate, "") << "the time of the last log record, which the report gives";

  // The share is gone: when the message comes up the value is in the journal.
  program.Click("frmAcquire", "Command1");
  program.Click("frmAcquire", "Command1");
  program.Read(1.5, 10);
  program.disk.FailBelow = "q:";
  program.platform.Echo = [&](const std::string& /*box*/) {
    EXPECT_TRUE(Contains(program.disk.Files[kJournal], "grid 3 4 1.5000*"));
  };
  program.Click("frmAcquire", "Command1");
  EXPECT_EQ(program.platform.Boxes.size(), 4U);
  program.platform.Echo = {};
  program.disk.FailBelow.clear();

  // A file that vanished is written anew with all values.
  program.disk.Files.erase(kJournal);
  TakeByHand(program, 2.5);
  EXPECT_TRUE(Contains(program.disk.Files[kJournal], "grid 1 3 2.0000*"));

  // The backup drive was missing at the crash: its stand-in is found, and moves.
  constexpr const char* kStandIn = "c:\\kelp\\0707slchl002.jnl";
  MemoryDisk disk = program.disk;
  disk.Files[kStandIn].swap(disk.Files[kJournal]);
  disk.Files.erase(kJournal);
  Program again;
  again.LogIn({Answer::Yes}, &disk);
  EXPECT_EQ(again.cell(4, kColRb), "2.5000");
  EXPECT_FALSE(again.disk.Exists(kStandIn));

  // A station of this number on another cruise is saved: only its own part of the journal goes.
  const std::string ours = again.disk.Files[kJournal];
  again.disk.Files[kJournal] = JournalOf("q:\\other\\chl002") + ours;
  again.Answers({Answer::Yes});
  again.Key("frmAcquire", kKeyF1 + 1);
  EXPECT_EQ(again.disk.Files[kJournal], JournalOf("q:\\other\\chl002"));
}

TEST(Journal, ADiskThatFailsKeepsAWarningOnTheScreenUntilAllIsWrittenAnew) {
  Program program;
  program.OpenStation(2);
  program.Click("frmAcquire", "Command1");
  TakeByHand(program, 0.005);
  program.disk.FailBelow = kJournal;
  TakeByHand(program, 1.53);
  SetStatus(program.kelp, "something else");
  EXPECT_TRUE(StartsWith(program.form().StatusBar1.Text, "READINGS ARE NOT SAFE ON THE DISK"));
  EXPECT_FALSE(Contains(program.disk.Files[kJournal], "1.5300"));
  program.disk.FailBelow.clear();
  Tick(program.kelp);
  EXPECT_TRUE(StartsWith(program.form().StatusBar1.Text, "Readings are safe on the disk again"));
  EXPECT_TRUE(Contains(program.disk.Files[kJournal], "txtBlank 6 0 1.5300*"));
}

}  // namespace kelp
