// SPDX-License-Identifier: GPL-3.0-or-later
// The machine under the program: its disk, its clocks, its folders. One source for each kind of
// machine (platform/posix, platform/windows) and the same interface for all.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/disk.hpp"
#include "platform/drive_map.hpp"
#include "platform/platform.hpp"

namespace kelp {

/// Whether an append waits until its line is on the disk. `Quick` is for trials and tests, whose readings
/// can be had again: thousands of lines then cost next to nothing.
enum class Appends { Flushed, Quick };

/// The real disk behind a drive map, which must outlive it. For one thread.
std::unique_ptr<Disk> MakeHostDisk(const DriveMap& drives, Appends appends = Appends::Flushed);

/// The local time of the machine's clock.
LocalTime HostNow();

/// A clock that never goes back, in milliseconds.
std::int64_t HostMilliseconds();

/// Where the drives lie unless told otherwise: `$XDG_DATA_HOME/kelp`, or `~/.local/share/kelp`; on
/// Windows an empty path, for the machine's own drives. Throws FileError when the user has no home.
std::filesystem::path HostDataFolder();

/// The name of this machine, and of who is logged in on it; "unknown" where the machine does not say.
std::string HostMachineName();
std::string HostUserName();

/// Creates a folder and those above it, each name flushed to the disk. Throws FileError.
void MakeHostFolder(const std::filesystem::path& folder);

/// The device of a serial port number: "/dev/ttyS<N-1>", on Windows "COMN".
std::string HostPortDevice(int number);

}  // namespace kelp
