// SPDX-License-Identifier: GPL-3.0-or-later
// An open file or folder, and what an error number means to the person who has to mend it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

namespace kelp {

/// A file descriptor that is closed with its scope; -1 when nothing is open.
class Handle {
 public:
  explicit Handle(int fd = -1) : fd_(fd) {}
  Handle(Handle&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle();
  [[nodiscard]] int fd() const { return fd_; }
  [[nodiscard]] bool IsOpen() const { return fd_ >= 0; }

 private:
  int fd_;
};

enum class Doing { Reading, Writing };

/// Plain words for an error number, and what to do about it.
std::string Reason(int error, Doing doing);

/// Throws FileError for an error number.
[[noreturn]] void Fail(const std::string& path, int error, Doing doing);

/// Opens a file; never waits for one that is no ordinary file. Not open, with errno set, on failure.
Handle OpenFile(const std::filesystem::path& place, int flags, unsigned mode = 0666);

/// Throws FileError unless it is an ordinary file. Returns its size in bytes.
long long OrdinarySize(const std::string& path, const Handle& file, Doing doing);

/// Writes all of it, in as many writes as it takes. 0 or the error number.
int WriteAll(const Handle& file, std::string_view content);

/// Puts on the disk what was written to the file. 0 or the error number. After an error the system may
/// have forgotten what it could not write: a second flush proves nothing, write the content again.
int Flush(const Handle& file);

/// Puts on the disk the names in a folder. 0 or the error number.
int FlushFolder(const std::filesystem::path& folder);

}  // namespace kelp
