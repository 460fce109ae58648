// SPDX-License-Identifier: GPL-3.0-or-later
// The disk of this machine in a temporary folder, and the calls with which it writes.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/error.hpp"
#include "platform/host.hpp"
#include "tests/faults/shim.hpp"
#include "tests/support/temp_folder.hpp"

namespace kelp {

struct HostDiskTest : testing::Test {
  TempFolder data = {};
  DriveMap drives{data.Path};
  std::unique_ptr<Disk> disk = MakeHostDisk(drives);

  // The message of the FileError that `work` throws with this fault; "" when it throws none.
  std::string Trouble(const std::function<void()>& work, Faults fault = {}) {
    TheFaults() = std::move(fault);
    TheFaults().Root = data.Path.string();
    std::string trouble;
    try {
      work();
    } catch (const FileError& error) {
      trouble = error.what();
    }
    TheFaults().Root.clear();
    return trouble;
  }
  // The calls that put it on the disk, and what it throws.
  std::string Trace(const std::function<void()>& work, Faults fault = {}) {
    const std::string trouble = Trouble(work, std::move(fault));
    std::string trace;
    for (const DiskCall& call : TheFaults().Calls)
      for (const char* name : {"write", "fdatasync", "fsync", "rename", "link"})
        if (call.Name == name) trace += (trace.empty() ? "" : " ") + call.Name;
    return trace + trouble;
  }
};

}  // namespace kelp
