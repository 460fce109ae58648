// SPDX-License-Identifier: GPL-3.0-or-later
// What a power cut leaves of the files below one folder: the content of a file as it was at its last flush,
// the names of a folder as they were at the folder's last flush. All else is gone.
#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

namespace kelp {

class Durable {
 public:
  /// What is there now has long been flushed.
  void Begin(const std::string& root) {
    namespace fs = std::filesystem;
    if (!fs::is_directory(root)) return;
    FlushFolder(root);
    for (const auto& entry : fs::recursive_directory_iterator(root))
      entry.is_directory() ? FlushFolder(entry.path().string()) : FlushFile(entry.path().string());
  }
  void Flush(int fd, const std::string& path) {
    struct stat status {};
    ::fstat(fd, &status);
    S_ISDIR(status.st_mode) ? FlushFolder(path) : FlushFile(path);
  }
  void WriteTo(const std::string& root, const std::string& target) const {
    std::filesystem::create_directories(target);
    WriteFolder(root, target);
  }

 private:
  static unsigned long long NumberOf(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
  }
  void FlushFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    contents_[NumberOf(path)] = {std::istreambuf_iterator<char>(file), {}};
  }
  void FlushFolder(const std::string& path) {
    auto& names = names_[path];
    names.clear();
    for (const auto& entry : std::filesystem::directory_iterator(path))
      names[entry.path().filename().string()] = {NumberOf(entry.path().string()), entry.is_directory()};
  }
  void WriteFolder(const std::string& folder, const std::string& target) const {
    const auto names = names_.find(folder);
    if (names == names_.end()) return;
    for (const auto& [name, entry] : names->second) {
      const auto content = contents_.find(entry.first);
      const std::filesystem::path place = std::filesystem::path(target) / name;
      if (entry.second) {
        std::filesystem::create_directories(place);
        WriteFolder((std::filesystem::path(folder) / name).string(), place.string());
      } else {
        std::ofstream(place, std::ios::binary)
            << (content == contents_.end() ? std::string() : content->second);
      }
    }
  }

  std::map<unsigned long long, std::string> contents_ = {};  // by number of the file
  std::map<std::string, std::map<std::string, std::pair<unsigned long long, bool>>> names_ = {};
};

inline Durable& TheDurable() {
  static Durable& durable = *new Durable();
  return durable;
}

}  // namespace kelp
