// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/posix/temporary.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace kelp {

Temporary::Temporary(const std::string& path, const std::function<std::filesystem::path()>& newName,
                     unsigned mode) {
  do {
    name_ = newName();
    file_ = OpenFile(name_, O_WRONLY | O_CREAT | O_EXCL, mode);
  } while (!file_.IsOpen() && errno == EEXIST);
  if (!file_.IsOpen()) Fail(path, errno, Doing::Writing);
}

Temporary::~Temporary() {
  if (file_.IsOpen() && !renamed_) ::unlink(name_.c_str());
}

void Temporary::Become(const std::string& path, const std::filesystem::path& place,
                       const std::string& content) {
  // Content, flush, name, flush, in this order: a crash between any two leaves a whole file.
  int error = WriteAll(file_, content);
  if (error == 0) error = Flush(file_);
  if (error == 0 && ::rename(name_.c_str(), place.c_str()) != 0) error = errno;
  if (error != 0) Fail(path, error, Doing::Writing);
  renamed_ = true;
  error = FlushFolder(place.parent_path());
  if (error != 0) Fail(path, error, Doing::Writing);
}

}  // namespace kelp
