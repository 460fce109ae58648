// SPDX-License-Identifier: GPL-3.0-or-later
// When the desktop program wakes: passes of the read loop, ticks of the log, none while a box is open.

#include <QTest>
#include <algorithm>

#include "acquire/instrument_line.hpp"
#include "acquire/read_loop.hpp"
#include "core/config.hpp"
#include "desktop/machine/repeated_sound.hpp"
#include "desktop/machine/runner.hpp"
#include "platform/scripted.hpp"
#include "stage/program.hpp"
#include "tests/desktop/modal.hpp"

namespace kelp {
namespace {

// A platform that counts the looks at its line, and whose message boxes stay open for a while.
struct SlowAnswers : ScriptedPlatform {
  using ScriptedPlatform::ScriptedPlatform;
  Runner* runner = nullptr;
  int looks = 0;

  std::size_t BytesWaiting() override {
    ++looks;
    return ScriptedPlatform::BytesWaiting();
  }
  int LooksIn(int milliseconds) {
    const int before = looks;
    QTest::qWait(milliseconds);
    return looks - before;
  }
  Answer Ask(const Message& message) override {
    runner->DialogOpens();
    EXPECT_EQ(LooksIn(1150), 0) << "a pass ran while the box was open";
    EXPECT_FALSE(runner->Post({.Kind = EventKind::Click, .Place = {"frmAcquire", "Command2"}}));
    runner->DialogClosed();
    return ScriptedPlatform::Ask(message);
  }
};

// That bytes and ticks of the log are heard is seen by the whole stations.
TEST(Running, PassesRunOnlyWhenWanted) {
  MemoryDisk disk;
  SlowAnswers platform(disk);
  Kelp kelp(platform);
  SetDefaultConfig(kelp.run);
  SaveConfig(kelp);
  Runner runner(kelp);
  platform.runner = &runner;
  int ended = 0;
  runner.End = [&] { ++ended; };
  runner.Start();
  ShowScreen(kelp, kelp.frmAcquire.Form);
  EXPECT_EQ(platform.LooksIn(1150), 0) << "idle";
  StartReadLoop(kelp);
  kelp.frmAcquire.Command1.Caption = "Reading Blank";
  for (const Answer answer : {Answer::No, Answer::Yes}) platform.QueueAnswer(answer);
  const auto click = [&](const char* control) {
    return runner.Post({.Kind = EventKind::Click, .Place = {"frmAcquire", control}});
  };
  const std::pair<const char*, bool> rows[] = {
      {"Check1", true}, {"Command2", false}, {"Command2", true}, {"Command3", true}};
  for (const auto& [control, looks] : rows) {
    click(control);
    EXPECT_EQ(platform.LooksIn(1150) > 0, looks) << control;
  }
  EXPECT_EQ(ended, 0);
  click("Command3");
  EXPECT_EQ(ended, 1);
  EXPECT_EQ(platform.LooksIn(1150), 0);
  EXPECT_FALSE(click("Command1"));
}

TEST(Running, ATickThatIsDueGoesWithAReading) {
  MemoryDisk disk;
  ScriptedPlatform platform(disk);
  Kelp kelp(platform);
  SetDefaultConfig(kelp.run);
  SaveConfig(kelp);
  kelp.run.CsvFile = "c:\\log.csv";
  kelp.run.TmpFile = "c:\\log.tmp";
  Runner runner(kelp);
  runner.Start();
  ShowScreen(kelp, kelp.frmAcquire.Form);
  ASSERT_EQ(platform.OpenPort(1, ""), "");
  StartReadLoop(kelp);
  kelp.frmAcquire.Command1.Caption = "Reading Blank";
  kelp.Timer1 = {.Enabled = true, .Interval = 10'000};
  runner.Post({.Kind = EventKind::Click, .Place = {"frmAcquire", "Check1"}});
  struct Row {
    int later;
    bool reading;
    std::size_t logged;
  };
  const Row rows[] = {{9'400, true, 0}, {200, false, 0}, {0, true, 1},      {400, true, 1},
                      {9'000, true, 1}, {100, true, 2},  {9'900, false, 2}, {20'000, true, 3}};
  for (const auto& [later, reading, logged] : rows) {
    platform.Advance(later);
    platform.Feed(reading ? InstrumentLine("0.0050") : "\r\n");
    runner.BytesCame();
    const std::string& log = disk.Files["c:\\log.csv"];
    EXPECT_EQ(static_cast<std::size_t>(std::count(log.begin(), log.end(), '\n')), logged) << later;
    EXPECT_EQ(disk.Files["c:\\log.tmp"], log);
  }
}

TEST(Running, AnAlarmSoundsWithTheWakesThatAreThereAndWithoutThemToo) {
  bool called = false;
  int played = 0;
  RepeatedSound alarm(
      1200, [&] { return called; }, [&] { ++played; });
  alarm.Look();
  EXPECT_EQ(played, 0) << "nothing calls";
  called = true;
  alarm.Look();
  EXPECT_EQ(played, 1) << "at once";
  alarm.Look();
  // The waits leave a busy machine a sixth of the time between two sounds.
  QTest::qWait(600);
  alarm.Look();
  EXPECT_EQ(played, 1) << "not with each wake";
  QTest::qWait(600);
  EXPECT_EQ(played, 1) << "no wake of its own while others come";
  alarm.Look();
  EXPECT_EQ(played, 2);
  QTest::qWait(1700);
  EXPECT_EQ(played, 3) << "by itself where nothing else wakes the program";
  called = false;
  QTest::qWait(1500);
  EXPECT_EQ(played, 3) << "seen";
}

}  // namespace
}  // namespace kelp
