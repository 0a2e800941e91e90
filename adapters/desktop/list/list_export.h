#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/controls/grid.h"
#include "platform/services/list_export.h"

namespace desktop {

/// A cell as it leaves the list for a file: what a column shows in words (codes, check marks, the end of a card number) as text, all
/// else as the value that it is.
platform::Value ExportedCell(const platform::Grid& grid, int column, const platform::ListRow& row);

/// The rows of a list from the first to the last, in its order. The current row stays where it is.
class ExportedRows final : public platform::ExportRows {
 public:
  /// `goOn` is asked now and then, with the number of rows so far. Everything that is handed in must outlive it.
  ExportedRows(const platform::Grid& grid, std::vector<int> columns, std::function<bool(std::int64_t rows)> goOn)
      : grid_(grid), columns_(std::move(columns)), goOn_(std::move(goOn)) {}
  Step Next(std::vector<platform::Value>& cells) override;

 private:
  bool Fetch();

  const platform::Grid& grid_;
  std::vector<int> columns_;
  std::function<bool(std::int64_t)> goOn_;
  std::vector<platform::ListRow> page_;
  std::size_t next_ = 0;
  std::int64_t rows_ = 0;
  bool started_ = false;
};

}  // namespace desktop
