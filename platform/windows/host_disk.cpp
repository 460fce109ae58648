// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/host_disk.hpp"

#include "platform/error.hpp"
#include "platform/path_text.hpp"
#include "platform/windows/handle.hpp"
#include "platform/windows/long_path.hpp"

namespace kelp {

namespace {

namespace fs = std::filesystem;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE OpenFile(const fs::path& place, DWORD access, DWORD share, DWORD how,
                DWORD attributes = FILE_ATTRIBUTE_NORMAL) {
  return ::CreateFileW(LongPath(place).c_str(), access, share, nullptr, how, attributes, nullptr);
}

// The attributes of a file or folder; INVALID_FILE_ATTRIBUTES when there is nothing of that name.
DWORD Attributes(const std::string& path, const fs::path& place) {
  const DWORD attributes = ::GetFileAttributesW(LongPath(place).c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES) return attributes;
  const DWORD error = ::GetLastError();
  if (error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND) Fail(path, error);
  return attributes;
}

// A file that is marked so can't be replaced, but the system would say so only after the content was written.
void RefuseReadOnly(const std::string& path, const fs::path& place) {
  const DWORD attributes = Attributes(path, place);
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
    Fail(path, ERROR_ACCESS_DENIED);
}

// Another program has the file open: what a replacement is refused for then sounds like a missing right.
bool IsHeld(const fs::path& place) {
  const Handle file(OpenFile(place, DELETE, kShareAll, OPEN_EXISTING, 0));
  return !file.IsOpen() && ::GetLastError() == ERROR_SHARING_VIOLATION;
}

bool GoTo(const Handle& file, long long at) {
  LARGE_INTEGER place{};
  place.QuadPart = at;
  return ::SetFilePointerEx(file.get(), place, nullptr, FILE_BEGIN) != 0;
}

DWORD ErrorUnless(BOOL done) { return done != 0 ? 0 : ::GetLastError(); }

class WindowsDisk : public HostDisk {
 public:
  using HostDisk::HostDisk;

 protected:
  class LinesAtEnd : public Tail {
   public:
    LinesAtEnd(const std::string& path, const Place& place)
        : path_(path), file_(OpenFile(place, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, OPEN_ALWAYS)) {
      if (!file_.IsOpen()) Fail(path, ::GetLastError());
      size_ = SizeOf(path, file_);
    }
    // After the last byte was read the file stands at its end.
    char LastByte() override {
      char last = '\n';
      DWORD count = 0;
      if (size_ > 0 && (!GoTo(file_, size_ - 1) || ::ReadFile(file_.get(), &last, 1, &count, nullptr) == 0))
        Fail(path_, ::GetLastError());
      return last;
    }
    ErrorNumber Write(const std::string& text) override { return WriteAtOnce(file_, text); }
    ErrorNumber Flush() override { return kelp::Flush(file_); }
    bool TakeBack() override { return GoTo(file_, size_) && ::SetEndOfFile(file_.get()) != 0; }
    // The system has no flush of names.
    [[nodiscard]] bool IsNew() const override { return false; }

   private:
    std::string path_;
    Handle file_;
    long long size_ = 0;
  };

