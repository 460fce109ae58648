// kelp-console is killed at every call that changes a file, over a whole station with save; after each kill
// the station is opened again, and all that the console had shown as saved must be there.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "core/text.hpp"
#include "files/base_file.hpp"
#include "files/database_csv.hpp"
#include "files/journal_text.hpp"
#include "tests/faults/shim.hpp"
#include "tests/support/temp_folder.hpp"

namespace kelp {

namespace {

namespace fs = std::filesystem;

constexpr const char* kChl = "drive_q/vault/2007/0707/chl/";
constexpr const char* kCreate =
    "type frmCreateBase.Text1(1) 93.3 70\n"
    "type frmCreateBase.Text1(2) 3\n"
    "click frmCreateBase.cmdCreateBase(0)\n";
constexpr const char* kRemark = "show frmAcquire.datalog(1,13)\n";

// Template configuration, a change in the editor, a station: blank, copros, a sample with a remark, one
// skipped, one read, end blank, save. Two reads a value and a log record in four seconds make it short.
std::string Station() {
  std::string script =
      "answer No\nanswer OK\n"
      "click frmMain.Command1(1)\ntype frmEditCFG.Text1(211) 4000\ntype frmEditCFG.Text1(212) 2\n"
      "type frmEditCFG.Text1(213) 2\nanswer OK\nclick frmEditCFG.Command1(0)\n"
      "click frmMain.Command1(0)\nanswer Yes\nclick frmLogin.cmdOK\n";
  const auto value = [&](const char* number) {
    script += std::string("click frmAcquire.Command1\nread ") + number + " 2\nclick frmAcquire.Command1\n";
  };
  script += kCreate + std::string("click frmAcquire.Command1\n");
  for (const char* number : {"0.0051", "1.5310", "5.0312", "2.1234", "1.0617"}) value(number);
  script += "key frmAcquire F9\ntype dlgRunRem.Text1 torn filter, 50% left\nclick dlgRunRem.OKButton\n";
  script += kRemark + std::string("click frmAcquire.Command5\n");
  for (const char* number : {"3.4567", "1.9203"}) value(number);
  script += "click frmWhatsNext.Option1(2)\nclick frmWhatsNext.NextButton\n";
  value("0.0053");
  return script + "click frmWhatsNext.NextButton\n";
}

struct Played {
  int status = 0;
  std::string out = {};
  [[nodiscard]] bool Killed() const { return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL; }
  // What the operator saw saved: values, and the remark.
  [[nodiscard]] std::vector<std::string> Accepted() const {
    std::vector<std::string> lines;
    for (const std::string& line : Lines(out))
      if (StartsWith(line, "    saved ") || (StartsWith(line, "frmAcquire.datalog") && !EndsWith(line, "= ")))
        lines.push_back(line);
    return lines;
  }
};

struct Drives : TempFolder {
  [[nodiscard]] bool Has(const std::string& name) const { return fs::exists(Path / "drives" / name); }
  [[nodiscard]] std::string Text(const std::string& name) const { return Read("drives/" + name); }

