#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "streets/index/street_index.h"

namespace streets {

/// A shapefile with its table, read record by record: NAME.shp, NAME.shx and NAME.dbf. What is missing, cut short, damaged or of another
/// kind raises FileError with the file and, where there is one, the record.
class ShapeFile {
 public:
  /// `path` is that of NAME.shp; `shown` names it in messages, and is the path when it is empty.
  explicit ShapeFile(const std::string& path, std::string shown = "");
  ~ShapeFile();
  ShapeFile(const ShapeFile&) = delete;
  ShapeFile& operator=(const ShapeFile&) = delete;

  const std::string& Shown() const noexcept { return shown_; }
  int Records() const noexcept { return records_; }
  /// The number of a column, whose name may be in capitals or not; nothing when the table has none of that name.
  std::optional<int> Column(const char* name) const;

  /// Records count from 0.
  bool IsDeleted(int record) const;
  /// A field without blanks around it, in UTF-8, without control characters.
  std::string Field(int record, int column) const;

  enum class LineState { Good, Null, SeveralParts, OffTheEarth };
  /// The record's line, at its state Good; two points at least.
  LineState ReadLine(int record, Line& line) const;

 private:
  struct Handles;
  [[noreturn]] void Damaged(int record, const std::string& what) const;

  std::string shown_;
  std::unique_ptr<Handles> handles_;
  int records_ = 0;
};

}  // namespace streets
