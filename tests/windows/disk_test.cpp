// SPDX-License-Identifier: GPL-3.0-or-later
// The disk of Windows: what it refuses, what it must take, and what another program does to it.
#include <gtest/gtest.h>
#include <windows.h>

#include "platform/error.hpp"
#include "platform/host.hpp"
#include "tests/support/temp_folder.hpp"

namespace kelp {

namespace {

namespace fs = std::filesystem;

struct Bench {
  TempFolder folder = {};
  DriveMap drives{folder.Path};
  std::unique_ptr<Disk> disk = MakeHostDisk(drives);

  Bench() { disk->MakeFolder("c:\\kelp"); }
};

// What a call says that fails.
template <class Call>
std::string Refusal(const Call& call) try {
  call();
  return "nothing";
} catch (const FileError& error) {
  return error.reason();
}

}  // namespace

TEST(WindowsDisk, TakesLongNamesBlanksAndUmlauts) {
  Bench bench;
  std::string folder = "c:\\Ärger mit Ölproben";
  for (int i = 0; i < 12; ++i) folder += "\\a folder of thirty characters " + std::to_string(i);
  ASSERT_GT(folder.size(), 400U);
  EXPECT_TRUE(bench.disk->MakeFolder(folder));
  EXPECT_FALSE(bench.disk->MakeFolder(folder));
  const std::string file = folder +
                           "\\chl\xc3\xbc"
                           "007.csv";
  EXPECT_FALSE(bench.disk->AnyFileIn(folder));
  bench.disk->Replace(file, "head\r\n");
  bench.disk->Append(file, "line\r\n");
  bench.disk->Replace(file, bench.disk->Read(file) + "more\r\n");
  EXPECT_EQ(bench.disk->Read(file), "head\r\nline\r\nmore\r\n");
  bench.disk->Keep(file, folder + "\\kept");
  EXPECT_TRUE(bench.disk->AnyFileIn(folder));
  bench.disk->Remove(file);
  EXPECT_FALSE(bench.disk->Exists(file));
  EXPECT_EQ(bench.disk->Read(folder + "\\KEPT"), "head\r\nline\r\nmore\r\n");
  for (int i = 0; i < 13; ++i) {
    bench.disk->Remove(folder + "\\kept");
    ::RemoveDirectoryW((L"\\\\?\\" + bench.drives.HostPath(folder).make_preferred().wstring()).c_str());
    folder = folder.substr(0, folder.rfind('\\'));
  }
}

TEST(WindowsDisk, WritesToNoDeviceAndToNoFileOfAnotherName) {
  Bench bench;
  for (const char* name : {"nul", "com3.txt", "chl007.", "a?b"}) {
    const std::string path = std::string("c:\\kelp\\") + name;
    for (const std::string& place : {path, path + "\\file"}) {
      EXPECT_NE(Refusal([&] { bench.disk->Replace(place, "x"); }).find('"'), std::string::npos) << place;
      EXPECT_NE(Refusal([&] { bench.disk->Append(place, "x"); }).find('"'), std::string::npos) << place;
    }
  }
  EXPECT_FALSE(bench.disk->AnyFileIn("c:\\kelp"));
}

TEST(WindowsDisk, SaysWhyAFileCannotBeWrittenAndLeavesIt) {
  Bench bench;
  const std::string file = "c:\\kelp\\kelp.cfg";
  const fs::path place = bench.drives.HostPath(file);
  bench.disk->Replace(file, "old");
  const auto refused = [&](const char* reason) {
    for (const std::string& said : {Refusal([&] { bench.disk->Replace(file, "new"); }),
                                    Refusal([&] { bench.disk->Append(file, "new\r\n"); })})
      EXPECT_NE(said.find(reason), std::string::npos) << said;
  };
  const HANDLE other = ::CreateFileW(place.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  refused("another program has it open");
  ::CloseHandle(other);
  ::SetFileAttributesW(place.c_str(), FILE_ATTRIBUTE_READONLY);
  refused("clear its read-only mark");
  ::SetFileAttributesW(place.c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(bench.disk->Read(file), "old");
  EXPECT_NE(
      Refusal([&] { bench.disk->Replace("c:\\none\\x", "new"); }).find("folder or drive does not exist"),
      std::string::npos);
  EXPECT_NE(Refusal([&] { bench.disk->Keep(file, file); }).find("exists already"), std::string::npos);
}

// On a drive of the machine itself that is not there, a backup folder is missing and no error.
TEST(WindowsDisk, ADriveThatIsNotThereHasNoFolder) {
  const DriveMap drives({});
  const auto disk = MakeHostDisk(drives);
  ASSERT_EQ(::GetDriveTypeW(L"q:\\"), static_cast<UINT>(DRIVE_NO_ROOT_DIR));
  EXPECT_FALSE(disk->Exists("q:\\vault"));
  EXPECT_FALSE(disk->IsFolder("q:\\vault"));
  EXPECT_NE(Refusal([&] { disk->MakeFolder("q:\\vault"); }), "nothing");
  EXPECT_TRUE(disk->IsFolder("c:\\windows"));
}

TEST(WindowsDisk, OneCopyOfTheProgramHoldsTheLock) {
  Bench bench;
  const auto second = MakeHostDisk(bench.drives);
  EXPECT_TRUE(bench.disk->Claim("c:\\kelp\\kelp.lck"));
  EXPECT_TRUE(bench.disk->Claim("c:\\kelp\\kelp.lck"));
  EXPECT_FALSE(second->Claim("c:\\kelp\\kelp.lck"));
  bench.disk.reset();
  EXPECT_TRUE(second->Claim("c:\\kelp\\kelp.lck"));
}

}  // namespace kelp
