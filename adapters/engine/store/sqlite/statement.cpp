#include "engine/store/sqlite/statement.h"

#include <sqlite3.h>

#include <algorithm>
#include <cassert>
#include <charconv>
#include <chrono>
#include <limits>

#include "engine/errors.h"
#include "engine/store/sqlite/connection.h"
#include "engine/values/iso_date.h"

namespace engine {
namespace {

using platform::FieldType;
using platform::Value;
using platform::ValueKind;

// What a write changes, and what an error message is about.
int FirstFile(std::string_view sql) {
  const std::vector<int> files = FilesIn(sql);
  return files.empty() ? 0 : files.front();
}

// As bytes: asked for as a text, the store would first copy it to put an end mark behind it.
std::string_view TextOf(sqlite3_value* value) {
  const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
  return bytes == nullptr ? std::string_view() : std::string_view(bytes, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

template <class Whole>
Value WholeNumber(std::int64_t number) {
  if (number < std::numeric_limits<Whole>::min() || number > std::numeric_limits<Whole>::max()) throw errors::NumericOverflow();
  return static_cast<Whole>(number);
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

StatementSlot::StatementSlot(Connection& connection, std::string_view text) : sql(text), file(FirstFile(text)) {
  connection.Prepare(*this);
  writes = statement != nullptr && sqlite3_stmt_readonly(statement) == 0;
}

StatementSlot::~StatementSlot() { sqlite3_finalize(statement); }

Query::Query(Connection& connection, SqlText& sql) : connection_(connection) {
  if (!sql.slot || sql.slot->inUse || sql.slot->statement == nullptr) sql.slot = connection.Slot(sql.text);
  Open(sql.slot);
}

Query::Query(Connection& connection, std::string_view sql) : connection_(connection) { Open(connection.Slot(sql)); }

void Query::Open(std::shared_ptr<StatementSlot> slot) {
  slot_ = std::move(slot);
  slot_->inUse = true;
  statement_ = slot_->statement;
}

Query::~Query() {
  sqlite3_reset(statement_);
  slot_->inUse = false;
}

void Query::BindNull(int index) { sqlite3_bind_null(statement_, index); }
void Query::Bind(int index, std::int64_t number) { sqlite3_bind_int64(statement_, index, number); }
void Query::Bind(int index, double number) { sqlite3_bind_double(statement_, index, number); }
void Query::Bind(int index, std::string_view text) {
  sqlite3_bind_text64(statement_, index, text.data() == nullptr ? "" : text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void Query::Bind(int index, const Value& value) {
  switch (value.Kind()) {
    case ValueKind::Empty:
    case ValueKind::Null:
      return BindNull(index);
    case ValueKind::Boolean:
      return Bind(index, std::int64_t{value.As<bool>() ? -1 : 0});
    case ValueKind::Byte:
      return Bind(index, std::int64_t{value.As<std::uint8_t>()});
    case ValueKind::Short:
      return Bind(index, std::int64_t{value.As<std::int16_t>()});
    case ValueKind::Long:
      return Bind(index, std::int64_t{value.As<std::int32_t>()});
    case ValueKind::Currency:
      return Bind(index, value.As<platform::Currency>().tenThousandths);
    case ValueKind::Double:
      return Bind(index, value.As<double>());
    case ValueKind::Date:
      return Bind(index, std::string_view(IsoText(value.As<platform::Date>())));
    case ValueKind::Text:
      return Bind(index, std::string_view(value.As<std::string>()));
  }
}

bool Query::Step() {
  const int code = stepped_ ? sqlite3_step(statement_) : FirstStep();
  stepped_ = true;
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) {
    if (slot_->writes) connection_.CountWrite(slot_->file);
    return false;
  }
  connection_.RaiseFor(code, *slot_);
}

// A lock is met at the first step, before anything was read or written: so the statement can begin anew.
int Query::FirstStep() {
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

void Query::Run() {
  while (Step()) {
  }
}

void Query::Again() {
  sqlite3_reset(statement_);
  stepped_ = false;
}

bool Query::Sorted() const { return sqlite3_stmt_status(statement_, SQLITE_STMTSTATUS_SORT, 0) > 0; }

bool Query::IsNull(int column) const { return sqlite3_column_type(statement_, column) == SQLITE_NULL; }
std::int64_t Query::Int(int column) const { return sqlite3_column_int64(statement_, column); }

std::string_view Query::Text(int column) const { return TextOf(sqlite3_column_value(statement_, column)); }

std::optional<std::string_view> Query::TextOrNull(int column) const {
  sqlite3_value* value = sqlite3_column_value(statement_, column);
  if (sqlite3_value_type(value) == SQLITE_NULL) return {};
  return TextOf(value);
}

Value Query::Read(int column, FieldType type) const {
  std::vector<Value> one;
  Append(one, column, type);
  return std::move(one.front());
}

// The value is taken out of the statement once: asking for its type, its text and its length each by themselves costs more
// than the copying.
void Query::Append(std::vector<Value>& values, int column, FieldType type) const {
  sqlite3_value* value = sqlite3_column_value(statement_, column);
  if (sqlite3_value_type(value) == SQLITE_NULL) {
    values.emplace_back(platform::Null);
    return;
  }
  switch (type) {
    case FieldType::Boolean:
      values.emplace_back(sqlite3_value_int64(value) != 0);
      break;
    case FieldType::Byte:
      values.push_back(WholeNumber<std::uint8_t>(sqlite3_value_int64(value)));
      break;
    case FieldType::Short:
      values.push_back(WholeNumber<std::int16_t>(sqlite3_value_int64(value)));
      break;
    case FieldType::Long:
    case FieldType::Counter:
      values.push_back(WholeNumber<std::int32_t>(sqlite3_value_int64(value)));
      break;
    case FieldType::Currency:
      values.emplace_back(platform::Currency{sqlite3_value_int64(value)});
      break;
    case FieldType::Double:
      values.emplace_back(sqlite3_value_double(value));
      break;
    case FieldType::Date: {
      const auto date = DateOfIso(TextOf(value));
      date ? values.emplace_back(*date) : values.emplace_back(platform::Null);
      break;
    }
    case FieldType::Text:
    case FieldType::Memo:
      values.emplace_back(TextOf(value));
      break;
  }
}

}  // namespace engine
