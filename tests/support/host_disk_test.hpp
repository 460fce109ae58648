// SPDX-License-Identifier: GPL-3.0-or-later
// The disk of this machine in a temporary folder, and the system calls with which it writes.
#pragma once

#include <gtest/gtest.h>

#include <cerrno>
#include <functional>
#include <memory>
#include <string>

#include "platform/error.hpp"
#include "platform/host.hpp"
#include "tests/support/temp_folder.hpp"

namespace kelp {

// The system calls of the disk: their names, one that fails, and writes that take half of their bytes.
struct Calls {
  std::string Trace = {};
  std::string Fails = {};
  int Error = EIO;
  bool HalfWrites = false;
};
inline Calls* calls = nullptr;

struct HostDiskTest : testing::Test {
  TempFolder data = {};
  DriveMap drives{data.Path};
  std::unique_ptr<Disk> disk = MakeHostDisk(drives);

  // The message of the FileError that `work` throws; "" when it throws none.
  static std::string Trouble(const std::function<void()>& work, Calls made = {}) { return Run(work, made); }
  static std::string Run(const std::function<void()>& work, Calls& made) {
    calls = &made;
    std::string trouble;
    try {
      work();
    } catch (const FileError& error) {
      trouble = error.what();
    }
    calls = nullptr;
    return trouble;
  }
  static std::string Trace(const std::function<void()>& work) {
    Calls made;
    const std::string trouble = Run(work, made);
    return made.Trace + trouble;
  }
};

}  // namespace kelp
