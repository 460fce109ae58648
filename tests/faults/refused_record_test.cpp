// SPDX-License-Identifier: GPL-3.0-or-later
// A record on the disk of this machine that can't be written for a while.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "core/config.hpp"
#include "core/text.hpp"
#include "platform/scripted.hpp"
#include "record/book.hpp"
#include "record/record.hpp"
#include "tests/faults/host_disk_test.hpp"

namespace kelp {

namespace fs = std::filesystem;

// Flushes that fail for good, another program's lock, no right to write: the value is in the spare or waits,
// a hundred tries make no file longer, and when it is mended the record has every value.
TEST_F(HostDiskTest, Finding10ARecordThatCanNotBeWrittenGrowsNothingAndIsMadeUpFor) {
  for (const char* folder : {"drive_c/kelp", "drive_d/backup"}) fs::create_directories(data.Path / folder);
  for (const char* folder : {"", "drive_d", "drive_d/backup"})
    fs::permissions(data.Path / folder, fs::perms::all);
  const fs::path record = data.Path / "drive_c/kelp/record.db";
  ScriptedPlatform machine{*disk};
  Kelp kelp{machine};
  SetDefaultConfig(kelp.run);
  kelp.run.StationLoads = 1;
  kelp.run.SampCount = 1;
  kelp.run.PrnFile = "c:\\chl002.prn";
  kelp.run.TmpFile = "d:\\backup\\chl002.tmp";
  KeepRecord(kelp);
  const auto tryOften = [&](const char* value, const char* words, bool spare) {
    kelp.frmAcquire.datalog.Text(1, kColRb) = value;
    std::uintmax_t first = 0;
    for (int i = 0; i < (spare ? 3 : 100); ++i) {
      KeepRecord(kelp);
      std::uintmax_t size = 0;
      for (const auto& entry : fs::recursive_directory_iterator(data.Path))
        if (entry.is_regular_file()) size += entry.file_size();
      if (i == 0) first = size;
      EXPECT_EQ(size, first) << value << " try " << i;
    }
    EXPECT_TRUE(Contains(kelp.record.Trouble, words)) << value << ": " << kelp.record.Trouble;
    EXPECT_EQ(Contains(kelp.record.Trouble, "they are in d:\\backup\\record-"), spare) << kelp.record.Trouble;
  };
  const auto expectMended = [&](const std::string& value) {
    KeepRecord(kelp);
    EXPECT_FALSE(kelp.record.Unsafe) << kelp.record.Trouble;
    EXPECT_TRUE(Contains(ListRecord(*disk, "c:\\chl002").back(), "-> " + value + " ("));
  };
  Trouble([&] { tryOften("1.0000", "input/output error", false); },
          {.Error = EOPNOTSUPP, .Fails = "fdatasync"});
  expectMended("1.0000");

  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t other = ::fork();
  if (other == 0) {
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    lock.l_start = 0x40000000;  // where SQLite locks a database
    lock.l_len = 512;
    const int file = ::open(record.c_str(), O_RDWR);
    const char done = ::fcntl(file, F_SETLK, &lock) == 0 ? 'y' : 'n';
    static_cast<void>(::write(ready[1], &done, 1));
    for (;;) ::pause();
  }
  char locked = 'n';
  EXPECT_EQ(::read(ready[0], &locked, 1), 1);
  EXPECT_EQ(locked, 'y');
  tryOften("2.0000", "another program has it locked", true);
  ::kill(other, SIGKILL);
  ::waitpid(other, nullptr, 0);
  expectMended("2.0000");

  // The superuser may write all the same; the spare is anybody's.
  for (const auto& spare : fs::directory_iterator(data.Path / "drive_d/backup"))
    fs::permissions(spare.path(), fs::perms::all);
  kelp.record.Book->Main.reset();
  fs::permissions(record, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  const bool super = ::seteuid(65534) == 0;
  tryOften("3.0000", "read-only", true);
  if (super) {
    EXPECT_EQ(::seteuid(0), 0);
  }
  fs::permissions(record, fs::perms::owner_read | fs::perms::owner_write);
  expectMended("3.0000");
}

}  // namespace kelp
