#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/data/data.h"
#include "platform/data/table_definition.h"
#include "platform/values/value.h"

namespace platform {

/// Rows that are read once, from the first to the last: what a report asks, where a recordset would keep more than is needed.
class RowStream {
 public:
  virtual ~RowStream() = default;
  virtual const std::vector<FieldInfo>& Fields() const = 0;
  /// Goes to the next row, first of all to the first; false behind the last. Raises like any read, and kReadingStopped.
  virtual bool Next() = 0;
  /// The row's values in the order of Fields(); Next() changes them.
  virtual const std::vector<Value>& Row() const = 0;
  /// All rows, counted by looking at them: long for a long table with conditions or joins.
  virtual std::int64_t Count() = 0;
};

/// The error of a reading that was told to stop.
inline constexpr int kReadingStopped = 3059;

/// Reads on a connection of its own. From the first row on all files of the statement stay, for it, in the state that they then had,
/// whatever others write; nobody is kept from writing.
class SnapshotReader {
 public:
  virtual ~SnapshotReader() = default;
  /// Definition of a table (or of the one that a link leads to) of that file; nothing where there is none. Raises 3024, 3044, 3343 ...
  /// for a file that can't be opened.
  virtual std::optional<TableDefinition> FindTable(std::string_view path, std::string_view table) = 0;
  /// Opens a SELECT on that file; a second one only when the first stream is gone. Errors as Database::OpenRecordset. The stream must
  /// not outlive the reader.
  virtual std::unique_ptr<RowStream> OpenRows(std::string_view path, std::string_view select) = 0;
  /// Asked every few milliseconds while rows are looked for or put in order, and while a lock is waited for; false stops the reading.
  /// It may let windows paint, and must not use or end this reader.
  virtual void OnWait(std::function<bool()> goOn) = 0;
};

}  // namespace platform
