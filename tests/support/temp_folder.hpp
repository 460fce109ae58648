// SPDX-License-Identifier: GPL-3.0-or-later
// A folder of its own for a test, gone with its scope.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace kelp {

class TempFolder {
 public:
  TempFolder() {
    std::random_device random;
    const auto folder = std::filesystem::canonical(std::filesystem::temp_directory_path());
    do Path = folder / ("kelp-test-" + std::to_string(random()));
    while (!std::filesystem::create_directory(Path));
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(Path, ignored);
  }

  void Write(const std::string& name, const std::string& content) const {
    std::filesystem::create_directories((Path / name).parent_path());
    std::ofstream(Path / name, std::ios::binary) << content;
  }
  [[nodiscard]] std::string Read(const std::string& name) const {
    std::ifstream file(Path / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::filesystem::path Path;
};

}  // namespace kelp