  Kind KindOf(const std::string& path, const Place& place) override {
    const DWORD attributes = Attributes(path, place);
    if (attributes == INVALID_FILE_ATTRIBUTES) return Kind::Nothing;
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? Kind::Folder : Kind::File;
  }
  std::vector<std::string> NamesIn(const std::string& path, const Place& place) override;
  std::string Content(const std::string& path, const Place& place) override;
  void WriteBeside(const std::string& path, const Place& place, const std::string& content,
                   bool replaces) override;
  std::unique_ptr<Tail> OpenTail(const std::string& path, const Place& place) override {
    RefuseFolder(path, place);
    RefuseReadOnly(path, place);
    return std::make_unique<LinesAtEnd>(path, place);
  }
  ErrorNumber FlushFile(const Place& place, bool isNew) override;
  // A memory stick knows no second names.
  std::optional<ErrorNumber> AddName(const Place& place, const Place& newPlace) override {
    if (::CreateHardLinkW(LongPath(newPlace).c_str(), LongPath(place).c_str(), nullptr) != 0) return 0;
    return std::nullopt;
  }
  ErrorNumber Rename(const Place& place, const Place& newPlace) override {
    return ErrorUnless(
        ::MoveFileExW(LongPath(place).c_str(), LongPath(newPlace).c_str(), MOVEFILE_WRITE_THROUGH));
  }
  ErrorNumber Delete(const Place& place) override {
    const DWORD error = ErrorUnless(::DeleteFileW(LongPath(place).c_str()));
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ? 0 : error;
  }
  void MakeFolders(const std::string& path, const Place& place) override;
  std::vector<std::shared_ptr<void>> Hold(const std::string& path, const Place& place) override;
  [[nodiscard]] std::string Reason(ErrorNumber error) const override { return kelp::Reason(error); }
};

std::vector<std::string> WindowsDisk::NamesIn(const std::string& path, const Place& place) {
  std::vector<std::string> names;
  WIN32_FIND_DATAW entry{};
  const HANDLE search = ::FindFirstFileW((LongPath(place) + L"\\*").c_str(), &entry);
  // An empty drive has not even the names "." and "..".
  if (search == INVALID_HANDLE_VALUE && ::GetLastError() == ERROR_FILE_NOT_FOUND) return names;
  if (search == INVALID_HANDLE_VALUE) Fail(path, ::GetLastError());
  do {
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) names.push_back(TextOf(entry.cFileName));
  } while (::FindNextFileW(search, &entry) != 0);
  const DWORD error = ::GetLastError();
  ::FindClose(search);
  if (error != ERROR_NO_MORE_FILES) Fail(path, error);
  return names;
}

std::string WindowsDisk::Content(const std::string& path, const Place& place) {
  RefuseFolder(path, place);
  const Handle file(OpenFile(place, GENERIC_READ, kShareAll, OPEN_EXISTING, 0));
  if (!file.IsOpen()) Fail(path, ::GetLastError());
  const long long size = SizeOf(path, file);
  if (size > kLargest) RefuseLarge(path);
  std::string content(static_cast<std::size_t>(size), '\0');
  DWORD count = 0;
  if (::ReadFile(file.get(), content.data(), static_cast<DWORD>(size), &count, nullptr) == 0)
    Fail(path, ::GetLastError());
  content.resize(count);
  return content;
}

void WindowsDisk::WriteBeside(const std::string& path, const Place& place, const std::string& content,
                              bool replaces) {
  if (replaces) RefuseReadOnly(path, place);
  const Place temporary = TemporaryBeside(place, ::GetCurrentProcessId());
  const std::wstring name = LongPath(temporary);
  Handle file(OpenFile(temporary, GENERIC_WRITE, 0, CREATE_NEW, FILE_ATTRIBUTE_HIDDEN));
  if (!file.IsOpen()) Fail(path, ::GetLastError());
  DWORD error = WriteAtOnce(file, content);
  if (error == 0) error = kelp::Flush(file);
  file.Close();
  if (error == 0) error = ErrorUnless(::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_NORMAL));
  const DWORD flags = MOVEFILE_WRITE_THROUGH | (replaces ? MOVEFILE_REPLACE_EXISTING : 0U);
  if (error == 0) error = ErrorUnless(::MoveFileExW(name.c_str(), LongPath(place).c_str(), flags));
  if (error == 0) return;
  if (error == ERROR_ACCESS_DENIED && IsHeld(place)) error = ERROR_SHARING_VIOLATION;
  ::DeleteFileW(name.c_str());
  Fail(path, error);
}

HostDisk::ErrorNumber WindowsDisk::FlushFile(const Place& place, bool /*isNew*/) {
  const Handle file(OpenFile(place, GENERIC_WRITE, kShareAll, OPEN_EXISTING, 0));
  if (file.IsOpen()) return kelp::Flush(file);
  const DWORD error = ::GetLastError();
  return error == ERROR_FILE_NOT_FOUND ? 0 : error;
}

void WindowsDisk::MakeFolders(const std::string& path, const Place& place) {
  if (KindOf(path, place) == Kind::Folder) return;
  Place folder = place.root_path();
  for (const Place& name : place.relative_path()) {
    folder /= name;
    if (::CreateDirectoryW(LongPath(folder).c_str(), nullptr) != 0) continue;
    const DWORD error = ::GetLastError();
    if (KindOf(path, folder) != Kind::Folder) Fail(path, error);
  }
}

std::vector<std::shared_ptr<void>> WindowsDisk::Hold(const std::string& path, const Place& place) {
  RefuseFolder(path, place);
  // Nobody else can open it while it is open without a share.
  const HANDLE file = OpenFile(place, GENERIC_READ | GENERIC_WRITE, 0, OPEN_ALWAYS);
  if (file == INVALID_HANDLE_VALUE && ::GetLastError() == ERROR_SHARING_VIOLATION) return {};
  if (file == INVALID_HANDLE_VALUE) Fail(path, ::GetLastError());
  return {std::make_shared<Handle>(file)};
}

}  // namespace

std::unique_ptr<Disk> MakeHostDisk(const DriveMap& drives, Appends appends) {
  return std::make_unique<WindowsDisk>(drives, appends);
}

}  // namespace kelp
