// SPDX-License-Identifier: GPL-3.0-or-later
// All that the program asks of the disk. Paths are program paths ("c:\kelp\kelp.cfg"): a drive
// letter, backslashes, no regard to letter case. Every operation that fails throws FileError, which
// names the path, and leaves what existed before as it was.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace kelp {

class Disk {
 public:
  virtual ~Disk() = default;

  /// True for a file of that name. A folder of that name counts too, so that reading it fails with a
  /// message instead of being taken for a missing file.
  virtual bool Exists(const std::string& path) = 0;

  /// True for a folder of that name.
  virtual bool IsFolder(const std::string& path) = 0;

  /// True when the folder exists and holds at least one file.
  virtual bool AnyFileIn(const std::string& folder) = 0;

  /// The names of the files in a folder; none when there is no such folder.
  virtual std::vector<std::string> FilesIn(const std::string& folder) = 0;

  /// Where the file lies on the host, for a library that opens files by itself. Empty when the disk has no
  /// such place: the file is then read and replaced whole.
  virtual std::filesystem::path HostPlace(const std::string& path) = 0;

  /// The whole file, byte for byte. Files above 64 MiB are refused.
  virtual std::string Read(const std::string& path) = 0;

  /// Replaces the file, or creates it, in one step: after a crash it holds either the old or the new
  /// content, whole. The content is on the disk before this returns.
  virtual void Replace(const std::string& path, const std::string& content) = 0;

  /// Appends `text` (one or more whole lines, line ends included) in one write and flushes it to the
  /// disk; creates the file when it is missing. Never reads what the file holds already.
  virtual void Append(const std::string& path, const std::string& text) = 0;

  /// The same without waiting for the disk: for the read log, which may lie on a slow share while readings
  /// go on. Flush makes up for it.
  virtual void AppendUnflushed(const std::string& path, const std::string& text) = 0;

  /// Puts on the disk what AppendUnflushed has left to the system; nothing happens when that is nothing.
  virtual void Flush(const std::string& path) = 0;

  /// Gives the file a second name, under which it stays when the first name is replaced. Fails when
  /// `newPath` exists.
  virtual void Keep(const std::string& path, const std::string& newPath) = 0;

  /// Gives a file or folder another name, in one step. Fails when `newPath` exists.
  virtual void Move(const std::string& path, const std::string& newPath) = 0;

  /// Removes a file; nothing happens when there is none.
  virtual void Remove(const std::string& path) = 0;

  /// Creates a folder and those above it. False when it existed already.
  virtual bool MakeFolder(const std::string& path) = 0;

  /// This copy of the program holds the file, which is created when it is missing, until it ends, however
  /// it ends; once more for the same copy is fine. False when another copy holds it. On a file system that
  /// can't tell it is true.
  virtual bool Claim(const std::string& path) = 0;
};

/// Appends `text` to a file; one that does not exist yet begins with `head` and comes to be in one step, so
/// that no crash leaves half a head that later lines would follow.
inline void AppendUnderHead(Disk& disk, const std::string& path, const std::string& head,
                            const std::string& text) {
  if (!disk.Exists(path))
    disk.Replace(path, head + text);
  else if (!text.empty())
    disk.Append(path, text);
}

}  // namespace kelp
