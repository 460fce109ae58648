// SPDX-License-Identifier: GPL-3.0-or-later
// The disk fails at every call that changes a file, once or until the operator mends it, over the two
// stations of the story: told each time, no value lost, and the run ends well. The program runs in this
// process, with an operator who reads the messages and tries again. KELP_FAULTS=full tries every error at
// every call, KELP_FAULTS=5 at every fifth.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <set>
#include <sstream>

#include "app/door.hpp"
#include "core/text.hpp"
#include "platform/host.hpp"
#include "platform/scripted.hpp"
#include "script/player.hpp"
#include "tests/faults/shim.hpp"
#include "tests/faults/story.hpp"
#include "tests/support/temp_folder.hpp"
#include "workflow/open_station.hpp"

namespace kelp {

namespace {

constexpr int kMessagesBeforeMended = 3;

// Answers as an operator would who wants to get on: tries again, and mends the disk after some messages.
class Patient : public ScriptedPlatform {
 public:
  using ScriptedPlatform::ScriptedPlatform;
  int Messages = 0;
  Answer Ask(const Message& message) override {
    if (++Messages >= kMessagesBeforeMended) TheFaults().ForGood = TheFaults().ShortWrites = false;
    if (StartsWith(message.Text, "Missing cfg") || message.Title == "Readings are not safe!")
      return Answer::No;
    return message.Buttons == Buttons::Ok || message.Buttons == Buttons::OkCancel ? Answer::Ok : Answer::Yes;
  }
};

// What the story stores and leaves.
std::set<std::string> Accepted() {
  std::set<std::string> values{"torn", "-99.000"};
  for (const std::string& line : Lines(Story()))
    if (StartsWith(line, "read ")) values.insert(Words(line)[1]);
  values.erase("2.2020");  // taken back
  return values;
}

// Plays the story, and goes on with it from whatever screen a failure leaves up.
class Station : public ScriptHost {
 public:
  Station(const TempFolder& folder, std::string what)
      : drives_(folder.Path / "drives"), what_(std::move(what)) {
    using namespace std::chrono;
    machine_.SetClock(local_days{year{2026} / 11 / 24} + hours{3});
  }

  void Play() {
    std::istringstream story(Story());
    EXPECT_EQ(ScriptPlayer(*this).Play("-", story).message, "") << what_;
    for (int tries = 0; !kelp_.Ended && tries < 10; ++tries)
      for (const FocusPlace& place :
           {FocusPlace{"frmWhatsNext", "Option1", 5}, {"frmWhatsNext", "NextButton"}})
        Post({EventKind::Click, place});
    EXPECT_TRUE(kelp_.Ended) << what_;
  }

  Kelp& program() override { return kelp_; }
  ScriptedPlatform& machine() override { return machine_; }
  void Start() override {
    Act([&] { kelp::Start(kelp_); });
  }
  bool Post(const Event& event) override {
    Reach(event.Place.Screen);
    for (const int line : {12, 13}) run().CfgLines[line].replace(0, 2, "2 ");
    Act([&] { kelp::Post(kelp_, event); });
    return true;
  }
  bool Let(std::int64_t milliseconds, const std::function<bool()>& /*until*/) override {
    machine_.Advance(milliseconds);
    Act([&] { Pass(kelp_); });
    Act([&] { Tick(kelp_); });
    return false;
  }
  void Print(const std::string& /*line*/) override {}

