// SPDX-License-Identifier: GPL-3.0-or-later
// The real disk: what it writes and in which order, and what it refuses. Every call failing in the course of
// a station is the matter of the tests on faults.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <functional>

#include "platform/error.hpp"
#include "platform/host.hpp"
#include "tests/faults/host_disk_test.hpp"

namespace kelp {

namespace {

namespace fs = std::filesystem;

}  // namespace

TEST_F(HostDiskTest, WritesReadsAndNamesFiles) {
  EXPECT_TRUE(disk->MakeFolder("c:\\Kelp\\Sub"));
  EXPECT_FALSE(disk->MakeFolder("C:\\kelp\\SUB\\"));
  data.Write("drive_c/Kelp/.kelp.cfg.kelp-new-1-0", "left behind by a crash");
  EXPECT_FALSE(disk->AnyFileIn("c:\\kelp"));
  disk->Replace("c:\\kelp\\Chl007", std::string("\0\xff\r\nx", 5));
  EXPECT_TRUE(disk->AnyFileIn("c:\\kelp"));
  disk->Keep("c:\\kelp\\chl007", "c:\\kelp\\chl007Base");
  EXPECT_NE(Trouble([&] { disk->Keep("c:\\kelp\\chl007", "c:\\kelp\\CHL007BASE"); }), "");
  disk->Replace("c:\\kelp\\cHL007", "new");
  EXPECT_EQ(data.Read("drive_c/Kelp/Chl007"), "new");
  EXPECT_EQ(disk->Read("C:\\KELP\\CHL007BASE"), std::string("\0\xff\r\nx", 5));
  // A line always stands alone, whatever a crash or an editor left before it.
  for (const auto& [before, after] : std::initializer_list<std::pair<const char*, const char*>>{
           {"", "1,2\r\n"}, {"a\n", "a\n1,2\r\n"}, {"half", "half\r\n1,2\r\n"}, {"cr\r", "cr\r\n1,2\r\n"}}) {
    data.Write("drive_c/Kelp/log", before);
    disk->Append("c:\\kelp\\LOG", "1,2\r\n");
    EXPECT_EQ(data.Read("drive_c/Kelp/log"), after);
  }
  disk->Remove("c:\\kelp\\Log");
  disk->Remove("c:\\kelp\\log");
  EXPECT_FALSE(disk->Exists("c:\\kelp\\log"));
}

TEST_F(HostDiskTest, RefusesWithTheFileAndTheReason) {
  data.Write("drive_c/file", "x");
  data.Write("drive_c/big", "");
  fs::create_directory(data.Path / "drive_c/dir");
  fs::resize_file(data.Path / "drive_c/big", (64U << 20) + 1);
  ASSERT_EQ(::mkfifo((data.Path / "drive_c/pipe").c_str(), 0600), 0);
  const std::pair<std::string, std::function<void()>> rows[] = {
      {"c:\\none: does not exist", [&] { disk->Read("c:\\none"); }},
      {"c:\\dir: is a folder", [&] { disk->Replace("c:\\dir", "x"); }},
      {"c:\\dir: is a folder", [&] { disk->Append("c:\\dir", "x"); }},
      {"c:\\dir: is a folder", [&] { disk->Remove("c:\\dir"); }},
      {"c:\\big: is larger than 64 MiB", [&] { disk->Read("c:\\big"); }},
      {"c:\\pipe: is no ordinary file", [&] { disk->Read("c:\\pipe"); }},
      {"c:\\pipe: is no ordinary file", [&] { disk->Append("c:\\pipe", "x"); }},
      {"c:\\no\\x: its folder does not exist", [&] { disk->Replace("c:\\no\\x", "x"); }},
      {"c:\\file\\x: a part of its path is a file", [&] { disk->Read("c:\\file\\x"); }},
      {"c:\\file: is a file", [&] { disk->MakeFolder("c:\\file"); }},
      {"c:\\DIR: exists already", [&] { disk->Keep("c:\\file", "c:\\DIR"); }}};
  for (const auto& [expected, work] : rows) EXPECT_EQ(Trouble(work).substr(0, expected.size()), expected);
}

// The order is what a power cut would test: content before name, both before going on.
TEST_F(HostDiskTest, FlushesInOrderAndNeverLeavesHalfALine) {
  const auto append = [&] { disk->Append("c:\\log", "two\r\n"); };
  data.Write("drive_c/log", "one\r\n");
  EXPECT_EQ(Trace([&] { disk->Replace("c:\\file", "old"); }), "write fdatasync rename fsync");
  EXPECT_EQ(Trace([&] { disk->Append("c:\\new", "line\r\n"); }), "write fdatasync fsync");
  EXPECT_EQ(Trace([&] { disk->Keep("c:\\file", "c:\\base"); }), "link fsync");
  EXPECT_EQ(Trace(append), "write fdatasync");

  EXPECT_NE(Trouble(append, {.ShortWrites = true}).find("no space"), std::string::npos);
  EXPECT_EQ(data.Read("drive_c/log"), "one\r\ntwo\r\n");
  EXPECT_EQ(Trouble([&] { disk->Replace("c:\\file", "whole"); }, {.ShortWrites = true}), "");
  EXPECT_EQ(data.Read("drive_c/file"), "whole");
  // A failed flush may have dropped the bytes: the next line goes into a new file.
  EXPECT_NE(Trouble(append, {.Error = EIO, .Fails = "fdatasync"}), "");
  EXPECT_EQ(Trace(append), "write fdatasync rename fsync");
  EXPECT_EQ(Trace(append), "write fdatasync");
  EXPECT_EQ(data.Read("drive_c/log"), "one\r\ntwo\r\ntwo\r\ntwo\r\n");
}

TEST_F(HostDiskTest, Finding10AFolderThatCanNotBeFlushedIsNotAskedAgainAndAFailedFlushIsMadeUpFor) {
  data.Write("drive_c/there", "");
  const auto folder = [&](const char* path) { return [&, path] { disk->MakeFolder(path); }; };
  for (const int error : {EOPNOTSUPP, EINVAL, ENOSYS}) {
    EXPECT_EQ(Trace([&] { disk->Replace("c:\\file", "x"); }, {.Error = error, .Fails = "fsync"}),
              "write fdatasync rename fsync");
  }
  EXPECT_EQ(Trace(folder("c:\\one")), "fsync");
  EXPECT_NE(Trouble(folder("c:\\two"), {.Error = EIO, .Fails = "fsync"}), "");
  EXPECT_EQ(Trace(folder("c:\\two")), "fsync") << "it is there, but its name is not safe yet";
  EXPECT_EQ(Trace(folder("c:\\two")), "");
  // The folder that --drives names, and those above it.
  EXPECT_EQ(Trace([&] { MakeHostFolder(data.Path / "a/b"); }), "fsync fsync");
}

TEST_F(HostDiskTest, Finding11TheClaimOutlivesItsFile) {
  data.Write("drive_c/kelp/kelp.lck", "");
  EXPECT_TRUE(disk->Claim("c:\\kelp\\kelp.lck"));
  fs::remove(data.Path / "drive_c/kelp/kelp.lck");
  EXPECT_FALSE(MakeHostDisk(drives)->Claim("c:\\kelp\\kelp.lck"));
  disk.reset();
  EXPECT_TRUE(MakeHostDisk(drives)->Claim("c:\\kelp\\kelp.lck"));
}

TEST_F(HostDiskTest, Finding12LinesOfTheLogAreFlushedTogether) {
  data.Write("drive_c/log", "head\r\n");
  EXPECT_EQ(Trace([&] { disk->AppendUnflushed("c:\\log", "1\r\n"); }), "write");
  EXPECT_EQ(Trace([&] { disk->AppendUnflushed("c:\\log", "2\r\n"); }), "write");
  EXPECT_EQ(Trace([&] { disk->Flush("c:\\log"); }), "fdatasync");
  EXPECT_EQ(Trace([&] { disk->Flush("c:\\log"); }), "") << "nothing is owed any more";
  EXPECT_EQ(data.Read("drive_c/log"), "head\r\n1\r\n2\r\n");
  // What was known of its end no longer holds once another program or a full disk had a hand in it.
  data.Write("drive_c/log", "head\r\nhalf");
  disk->AppendUnflushed("c:\\log", "3\r\n");
  EXPECT_NE(Trouble([&] { disk->AppendUnflushed("c:\\log", "4\r\n"); }, {.ShortWrites = true}), "");
  EXPECT_EQ(Trace([&] { disk->AppendUnflushed("c:\\log", "5\r\n6"); }), "write");
  disk->AppendUnflushed("c:\\log", "7\r\n");
  EXPECT_EQ(data.Read("drive_c/log"), "head\r\nhalf\r\n3\r\n5\r\n6\r\n7\r\n");
}

// The superuser may do everything: the checks run as nobody, in a process of their own.
TEST_F(HostDiskTest, RespectsPermissionsAndKeepsThem) {
  for (const char* file : {"shut/a", "readonly", "foreign", "shared"})
    data.Write(std::string("drive_c/") + file, "old");
  const pid_t child = ::fork();
  if (child == 0) {
    constexpr uid_t kNobody = 65534;
    for (const char* name : {"", "drive_c", "drive_c/shut", "drive_c/readonly", "drive_c/shared"})
      if (::getuid() == 0 && ::chown((data.Path / name).c_str(), kNobody, kNobody) != 0) ::_exit(100);
    if (::getuid() == 0 && (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)) ::_exit(100);
    const auto mode = [&](const char* name, unsigned bits) {
      fs::permissions(data.Path / "drive_c" / name, static_cast<fs::perms>(bits));
    };
    mode("shut", 0500);
    mode("readonly", 0400);
    mode("shared", 0664);
    for (const char* path : {"c:\\readonly", "c:\\shut\\new"}) {
      EXPECT_NE(Trouble([&] { disk->Replace(path, "x"); }).find("permission denied"), std::string::npos);
      EXPECT_NE(Trouble([&] { disk->Append(path, "x"); }).find("permission denied"), std::string::npos);
    }
    mode("shut", 0);
    EXPECT_NE(Trouble([&] { disk->Exists("c:\\shut\\a"); }), "");
    mode("shut", 0700);
    disk->Replace("c:\\shared", "new");
    EXPECT_EQ(fs::status(data.Path / "drive_c/shared").permissions(), fs::perms{0664});
    // Systems refuse second names for a file of another user's; then it is copied.
    disk->Keep("c:\\foreign", "c:\\foreignBase");
    for (const char* name : {"foreignBase", "readonly", "shut/a"})
      EXPECT_EQ(data.Read(std::string("drive_c/") + name), "old");
    std::fflush(stdout);
    ::_exit(HasFailure() ? 1 : 0);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}

}  // namespace kelp
