// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/posix/handle.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <system_error>

#include "platform/error.hpp"

namespace kelp {

Handle::~Handle() {
  if (IsOpen()) ::close(fd_);
}

std::string Reason(int error, Doing doing) {
  const bool writing = doing == Doing::Writing;
  switch (error) {
    case ENOENT:
      return writing ? "its folder does not exist; make the folder or correct the path" : "does not exist";
    case ENOTDIR: return "a part of its path is a file where a folder should be; correct the path";
    case EISDIR: return "is a folder";
    case EACCES:
    case EPERM:
      return std::string("permission denied; give this user the right to ") +
             (writing ? "write there" : "read it");
    case EROFS: return "the disk is read-only; make it writable or choose another one";
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return "no space left on the disk; free some, then try again";
    case EIO: return "the disk reports an input/output error; check it and its connection, then try again";
    case ENAMETOOLONG: return "the name is too long; shorten it";
    case EMFILE:
    case ENFILE: return "too many files are open; close other programs, then try again";
    case ENODEV:
    case ENXIO:
    case ESTALE:
    case ETIMEDOUT: return "the disk or network drive is gone; connect it, then try again";
    default: return std::generic_category().message(error);
  }
}

void Fail(const std::string& path, int error, Doing doing) { throw FileError(path, Reason(error, doing)); }

Handle OpenFile(const std::filesystem::path& place, int flags, unsigned mode) {
  int fd = -1;
  do fd = ::open(place.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode);
  while (fd < 0 && errno == EINTR);
  return Handle(fd);
}

long long OrdinarySize(const std::string& path, const Handle& file, Doing doing) {
  struct stat status {};
  if (::fstat(file.fd(), &status) != 0) Fail(path, errno, doing);
  if (S_ISDIR(status.st_mode)) throw FileError(path, "is a folder");
  if (!S_ISREG(status.st_mode)) throw FileError(path, "is no ordinary file; choose another name");
  return status.st_size;
}

int WriteAll(const Handle& file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(file.fd(), content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return written < 0 ? errno : ENOSPC;
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

int Flush(const Handle& file) {
#if defined(F_FULLFSYNC)
  // A plain flush leaves the data in the drive's own cache here.
  return ::fcntl(file.fd(), F_FULLFSYNC) == 0 ? 0 : errno;
#else
  return ::fdatasync(file.fd()) == 0 ? 0 : errno;
#endif
}

int FlushFolder(const std::filesystem::path& folder) {
  const Handle handle = OpenFile(folder, O_RDONLY | O_DIRECTORY);
  if (!handle.IsOpen()) return errno;
  // Some network and FUSE file systems can't flush a folder: what can't be had is not asked for again.
  constexpr int kCannot[] = {EINVAL, EOPNOTSUPP, ENOTSUP, ENOSYS};
  if (::fsync(handle.fd()) == 0) return 0;
  return std::find(std::begin(kCannot), std::end(kCannot), errno) != std::end(kCannot) ? 0 : errno;
}

}  // namespace kelp
