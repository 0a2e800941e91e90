#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/data/data.h"

namespace platform {

/// A small table of texts that no file holds, for a list of a screen's own making. Its columns are named by their headings.
class TextTable {
 public:
  using Row = std::vector<std::string>;
  TextTable(std::vector<std::string> columns, std::vector<Row> rows);

  int RowCount() const noexcept { return static_cast<int>(cells_->rows.size()); }
  /// Both raise 9 for a place that there is not.
  const std::string& At(int row, int column) const;
  void Swap(int row, int other, int column);

  /// Its rows, read-only, in their order: a cursor sees what they hold now. Bookmarks of all its cursors are the same.
  std::shared_ptr<Recordset> Open() const;

  /// What the table and its cursors share.
  struct Cells {
    std::vector<FieldInfo> fields;
    std::vector<Row> rows;
  };

 private:
  std::string& Cell(int row, int column) const;

  std::shared_ptr<Cells> cells_;
};

}  // namespace platform
