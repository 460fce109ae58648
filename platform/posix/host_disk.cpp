// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/host_disk.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/error.hpp"
#include "platform/posix/temporary.hpp"

namespace kelp {

namespace {

namespace fs = std::filesystem;

// False when there is nothing of that name.
bool Look(const std::string& path, const fs::path& place, struct stat& status) {
  if (::stat(place.c_str(), &status) == 0) return true;
  if (errno != ENOENT && errno != ENOTDIR) Fail(path, errno, Doing::Reading);
  return false;
}

// Locks a file or folder for this process. False when another one holds it; a file system that knows no
// locks holds nobody back.
bool Lock(const Handle& handle) {
  int locked = -1;
  do locked = ::flock(handle.fd(), LOCK_EX | LOCK_NB);
  while (locked != 0 && errno == EINTR);
  return locked == 0 || errno != EWOULDBLOCK;
}

class PosixDisk : public HostDisk {
 public:
  using HostDisk::HostDisk;

 protected:
  class LinesAtEnd : public Tail {
   public:
    // Both names must outlive it: a tick copies no path. `wholeTo` is the size at which a line written here
    // ended last, so that it is not looked for again; it is kept true.
    LinesAtEnd(const std::string& path, const Place& place, Handle file, long long* wholeTo)
        : path_(path), place_(place), file_(std::move(file)), wholeTo_(wholeTo) {
      if (!file_.IsOpen()) file_ = OpenFile(place, O_RDWR | O_APPEND);
      isNew_ = !file_.IsOpen() && errno == ENOENT;
      if (isNew_) file_ = OpenFile(place, O_RDWR | O_APPEND | O_CREAT | O_EXCL);
      if (!file_.IsOpen()) Fail(path, errno, Doing::Writing);
      size_ = OrdinarySize(path, file_, Doing::Writing);
    }
    char LastByte() override {
      char last = '\n';
      if (wholeTo_ != nullptr && std::exchange(*wholeTo_, -1) == size_) return last;
      if (size_ > 0 && ::pread(file_.fd(), &last, 1, size_ - 1) != 1) Fail(path_, EIO, Doing::Reading);
      return last;
    }
    ErrorNumber Write(const std::string& text) override {
      ssize_t written = 0;
      do written = ::write(file_.fd(), text.data(), text.size());
      while (written < 0 && errno == EINTR);
      if (written < 0) return Number(errno);
      if (static_cast<std::size_t>(written) != text.size()) return ENOSPC;
      if (wholeTo_ != nullptr && text.ends_with('\n')) *wholeTo_ = size_ + written;
      return 0;
    }
    ErrorNumber Flush() override {
      const int error = kelp::Flush(file_);
      return Number(error == 0 && isNew_ ? FlushFolder(place_.parent_path()) : error);
    }
    bool TakeBack() override {
      return isNew_ ? ::unlink(place_.c_str()) == 0 : ::ftruncate(file_.fd(), size_) == 0;
    }
    [[nodiscard]] bool IsNew() const override { return isNew_; }

   private:
    const std::string& path_;
    const Place& place_;
    Handle file_;
    long long* wholeTo_;
    bool isNew_ = false;
    long long size_ = 0;
  };

