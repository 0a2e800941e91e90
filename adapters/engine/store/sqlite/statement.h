#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/table_definition.h"
#include "platform/values/value.h"

struct sqlite3_stmt;

namespace engine {

class Connection;

/// The numbers of the files that a statement names ("f3".), in the order of their first places.
std::vector<int> FilesIn(std::string_view sql);

/// A prepared statement as the connection keeps it.
struct StatementSlot {
  StatementSlot(Connection& connection, std::string_view sql);
  ~StatementSlot();
  StatementSlot(const StatementSlot&) = delete;
  StatementSlot& operator=(const StatementSlot&) = delete;

  std::string sql;
  sqlite3_stmt* statement = nullptr;  ///< nullptr once the connection has dropped it
  bool inUse = false;
  bool writes = false;
  int file = 0;  ///< number of the first file that the text names, 0 if none
};

/// A statement's text with its prepared form, for who runs it often.
struct SqlText {
  SqlText() = default;
  SqlText(std::string sql) : text(std::move(sql)) {}
  std::string text;
  std::shared_ptr<StatementSlot> slot;
};

/// One run of a statement: bind, step, read. It ends with the object; nothing stays open behind it. A write that meets
/// a lock waits for it, then raises 3218; a read 3045. Columns count from 0, parameters from 1; each run binds all
/// parameters that it uses.
class Query {
 public:
  Query(Connection& connection, SqlText& sql);
  Query(Connection& connection, std::string_view sql);
  ~Query();
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  void BindNull(int index);
  void Bind(int index, std::int64_t number);
  void Bind(int index, double number);
  void Bind(int index, std::string_view text);
  /// The stored form of a value of the field's own type.
  void Bind(int index, const platform::Value& value);

  /// True when there is a row.
  bool Step();
  /// Runs it to its end.
  void Run();
  /// Makes it ready for another run; bindings stay.
  void Again();

  /// Whether the store had to put the rows in order itself.
  bool Sorted() const;

  bool IsNull(int column) const;
  std::int64_t Int(int column) const;
  std::string_view Text(int column) const;  ///< valid until the next step
  /// The text of a column, nothing for Null.
  std::optional<std::string_view> TextOrNull(int column) const;
  /// The value of a column of that declared type.
  platform::Value Read(int column, platform::FieldType type) const;
  /// The same, put behind others: what pages are filled with.
  void Append(std::vector<platform::Value>& values, int column, platform::FieldType type) const;

 private:
  void Open(std::shared_ptr<StatementSlot> slot);
  int FirstStep();

  Connection& connection_;
  std::shared_ptr<StatementSlot> slot_;
  sqlite3_stmt* statement_ = nullptr;
  bool stepped_ = false;
};

}  // namespace engine
