// SPDX-License-Identifier: GPL-3.0-or-later
// The disk, with a word to the front end for each file written: the status bar shows the last one.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/disk.hpp"

namespace kelp {

class NoticingDisk : public Disk {
 public:
  NoticingDisk(std::unique_ptr<Disk> disk, std::function<void(const std::string&)> written)
      : disk_(std::move(disk)), written_(std::move(written)) {}

  bool Exists(const std::string& path) override { return disk_->Exists(path); }
  bool IsFolder(const std::string& path) override { return disk_->IsFolder(path); }
  bool AnyFileIn(const std::string& folder) override { return disk_->AnyFileIn(folder); }
  std::vector<std::string> FilesIn(const std::string& folder) override { return disk_->FilesIn(folder); }
  std::filesystem::path HostPlace(const std::string& path) override { return disk_->HostPlace(path); }
  std::string Read(const std::string& path) override { return disk_->Read(path); }
  void Replace(const std::string& path, const std::string& content) override {
    disk_->Replace(path, content);
    written_(path);
  }
  void Append(const std::string& path, const std::string& text) override {
    disk_->Append(path, text);
    written_(path);
  }
  void AppendUnflushed(const std::string& path, const std::string& text) override {
    disk_->AppendUnflushed(path, text);
    written_(path);
  }
  void Flush(const std::string& path) override { disk_->Flush(path); }
  void Move(const std::string& path, const std::string& newPath) override {
    disk_->Move(path, newPath);
    written_(newPath);
  }
  void Keep(const std::string& path, const std::string& newPath) override {
    disk_->Keep(path, newPath);
    written_(newPath);
  }
  void Remove(const std::string& path) override { disk_->Remove(path); }
  bool MakeFolder(const std::string& path) override { return disk_->MakeFolder(path); }
  bool Claim(const std::string& path) override { return disk_->Claim(path); }

 private:
  std::unique_ptr<Disk> disk_;
  std::function<void(const std::string&)> written_;
};

}  // namespace kelp
