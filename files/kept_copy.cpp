#include "files/kept_copy.hpp"

#include "core/date_time.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

constexpr std::string_view kKept = "Base";

std::string TimeStamp(LocalTime now) {
  std::string stamp;
  for (const char c : ShortDate(now) + " " + LongTime(now))
    if (c != ' ' && c != ':' && c != '/') stamp += c;
  return stamp;
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
  std::string kept = first;
  for (int count = 1; disk.Exists(kept); ++count)
    kept = first + TimeStamp(now) + (count > 1 ? "-" + std::to_string(count) : "");
  disk.Keep(path, kept);
}

}  // namespace kelp
