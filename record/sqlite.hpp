// SPDX-License-Identifier: GPL-3.0-or-later
// SQLite as this program uses it: a connection and a statement that end with their scope, and errors in
// words for whoever has to mend them.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/error.hpp"

namespace kelp {

/// The database can't be used now. `Unusable` says that it never will be: damaged, no database at all, or
/// of a newer program. Then it is set aside.
class RecordError : public FileError {
 public:
  RecordError(const std::string& path, const std::string& reason, bool unusable)
      : FileError(path, reason), Unusable(unusable) {}
  bool Unusable;
};

class Connection {
 public:
  /// Opens a file of the host, or with an empty place a database in memory. `path` is the name for errors.
  Connection(std::string path, const std::filesystem::path& place, bool readOnly);
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  /// The emptied journal that stayed for the next value goes: a program that has ended leaves one file.
  ~Connection() {
    sqlite3_exec(handle_, "PRAGMA journal_mode=DELETE", nullptr, nullptr, nullptr);
    sqlite3_close(handle_);
  }

  void Run(const char* sql);
  [[nodiscard]] std::int64_t Number(const char* sql);
  /// Throws RecordError for a result code of SQLite.
  [[noreturn]] void Fail(int code) const;
  [[nodiscard]] sqlite3* handle() const { return handle_; }

  /// A database in memory from and to the bytes that its file would have.
  void Take(std::string_view content);
  [[nodiscard]] std::string Content() const;

 private:
  std::string path_;
  sqlite3* handle_ = nullptr;
};

class Statement {
 public:
  Statement(Connection& connection, const char* sql);
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  ~Statement() { sqlite3_finalize(statement_); }

  Statement& Bind(int at, std::string_view text);
  Statement& Bind(int at, std::int64_t number);
  Statement& Bind(int at, double number);
  Statement& BindNull(int at);
  /// The next row; false behind the last one, after which it can be bound anew.
  bool Row();
  /// Leaves the rows that are left: it can be bound anew.
  void Reset() { sqlite3_reset(statement_); }
  /// Runs a statement without rows.
  void Run() { static_cast<void>(Row()); }
  [[nodiscard]] std::string Text(int column) const;
  [[nodiscard]] std::int64_t Number(int column) const { return sqlite3_column_int64(statement_, column); }
  [[nodiscard]] double Real(int column) const { return sqlite3_column_double(statement_, column); }

 private:
  void Check(int code) const;
  Connection& connection_;
  sqlite3_stmt* statement_ = nullptr;
};

}  // namespace kelp
