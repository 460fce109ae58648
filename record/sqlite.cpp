// SPDX-License-Identifier: GPL-3.0-or-later
#include "record/sqlite.hpp"

#include <cstring>

namespace kelp {

namespace {

constexpr int kBusyMilliseconds = 100;

std::string ReasonOf(int code, const char* message) {
  switch (code & 0xFF) {
    case SQLITE_FULL: return "no space left on the disk; free some, then the values are written";
    case SQLITE_READONLY: return "is read-only, or was moved away; give this user the right to write it";
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return "another program has it locked; close that program";
    case SQLITE_IOERR: return "the disk reports an input/output error; check it and its connection";
    case SQLITE_CANTOPEN: return "can't be opened; check its folder and this user's rights there";
    case SQLITE_CORRUPT: return "is damaged";
    case SQLITE_NOTADB: return "is no database";
    case SQLITE_PERM: return "permission denied; give this user the right to write it";
    default: return message;
  }
}

bool IsDamage(int code) { return (code & 0xFF) == SQLITE_CORRUPT || (code & 0xFF) == SQLITE_NOTADB; }

}  // namespace

Connection::Connection(std::string path, const std::filesystem::path& place, bool readOnly)
    : path_(std::move(path)) {
  const std::u8string name = place.empty() ? u8":memory:" : place.u8string();
  const int flags = readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
  const int code = sqlite3_open_v2(reinterpret_cast<const char*>(name.c_str()), &handle_, flags, nullptr);
  if (code == SQLITE_OK) {
    sqlite3_busy_timeout(handle_, kBusyMilliseconds);
    return;
  }
  const std::string reason = ReasonOf(code, sqlite3_errstr(code));
  sqlite3_close(handle_);
  throw RecordError(path_, reason, IsDamage(code));
}

void Connection::Fail(int code) const {
  throw RecordError(path_, ReasonOf(code, sqlite3_errmsg(handle_)), IsDamage(code));
}

void Connection::Run(const char* sql) {
  if (const int code = sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr); code != SQLITE_OK)
    Fail(sqlite3_extended_errcode(handle_));
}

std::int64_t Connection::Number(const char* sql) {
  Statement statement(*this, sql);
  return statement.Row() ? statement.Number(0) : 0;
}

void Connection::Take(std::string_view content) {
  auto* bytes = static_cast<unsigned char*>(sqlite3_malloc64(content.size()));
  if (bytes == nullptr) Fail(SQLITE_NOMEM);
  std::memcpy(bytes, content.data(), content.size());
  const auto size = static_cast<sqlite3_int64>(content.size());
  const int code = sqlite3_deserialize(handle_, "main", bytes, size, size,
                                       SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE);
  if (code != SQLITE_OK) Fail(code);
}

std::string Connection::Content() const {
  sqlite3_int64 size = 0;
  unsigned char* bytes = sqlite3_serialize(handle_, "main", &size, 0);
  std::string content(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
  sqlite3_free(bytes);
  return content;
}

Statement::Statement(Connection& connection, const char* sql) : connection_(connection) {
  Check(sqlite3_prepare_v2(connection.handle(), sql, -1, &statement_, nullptr));
}

void Statement::Check(int code) const {
  if (code != SQLITE_OK) connection_.Fail(code);
}

Statement& Statement::Bind(int at, std::string_view text) {
  Check(sqlite3_bind_text(statement_, at, text.data() == nullptr ? "" : text.data(),
                          static_cast<int>(text.size()), SQLITE_TRANSIENT));
  return *this;
}

Statement& Statement::Bind(int at, std::int64_t number) {
  Check(sqlite3_bind_int64(statement_, at, number));
  return *this;
}

Statement& Statement::Bind(int at, double number) {
  Check(sqlite3_bind_double(statement_, at, number));
  return *this;
}

Statement& Statement::BindNull(int at) {
  Check(sqlite3_bind_null(statement_, at));
  return *this;
}

bool Statement::Row() {
  const int code = sqlite3_step(statement_);
  if (code == SQLITE_ROW) return true;
  sqlite3_reset(statement_);
  if (code != SQLITE_DONE) connection_.Fail(sqlite3_extended_errcode(connection_.handle()));
  return false;
}

std::string Statement::Text(int column) const {
  const auto* text = sqlite3_column_text(statement_, column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
  return text == nullptr ? std::string() : std::string(reinterpret_cast<const char*>(text), size);
}

}  // namespace kelp