  Kind KindOf(const std::string& path, const Place& place) override {
    struct stat status {};
    if (!Look(path, place, status)) return Kind::Nothing;
    if (S_ISDIR(status.st_mode)) return Kind::Folder;
    return S_ISREG(status.st_mode) ? Kind::File : Kind::Other;
  }
  std::vector<std::string> NamesIn(const std::string& path, const Place& place) override;
  std::string Content(const std::string& path, const Place& place) override;
  void WriteBeside(const std::string& path, const Place& place, const std::string& content,
                   bool replaces) override;
  std::unique_ptr<Tail> OpenTail(const std::string& path, const Place& place) override {
    return std::make_unique<LinesAtEnd>(path, place, Handle(), nullptr);
  }
  ErrorNumber FlushFile(const Place& place, bool isNew) override;
  std::optional<ErrorNumber> AddName(const Place& place, const Place& newPlace) override;
  ErrorNumber Rename(const Place& place, const Place& newPlace) override {
    if (::rename(place.c_str(), newPlace.c_str()) != 0) return Number(errno);
    return Number(FlushFolder(newPlace.parent_path()));
  }
  ErrorNumber Delete(const Place& place) override {
    if (::unlink(place.c_str()) != 0) return errno == ENOENT || errno == ENOTDIR ? 0 : Number(errno);
    // A journal that comes back after a power cut would offer what was saved already.
    return Number(FlushFolder(place.parent_path()));
  }
  void MakeFolders(const std::string& path, const Place& place) override;
  std::vector<std::shared_ptr<void>> Hold(const std::string& path, const Place& place) override;
  std::unique_ptr<Tail> OpenLog(const std::string& path) override;
  [[nodiscard]] std::string Reason(ErrorNumber error) const override {
    return kelp::Reason(static_cast<int>(error), Doing::Writing);
  }

 private:
  static ErrorNumber Number(int error) { return static_cast<ErrorNumber>(error); }
  void FlushNewFolders(const std::string& path);

  // Where a log lies that was written before, while its drive has this folder: a drive may be moved.
  struct KnownLog {
    Place Drive;
    Place File;
    long long WholeTo = -1;
  };
  std::map<std::string, KnownLog> logs_ = {};
  // Folders whose new name may not be on the disk: that flush failed and is to be made up for.
  std::set<Place> unflushedFolders_ = {};
};

std::vector<std::string> PosixDisk::NamesIn(const std::string& path, const Place& place) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(place, error), end; !error && entry != end; entry.increment(error)) {
    std::error_code unknown;
    if (entry->is_regular_file(unknown)) names.push_back(entry->path().filename().string());
  }
  if (error) Fail(path, error.value(), Doing::Reading);
  return names;
}

std::string PosixDisk::Content(const std::string& path, const Place& place) {
  const Handle file = OpenFile(place, O_RDONLY);
  if (!file.IsOpen()) Fail(path, errno, Doing::Reading);
  const long long size = OrdinarySize(path, file, Doing::Reading);
  std::string content;
  std::string block(size < 65536 ? static_cast<std::size_t>(size) + 1 : 65536, '\0');
  for (;;) {
    if (size > kLargest || static_cast<long long>(content.size()) > kLargest) RefuseLarge(path);
    const ssize_t count = ::read(file.fd(), block.data(), block.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) Fail(path, errno, Doing::Reading);
    if (count == 0) return content;
    content.append(block, 0, static_cast<std::size_t>(count));
  }
}

void PosixDisk::WriteBeside(const std::string& path, const Place& place, const std::string& content,
                            bool replaces) {
  const auto process = static_cast<unsigned long>(::getpid());
  struct stat old {};
  const bool exists = replaces && Look(path, place, old);
  if (exists && !S_ISREG(old.st_mode)) throw FileError(path, "is no ordinary file; choose another name");
  // A rename would also replace a file that somebody made read-only to protect it.
  if (exists && ::access(place.c_str(), W_OK) != 0) Fail(path, errno, Doing::Writing);
  Temporary temporary(
      path, [&] { return TemporaryBeside(place, process); }, exists ? old.st_mode & 0777U : 0666U);
  // Who may read and write the file stays as it was.
  if (exists && ::fchmod(temporary.file().fd(), old.st_mode & 07777U) != 0) Fail(path, errno, Doing::Writing);
  temporary.Become(path, place, content);
}

