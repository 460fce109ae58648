// Turns program paths ("c:\kelp\kelp.cfg") into places on the host. Each drive is a folder; names are
// found without regard to letter case, folder by folder; no path leads out of its drive's folder.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace kelp {

class DriveMap {
 public:
  /// Drive X is `<data>/drive_x` unless SetDrive says otherwise.
  explicit DriveMap(std::filesystem::path data) : data_(std::move(data)) {}

  void SetDrive(char letter, const std::filesystem::path& folder);

  /// The folder of a drive.
  [[nodiscard]] std::filesystem::path DriveFolder(char letter) const;

  /// The host path of a program path. What exists is found in any letter case, the exact case first;
  /// what does not exist yet gets the case asked for. Throws FileError, which names the path, when it
  /// has no drive, holds a NUL byte, or would leave the drive's folder ("..", a link that leads out).
  [[nodiscard]] std::filesystem::path HostPath(const std::string& path) const;

  /// The program path of a place on the host, such as a file chosen in a dialog; nothing when it lies
  /// on no drive.
  [[nodiscard]] std::optional<std::string> ProgramPath(const std::filesystem::path& place) const;

 private:
  std::filesystem::path data_;
  std::map<char, std::filesystem::path> drives_ = {};
};

}  // namespace kelp
