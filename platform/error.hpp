// SPDX-License-Identifier: GPL-3.0-or-later
// The run-time errors of the program. A handler throws one, the one door for events reports it in a
// message box, and the run goes on with all stored values as they were.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace kelp {

enum class ErrorKind { Overflow, Subscript, TypeMismatch, DivisionByZero, InvalidCall, File };

/// The name under which an error is reported: "Overflow", "Subscript out of range", "Type mismatch",
/// "Division by zero", "Invalid procedure call", "File error".
std::string_view ErrorName(ErrorKind kind);

class RunTimeError : public std::runtime_error {
 public:
  /// `what` says what failed and where, in words that the operator can act on.
  RunTimeError(ErrorKind kind, const std::string& what) : std::runtime_error(what), kind_(kind) {}
  [[nodiscard]] ErrorKind kind() const { return kind_; }

 private:
  ErrorKind kind_;
};

/// A file error: the message names the file and the reason.
class FileError : public RunTimeError {
 public:
  FileError(const std::string& path, const std::string& reason)
      : RunTimeError(ErrorKind::File, path + ": " + reason), path_(path), reason_(reason) {}
  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] const std::string& reason() const { return reason_; }

 private:
  std::string path_;
  std::string reason_;
};

}  // namespace kelp
