// SPDX-License-Identifier: GPL-3.0-or-later
// A disk in memory: names without regard to letter case, and an operation that fails on
// demand.
#pragma once

#include <map>
#include <set>
#include <string>

#include "core/text.hpp"
#include "platform/disk.hpp"
#include "platform/error.hpp"

namespace kelp {

class MemoryDisk : public Disk {
 public:
  /// Writing operations (Replace, Append, Keep, Remove, MakeFolder) fail from the `FailAt`-th on, that
  /// many times; 0 fails none.
  int FailAt = 0;
  int FailTimes = 1;
  /// Every write below a path with this beginning fails.
  std::string FailBelow;
  int Writes = 0;
  std::set<std::string> Unflushed;  ///< lower-case paths with lines that wait for a flush
  bool AnotherCopyRuns = false;

  std::map<std::string, std::string> Files;  ///< by lower-case path
  std::set<std::string> Folders;             ///< lower case, without the backslash at the end

  bool Exists(const std::string& path) override { return Files.contains(Lower(path)) || IsFolder(path); }
  bool IsFolder(const std::string& path) override {
    const std::string folder = Key(path);
    if (Folders.contains(folder)) return true;
    const auto next = Files.lower_bound(folder + "\\");
    return next != Files.end() && next->first.starts_with(folder + "\\");
  }
  bool AnyFileIn(const std::string& folder) override { return !FilesIn(folder).empty(); }
  std::vector<std::string> FilesIn(const std::string& folder) override {
    std::vector<std::string> names;
    const std::string start = Key(folder) + "\\";
    for (const auto& [path, content] : Files)
      if (path.starts_with(start) && path.find('\\', start.size()) == std::string::npos)
        names.push_back(path.substr(start.size()));
    return names;
  }
  std::filesystem::path HostPlace(const std::string& /*path*/) override { return {}; }
  std::string Read(const std::string& path) override {
    const auto file = Files.find(Lower(path));
    if (file == Files.end()) throw FileError(path, IsFolder(path) ? "is a folder" : "does not exist");
    return file->second;
  }
  void Replace(const std::string& path, const std::string& content) override {
    CountWrite(path);
    if (IsFolder(path)) throw FileError(path, "is a folder");
    Files[Lower(path)] = content;
  }
  void Append(const std::string& path, const std::string& text) override {
    CountWrite(path);
    if (IsFolder(path)) throw FileError(path, "is a folder");
    Files[Lower(path)] += text;
  }
  void AppendUnflushed(const std::string& path, const std::string& text) override {
    Append(path, text);
    Unflushed.insert(Lower(path));
  }
  void Flush(const std::string& path) override { Unflushed.erase(Lower(path)); }
  void Move(const std::string& path, const std::string& newPath) override {
    CountWrite(newPath);
    if (Exists(newPath)) throw FileError(newPath, "exists already");
    Files[Lower(newPath)] = Read(path);
    Files.erase(Lower(path));
  }
  void Keep(const std::string& path, const std::string& newPath) override {
    CountWrite(newPath);
    if (Exists(newPath)) throw FileError(newPath, "exists already");
    Files[Lower(newPath)] = Read(path);
  }
  void Remove(const std::string& path) override {
    CountWrite(path);
    Files.erase(Lower(path));
  }
  bool MakeFolder(const std::string& path) override {
    CountWrite(path);
    if (Files.contains(Key(path))) throw FileError(path, "is a file");
    if (IsFolder(path)) return false;
    if (path.size() < 3 || path.compare(1, 2, ":\\") != 0) throw FileError(path, "has no drive");
    for (std::string folder = Key(path); folder.size() > 2; folder.erase(folder.rfind('\\')))
      Folders.insert(folder);
    return true;
  }
  bool Claim(const std::string& /*path*/) override { return !AnotherCopyRuns; }

 private:
  static std::string Key(const std::string& path) {
    std::string key = Lower(path);
    if (key.ends_with('\\')) key.pop_back();
    return key;
  }
  void CountWrite(const std::string& path) {
    ++Writes;
    const bool counted = FailAt > 0 && Writes >= FailAt && Writes < FailAt + FailTimes;
    const bool below = !FailBelow.empty() && Lower(path).starts_with(Lower(FailBelow));
    if (counted || below) throw FileError(path, "no space left on the device");
  }
};

}  // namespace kelp
