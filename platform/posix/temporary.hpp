// SPDX-License-Identifier: GPL-3.0-or-later
// A new file beside another one, which takes its place once its content is on the disk.
#pragma once

#include <functional>

#include "platform/posix/handle.hpp"

namespace kelp {

/// Its name is taken back with its scope unless it became the file. A crash may leave one behind.
class Temporary {
 public:
  /// Creates it with the first new name that is free. Throws FileError, which names `path`.
  Temporary(const std::string& path, const std::function<std::filesystem::path()>& newName, unsigned mode);
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;
  ~Temporary();

  /// Gets `content` and becomes the file at `place`, in whose stead there is nothing or an old file.
  /// Throws FileError, which names `path`.
  void Become(const std::string& path, const std::filesystem::path& place, const std::string& content);

  [[nodiscard]] const Handle& file() const { return file_; }

 private:
  std::filesystem::path name_;
  Handle file_;
  bool renamed_ = false;
};

}  // namespace kelp
