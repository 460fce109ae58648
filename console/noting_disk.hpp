// SPDX-License-Identifier: GPL-3.0-or-later
// A disk that notes what is written through it, for the list of files at the end of a watched script.
#pragma once

#include <string>
#include <vector>

#include "core/text.hpp"
#include "platform/disk.hpp"

namespace kelp {

class NotingDisk : public Disk {
 public:
  explicit NotingDisk(Disk& disk) : disk_(disk) {}

  /// The program paths of the files written, in the order of their first writing.
  [[nodiscard]] const std::vector<std::string>& Written() const { return written_; }

  bool Exists(const std::string& path) override { return disk_.Exists(path); }
  bool IsFolder(const std::string& path) override { return disk_.IsFolder(path); }
  bool AnyFileIn(const std::string& folder) override { return disk_.AnyFileIn(folder); }
  std::vector<std::string> FilesIn(const std::string& folder) override { return disk_.FilesIn(folder); }
  std::filesystem::path HostPlace(const std::string& path) override { return disk_.HostPlace(path); }
  std::string Read(const std::string& path) override { return disk_.Read(path); }
  void Replace(const std::string& path, const std::string& content) override {
    disk_.Replace(path, content);
    Note(path);
  }
  void Append(const std::string& path, const std::string& text) override {
    disk_.Append(path, text);
    Note(path);
  }
  void AppendUnflushed(const std::string& path, const std::string& text) override {
    disk_.AppendUnflushed(path, text);
    Note(path);
  }
  void Flush(const std::string& path) override { disk_.Flush(path); }
  void Move(const std::string& path, const std::string& newPath) override {
    disk_.Move(path, newPath);
    Note(newPath);
  }
  void Keep(const std::string& path, const std::string& newPath) override {
    disk_.Keep(path, newPath);
    Note(newPath);
  }
  void Remove(const std::string& path) override {
    disk_.Remove(path);
    std::erase_if(written_, [&](const std::string& known) { return SameIgnoringCase(known, path); });
  }
  bool MakeFolder(const std::string& path) override { return disk_.MakeFolder(path); }
  bool Claim(const std::string& path) override { return disk_.Claim(path); }

 private:
  void Note(const std::string& path) {
    for (const std::string& known : written_)
      if (SameIgnoringCase(known, path)) return;
    written_.push_back(path);
  }

  Disk& disk_;
  std::vector<std::string> written_ = {};
};

}  // namespace kelp