  Played Play(const std::string& script, int killAt = 0, const std::string& mode = "", bool log = false) {
    Write("script", script);
    const std::string out = (Path / "out").string();
    const pid_t child = ::fork();
    if (child == 0) {
      const auto set = [](const char* name, const std::string& value) { ::setenv(name, value.c_str(), 1); };
      set("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0");
      set("LD_PRELOAD", KELP_SHIM);
      set("KELP_FAULT_ROOT", (Path / "drives").string());
      set("KELP_FAULT_AT", std::to_string(killAt));
      set("KELP_FAULT", mode);
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

  // What an operator would do who starts again: answers what is asked on these drives, opens the station,
  // saves it.
  [[nodiscard]] std::string OpenAgain() const {
    const bool saved = Contains(Text("drive_c/kelp/kelp.cfg"), "003                                21 - ");
    const bool folderAlone = Has("drive_d/backup") && !Has("drive_d/backup/Readme.txt");
    const bool journal =
        !LastSection(Text("drive_d/backup/chl002.jnl"), "q:\\vault\\2007\\0707\\chl\\chl002").empty();
    std::string script = Has("drive_c/kelp/kelp.cfg") ? "" : "answer No\nanswer OK\n";
    script += std::string("start\n") + (folderAlone ? "answer OK\n" : "") + "click frmMain.Command1(0)\n";
    if (saved) script += "answer No\nfile Q:\\vault\\2007\\0707\\chl\\chl002\n";
    if (!Has(std::string(kChl) + "chl002"))
      script += std::string("answer Yes\nclick frmLogin.cmdOK\n") + kCreate;
    else
      script += std::string(journal ? "answer Yes\n" : "") + "click frmLogin.cmdOK\n";
    script += kRemark + std::string("click frmAcquire.Command1\nrun 5\n");
    return script + "answer Yes\nkey frmAcquire F2\nexpect run.ResultsSaved True\n";
  }

  // No kept copy is gone, no file is cut, every head is whole.
  void CheckFiles(const std::string& where, const std::string& fresh) const {
    const std::string base = Text(std::string(kChl) + "chl002");
    EXPECT_TRUE(Contains(base, "F l u o r o m e t e r")) << where;
    EXPECT_EQ(Text(std::string(kChl) + "chl002Base"), fresh) << where;
    const std::vector<std::string> config = Lines(Text("drive_c/kelp/kelp.cfg"));
    EXPECT_EQ(config.size(), 41U) << where;
    for (std::size_t i = 0; i < config.size(); ++i)
      EXPECT_EQ(config[i].substr(35, 5), Padded(std::to_string(i), 2, "L", "0") + " - ") << where;
    for (const auto& [name, head] : {std::pair{"chl002.csv", std::string(kReadLogHeader)},
                                     {"0707SLChldb.csv", std::string(kCruiseCsvHeader)},
                                     {"0707SL002Chldb1.csv", std::string(kStationCsvHeader)}})
      EXPECT_TRUE(StartsWith(Text(kChl + std::string(name)), head + "\r\n")) << where << ": " << name;
    for (const char* name : {"chl002", "chl002.csv", "chl002.prn", "chl002.htm", "0707SLChldb.csv"})
      EXPECT_TRUE(EndsWith(Text(kChl + std::string(name)), "\r\n")) << where << ": " << name;
  }
};

struct Toll {
  int kills = 0;
  std::size_t values = 0;
  std::size_t lost = 0;
};

// The station is opened again and saved: all that was accepted is on the screen and in the base file.
void ExpectNothingLost(Drives& drives, const std::vector<std::string>& accepted, const std::string& where,
                       const std::string& fresh, Toll& toll) {
  const Played again = drives.Play(drives.OpenAgain());
  EXPECT_EQ(again.status, 0) << where << ": " << again.out;
  const std::string base = drives.Text(std::string(kChl) + "chl002");
  for (const std::string& line : accepted) {
    const auto value = line.find("= ");
    const bool shown = Contains(again.out, line + "\n");
    const bool saved = Contains(base, value == line.npos ? line.substr(line.rfind(' ') + 1)
                                                         : Replaced(line.substr(value + 2), " ", "_"));
    EXPECT_TRUE(shown && saved) << where << ": " << line << (shown ? " is not in the base file" : "");
    toll.lost += shown && saved ? 0 : 1;
  }
  toll.values += accepted.size();
  ++toll.kills;
  drives.CheckFiles(where, fresh);
}

// Kills a script at each of its calls: before it, and a write also after half of its bytes.
template <class Kill>
void AtEachCall(const std::vector<std::string>& calls, const Kill& kill) {
  for (std::size_t at = 1; at <= calls.size(); ++at)
    for (const char* mode : {"before", "half"})
      if (mode == std::string("before") || StartsWith(calls[at - 1], "write "))
        kill(static_cast<int>(at), mode,
             std::string("killed ") + mode + " call " + std::to_string(at) + ", " + calls[at - 1]);
}

}  // namespace

TEST(Faults, AKillAtAnyCallLosesNoAcceptedValue) {
  UseMemory();
  const std::string station = Station();
  Drives whole;
  const Played unharmed = whole.Play(station, 0, "", true);
  ASSERT_EQ(unharmed.status, 0) << unharmed.out;
  ASSERT_EQ(unharmed.Accepted().size(), 11U) << unharmed.out;
  const std::vector<std::string> calls = Lines(whole.Read("log"));
  const std::string fresh = whole.Text(std::string(kChl) + "chl002Base");
  ASSERT_EQ(Lines(fresh).size(), 8U);
  Toll toll;
  AtEachCall(calls, [&](int at, const char* mode, const std::string& where) {
    Drives drives;
    const Played killed = drives.Play(station, at, mode);
    EXPECT_TRUE(killed.Killed()) << where << ": " << killed.out;
    ExpectNothingLost(drives, killed.Accepted(), where, fresh, toll);
  });

  // The power fails again while the station is restored and saved.
  const int late = static_cast<int>(calls.size()) * 2 / 3;
  Drives restored;
  restored.Play(station, late, "before");
  restored.Play(restored.OpenAgain(), 0, "", true);
  const std::vector<std::string> callsAgain = Lines(restored.Read("log"));
  AtEachCall(callsAgain, [&](int at, const char* mode, const std::string& where) {
    Drives drives;
    const std::vector<std::string> accepted = drives.Play(station, late, "before").Accepted();
    EXPECT_GT(accepted.size(), 5U);
    EXPECT_TRUE(drives.Play(drives.OpenAgain(), at, mode).Killed()) << where;
    ExpectNothingLost(drives, accepted, "restored and " + where, fresh, toll);
  });
  std::cout << "kill points: " << calls.size() << " calls of a station and " << callsAgain.size()
            << " of its restoring; " << toll.kills << " kills, " << toll.values << " values looked for, "
            << toll.lost << " lost" << std::endl;
}

}  // namespace kelp
