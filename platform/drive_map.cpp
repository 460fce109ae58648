// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drive_map.hpp"

#include <algorithm>
#include <vector>

#include "platform/error.hpp"
#include "platform/file_name.hpp"
#include "platform/path_text.hpp"

namespace kelp {

namespace {

namespace fs = std::filesystem;

// Windows ignores letter case by itself, and has names that it refuses or takes for something else.
constexpr bool kHostIsWindows = fs::path::preferred_separator == '\\';
// Beyond so many characters its own functions have to be asked (platform/windows).
constexpr std::size_t kLongPath = 240;

char LowerLetter(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool IsLetter(char c) { return LowerLetter(c) >= 'a' && LowerLetter(c) <= 'z'; }

bool SameName(const std::string& a, const std::string& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerLetter(x) == LowerLetter(y); });
}

std::string NameOf(const fs::path& place) { return TextOf(place.filename()); }

fs::path HostName(const std::string& path, const std::string& name) {
  try {
    return PlaceOf(name);
  } catch (const std::exception&) {
    throw FileError(path, "\"" + name + "\" holds letters that this machine can't read; use others");
  }
}

// The names of a path between its backslashes, each checked to be one that stays where it is put.
std::vector<std::string> NamesOf(const std::string& path) {
  std::vector<std::string> names;
  for (std::size_t start = 2; start < path.size();) {
    const std::size_t end = std::min(path.find('\\', start), path.size());
    const std::string name = path.substr(start, end - start);
    start = end + 1;
    if (name.empty() || name == ".") continue;
    if (name.find_first_not_of(". ") == std::string::npos)
      throw FileError(path, "\"" + name + "\" is no name of a file or folder; write the path without it");
    if (name.find_first_of("/:") != std::string::npos)
      throw FileError(path,
                      "\"" + name + "\" holds a / or :, which no name may hold; use \\ between folders");
    if (const std::string why = kHostIsWindows ? WhyNoWindowsName(name) : ""; !why.empty())
      throw FileError(path, "\"" + name + "\" " + why);
    names.push_back(name);
  }
  return names;
}

bool Below(const fs::path& place, const fs::path& folder) {
  // Where the host itself ignores letter case, one folder may come written in two ways.
  const auto same = [](const fs::path& a, const fs::path& b) {
    return a == b || (kHostIsWindows && SameName(TextOf(a), TextOf(b)));
  };
  return std::mismatch(folder.begin(), folder.end(), place.begin(), place.end(), same).first == folder.end();
}

// A folder path without a separator at its end, links resolved as far as it exists.
fs::path Resolved(const fs::path& folder) {
  std::error_code error;
  fs::path place = fs::weakly_canonical(folder, error);
  if (error) place = fs::absolute(folder).lexically_normal();
  return place.has_filename() || place == place.root_path() ? place : place.parent_path();
}

// Two names that differ by letter case only: the first in byte order, so that it is always the same one.
fs::path InAnyCase(const std::string& path, const fs::path& folder, const fs::path& exact) {
  const std::string name = NameOf(exact);
  std::error_code error;
  fs::path found;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    if (SameName(NameOf(entry->path()), name) && (found.empty() || entry->path() < found))
      found = entry->path();
  if (error && error != std::errc::no_such_file_or_directory && error != std::errc::not_a_directory)
    throw FileError(path, "the folder \"" + NameOf(folder) + "\" can't be listed (" + error.message() +
                              "); give this user the right to read it");
  return found;
}

fs::file_type TypeOf(const std::string& path, const fs::path& place) {
  std::error_code error;
  const fs::file_type type = fs::symlink_status(place, error).type();
  if (type == fs::file_type::none)
    throw FileError(path, "\"" + NameOf(place) + "\" can't be looked up (" + error.message() + ")");
  return type;
}

// Follows a link, which may lead to any place on the same drive.
fs::path Followed(const std::string& path, const fs::path& link, const fs::path& drive) {
  std::error_code error;
  fs::path target = fs::canonical(link, error);
  if (error)
    throw FileError(path, "\"" + NameOf(link) + "\" is a link that leads nowhere; remove or mend it");
  if (!Below(target, drive))
    throw FileError(path, "\"" + NameOf(link) + "\" is a link that leads out of its drive; " +
                              "let a drive letter stand for that folder instead");
  return target;
}

}  // namespace

DriveMap::DriveMap(const fs::path& data) {
  if (data.empty()) return;
  const fs::path root = fs::absolute(data);
  for (char letter = 'a'; letter <= 'z'; ++letter) drives_[letter] = root / (std::string("drive_") + letter);
}

void DriveMap::SetDrive(char letter, const fs::path& folder) {
  if (!IsLetter(letter) || folder.empty())
    throw FileError(std::string(1, letter) + ":", "a drive is a letter from A to Z and a folder");
  drives_[LowerLetter(letter)] = fs::absolute(folder);
}

fs::path DriveMap::DriveFolder(char letter) const {
  if (!IsLetter(letter)) throw FileError(std::string(1, letter) + ":", "a drive is a letter from A to Z");
  const auto drive = drives_.find(LowerLetter(letter));
  if (drive != drives_.end()) return drive->second;
  return std::string(1, letter) + ":\\";
}

// Compared as texts: to compare two paths name by name, or to copy one, takes longer than to open a file.
bool DriveMap::IsDrive(char letter, const fs::path& folder) const {
  const auto drive = drives_.find(LowerLetter(letter));
  return drive != drives_.end() ? drive->second.native() == folder.native()
                                : IsLetter(letter) && DriveFolder(letter) == folder;
}

fs::path DriveMap::HostPath(const std::string& path) const {
  if (path.find('\0') != std::string::npos)
    throw FileError(path.substr(0, path.find('\0')), "a NUL byte follows, which no path may hold");
  if (path.size() < 2 || !IsLetter(path[0]) || path[1] != ':')
    throw FileError(path, "has no drive; a path begins with a drive letter, such as c:\\kelp");
  const fs::path drive = Resolved(DriveFolder(path[0]));
  fs::path place = drive;
  for (const std::string& name : NamesOf(path)) {
    fs::path next = place / HostName(path, name);
    if (kHostIsWindows && next.native().size() >= kLongPath) {
      place = next;
      continue;
    }
    fs::file_type type = TypeOf(path, next);
    if (type == fs::file_type::not_found) {
      const fs::path other = InAnyCase(path, place, next);
      if (!other.empty()) next = other;
      if (!other.empty()) type = TypeOf(path, next);
    }
    place = type == fs::file_type::symlink ? Followed(path, next, drive) : next;
  }
  return place;
}

std::optional<std::string> DriveMap::ProgramPath(const fs::path& place) const {
  const fs::path wanted = Resolved(place);
  fs::path best;
  std::string path;
  for (char letter = 'a'; letter <= 'z'; ++letter) {
    const fs::path drive = Resolved(DriveFolder(letter));
    // One drive may lie within another: the nearer one gives the shorter path.
    if (!Below(wanted, drive) || (!best.empty() && Below(best, drive))) continue;
    best = drive;
    path = std::string(1, letter) + ":";
  }
  if (best.empty()) return std::nullopt;
  auto name = wanted.begin();
  std::advance(name, std::distance(best.begin(), best.end()));
  if (name == wanted.end()) return path + "\\";
  for (; name != wanted.end(); ++name) {
    const std::string text = TextOf(*name);
    if (text.find_first_of("\\/:") != std::string::npos) return std::nullopt;
    path += "\\" + text;
  }
  return path;
}

}  // namespace kelp