  // A slow disk is waited for only where a value is stored: the flushes that each doing takes.
  void Time() {
    const auto flushes = [&](const auto& doing) {
      const std::size_t before = TheFaults().Calls.size();
      doing();
      const auto& calls = TheFaults().Calls;
      return std::count_if(
          calls.begin() + static_cast<std::ptrdiff_t>(before), calls.end(),
          [](const DiskCall& call) { return call.Name == "fsync" || call.Name == "fdatasync"; });
    };
    Start();
    Click("frmAcquire", "Command1");
    EXPECT_EQ(flushes([&] { Click("frmAcquire", "Command1"); }), 0);
    for (int i = 0; i < 5; ++i)
      EXPECT_EQ(flushes([&] {
                  machine_.Feed("\r\nA = 0.0050 (RAW)");
                  machine_.Advance(1000);
                  Pass(kelp_);
                  Tick(kelp_);
                }),
                0);
    // SQLite's journal twice, its name, the database, the journal's end; then the log and its new copy.
    EXPECT_EQ(flushes([&] { Click("frmAcquire", "Command1"); }), 8);
    EXPECT_EQ(kelp_.frmAcquire.txtBlank[0].Text, "0.0050");
  }

  // The stations are loaded anew from the disk and show every value.
  void ExpectSaved() {
    Start();
    EXPECT_EQ(Lines(machine_.disk().Read("c:\\kelp\\kelp.cfg")).size(), 41U) << what_;
    Click("frmMain", "Command1", 0);
    run().DataOutPath = "q:\\vault\\2007\\0707\\chl\\";
    std::set<std::string> shown;
    for (const auto& [number, lines] : {std::pair{"002", 8U}, {"003", 6U}}) {
      run().ProcNum = number;
      run().BaseFile = run().DataOutPath + "chl" + number;
      Act([&] { LoadBaseFile(kelp_, run().BaseFile); });
      for (const TextBox& box : kelp_.frmAcquire.txtBlank) shown.insert(box.Text);
      for (int row = 1; row <= 4; ++row)
        for (int col = 0; col < 14; ++col) shown.insert(kelp_.frmAcquire.datalog.Text(row, col));
      const std::string kept = machine_.disk().Read(run().BaseFile + "Base");
      EXPECT_EQ(Lines(kept).size(), lines) << what_ << ": the kept copy is the file as it was created";
    }
    for (const std::string& value : Accepted()) EXPECT_TRUE(shown.contains(value)) << what_ << ": " << value;
  }

 private:
  RunState& run() { return kelp_.run; }

  // After each thing done: if the disk failed, the operator was told.
  template <class Work>
  void Act(const Work& work) {
    const int failures = TheFaults().Failures;
    const int messages = machine_.Messages;
    work();
    const bool safe =
        !kelp_.record.Unsafe || StartsWith(kelp_.frmAcquire.StatusBar1.Text, "READINGS ARE NOT SAFE");
    EXPECT_TRUE(safe) << what_ << ": the warning is not on the screen";
    if (TheFaults().Failures == failures || TheFaults().Error == EINTR) return;
    // A file that does not close cleanly has been written and flushed before.
    std::string failed;
    for (const DiskCall& call : TheFaults().Calls)
      // Nor does the folder that SQLite flushes with every transaction change with it.
      if (call.Failed && call.Name != "close" && !EndsWith(call.Path, "/drive_c/kelp"))
        failed = call.Name + " " + call.Path;
    if (failed.empty()) return;
    const std::string& status = kelp_.frmAcquire.StatusBar1.Text;
    const bool told = machine_.Messages > messages || Contains(status, "disk");
    EXPECT_TRUE(told) << what_ << ", " << failed << ": nobody was told; the status bar says \"" << status
                      << "\"";
    // Whoever reads in the status bar that the disk is in trouble sees to it as well.
    if (machine_.Messages == messages && ++machine_.Messages >= kMessagesBeforeMended)
      TheFaults().ForGood = TheFaults().ShortWrites = false;
  }
  void Click(const char* screen, const char* control, int index = -1) {
    Post({EventKind::Click, {screen, control, index}});
  }

  [[nodiscard]] bool IsUp(const std::string& screen) { return FindWindow(kelp_, screen)->Visible; }

