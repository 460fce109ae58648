// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/host_disk.hpp"

#include <algorithm>

#include "platform/error.hpp"

namespace kelp {

namespace {

constexpr std::string_view kTemporaryMark = ".kelp-new-";

bool IsTemporary(const std::string& name) {
  return name.starts_with('.') && name.find(kTemporaryMark) != std::string::npos;
}

// What is missing at the end of the last line, as a crash or an editor left it.
std::string MissingLineEnd(char last) {
  if (last == '\n') return {};
  return last == '\r' ? "\n" : "\r\n";
}

}  // namespace

bool HostDisk::Exists(const std::string& path) {
  return KindOf(path, drives_.HostPath(path)) != Kind::Nothing;
}

bool HostDisk::IsFolder(const std::string& path) {
  return KindOf(path, drives_.HostPath(path)) == Kind::Folder;
}

std::vector<std::string> HostDisk::FilesIn(const std::string& folder) {
  const Place place = drives_.HostPath(folder);
  if (KindOf(folder, place) != Kind::Folder) return {};
  std::vector<std::string> names = NamesIn(folder, place);
  names.erase(std::remove_if(names.begin(), names.end(), IsTemporary), names.end());
  return names;
}

void HostDisk::Replace(const std::string& path, const std::string& content) {
  const Place place = drives_.HostPath(path);
  RefuseFolder(path, place);
  WriteBeside(path, place, content, true);
  doubtful_.erase(place);
}

void HostDisk::AppendText(const std::string& path, const std::string& text, bool flush) {
  const bool log = !flush && doubtful_.empty();
  const Place place = log ? Place() : drives_.HostPath(path);
  if (doubtful_.contains(place) && Exists(path)) {
    const std::string content = Read(path);
    Replace(path, content + (content.empty() || content.ends_with('\n') ? "" : "\r\n") + text);
    return;
  }
  const std::unique_ptr<Tail> file = log ? OpenLog(path) : OpenTail(path, place);
  ErrorNumber error = file->Write(MissingLineEnd(file->LastByte()) + text);
  if (error == 0) {
    if (!flush) {
      if (flushes_) unflushed_[path] = unflushed_[path] || file->IsNew();
      return;
    }
    error = file->Flush();
    if (error == 0) {
      unflushed_.erase(path);
      return;
    }
    doubtful_.insert(place);
  }
  // No half line stays, and a line that is told as lost is not there twice when it is written again.
  if (!file->TakeBack()) throw FileError(path, Reason(error) + " (a part of the line may be in the file)");
  Check(path, error);
}

void HostDisk::Flush(const std::string& path) {
  const auto owed = unflushed_.extract(path);
  if (owed.empty()) return;
  const Place place = drives_.HostPath(path);
  const ErrorNumber error = FlushFile(place, owed.mapped());
  if (error != 0) doubtful_.insert(place);
  Check(path, error);
}

void HostDisk::Keep(const std::string& path, const std::string& newPath) {
  const Place place = drives_.HostPath(path);
  const Place newPlace = drives_.HostPath(newPath);
  if (KindOf(path, place) == Kind::Nothing) throw FileError(path, "does not exist");
  RefuseFolder(path, place);
  if (KindOf(newPath, newPlace) != Kind::Nothing)
    throw FileError(newPath, "exists already; choose another name");
  if (const auto error = AddName(place, newPlace))
    Check(newPath, *error);
  else
    WriteBeside(newPath, newPlace, Read(path), false);  // a copy serves as well
}

void HostDisk::Move(const std::string& path, const std::string& newPath) {
  const Place place = drives_.HostPath(path);
  const Place newPlace = drives_.HostPath(newPath);
  if (KindOf(path, place) == Kind::Nothing) throw FileError(path, "does not exist");
  if (KindOf(newPath, newPlace) != Kind::Nothing)
    throw FileError(newPath, "exists already; choose another name");
  Check(newPath, Rename(place, newPlace));
  doubtful_.erase(place);
}

void HostDisk::Remove(const std::string& path) {
  const Place place = drives_.HostPath(path);
  RefuseFolder(path, place);
  Check(path, Delete(place));
  doubtful_.erase(place);
}

bool HostDisk::MakeFolder(const std::string& path) {
  const Place place = drives_.HostPath(path);
  const Kind kind = KindOf(path, place);
  if (kind != Kind::Nothing && kind != Kind::Folder)
    throw FileError(path, "is a file; choose another name for the folder");
  MakeFolders(path, place);
  return kind == Kind::Nothing;
}

bool HostDisk::Claim(const std::string& path) {
  const Place place = drives_.HostPath(path);
  if (claims_.contains(place)) return true;
  std::vector<std::shared_ptr<void>> held = Hold(path, place);
  if (held.empty()) return false;
  claims_.emplace(place, std::move(held));
  return true;
}

void HostDisk::RefuseFolder(const std::string& path, const Place& place) {
  if (KindOf(path, place) == Kind::Folder) throw FileError(path, "is a folder");
}

void HostDisk::RefuseLarge(const std::string& path) {
  throw FileError(path, "is larger than 64 MiB, so none of this program's files; choose another one");
}

HostDisk::Place HostDisk::TemporaryBeside(const Place& place, unsigned long process) {
  static unsigned count = 0;
  Place name = ".";
  name += place.filename();
  name += std::string(kTemporaryMark) + std::to_string(process) + "-" + std::to_string(count++);
  return place.parent_path() / name;
}

void HostDisk::Check(const std::string& path, ErrorNumber error) const {
  if (error != 0) throw FileError(path, Reason(error));
}

}  // namespace kelp
