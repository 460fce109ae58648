// The real disk: what it writes, in which order, and what is left when any of its system calls fails.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <functional>

#include "platform/error.hpp"
#include "platform/host.hpp"
#include "tests/faults/shim.hpp"
#include "tests/support/temp_folder.hpp"

namespace kelp {

namespace {

namespace fs = std::filesystem;

struct HostDiskTest : testing::Test {
  TempFolder data = {};
  DriveMap drives{data.Path};
  std::unique_ptr<Disk> disk = MakeHostDisk(drives);

  // The reason of the FileError that `work` throws; "" when it throws none.
  static std::string Trouble(const std::function<void()>& work) {
    try {
      work();
    } catch (const FileError& error) {
      return error.what();
    }
    return {};
  }
  // The calls made since the faults were set, which then end.
  static std::string Trace() {
    std::string trace;
    for (const DiskCall& call : TheFaults().Calls) trace += (trace.empty() ? "" : " ") + call.Name;
    TheFaults() = {};
    return trace;
  }
  void Fail(Faults faults) const {
    TheFaults() = std::move(faults);
    TheFaults().Root = data.Path.string();
  }
  [[nodiscard]] std::string Names() const {
    std::string names;
    for (const char* name : {"file", "Base", "new"})
      if (fs::exists(data.Path / "drive_c" / name)) names += std::string(name) + " ";
    const auto entries = std::distance(fs::directory_iterator(data.Path / "drive_c"), {});
    return names + std::to_string(entries);
  }
};

}  // namespace

TEST_F(HostDiskTest, WritesReadsAndNamesFiles) {
  EXPECT_TRUE(disk->MakeFolder("c:\\Kelp\\Sub"));
  EXPECT_FALSE(disk->MakeFolder("C:\\kelp\\SUB\\"));
  EXPECT_FALSE(disk->AnyFileIn("c:\\kelp"));
  data.Write("drive_c/Kelp/.kelp.cfg.kelp-new-1-0", "left behind");
  EXPECT_FALSE(disk->AnyFileIn("c:\\kelp"));
  EXPECT_FALSE(disk->AnyFileIn("c:\\none"));

  const std::string bytes("\0\xff\r\nx", 5);
  disk->Replace("c:\\kelp\\Chl007", bytes);
  EXPECT_EQ(disk->Read("C:\\KELP\\CHL007"), bytes);
  disk->Replace("c:\\kelp\\cHL007", "old");
  disk->Keep("c:\\kelp\\chl007", "c:\\kelp\\chl007Base");
  EXPECT_NE(Trouble([&] { disk->Keep("c:\\kelp\\chl007", "c:\\kelp\\CHL007BASE"); }), "");
  disk->Replace("c:\\kelp\\chl007", "new");
  EXPECT_EQ(data.Read("drive_c/Kelp/Chl007"), "new");
  EXPECT_EQ(data.Read("drive_c/Kelp/chl007Base"), "old");
  EXPECT_TRUE(disk->AnyFileIn("c:\\kelp"));

  struct Row {
    const char *before, *after;
  };
  for (const auto& [before, after] :
       {Row{"", "1,2\r\n"}, Row{"a\r\n", "a\r\n1,2\r\n"}, Row{"a\n", "a\n1,2\r\n"},
        Row{"half", "half\r\n1,2\r\n"}, Row{"half\r", "half\r\n1,2\r\n"}}) {
    data.Write("drive_c/Kelp/log", before);
    disk->Append("c:\\kelp\\LOG", "1,2\r\n");
    EXPECT_EQ(data.Read("drive_c/Kelp/log"), after);
  }
  disk->Remove("c:\\kelp\\Log");
  disk->Remove("c:\\kelp\\log");
  EXPECT_FALSE(disk->Exists("c:\\kelp\\log"));
  EXPECT_TRUE(disk->Exists("c:\\kelp\\sub") && disk->IsFolder("c:\\kelp\\sub"));
  EXPECT_FALSE(disk->IsFolder("c:\\kelp\\chl007"));
}

TEST_F(HostDiskTest, RefusesWithTheFileAndTheReason) {
  data.Write("drive_c/file", "x");
  fs::create_directory(data.Path / "drive_c/dir");
  data.Write("drive_c/big", "");
  fs::resize_file(data.Path / "drive_c/big", (64U << 20) + 1);
  ASSERT_EQ(::mkfifo((data.Path / "drive_c/pipe").c_str(), 0600), 0);
  struct Row {
    std::string expected;
    std::function<void()> work;
  };
  for (const auto& [expected, work] : {
           Row{"c:\\none: does not exist", [&] { disk->Read("c:\\none"); }},
           Row{"c:\\dir: is a folder", [&] { disk->Read("c:\\dir"); }},
           Row{"c:\\dir: is a folder", [&] { disk->Replace("c:\\dir", "x"); }},
           Row{"c:\\dir: is a folder", [&] { disk->Append("c:\\dir", "x"); }},
           Row{"c:\\dir: is a folder", [&] { disk->Remove("c:\\dir"); }},
           Row{"c:\\dir: is a folder", [&] { disk->Keep("c:\\dir", "c:\\x"); }},
           Row{"c:\\big: is larger than 64 MiB", [&] { disk->Read("c:\\big"); }},
           Row{"c:\\pipe: is no ordinary file", [&] { disk->Read("c:\\pipe"); }},
           Row{"c:\\pipe: is no ordinary file", [&] { disk->Append("c:\\pipe", "x"); }},
           Row{"c:\\pipe: is no ordinary file", [&] { disk->Replace("c:\\pipe", "x"); }},
           Row{"c:\\no\\x: its folder does not exist", [&] { disk->Append("c:\\no\\x", "x"); }},
           Row{"c:\\no\\x: its folder does not exist", [&] { disk->Replace("c:\\no\\x", "x"); }},
           Row{"c:\\file\\x: a part of its path is a file", [&] { disk->Read("c:\\file\\x"); }},
           Row{"c:\\file: is a file", [&] { disk->MakeFolder("c:\\file"); }},
           Row{"c:\\DIR: exists already", [&] { disk->Keep("c:\\file", "c:\\DIR"); }},
           Row{"c:\\none: does not exist", [&] { disk->Keep("c:\\none", "c:\\x"); }},
       })
    EXPECT_NE(Trouble(work).find(expected), std::string::npos) << expected << ", but " << Trouble(work);
  EXPECT_EQ(data.Read("drive_c/file"), "x");
}

// The order is what a power cut would test: content before name, name before going on.
TEST_F(HostDiskTest, FlushesContentBeforeTheName) {
  data.Write("drive_c/file", "old\r\n");
  struct Row {
    const char* trace;
    std::function<void()> work;
  };
  for (const auto& [trace, work] : {
           Row{"open write fdatasync rename fsync", [&] { disk->Replace("c:\\file", "new\r\n"); }},
           Row{"open write fdatasync", [&] { disk->Append("c:\\file", "line\r\n"); }},
           Row{"open open write fdatasync fsync", [&] { disk->Append("c:\\new", "line\r\n"); }},
           Row{"link fsync", [&] { disk->Keep("c:\\file", "c:\\Base"); }},
           Row{"unlink fsync", [&] { disk->Remove("c:\\Base"); }},
           Row{"mkdir fsync mkdir fsync", [&] { disk->MakeFolder("c:\\a\\b"); }},
       }) {
    Fail({});
    work();
    EXPECT_EQ(Trace(), trace);
  }
}

TEST_F(HostDiskTest, TellsEachFailingCallAndLosesNothing) {
  struct Row {
    const char* name;
    const char *before, *after;  // names and number of entries in the folder
    std::function<void()> work;
    const char* written;
  };
  const Row rows[] = {
      {"replace", "file 1", "file 1", [&] { disk->Replace("c:\\file", "new\r\n"); }, "new\r\n"},
      {"append", "file 1", "file 1", [&] { disk->Append("c:\\file", "line\r\n"); }, "old\r\nline\r\n"},
      {"create", "file 1", "file new 2", [&] { disk->Append("c:\\new", "line\r\n"); }, "line\r\n"},
      {"keep", "file 1", "file Base 2", [&] { disk->Keep("c:\\file", "c:\\Base"); }, "old\r\n"},
  };
  int failed = 0;
  for (const Row& row : rows)
    for (const int error : {ENOSPC, EIO, EROFS})
      for (int call = 1;; ++call) {
        for (const char* name : {"new", "Base"}) fs::remove(data.Path / "drive_c" / name);
        data.Write("drive_c/file", "old\r\n");
        const std::string where =
            std::string(row.name) + ", call " + std::to_string(call) + ", error " + std::to_string(error);
        Fail({.At = call, .Error = error});
        const std::string trouble = Trouble(row.work);
        const bool failedOne = TheFaults().Failures == 1;
        const bool namedAlready = Trace().ends_with("rename fsync");
        if (!failedOne) break;
        ++failed;
        EXPECT_NE(trouble.find(error == EIO     ? "input/output"
                               : error == EROFS ? "read-only"
                                                : "no space"),
                  std::string::npos)
            << where << ": " << trouble;
        EXPECT_EQ(data.Read("drive_c/file"), namedAlready ? "new\r\n" : "old\r\n") << where;
        EXPECT_EQ(Names(), row.before) << where;
        // The fault is gone: the value is there, once.
        EXPECT_EQ(Trouble(row.work), "") << where;
        EXPECT_EQ(Names(), row.after) << where;
        const std::string names = row.after;
        const char* file = names.find("new") != names.npos    ? "drive_c/new"
                           : names.find("Base") != names.npos ? "drive_c/Base"
                                                              : "drive_c/file";
        EXPECT_EQ(data.Read(file), row.written) << where;
      }
  EXPECT_EQ(failed, 3 * (5 + 3 + 5 + 2));
}

TEST_F(HostDiskTest, AHalfWrittenLineIsTakenBackAndAFileGoesOnWithTheRest) {
  data.Write("drive_c/log", "one\r\n");
  Fail({.ShortWrites = true});
  const std::string trouble = Trouble([&] { disk->Append("c:\\log", "two\r\n"); });
  disk->Replace("c:\\file", "whole");
  TheFaults() = {};
  EXPECT_NE(trouble.find("no space"), std::string::npos);
  EXPECT_EQ(data.Read("drive_c/log"), "one\r\n");
  EXPECT_EQ(data.Read("drive_c/file"), "whole");
}

TEST_F(HostDiskTest, AfterAFailedFlushTheLinesGoIntoANewFile) {
  data.Write("drive_c/log", "one\r\n");
  struct stat before {
  }, after{};
  ::stat((data.Path / "drive_c/log").c_str(), &before);
  Fail({.At = 3, .Error = EIO});
  EXPECT_NE(Trouble([&] { disk->Append("c:\\log", "two\r\n"); }), "");
  Fail({});
  disk->Append("c:\\log", "two\r\n");
  EXPECT_EQ(Trace(), "open write fdatasync rename fsync");
  Fail({});
  disk->Append("c:\\log", "three\r\n");
  EXPECT_EQ(Trace(), "open write fdatasync");
  ::stat((data.Path / "drive_c/log").c_str(), &after);
  EXPECT_NE(before.st_ino, after.st_ino);
  EXPECT_EQ(data.Read("drive_c/log"), "one\r\ntwo\r\nthree\r\n");
}

// The superuser may do everything: the checks run as nobody, in a process of their own.
TEST_F(HostDiskTest, RespectsPermissionsAndKeepsThem) {
  for (const char* file : {"drive_c/shut/a", "drive_c/readonly", "drive_c/foreign", "drive_c/shared"})
    data.Write(file, "old");
  const auto mode = [&](const char* name, mode_t bits) {
    ASSERT_EQ(::chmod((data.Path / name).c_str(), bits), 0);
  };
  const pid_t child = ::fork();
  if (child == 0) {
    constexpr uid_t kNobody = 65534;
    const auto own = [&](const char* name) { return ::chown((data.Path / name).c_str(), kNobody, kNobody); };
    if (::getuid() == 0 &&
        (own("") != 0 || own("drive_c") != 0 || own("drive_c/shut") != 0 || own("drive_c/readonly") != 0 ||
         own("drive_c/shared") != 0 || ::setgid(kNobody) != 0 || ::setuid(kNobody) != 0))
      ::_exit(100);
    mode("drive_c/shut", 0500);
    mode("drive_c/readonly", 0400);
    mode("drive_c/shared", 0664);
    EXPECT_NE(Trouble([&] { disk->Replace("c:\\readonly", "x"); }).find("permission denied"),
              std::string::npos);
    EXPECT_NE(Trouble([&] { disk->Append("c:\\readonly", "x"); }).find("permission denied"),
              std::string::npos);
    EXPECT_NE(Trouble([&] { disk->Replace("c:\\shut\\a", "x"); }).find("permission denied"),
              std::string::npos);
    EXPECT_NE(Trouble([&] { disk->Append("c:\\shut\\b", "x"); }).find("permission denied"),
              std::string::npos);
    EXPECT_NE(Trouble([&] { disk->Keep("c:\\shared", "c:\\shut\\b"); }), "");
    mode("drive_c/shut", 0000);
    EXPECT_NE(Trouble([&] { disk->Exists("c:\\shut\\a"); }), "");
    mode("drive_c/shut", 0700);
    disk->Replace("c:\\shared", "new");
    EXPECT_EQ(fs::status(data.Path / "drive_c/shared").permissions(), fs::perms{0664});
    // Systems refuse second names for a file of another user's; then it is copied.
    disk->Keep("c:\\foreign", "c:\\foreignBase");
    EXPECT_EQ(data.Read("drive_c/foreignBase"), "old");
    EXPECT_EQ(data.Read("drive_c/readonly"), "old");
    EXPECT_EQ(data.Read("drive_c/shut/a"), "old");
    std::fflush(stdout);
    ::_exit(testing::Test::HasFailure() ? 1 : 0);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}

// The second of two copies is told; whoever is killed holds nothing any more.
TEST_F(HostDiskTest, OneCopyAtATimeHoldsAClaim) {
  const auto other = MakeHostDisk(drives);
  disk->MakeFolder("c:\\kelp");
  EXPECT_TRUE(disk->Claim("c:\\kelp\\kelp.lck") && disk->Claim("C:\\KELP\\kelp.lck"));
  EXPECT_FALSE(other->Claim("c:\\kelp\\kelp.lck"));
  disk.reset();
  const pid_t child = ::fork();
  if (child == 0) {
    if (other->Claim("c:\\kelp\\kelp.lck")) ::kill(::getpid(), SIGKILL);
    ::_exit(1);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFSIGNALED(status));
  EXPECT_TRUE(other->Claim("c:\\kelp\\kelp.lck"));
}

TEST(Host, KnowsItsClocksAndFolders) {
  ::setenv("TZ", "UTC-5:30", 1);
  ::tzset();
  const auto apart = HostNow().time_since_epoch() - std::chrono::system_clock::now().time_since_epoch();
  EXPECT_NEAR(std::chrono::duration<double>(apart).count(), 5.5 * 3600, 1.5);
  ::unsetenv("TZ");
  ::tzset();
  ::setenv("XDG_DATA_HOME", "/srv/data", 1);
  EXPECT_EQ(HostDataFolder(), "/srv/data/kelp");
  ::setenv("XDG_DATA_HOME", "relative", 1);
  ::setenv("HOME", "/home/ana", 1);
  EXPECT_EQ(HostDataFolder(), "/home/ana/.local/share/kelp");
  ::unsetenv("XDG_DATA_HOME");
  EXPECT_EQ(HostPortDevice(1), "/dev/ttyS0");
}

}  // namespace kelp