  void Reach(const std::string& screen) {
    if (reaching_) return;
    reaching_ = true;
    const auto reached = [&] { return screen == "frmAcquire" ? !run().CsvFile.empty() : IsUp(screen); };
    for (int tries = 0; !reached() && tries < 20; ++tries) GoOn(screen);
    EXPECT_TRUE(reached()) << what_ << ": " << screen;
    reaching_ = false;
  }
  void GoOn(const std::string& screen) {
    if (IsUp("frmCreateBase")) {
      Post({EventKind::Edit, {"frmCreateBase", "Text1", 1}, "93.3 70"});
      Post({EventKind::Edit, {"frmCreateBase", "Text1", 2}, run().ProcNum == "002" ? "3" : "1"});
      Click("frmCreateBase", "cmdCreateBase", 0);
    } else if (IsUp("frmWhatsNext")) {
      Click("frmWhatsNext", "Option1", 0);
      Click("frmWhatsNext", "NextButton");
    } else if (screen == "frmWhatsNext" || (screen == "frmCreateBase" && !run().CsvFile.empty())) {
      Click("frmAcquire", "Command1");
    } else if (IsUp("frmLogin")) {
      Click("frmLogin", "cmdOK");
    } else if (IsUp("frmMain")) {
      Click("frmMain", "Command1", 0);
    } else if (screen == "frmAcquire" && !run().BaseFile.empty()) {
      Click("frmAcquire", "Command1");
    } else {
      Post({.Kind = EventKind::Key, .Place = {"frmAcquire"}, .Key = kKeyF1 + 9});
    }
  }

  DriveMap drives_;
  std::unique_ptr<Disk> disk_ = MakeHostDisk(drives_);
  Patient machine_{*disk_};
  Kelp kelp_{machine_};
  std::string what_;
  bool reaching_ = false;
};

// Plays the station with a fault; the calls that were made.
std::vector<DiskCall> Play(int at, int error, bool forGood, bool shortWrites = false) {
  const std::string what = std::string(shortWrites ? "short writes" : std::strerror(error)) +
                           (forGood ? " from call " : " at call ") + std::to_string(at);
  TempFolder folder;
  Faults& faults = TheFaults();
  faults = {
      .Root = folder.Path.string(), .At = at, .Error = error, .ForGood = forGood, .ShortWrites = shortWrites};
  auto station = std::make_unique<Station>(folder, what);
  station->Play();
  std::vector<DiskCall> calls = faults.Calls;
  faults = {};
  station.reset();
  Station(folder, what).ExpectSaved();
  return calls;
}

}  // namespace

TEST(Faults, Finding12ASlowDiskIsWaitedForOnlyWhenAValueIsStored) {
  UseMemory();
  TempFolder folder;
  TheFaults() = {.Root = folder.Path.string()};
  Station station(folder, "slow");
  station.Time();
  TheFaults() = {};
}

TEST(Faults, ADiskThatFailsIsToldAndCostsNoValue) {
  UseMemory();
  const std::size_t calls = Play(0, 0, false).size();
  const char* asked = std::getenv("KELP_FAULTS");
  const bool full = asked != nullptr && std::string(asked) == "full";
  static constexpr int kErrors[] = {ENOSPC, EIO, EDQUOT, EROFS, EINTR};
  constexpr unsigned kKinds = 2 * std::size(kErrors);
  unsigned turn = FaultSeed();
  const int every = asked != nullptr ? std::atoi(asked) : 0;
  const std::size_t stride = full ? 1 : every > 0 ? static_cast<std::size_t>(every) : calls / 40;
  int tried = 0;
  for (std::size_t at = 1 + turn % stride; at <= calls && !testing::Test::HasFatalFailure();
       at += stride, ++turn)
    for (unsigned kind = 0; kind < kKinds; ++kind) {
      if (asked == nullptr && kind != turn % kKinds) continue;
      // An interruption is tried again at once; one without end would be no machine.
      if (kErrors[kind / 2] == EINTR && kind % 2 == 1) continue;
      Play(static_cast<int>(at), kErrors[kind / 2], kind % 2 == 1);
      ++tried;
    }
  // Every write takes half of its bytes until the operator has mended that.
  Play(0, 0, false, true);
  std::cout << "failing calls: " << calls << ", " << tried << " stations played with a fault" << std::endl;
}

}  // namespace kelp
