// SPDX-License-Identifier: GPL-3.0-or-later
// The real disk of the machine. What it writes is on the disk before it returns: content first, then the
// name. A value that was read once can't be read again, so every failure is told and leaves the old file.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "platform/host.hpp"

namespace kelp {

class HostDisk : public Disk {
 public:
  HostDisk(const DriveMap& drives, Appends appends)
      : drives_(drives), flushes_(appends == Appends::Flushed) {}
  bool Exists(const std::string& path) override;
  bool IsFolder(const std::string& path) override;
  bool AnyFileIn(const std::string& folder) override;
  std::vector<std::string> FilesIn(const std::string& folder) override;
  std::filesystem::path HostPlace(const std::string& path) override { return drives_.HostPath(path); }
  std::string Read(const std::string& path) override;
  void Replace(const std::string& path, const std::string& content) override;
  void Append(const std::string& path, const std::string& text) override { AppendText(path, text, flushes_); }
  void AppendUnflushed(const std::string& path, const std::string& text) override {
    AppendText(path, text, false);
  }
  void Flush(const std::string& path) override;
  void Keep(const std::string& path, const std::string& newPath) override;
  void Move(const std::string& path, const std::string& newPath) override;
  void Remove(const std::string& path) override;
  bool MakeFolder(const std::string& path) override;
  bool Claim(const std::string& path) override;

 private:
  void AppendText(const std::string& path, const std::string& text, bool flush);
  std::filesystem::path PlaceOfLog(const std::string& path);

  // Files whose flush failed. What the system still shows of them may not be on the disk, so the next
  // line goes with all the others into a new file.
  std::set<std::filesystem::path> doubtful_ = {};
  // Where the logs lie that were written last, by drive folder and program path: a drive may be moved.
  std::map<std::pair<std::filesystem::path, std::string>, std::filesystem::path> logs_ = {};
  // Program paths of logs whose last lines the system may still hold back; true for one whose name too.
  std::map<std::string, bool> unflushed_ = {};
  // Folders whose new name may not be on the disk: that flush failed and is to be made up for.
  std::set<std::filesystem::path> unflushedFolders_ = {};
  // Handles of the files that this copy of the program holds; what they are differs by machine.
  std::map<std::filesystem::path, std::shared_ptr<void>> claims_ = {};
  const DriveMap& drives_;
  bool flushes_;  ///< a line is on the disk before Append returns
};

}  // namespace kelp
