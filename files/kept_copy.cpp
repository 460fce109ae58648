// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/kept_copy.hpp"

#include "core/date_time.hpp"
#include "core/text.hpp"
#include "files/report.hpp"

namespace kelp {

namespace {

constexpr std::string_view kKept = "Base";

std::string TimeStamp(LocalTime now) {
  std::string stamp;
  for (const char c : ShortDate(now) + " " + LongTime(now))
    if (c != ' ' && c != ':' && c != '/') stamp += c;
  return stamp;
}

std::string StampedName(Disk& disk, const std::string& first, LocalTime now) {
  std::string name = first + TimeStamp(now);
  const std::string stamped = name;
  for (int count = 2; disk.Exists(name); ++count) name = stamped + "-" + std::to_string(count);
  return name;
}

}  // namespace

std::string StationPath(const std::string& path) {
  const auto name = path.rfind('\\') + 1;
  const auto kept = path.rfind(kKept);
  if (kept == std::string::npos || kept <= name) return path;
  const bool stampBehind = path.find_first_not_of("0123456789-", kept + kKept.size()) == std::string::npos;
  return stampBehind ? path.substr(0, kept) : path;
}

void KeepBaseFile(Disk& disk, const std::string& path, LocalTime now) {
  if (!disk.Exists(path)) return;
  const std::string first = path + std::string(kKept);
  disk.Keep(path, disk.Exists(first) ? StampedName(disk, first, now) : first);
}

void KeepResults(Disk& disk, const std::string& path, LocalTime now) {
  if (disk.Exists(path) && Contains(disk.Read(path), kReportBanner))
    disk.Keep(path, StampedName(disk, path + std::string(kKept), now));
}

}  // namespace kelp
