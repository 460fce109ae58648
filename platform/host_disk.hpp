// SPDX-License-Identifier: GPL-3.0-or-later
// The real disk of the machine. What it writes is on the disk before it returns: content first, then the
// name. A value that was read once can't be read again, so every failure is told and leaves the old file.
// What is done, in which order, and what is refused stands here once; each system brings a few calls.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/host.hpp"

namespace kelp {

class HostDisk : public Disk {
 public:
  HostDisk(const DriveMap& drives, Appends appends)
      : drives_(drives), flushes_(appends == Appends::Flushed) {}
  bool Exists(const std::string& path) override;
  bool IsFolder(const std::string& path) override;
  bool AnyFileIn(const std::string& folder) override { return !FilesIn(folder).empty(); }
  std::vector<std::string> FilesIn(const std::string& folder) override;
  std::filesystem::path HostPlace(const std::string& path) override { return drives_.HostPath(path); }
  std::string Read(const std::string& path) override { return Content(path, drives_.HostPath(path)); }
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

 protected:
  using Place = std::filesystem::path;
  using ErrorNumber = unsigned long;  ///< as the system numbers them; 0 for none
  enum class Kind { Nothing, File, Folder, Other };

  static constexpr long long kLargest = 64LL << 20;

  /// A file that gets lines at its end.
  class Tail {
   public:
    virtual ~Tail() = default;
    /// The last byte, however long the file has become; a line end for an empty file. Throws FileError.
    virtual char LastByte() = 0;
    /// Writes all of it at the end, in one write.
    virtual ErrorNumber Write(const std::string& text) = 0;
    /// Puts on the disk what was written, and the name of a new file.
    virtual ErrorNumber Flush() = 0;
    /// Makes the file as it was before Write. False when that fails.
    virtual bool TakeBack() = 0;
    [[nodiscard]] virtual bool IsNew() const = 0;
  };

  // The calls of the system. Those that are told the program path throw FileError, which names it.
  virtual Kind KindOf(const std::string& path, const Place& place) = 0;
  /// The names of the ordinary files in a folder.
  virtual std::vector<std::string> NamesIn(const std::string& path, const Place& place) = 0;
  virtual std::string Content(const std::string& path, const Place& place) = 0;
  /// Writes `content` beside `place`, flushes it, and lets it take that name. An old file is there only if
  /// it `replaces` one.
  virtual void WriteBeside(const std::string& path, const Place& place, const std::string& content,
                           bool replaces) = 0;
  virtual std::unique_ptr<Tail> OpenTail(const std::string& path, const Place& place) = 0;
  /// Puts on the disk what a file holds, and its name where that is new. A file that is gone is no error.
  virtual ErrorNumber FlushFile(const Place& place, bool isNew) = 0;
  /// Gives a file a second name; nothing where it can't have one.
  virtual std::optional<ErrorNumber> AddName(const Place& place, const Place& newPlace) = 0;
  virtual ErrorNumber Rename(const Place& place, const Place& newPlace) = 0;
  /// A file that is not there is no error.
  virtual ErrorNumber Delete(const Place& place) = 0;
  /// Makes what is missing of a folder and those above it.
  virtual void MakeFolders(const std::string& path, const Place& place) = 0;
  /// What holds a file for this process until it ends; empty when another one holds it.
  virtual std::vector<std::shared_ptr<void>> Hold(const std::string& path, const Place& place) = 0;
  /// Opens a log, which gets a line at every tick.
  virtual std::unique_ptr<Tail> OpenLog(const std::string& path) {
    return OpenTail(path, drives_.HostPath(path));
  }
  /// Plain words for what went wrong while something was written.
  [[nodiscard]] virtual std::string Reason(ErrorNumber error) const = 0;

  void RefuseFolder(const std::string& path, const Place& place);
  [[noreturn]] static void RefuseLarge(const std::string& path);
  /// A name of its own beside a file, which no file dialog offers. A crash may leave one behind.
  static Place TemporaryBeside(const Place& place, unsigned long process);

  const DriveMap& drives_;

 private:
  void AppendText(const std::string& path, const std::string& text, bool flush);
  void Check(const std::string& path, ErrorNumber error) const;

  // Files whose flush failed. What the system still shows of them may not be on the disk, so the next
  // line goes with all the others into a new file.
  std::set<Place> doubtful_ = {};
  // Program paths of logs whose last lines the system may still hold back; true for one whose name too.
  std::map<std::string, bool> unflushed_ = {};
  // What holds the files that this copy of the program has claimed.
  std::map<Place, std::vector<std::shared_ptr<void>>> claims_ = {};
  bool flushes_;  ///< a line is on the disk before Append returns
};

}  // namespace kelp