// A log is found by the way it was found last, as long as it stands there: a tick walks no whole path.
std::unique_ptr<HostDisk::Tail> PosixDisk::OpenLog(const std::string& path) {
  const auto known = logs_.find(path);
  if (known != logs_.end() && drives_.IsDrive(path[0], known->second.Drive)) {
    Handle file = OpenFile(known->second.File, O_RDWR | O_APPEND | O_NOFOLLOW);
    if (file.IsOpen())
      return std::make_unique<LinesAtEnd>(path, known->second.File, std::move(file), &known->second.WholeTo);
    // Only what was moved away is looked for: that the disk fails is said, not tried again in silence.
    if (errno != ENOENT && errno != ENOTDIR && errno != ELOOP) Fail(path, errno, Doing::Writing);
  }
  if (logs_.size() > 8) logs_.clear();
  KnownLog log{{}, drives_.HostPath(path)};
  log.Drive = drives_.DriveFolder(path[0]);
  return OpenTail(path, (logs_[path] = std::move(log)).File);
}

HostDisk::ErrorNumber PosixDisk::FlushFile(const Place& place, bool isNew) {
  const Handle file = OpenFile(place, O_WRONLY | O_APPEND);
  int error = file.IsOpen() ? kelp::Flush(file) : errno;
  if (error == ENOENT) return 0;  // somebody took the log away; what was in it went with it
  if (error == 0 && isNew) error = FlushFolder(place.parent_path());
  return Number(error);
}

std::optional<HostDisk::ErrorNumber> PosixDisk::AddName(const Place& place, const Place& newPlace) {
  if (::link(place.c_str(), newPlace.c_str()) != 0) {
    // A memory stick knows no second names, nor does another user's file.
    const bool noSecondNames =
        errno == EPERM || errno == EOPNOTSUPP || errno == ENOSYS || errno == EMLINK || errno == EXDEV;
    if (noSecondNames) return std::nullopt;
    return Number(errno);
  }
  const int error = FlushFolder(newPlace.parent_path());
  if (error != 0) ::unlink(newPlace.c_str());
  return Number(error);
}

void PosixDisk::MakeFolders(const std::string& path, const Place& place) {
  std::vector<Place> missing;
  struct stat status {};
  for (Place folder = place; !Look(path, folder, status); folder = folder.parent_path())
    missing.push_back(folder);
  if (missing.empty()) FlushNewFolders(path);
  for (; !missing.empty(); missing.pop_back()) {
    const int error = ::mkdir(missing.back().c_str(), 0777) == 0 || errno == EEXIST ? 0 : errno;
    if (error != 0) Fail(path, error, Doing::Writing);
    unflushedFolders_.insert(missing.back().parent_path());
    FlushNewFolders(path);
  }
}

// A name that is not on the disk is tried again with the next folder, however long ago that failed.
void PosixDisk::FlushNewFolders(const std::string& path) {
  while (!unflushedFolders_.empty()) {
    const int error = FlushFolder(*unflushedFolders_.begin());
    if (error != 0 && error != ENOENT) Fail(path, error, Doing::Writing);
    unflushedFolders_.erase(unflushedFolders_.begin());
  }
}

std::vector<std::shared_ptr<void>> PosixDisk::Hold(const std::string& path, const Place& place) {
  Handle file = OpenFile(place, O_RDWR | O_CREAT);
  // Another user's file can be held without the right to write it.
  if (!file.IsOpen() && errno == EACCES) file = OpenFile(place, O_RDONLY);
  if (!file.IsOpen()) Fail(path, errno, Doing::Writing);
  // The folder is held too: a file that somebody removes would let the next copy in, with a new one.
  Handle folder = OpenFile(place.parent_path(), O_RDONLY | O_DIRECTORY);
  if (!Lock(file) || (folder.IsOpen() && !Lock(folder))) return {};
  return {std::make_shared<Handle>(std::move(file)), std::make_shared<Handle>(std::move(folder))};
}

}  // namespace

std::unique_ptr<Disk> MakeHostDisk(const DriveMap& drives, Appends appends) {
  return std::make_unique<PosixDisk>(drives, appends);
}

}  // namespace kelp
