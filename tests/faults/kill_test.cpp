// SPDX-License-Identifier: GPL-3.0-or-later
// kelp-console is ended at every call that changes a file, over the two stations of the story: killed before
// the call, behind it and half-way through a write, or by a power cut that leaves only what was flushed. Each
// time the stations are opened again, and every cell and box must be as the console had shown it last.
// KELP_FAULTS=full does so at each call instead of some, KELP_FAULTS=5 at every fifth.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>

#include "app/door.hpp"
#include "core/text.hpp"
#include "platform/host.hpp"
#include "platform/scripted.hpp"
#include "tests/faults/shim.hpp"
#include "tests/faults/story.hpp"
#include "tests/support/temp_folder.hpp"
#include "workflow/open_station.hpp"

namespace kelp {

namespace {

// A log record in four seconds makes it short.
constexpr const char* kTwoReads =
    "answer No\nanswer OK\n"
    "click frmMain.Command1(1)\ntype frmEditCFG.Text1(211) 4000\ntype frmEditCFG.Text1(212) 2\n"
    "type frmEditCFG.Text1(213) 2\nanswer OK\nclick frmEditCFG.Command1(0)\n";

struct Shown {
  std::string Place;  ///< "003 Rb 1", "002 Begin Blank"
  std::string Value;
};

// What the operator saw stored, in its order.
std::vector<Shown> WhatWasShown(const std::string& out) {
  std::vector<Shown> shown;
  std::string station;
  for (const std::string& line : Lines(out)) {
    const std::vector<std::string> words = Words(line);
    if (StartsWith(line, "run.ProcNum = ")) station = words.back();
    // Values carried over are recorded once the next station is there.
    if (StartsWith(line, "box \"Base File Not Found!\"")) station.clear();
    if (station.empty()) continue;
    // A box that was never read shows 0, and is -99.00 in the file.
    if (StartsWith(line, "frmAcquire.txtBlank(0) = ") && words.back() != "0")
      shown.push_back({station + " Begin Blank", words.back()});
    if (StartsWith(line, "    saved sample "))
      shown.push_back({station + " " + words[3] + " " + words[2], words[4]});
    else if (StartsWith(line, "    saved "))
      shown.push_back({station + " " + line.substr(10, line.rfind(' ') - 10), words.back()});
    else if (StartsWith(line, "frmAcquire.datalog(1,13) = "))
      shown.push_back({station + " remark 1", line.substr(27)});
    else if (StartsWith(line, "frmAcquire.datalog(4,4) = "))
      shown.push_back({station + " Ra 4", line.substr(26)});
  }
  return shown;
}

// Says Yes to all, but looks for no configuration.
class Willing : public ScriptedPlatform {
 public:
  using ScriptedPlatform::ScriptedPlatform;
  Answer Ask(const Message& message) override {
    if (StartsWith(message.Text, "Missing cfg")) return Answer::No;
    return message.Buttons == Buttons::Ok || message.Buttons == Buttons::OkCancel ? Answer::Ok : Answer::Yes;
  }
  std::optional<std::string> AskFile(const FileQuestion& /*question*/) override { return std::nullopt; }
};

struct Reopened {
  std::map<std::string, std::string> Values = {};
  DriveMap Drives;
  std::unique_ptr<Disk> disk;
  explicit Reopened(const std::filesystem::path& folder)
      : Drives(folder), disk(MakeHostDisk(Drives, Appends::Quick)) {
    GoOn();
    for (const char* name : {"chl002", "chl003"}) Load(std::string("q:\\vault\\2007\\0707\\chl\\") + name);
  }
  // The unfinished station, if there is one, is gone on with and saved.
  void GoOn() {
    Willing machine(*disk);
    const auto kelp = std::make_unique<Kelp>(machine);
    Start(*kelp);
    Post(*kelp, {EventKind::Click, {"frmMain", "Command1", 0}});
    Post(*kelp, {EventKind::Click, {"frmLogin", "cmdOK"}});
    if (kelp->run.CsvFile.empty()) return;
    Take(*kelp);
    Post(*kelp, {.Kind = EventKind::Key, .Place = {"frmAcquire"}, .Key = kKeyF1 + 1});
    EXPECT_TRUE(kelp->run.ResultsSaved);
  }
  void Load(std::string path) {
    if (!disk->Exists(path)) return;
    Willing machine(*disk);
    const auto kelp = std::make_unique<Kelp>(machine);
    kelp->run.ProcNum = Right(path, 3);
    kelp->run.BackupDir = "d:\\backup\\";
    kelp->run.DataOutPath = path.substr(0, path.rfind('\\') + 1);
    LoadBaseFile(*kelp, path);
    Take(*kelp);
  }
  void Take(Kelp& kelp) {
    const FrmAcquire& form = kelp.frmAcquire;
    const std::string station = kelp.run.ProcNum + " ";
    for (int row = 1; row <= 4; ++row) {
      Values[station + "Rb " + std::to_string(row)] = form.datalog.Text(row, kColRb);
      Values[station + "Ra " + std::to_string(row)] = form.datalog.Text(row, kColRa);
      Values[station + "remark " + std::to_string(row)] = form.datalog.Text(row, kColReadCom);
    }
    static constexpr const char* kBoxes[] = {
        "Begin Blank",   "End Blank", "Low Standard",  "Low Stnd End", "High Standard",
        "High Stnd End", "Copro 3-1", "Copro 3-1 End", "Copro 2-5",    "Copro 2-5 End"};
    for (int box = 0; box < 10; ++box) Values[station + kBoxes[box]] = form.txtBlank[box].Text;
  }
};

struct Played {
  int status = 0;
  std::string out = {};
  [[nodiscard]] bool Killed() const { return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL; }
};

struct Drives : TempFolder {
  Played Play(const std::string& script, int at = 0, const std::string& mode = "", bool log = false) {
    Write("script", script);
    const std::string out = (Path / "out").string();
    const pid_t child = ::fork();
    if (child == 0) {
      const auto set = [](const char* name, const std::string& value) { ::setenv(name, value.c_str(), 1); };
      set("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0");
      set("LD_PRELOAD", KELP_SHIM);
      set("KELP_FAULT_ROOT", (Path / "drives").string());
      set("KELP_FAULT_AT", std::to_string(at));
      set("KELP_FAULT", mode);
      if (mode == "power") set("KELP_FAULT_DURABLE", (Path / "durable").string());
      if (log) set("KELP_FAULT_LOG", (Path / "log").string());
      if (std::freopen(out.c_str(), "wb", stdout) == nullptr || ::dup2(1, 2) < 0) ::_exit(100);
      ::execl(KELP_CONSOLE, "kelp-console", "--watch", "--drives", (Path / "drives").c_str(), "--clock",
              "2026-11-24T03:00:00", (Path / "script").c_str(), nullptr);
      ::_exit(101);
    }
    Played run;
    ::waitpid(child, &run.status, 0);
    run.out = Read("out");
    return run;
  }
};

struct Toll {
  int ended = 0;
  std::size_t values = 0;
  std::size_t lost = 0;
};

// Every place shows what was shown last, or what the event in which the program ended was to put there.
void ExpectNothingLost(const Reopened& again, const std::vector<Shown>& whole, std::size_t shown,
                       const std::string& where, Toll& toll) {
  std::map<std::string, std::size_t> last;
  for (std::size_t i = 0; i < shown; ++i) last[whole[i].Place] = i;
  for (const auto& [place, at] : last) {
    const auto found = again.Values.find(place);
    const std::string now = found == again.Values.end() ? "no station" : found->second;
    std::string next = whole[at].Value;
    for (std::size_t i = at + 1; i < whole.size(); ++i)
      if (whole[i].Place == place) {
        next = whole[i].Value;
        break;
      }
    const bool there = now == whole[at].Value || now == next;
    EXPECT_TRUE(there) << where << ": " << place << " was " << whole[at].Value << ", now " << now;
    toll.lost += there ? 0 : 1;
  }
  toll.values += last.size();
  ++toll.ended;
}

}  // namespace

TEST(Faults, AKillOrAPowerCutAtAnyCallLosesNoAcceptedValue) {
  UseMemory();
  const std::string script = kTwoReads + Story();
  Drives unharmed;
  const Played run = unharmed.Play(script, 0, "", true);
  ASSERT_EQ(run.status, 0) << run.out;
  const std::vector<Shown> whole = WhatWasShown(run.out);
  ASSERT_EQ(whole.size(), 20U) << run.out;
  const std::vector<std::string> calls = Lines(unharmed.Read("log"));
  const char* asked = std::getenv("KELP_FAULTS");
  const bool full = asked != nullptr && std::string(asked) == "full";
  const int every = asked != nullptr ? std::atoi(asked) : 0;
  const std::size_t stride = full ? 1 : every > 0 ? static_cast<std::size_t>(every) : calls.size() / 20;
  std::size_t turn = FaultSeed() % stride;
  Toll toll;
  for (const char* mode : {"before", "half", "after", "power"}) {
    for (std::size_t at = 1 + turn; at <= calls.size(); at += stride) {
      if (mode == std::string("half") && !Contains(calls[at - 1], "write ")) continue;
      const std::string where = std::string(mode) + " call " + std::to_string(at) + ", " + calls[at - 1];
      Drives drives;
      const Played killed = drives.Play(script, static_cast<int>(at), mode);
      EXPECT_TRUE(killed.Killed()) << where << ": " << killed.out;
      const Reopened again(drives.Path / (mode == std::string("power") ? "durable" : "drives"));
      ExpectNothingLost(again, whole, WhatWasShown(killed.out).size(), where, toll);
    }
    turn = (turn + 1) % stride;
  }
  std::cout << "ended: " << calls.size() << " calls; " << toll.ended << " times, " << toll.values
            << " values looked for, " << toll.lost << " lost" << std::endl;
}

}  // namespace kelp
