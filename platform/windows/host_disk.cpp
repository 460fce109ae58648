// SPDX-License-Identifier: GPL-3.0-or-later
#include <vector>

#include "platform/error.hpp"
#include "platform/host_disk.hpp"
#include "platform/path_text.hpp"
#include "platform/windows/handle.hpp"
#include "platform/windows/long_path.hpp"

namespace kelp {

namespace {

namespace fs = std::filesystem;

constexpr long long kLargest = 64LL << 20;
constexpr std::wstring_view kTemporaryMark = L".kelp-new-";
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// The attributes of a file or folder; INVALID_FILE_ATTRIBUTES when there is nothing of that name.
DWORD Attributes(const std::string& path, const fs::path& place) {
  const DWORD attributes = ::GetFileAttributesW(LongPath(place).c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES) return attributes;
  const DWORD error = ::GetLastError();
  if (error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND) Fail(path, error);
  return attributes;
}

bool IsFolderThere(const std::string& path, const fs::path& place) {
  const DWORD attributes = Attributes(path, place);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

void RefuseFolder(const std::string& path, const fs::path& place) {
  if (IsFolderThere(path, place)) throw FileError(path, "is a folder");
}

// A file that is marked so can't be replaced, but the system would say so only after the content was written.
void RefuseReadOnly(const std::string& path, const fs::path& place) {
  const DWORD attributes = Attributes(path, place);
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
    Fail(path, ERROR_ACCESS_DENIED);
}

// Another program has the file open: what a replacement is refused for then sounds like a missing right.
bool IsHeld(const fs::path& place) {
  const Handle file(
      ::CreateFileW(LongPath(place).c_str(), DELETE, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
  return !file.IsOpen() && ::GetLastError() == ERROR_SHARING_VIOLATION;
}

// Writes `content` beside `place`, flushes it, and lets it take that name. Without `mayReplace` an
// existing file of that name is an error.
void WriteBeside(const std::string& path, const fs::path& place, const std::string& content,
                 bool mayReplace) {
  static unsigned count = 0;
  const std::wstring name = LongPath(
      place.parent_path() / (L"." + place.filename().wstring() + std::wstring(kTemporaryMark) +
                             std::to_wstring(::GetCurrentProcessId()) + L"-" + std::to_wstring(count++)));
  Handle file(
      ::CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_HIDDEN, nullptr));
  if (!file.IsOpen()) Fail(path, ::GetLastError());
  DWORD error = WriteAtOnce(file, content);
  if (error == 0) error = kelp::Flush(file);
  file.Close();
  if (error == 0 && ::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_NORMAL) == 0) error = ::GetLastError();
  const DWORD flags = MOVEFILE_WRITE_THROUGH | (mayReplace ? MOVEFILE_REPLACE_EXISTING : 0U);
  if (error == 0 && ::MoveFileExW(name.c_str(), LongPath(place).c_str(), flags) == 0)
    error = ::GetLastError();
  if (error == 0) return;
  if (error == ERROR_ACCESS_DENIED && IsHeld(place)) error = ERROR_SHARING_VIOLATION;
  ::DeleteFileW(name.c_str());
  Fail(path, error);
}

// What is missing at the end of the last line, as a crash or an editor left it: only the last byte is
// read, however long the file has become.
std::string MissingLineEnd(const std::string& path, const Handle& file, long long size) {
  char last = '\n';
  DWORD count = 0;
  LARGE_INTEGER place{};
  place.QuadPart = size - 1;
  if (size > 0 && (::SetFilePointerEx(file.get(), place, nullptr, FILE_BEGIN) == 0 ||
                   ::ReadFile(file.get(), &last, 1, &count, nullptr) == 0))
    Fail(path, ::GetLastError());
  if (last == '\n') return {};
  return last == '\r' ? "\n" : "\r\n";
}

// Makes the file as long as it was.
bool TakeBack(const Handle& file, long long size) {
  LARGE_INTEGER place{};
  place.QuadPart = size;
  return ::SetFilePointerEx(file.get(), place, nullptr, FILE_BEGIN) != 0 && ::SetEndOfFile(file.get()) != 0;
}

}  // namespace

bool HostDisk::Exists(const std::string& path) {
  return Attributes(path, drives_.HostPath(path)) != INVALID_FILE_ATTRIBUTES;
}

bool HostDisk::IsFolder(const std::string& path) { return IsFolderThere(path, drives_.HostPath(path)); }

bool HostDisk::AnyFileIn(const std::string& folder) { return !FilesIn(folder).empty(); }

std::vector<std::string> HostDisk::FilesIn(const std::string& folder) {
  std::vector<std::string> names;
  if (!IsFolder(folder)) return names;
  WIN32_FIND_DATAW entry{};
  const HANDLE search = ::FindFirstFileW((LongPath(drives_.HostPath(folder)) + L"\\*").c_str(), &entry);
  // An empty drive has not even the names "." and "..".
  if (search == INVALID_HANDLE_VALUE && ::GetLastError() == ERROR_FILE_NOT_FOUND) return names;
  if (search == INVALID_HANDLE_VALUE) Fail(folder, ::GetLastError());
  do {
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0 &&
        std::wstring_view(entry.cFileName).find(kTemporaryMark) == std::wstring_view::npos)
      names.push_back(TextOf(entry.cFileName));
  } while (::FindNextFileW(search, &entry) != 0);
  const DWORD error = ::GetLastError();
  ::FindClose(search);
  if (error != ERROR_NO_MORE_FILES) Fail(folder, error);
  return names;
}

std::string HostDisk::Read(const std::string& path) {
  const fs::path place = drives_.HostPath(path);
  RefuseFolder(path, place);
  const Handle file(
      ::CreateFileW(LongPath(place).c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
  if (!file.IsOpen()) Fail(path, ::GetLastError());
  const long long size = SizeOf(path, file);
  if (size > kLargest)
    throw FileError(path, "is larger than 64 MiB, so none of this program's files; choose another one");
  std::string content(static_cast<std::size_t>(size), '\0');
  DWORD count = 0;
  if (::ReadFile(file.get(), content.data(), static_cast<DWORD>(size), &count, nullptr) == 0)
    Fail(path, ::GetLastError());
  content.resize(count);
  return content;
}

void HostDisk::Replace(const std::string& path, const std::string& content) {
  const fs::path place = drives_.HostPath(path);
  RefuseFolder(path, place);
  RefuseReadOnly(path, place);
  WriteBeside(path, place, content, true);
  doubtful_.erase(place);
}

void HostDisk::AppendText(const std::string& path, const std::string& text, bool flush) {
  const fs::path place = drives_.HostPath(path);
  RefuseFolder(path, place);
  RefuseReadOnly(path, place);
  if (doubtful_.contains(place) && Exists(path)) {
    const std::string content = Read(path);
    Replace(path, content + (content.empty() || content.ends_with('\n') ? "" : "\r\n") + text);
    return;
  }
  const Handle file(::CreateFileW(LongPath(place).c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ,
                                  nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.IsOpen()) Fail(path, ::GetLastError());
  const long long size = SizeOf(path, file);
  // After the last byte was read the file stands at its end.
  DWORD error = WriteAtOnce(file, MissingLineEnd(path, file, size) + text);
  if (error == 0) {
    error = flush ? kelp::Flush(file) : 0;
    if (error == 0 && flush) unflushed_.erase(path);
    if (error == 0 && !flush && flushes_) unflushed_[path] = false;
    if (error == 0) return;
    doubtful_.insert(place);
  }
  // No half line stays, and a line that is told as lost is not there twice when it is written again.
  if (!TakeBack(file, size))
    throw FileError(path, Reason(error) + " (a part of the line may be in the file)");
  Fail(path, error);
}

void HostDisk::Flush(const std::string& path) {
  if (unflushed_.erase(path) == 0) return;
  const fs::path place = drives_.HostPath(path);
  const Handle file(
      ::CreateFileW(LongPath(place).c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
  if (!file.IsOpen() && ::GetLastError() == ERROR_FILE_NOT_FOUND) return;
  const DWORD error = file.IsOpen() ? kelp::Flush(file) : ::GetLastError();
  if (error == 0) return;
  doubtful_.insert(place);
  Fail(path, error);
}

void HostDisk::Keep(const std::string& path, const std::string& newPath) {
  const fs::path place = drives_.HostPath(path);
  const fs::path newPlace = drives_.HostPath(newPath);
  if (!Exists(path)) throw FileError(path, "does not exist");
  RefuseFolder(path, place);
  if (Exists(newPath)) throw FileError(newPath, "exists already; choose another name");
  if (::CreateHardLinkW(LongPath(newPlace).c_str(), LongPath(place).c_str(), nullptr) != 0) return;
  // A memory stick knows no second names: a copy serves as well.
  WriteBeside(newPath, newPlace, Read(path), false);
}

void HostDisk::Move(const std::string& path, const std::string& newPath) {
  const fs::path place = drives_.HostPath(path);
  const fs::path newPlace = drives_.HostPath(newPath);
  if (!Exists(path)) throw FileError(path, "does not exist");
  if (Exists(newPath)) throw FileError(newPath, "exists already; choose another name");
  if (::MoveFileExW(LongPath(place).c_str(), LongPath(newPlace).c_str(), MOVEFILE_WRITE_THROUGH) == 0)
    Fail(newPath, ::GetLastError());
  doubtful_.erase(place);
}

void HostDisk::Remove(const std::string& path) {
  const fs::path place = drives_.HostPath(path);
  RefuseFolder(path, place);
  const DWORD error = ::DeleteFileW(LongPath(place).c_str()) != 0 ? 0 : ::GetLastError();
  if (error != 0 && error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND) Fail(path, error);
  doubtful_.erase(place);
}

bool HostDisk::MakeFolder(const std::string& path) {
  const fs::path place = drives_.HostPath(path);
  if (Exists(path)) {
    if (!IsFolder(path)) throw FileError(path, "is a file; choose another name for the folder");
    return false;
  }
  fs::path folder = place.root_path();
  for (const fs::path& name : place.relative_path()) {
    folder /= name;
    if (::CreateDirectoryW(LongPath(folder).c_str(), nullptr) != 0) continue;
    const DWORD error = ::GetLastError();
    if (!IsFolderThere(path, folder)) Fail(path, error);
  }
  return true;
}

bool HostDisk::Claim(const std::string& path) {
  const fs::path place = drives_.HostPath(path);
  if (claims_.contains(place)) return true;
  RefuseFolder(path, place);
  // Nobody else can open it while it is open without a share.
  const HANDLE file = ::CreateFileW(LongPath(place).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE && ::GetLastError() == ERROR_SHARING_VIOLATION) return false;
  if (file == INVALID_HANDLE_VALUE) Fail(path, ::GetLastError());
  claims_.emplace(place, std::make_shared<Handle>(file));
  return true;
}

std::unique_ptr<Disk> MakeHostDisk(const DriveMap& drives, Appends appends) {
  return std::make_unique<HostDisk>(drives, appends);
}

}  // namespace kelp
