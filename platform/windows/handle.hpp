// SPDX-License-Identifier: GPL-3.0-or-later
// An open file, and what an error number means to the person who has to mend it.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace kelp {

/// A file handle that is closed with its scope.
class Handle {
 public:
  Handle() = default;
  explicit Handle(HANDLE handle) : handle_(handle) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() { Close(); }
  void Close();
  /// Closes what it held and holds this.
  void Hold(HANDLE handle) {
    Close();
    handle_ = handle;
  }
  [[nodiscard]] HANDLE get() const { return handle_; }
  [[nodiscard]] bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }

 private:
  HANDLE handle_ = INVALID_HANDLE_VALUE;
};

/// Plain words for an error number, and what to do about it.
std::string Reason(DWORD error);

/// Throws FileError for an error number.
[[noreturn]] void Fail(const std::string& path, DWORD error);

/// The size of an open file in bytes. Throws FileError.
long long SizeOf(const std::string& path, const Handle& file);

/// Writes all of it in one call. 0 or the error number.
DWORD WriteAtOnce(const Handle& file, std::string_view content);

/// Puts on the disk what was written to the file. 0 or the error number. After an error the system may
/// have forgotten what it could not write: a second flush proves nothing, write the content again.
DWORD Flush(const Handle& file);

}  // namespace kelp
