// SPDX-License-Identifier: GPL-3.0-or-later
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
  /// Drive X is `<data>/drive_x` unless SetDrive says otherwise; with an empty `data` it is the host's
  /// own drive X.
  explicit DriveMap(const std::filesystem::path& data);

  /// Puts drive `letter` into a folder, which need not exist yet. Throws FileError when it is no letter
  /// from A to Z or the folder is empty.
  void SetDrive(char letter, const std::filesystem::path& folder);

  /// The folder of a drive. Throws FileError when it is no letter from A to Z.
  [[nodiscard]] std::filesystem::path DriveFolder(char letter) const;

  /// True when a drive has this folder, written the same way.
  [[nodiscard]] bool IsDrive(char letter, const std::filesystem::path& folder) const;

  /// The host path of a program path. What exists is found in any letter case (of A to Z), the exact
  /// case first; what does not exist yet gets the case asked for. Throws FileError, which names the
  /// path, when it has no drive, holds a NUL byte or another byte that no name may hold, or would leave
  /// the drive's folder ("..", a link that leads out).
  [[nodiscard]] std::filesystem::path HostPath(const std::string& path) const;

  /// The program path of a place on the host, such as a file chosen in a dialog; nothing when it lies
  /// on no drive or its name can't be part of a program path.
  [[nodiscard]] std::optional<std::string> ProgramPath(const std::filesystem::path& place) const;

 private:
  std::map<char, std::filesystem::path> drives_ = {};
};

}  // namespace kelp
