#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/rows/place.h"
#include "engine/rows/row_source.h"
#include "platform/data/data.h"

namespace engine {

/// What a store that can do so gives back of a row that it has changed, so that nobody asks for the row once more.
struct RowBack {
  std::string columns;                         ///< of the one table, as a SELECT names them
  std::function<void(const Query& row)> take;  ///< gets the row; it stands only once the statement has ended
};

/// The copy buffer of one recordset: what AddNew and Edit open, field writes fill and Update brings into the tables.
class RowEditor {
 public:
  explicit RowEditor(RowSource& source) : source_(source) {}

  platform::EditMode Mode() const noexcept { return mode_; }
  const platform::Value& Field(int index) const { return values_[static_cast<std::size_t>(index)]; }

  /// Opens the buffer for a new row: defaults, else Null; a Counter gets its number by a commit of its own, so that nobody else
  /// is ever given it. Raises 3027, 3218 after the wait for a lock, 3043; no buffer is open then.
  void BeginAdd();
  /// Opens it with the row's present fields.
  void BeginEdit(const Place& row);
  /// Converts and keeps a value; a value that doesn't fit leaves the field as it was. Raises 3164 for a field that can't be written.
  void Set(int index, const platform::Value& value);
  void Drop();

  /// Writes the new row; its keys. The buffer stays open when that fails.
  std::vector<std::int64_t> Insert();
  /// Writes the assigned fields, each to the table that owns it; those alone whose values are others, where it is known that the row is
  /// still as it was read (RowSource::StillSo). Raises 3167 when the row is gone. `back`: what the store is to give back of the row as it
  /// is then, if anything is written.
  void Write(const RowBack* back = nullptr);
  /// Removes the row from the driving table. Raises 3167 when it is gone.
  void Delete(const Place& row);

 private:
  /// The statement that adds a row to the driving table, and the columns that it binds, in their order behind the Counter's.
  struct Insertion {
    SqlText sql;
    std::vector<std::size_t> columns;
  };
  Insertion MakeInsertion(const ResolvedTable& table) const;
  std::int64_t InsertRow(const ResolvedTable& table);
  std::vector<std::int64_t> KeysOfNewRow(std::int64_t driving);
  std::vector<bool> FieldsToWrite() const;
  void WriteTable(std::size_t table, const std::vector<bool>& fields, const RowBack* back);

  RowSource& source_;
  platform::EditMode mode_ = platform::EditMode::None;
  std::vector<platform::Value> values_;
  std::vector<bool> assigned_;
  std::shared_ptr<const RowPage> read_;  ///< where Edit found the row
  std::size_t readRow_ = 0;
  std::vector<std::int64_t> keys_;
  std::optional<std::int64_t> counter_;
  std::optional<Insertion> insertion_;
};

}  // namespace engine
