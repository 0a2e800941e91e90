#include "engine/store/sqlite/statement.h"

#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <chrono>

#include "engine/store/sqlite/connection.h"
#include "engine/values/iso_date.h"
#include "engine/values/stored_form.h"

namespace engine {
namespace {

using platform::FieldType;
using platform::Value;

int FirstFile(std::string_view sql) {
  const std::vector<int> files = FilesIn(sql);
  return files.empty() ? 0 : files.front();
}

// As bytes: asked for as a text, the store would first copy it to put an end mark behind it.
std::string_view TextOf(sqlite3_value* value) {
  const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
  return bytes == nullptr ? std::string_view() : std::string_view(bytes, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

/// Takes cells as PackedCells does, as values.
struct ValueCells {
  void AddNull() { cells.emplace_back(platform::Null); }
  void AddReal(double number) { cells.emplace_back(number); }
  void AddText(std::string_view text) { cells.emplace_back(text); }
  void AddIsoDate(std::string_view text) {
    const auto date = DateOfIso(text);
    date ? cells.emplace_back(*date) : cells.emplace_back(platform::Null);
  }
  void AddWhole(FieldType type, std::int64_t number) { cells.push_back(ValueOfWhole(type, number)); }

  std::vector<Value>& cells;
};

// Each value is taken out of the statement once: asking for its type, its text and its length each by themselves costs more
// than the copying.
template <class Cells>
void TakeCells(sqlite3_stmt* statement, Cells& cells, int first, std::span<const FieldType> types) {
  int column = first;
  for (const FieldType type : types) {
    sqlite3_value* value = sqlite3_column_value(statement, column++);
    if (sqlite3_value_type(value) == SQLITE_NULL) {
      cells.AddNull();
      continue;
    }
    switch (type) {
      case FieldType::Double:
        cells.AddReal(sqlite3_value_double(value));
        break;
      case FieldType::Date:
        cells.AddIsoDate(TextOf(value));
        break;
      case FieldType::Text:
      case FieldType::Memo:
        cells.AddText(TextOf(value));
        break;
      default:
        cells.AddWhole(type, sqlite3_value_int64(value));
        break;
    }
  }
}

}  // namespace

std::vector<int> FilesIn(std::string_view sql) {
  std::vector<int> files;
  for (std::size_t at = sql.find("\"f"); at != std::string_view::npos; at = sql.find("\"f", at + 1)) {
    int number = 0;
    const char* end = sql.data() + sql.size();
    const auto result = std::from_chars(sql.data() + at + 2, end, number);
    if (result.ec != std::errc() || end - result.ptr < 2 || result.ptr[0] != '"' || result.ptr[1] != '.') continue;
    if (std::find(files.begin(), files.end(), number) == files.end()) files.push_back(number);
  }
  return files;
}

SqliteStatement::SqliteStatement(Connection& connection, std::string_view sql)
    : connection_(connection), sql_(sql), file_(FirstFile(sql)), statement_(connection.PrepareText(sql_, file_)) {
  writes_ = statement_ != nullptr && sqlite3_stmt_readonly(statement_) == 0;
}

SqliteStatement::~SqliteStatement() { sqlite3_finalize(statement_); }

void SqliteStatement::Drop() noexcept {
  sqlite3_finalize(statement_);
  statement_ = nullptr;
  MarkDropped();
}

void SqliteStatement::BindNull(int parameter) { sqlite3_bind_null(statement_, parameter); }
void SqliteStatement::Bind(int parameter, std::int64_t number) { sqlite3_bind_int64(statement_, parameter, number); }
void SqliteStatement::Bind(int parameter, double number) { sqlite3_bind_double(statement_, parameter, number); }
void SqliteStatement::Bind(int parameter, std::string_view text) {
  sqlite3_bind_text64(statement_, parameter, text.data() == nullptr ? "" : text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}
void SqliteStatement::BindInPlace(int parameter, std::string_view text) {
  sqlite3_bind_text64(statement_, parameter, text.data() == nullptr ? "" : text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
}

bool SqliteStatement::Step() {
  connection_.RequireOutside(file_);
  const int code = stepped_ ? sqlite3_step(statement_) : FirstStep();
  stepped_ = true;
  if (code == SQLITE_ROW) {
    // Who may look at so many rows only may not have all put in order first.
    if (connection_.WorkIsLimited() && sqlite3_stmt_status(statement_, SQLITE_STMTSTATUS_SORT, 0) > 0) throw WorkLimitReached();
    return true;
  }
  if (code == SQLITE_DONE) {
    if (writes_) connection_.CountWrite(file_);
    return false;
  }
  connection_.RaiseFor(code, writes_, file_);
}

// A lock is met at the first step, before anything was read or written: so the statement can begin anew.
int SqliteStatement::FirstStep() {
  int code = sqlite3_step(statement_);
  if ((code & 0xff) != SQLITE_BUSY) return code;
  const auto start = std::chrono::steady_clock::now();
  while ((code & 0xff) == SQLITE_BUSY && connection_.WaitForLock(start)) {
    sqlite3_reset(statement_);
    connection_.RenewSnapshot();
    code = sqlite3_step(statement_);
  }
  return code;
}

void SqliteStatement::Reset() noexcept {
  sqlite3_reset(statement_);
  stepped_ = false;
}

std::int64_t SqliteStatement::Changed() const { return sqlite3_changes64(sqlite3_db_handle(statement_)); }
std::int64_t SqliteStatement::AddedRow() const { return sqlite3_last_insert_rowid(sqlite3_db_handle(statement_)); }

bool SqliteStatement::IsNull(int column) const { return sqlite3_column_type(statement_, column) == SQLITE_NULL; }
std::int64_t SqliteStatement::Int(int column) const { return sqlite3_column_int64(statement_, column); }

std::optional<std::string_view> SqliteStatement::Text(int column) const {
  sqlite3_value* value = sqlite3_column_value(statement_, column);
  if (sqlite3_value_type(value) == SQLITE_NULL) return {};
  return TextOf(value);
}

void SqliteStatement::Append(std::vector<Value>& cells, int first, std::span<const FieldType> types) const {
  ValueCells values{cells};
  TakeCells(statement_, values, first, types);
}

void SqliteStatement::Pack(PackedCells& cells, int first, std::span<const FieldType> types) const {
  TakeCells(statement_, cells, first, types);
}

}  // namespace engine
