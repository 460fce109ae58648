// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/windows/handle.hpp"

#include <system_error>

#include "platform/error.hpp"

namespace kelp {

void Handle::Close() {
  if (IsOpen()) ::CloseHandle(handle_);
  handle_ = INVALID_HANDLE_VALUE;
}

std::string Reason(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND: return "does not exist";
    case ERROR_PATH_NOT_FOUND:
      return "its folder or drive does not exist; connect the drive, make the folder or correct the path";
    case ERROR_INVALID_NAME: return "no file can have this name; correct the path";
    case ERROR_ACCESS_DENIED:
      return "permission denied; give this user the right to it and clear its read-only mark";
    case ERROR_WRITE_PROTECT: return "the disk is read-only; make it writable or choose another one";
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION: return "another program has it open; close it there, then try again";
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_DISK_FULL: return "no space left on the disk; free some, then try again";
    case ERROR_CRC:
    case ERROR_GEN_FAILURE:
    case ERROR_IO_DEVICE:
      return "the disk reports an input/output error; check it and its connection, then try again";
    case ERROR_NOT_READY:
    case ERROR_BAD_NETPATH:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_UNEXP_NET_ERR: return "the disk or network drive is gone; connect it, then try again";
    default: return std::system_category().message(static_cast<int>(error));
  }
}

void Fail(const std::string& path, DWORD error) { throw FileError(path, Reason(error)); }

long long SizeOf(const std::string& path, const Handle& file) {
  LARGE_INTEGER size{};
  if (::GetFileSizeEx(file.get(), &size) == 0) Fail(path, ::GetLastError());
  return size.QuadPart;
}

DWORD WriteAtOnce(const Handle& file, std::string_view content) {
  DWORD written = 0;
  const DWORD size = static_cast<DWORD>(content.size());
  if (::WriteFile(file.get(), content.data(), size, &written, nullptr) == 0) return ::GetLastError();
  return written == size ? 0 : ERROR_DISK_FULL;
}

DWORD Flush(const Handle& file) { return ::FlushFileBuffers(file.get()) != 0 ? 0 : ::GetLastError(); }

}  // namespace kelp
