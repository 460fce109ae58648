// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/station_lock.hpp"

#include <chrono>
#include <utility>

#include "core/date_time.hpp"
#include "core/text.hpp"
#include "files/kept_copy.hpp"

namespace kelp {

namespace {

constexpr std::int64_t kRefreshEvery = 60'000;
constexpr std::chrono::minutes kLeftBehindAfter{10};

std::string LockPath(const std::string& baseFile) { return StationPath(baseFile) + ".lck"; }

std::string LockLine(Kelp& kelp) {
  const LocalTime now = kelp.platform.Now();
  return kelp.platform.MachineName() + "\t" + kelp.platform.UserName() + "\t" + ShortDate(now) + " " +
         LongTime(now) + "\r\n";
}

// The newest whole line; nobody where there is none.
LockHolder HolderOf(const std::string& content) {
  LockHolder holder;
  for (const std::string& line : Lines(content)) {
    const auto first = line.find('\t');
    const auto second = line.find('\t', first + 1);
    if (first == std::string::npos || second == std::string::npos) continue;
    holder = {line.substr(0, first), line.substr(first + 1, second - first - 1), line.substr(second + 1)};
  }
  return holder;
}

// Clocks of two machines differ: a time ahead of ours is as good as one behind it.
bool IsFresh(const LockHolder& holder, LocalTime now) {
  const auto at = ParseDateTime(holder.At);
  return at && std::chrono::abs(now - *at) < kLeftBehindAfter;
}

template <class Work>
void OrSay(Kelp& kelp, const Work& work) {
  try {
    work();
  } catch (const FileError& error) {
    SetStatus(kelp,
              std::string(error.what()) + " (another machine is not told that the station is open here)");
  }
}

}  // namespace

std::optional<LockHolder> OtherHolder(Kelp& kelp, const std::string& baseFile) {
  Disk& disk = kelp.platform.disk();
  const std::string path = LockPath(baseFile);
  if (SameIgnoringCase(path, kelp.StationLock.Path)) return {};
  LockHolder holder;
  OrSay(kelp, [&] {
    if (disk.Exists(path)) holder = HolderOf(disk.Read(path));
  });
  const bool other = !holder.Machine.empty() && holder.Machine != kelp.platform.MachineName();
  if (!other || !IsFresh(holder, kelp.platform.Now())) return {};
  return holder;
}

void OverrideHolder(Kelp& kelp, const std::string& baseFile) { kelp.StationLock.Path = LockPath(baseFile); }

void HoldStation(Kelp& kelp, const std::string& baseFile) {
  const std::string path = LockPath(baseFile);
  if (!SameIgnoringCase(path, kelp.StationLock.Path)) ReleaseStation(kelp);
  kelp.StationLock = {path, kelp.platform.Milliseconds()};
  OrSay(kelp, [&] { kelp.platform.disk().Replace(path, LockLine(kelp)); });
}

void RefreshStationLock(Kelp& kelp) {
  StationLockState& lock = kelp.StationLock;
  const std::int64_t now = kelp.platform.Milliseconds();
  if (lock.Path.empty() || now - lock.RefreshedAt < kRefreshEvery) return;
  lock.RefreshedAt = now;
  OrSay(kelp, [&] { kelp.platform.disk().AppendUnflushed(lock.Path, LockLine(kelp)); });
}

void ReleaseStation(Kelp& kelp) {
  const std::string path = std::exchange(kelp.StationLock.Path, "");
  if (path.empty()) return;
  OrSay(kelp, [&] {
    Disk& disk = kelp.platform.disk();
    // Another machine may have opened it after a question; then it is that one's.
    if (disk.Exists(path) && HolderOf(disk.Read(path)).Machine == kelp.platform.MachineName())
      disk.Remove(path);
  });
}

}  // namespace kelp
