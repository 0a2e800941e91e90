#include "streets/file/statement.h"

#include <sqlite3.h>

#include <utility>

#include "streets/file/database.h"

namespace streets {

Statement::Statement(Database& database, std::string_view sql) : database_(&database) {
  const int code = sqlite3_prepare_v3(database.Handle(), sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT, &statement_, nullptr);
  if (code != SQLITE_OK) database.Raise(code);
}

Statement::~Statement() { sqlite3_finalize(statement_); }

Statement::Statement(Statement&& other) noexcept : database_(other.database_), statement_(std::exchange(other.statement_, nullptr)) {}

bool Statement::Step() {
  const int code = sqlite3_step(statement_);
  if (code == SQLITE_ROW) return true;
  sqlite3_reset(statement_);
  if (code != SQLITE_DONE) database_->Raise(code);
  return false;
}

void Statement::Run() {
  while (Step()) {
  }
}

void Statement::Reset() noexcept { sqlite3_reset(statement_); }

std::int64_t Statement::Int(int column) const { return sqlite3_column_int64(statement_, column); }

std::string_view Statement::Text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
  if (!text) return {};
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

std::span<const std::byte> Statement::Bytes(int column) const {
  const auto* bytes = static_cast<const std::byte*>(sqlite3_column_blob(statement_, column));
  if (!bytes) return {};
  return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

void Statement::Bind(int place, std::int64_t value) {
  if (const int code = sqlite3_bind_int64(statement_, place, value); code != SQLITE_OK) database_->Raise(code);
}

void Statement::Bind(int place, std::string_view text) {
  const char* start = text.data() ? text.data() : "";
  const int code = sqlite3_bind_text64(statement_, place, start, text.size(), SQLITE_STATIC, SQLITE_UTF8);
  if (code != SQLITE_OK) database_->Raise(code);
}

void Statement::Bind(int place, std::span<const std::byte> bytes) {
  const int code = sqlite3_bind_blob64(statement_, place, bytes.data(), bytes.size(), SQLITE_STATIC);
  if (code != SQLITE_OK) database_->Raise(code);
}

}  // namespace streets
