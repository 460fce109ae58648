// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

#include "platform/error.hpp"
#include "platform/host_disk.hpp"
#include "platform/posix/temporary.hpp"

namespace kelp {

namespace {

namespace fs = std::filesystem;

constexpr long long kLargest = 64LL << 20;

// False when there is nothing of that name.
bool Look(const std::string& path, const fs::path& place, struct stat& status) {
  if (::stat(place.c_str(), &status) == 0) return true;
  if (errno != ENOENT && errno != ENOTDIR) Fail(path, errno, Doing::Reading);
  return false;
}

// What is missing at the end of the last line, as a crash or an editor left it: only the last byte is
// read, however long the file has become.
std::string MissingLineEnd(const std::string& path, const Handle& file, long long size) {
  char last = '\n';
  if (size > 0 && ::pread(file.fd(), &last, 1, size - 1) != 1) Fail(path, EIO, Doing::Reading);
  if (last == '\n') return {};
  return last == '\r' ? "\n" : "\r\n";
}

// One write, so that a line is there whole or not at all. 0 or the error number.
int WriteAtOnce(const Handle& file, const std::string& text) {
  ssize_t written = 0;
  do written = ::write(file.fd(), text.data(), text.size());
  while (written < 0 && errno == EINTR);
  if (written < 0) return errno;
  return static_cast<std::size_t>(written) == text.size() ? 0 : ENOSPC;
}

// A name that is not on the disk is tried again with the next folder, however long ago that failed.
void FlushNewFolders(const std::string& path, std::set<fs::path>& folders) {
  while (!folders.empty()) {
    const int error = FlushFolder(*folders.begin());
    if (error != 0 && error != ENOENT) Fail(path, error, Doing::Writing);
    folders.erase(folders.begin());
  }
}

// Holds a file or folder for this process. False when another one holds it; a file system that knows no
// locks holds nobody back.
bool Hold(const Handle& handle) {
  int locked = -1;
  do locked = ::flock(handle.fd(), LOCK_EX | LOCK_NB);
  while (locked != 0 && errno == EINTR);
  return locked == 0 || errno != EWOULDBLOCK;
}

}  // namespace

bool HostDisk::Exists(const std::string& path) {
  struct stat status {};
  return Look(path, drives_.HostPath(path), status);
}

bool HostDisk::IsFolder(const std::string& path) {
  struct stat status {};
  return Look(path, drives_.HostPath(path), status) && S_ISDIR(status.st_mode);
}

bool HostDisk::AnyFileIn(const std::string& folder) { return !FilesIn(folder).empty(); }

std::vector<std::string> HostDisk::FilesIn(const std::string& folder) {
  std::vector<std::string> names;
  if (!IsFolder(folder)) return names;
  std::error_code error;
  for (fs::directory_iterator entry(drives_.HostPath(folder), error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code unknown;
    const std::string name = entry->path().filename().string();
    if (entry->is_regular_file(unknown) && !IsTemporary(name)) names.push_back(name);
  }
  if (error) Fail(folder, error.value(), Doing::Reading);
  return names;
}

std::string HostDisk::Read(const std::string& path) {
  const Handle file = OpenFile(drives_.HostPath(path), O_RDONLY);
  if (!file.IsOpen()) Fail(path, errno, Doing::Reading);
  const long long size = OrdinarySize(path, file, Doing::Reading);
  std::string content;
  std::string block(size < 65536 ? static_cast<std::size_t>(size) + 1 : 65536, '\0');
  for (;;) {
    if (size > kLargest || static_cast<long long>(content.size()) > kLargest)
      throw FileError(path, "is larger than 64 MiB, so none of this program's files; choose another one");
    const ssize_t count = ::read(file.fd(), block.data(), block.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) Fail(path, errno, Doing::Reading);
    if (count == 0) return content;
    content.append(block, 0, static_cast<std::size_t>(count));
  }
}

void HostDisk::Replace(const std::string& path, const std::string& content) {
  const fs::path place = drives_.HostPath(path);
  struct stat old {};
  const bool exists = Look(path, place, old);
  if (exists && S_ISDIR(old.st_mode)) throw FileError(path, "is a folder");
  if (exists && !S_ISREG(old.st_mode)) throw FileError(path, "is no ordinary file; choose another name");
  // A rename would also replace a file that somebody made read-only to protect it.
  if (exists && ::access(place.c_str(), W_OK) != 0) Fail(path, errno, Doing::Writing);
  Temporary temporary(path, place, exists ? old.st_mode & 0777U : 0666U);
  // Who may read and write the file stays as it was.
  if (exists && ::fchmod(temporary.file().fd(), old.st_mode & 07777U) != 0) Fail(path, errno, Doing::Writing);
  temporary.Become(path, place, content);
  doubtful_.erase(place);
}

// A log is found by the way it was found last, as long as it stands there: a tick walks no whole path.
fs::path HostDisk::PlaceOfLog(const std::string& path) {
  if (path.empty()) return drives_.HostPath(path);
  const auto known = logs_.find({drives_.DriveFolder(path[0]), path});
  struct stat status {};
  if (known != logs_.end() && ::lstat(known->second.c_str(), &status) == 0 && S_ISREG(status.st_mode))
    return known->second;
  if (logs_.size() > 8) logs_.clear();
  return logs_[{drives_.DriveFolder(path[0]), path}] = drives_.HostPath(path);
}

void HostDisk::AppendText(const std::string& path, const std::string& text, bool flush) {
  const fs::path place = flush ? drives_.HostPath(path) : PlaceOfLog(path);
  if (doubtful_.contains(place) && Exists(path)) {
    const std::string content = Read(path);
    Replace(path, content + (content.empty() || content.ends_with('\n') ? "" : "\r\n") + text);
    return;
  }
  Handle file = OpenFile(place, O_RDWR | O_APPEND);
  const bool isNew = !file.IsOpen() && errno == ENOENT;
  if (isNew) file = OpenFile(place, O_RDWR | O_APPEND | O_CREAT | O_EXCL);
  if (!file.IsOpen()) Fail(path, errno, Doing::Writing);
  const long long size = OrdinarySize(path, file, Doing::Writing);
  int error = WriteAtOnce(file, MissingLineEnd(path, file, size) + text);
  if (error == 0) {
    if (!flush) {
      if (flushes_) unflushed_[path] = unflushed_[path] || isNew;
      return;
    }
    error = kelp::Flush(file);
    if (error == 0 && isNew) error = FlushFolder(place.parent_path());
    if (error == 0) {
      unflushed_.erase(path);
      return;
    }
    doubtful_.insert(place);
  }
  // No half line stays, and a line that is told as lost is not there twice when it is written again.
  if (isNew ? ::unlink(place.c_str()) != 0 : ::ftruncate(file.fd(), size) != 0)
    throw FileError(path, Reason(error, Doing::Writing) + " (a part of the line may be in the file)");
  Fail(path, error, Doing::Writing);
}

void HostDisk::Flush(const std::string& path) {
  const auto owed = unflushed_.extract(path);
  if (owed.empty()) return;
  const fs::path place = drives_.HostPath(path);
  const Handle file = OpenFile(place, O_WRONLY | O_APPEND);
  int error = file.IsOpen() ? kelp::Flush(file) : errno;
  if (error == ENOENT) return;  // somebody took the log away; what was in it went with it
  if (error == 0 && owed.mapped()) error = FlushFolder(place.parent_path());
  if (error == 0) return;
  doubtful_.insert(place);
  Fail(path, error, Doing::Writing);
}

void HostDisk::Keep(const std::string& path, const std::string& newPath) {
  const fs::path place = drives_.HostPath(path);
  const fs::path newPlace = drives_.HostPath(newPath);
  struct stat status {};
  if (!Look(path, place, status)) throw FileError(path, "does not exist");
  if (S_ISDIR(status.st_mode)) throw FileError(path, "is a folder");
  if (Look(newPath, newPlace, status)) throw FileError(newPath, "exists already; choose another name");
  if (::link(place.c_str(), newPlace.c_str()) != 0) {
    const bool noSecondNames =
        errno == EPERM || errno == EOPNOTSUPP || errno == ENOSYS || errno == EMLINK || errno == EXDEV;
    if (!noSecondNames) Fail(newPath, errno, Doing::Writing);
    // A memory stick knows no second names, nor does another user's file: a copy serves as well.
    Temporary(newPath, newPlace, 0666).Become(newPath, newPlace, Read(path));
    return;
  }
  const int error = FlushFolder(newPlace.parent_path());
  if (error == 0) return;
  ::unlink(newPlace.c_str());
  Fail(newPath, error, Doing::Writing);
}

void HostDisk::Move(const std::string& path, const std::string& newPath) {
  const fs::path place = drives_.HostPath(path);
  const fs::path newPlace = drives_.HostPath(newPath);
  struct stat status {};
  if (!Look(path, place, status)) throw FileError(path, "does not exist");
  if (Look(newPath, newPlace, status)) throw FileError(newPath, "exists already; choose another name");
  int error = ::rename(place.c_str(), newPlace.c_str()) == 0 ? 0 : errno;
  if (error == 0) error = FlushFolder(newPlace.parent_path());
  if (error != 0) Fail(newPath, error, Doing::Writing);
  doubtful_.erase(place);
}

void HostDisk::Remove(const std::string& path) {
  const fs::path place = drives_.HostPath(path);
  if (IsFolder(path)) throw FileError(path, "is a folder");
  int error = ::unlink(place.c_str()) == 0 ? 0 : errno;
  if (error == ENOENT || error == ENOTDIR) return;
  // A journal that comes back after a power cut would offer what was saved already.
  if (error == 0) error = FlushFolder(place.parent_path());
  if (error != 0) Fail(path, error, Doing::Writing);
  doubtful_.erase(place);
}

bool HostDisk::MakeFolder(const std::string& path) {
  const fs::path place = drives_.HostPath(path);
  struct stat status {};
  if (Look(path, place, status)) {
    if (!S_ISDIR(status.st_mode)) throw FileError(path, "is a file; choose another name for the folder");
    FlushNewFolders(path, unflushedFolders_);
    return false;
  }
  std::vector<fs::path> missing;
  for (fs::path folder = place; !Look(path, folder, status); folder = folder.parent_path())
    missing.push_back(folder);
  for (; !missing.empty(); missing.pop_back()) {
    const int error = ::mkdir(missing.back().c_str(), 0777) == 0 || errno == EEXIST ? 0 : errno;
    if (error != 0) Fail(path, error, Doing::Writing);
    unflushedFolders_.insert(missing.back().parent_path());
    FlushNewFolders(path, unflushedFolders_);
  }
  return true;
}

bool HostDisk::Claim(const std::string& path) {
  const fs::path place = drives_.HostPath(path);
  if (claims_.contains(place)) return true;
  Handle file = OpenFile(place, O_RDWR | O_CREAT);
  // Another user's file can be held without the right to write it.
  if (!file.IsOpen() && errno == EACCES) file = OpenFile(place, O_RDONLY);
  if (!file.IsOpen()) Fail(path, errno, Doing::Writing);
  // The folder is held too: a file that somebody removes would let the next copy in, with a new one.
  Handle folder = OpenFile(place.parent_path(), O_RDONLY | O_DIRECTORY);
  if (!Hold(file) || (folder.IsOpen() && !Hold(folder))) return false;
  claims_.emplace(place.parent_path(), std::make_shared<Handle>(std::move(folder)));
  claims_.emplace(place, std::make_shared<Handle>(std::move(file)));
  return true;
}

std::unique_ptr<Disk> MakeHostDisk(const DriveMap& drives, Appends appends) {
  return std::make_unique<HostDisk>(drives, appends);
}

}  // namespace kelp
