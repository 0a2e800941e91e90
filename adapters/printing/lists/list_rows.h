#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/services/list_export.h"
#include "printing/data/row_source.h"

namespace printing {

/// A list's rows as those of a report with one table "List", whose fields are "C0", "C1" and so on, all texts as they are seen.
class ListRows final : public RowSource {
 public:
  ListRows(const platform::ExportedList& list, platform::ExportRows& rows);

  const std::vector<RowField>& Fields() const override { return fields_; }
  bool Next() override;
  const std::vector<platform::Value>& Row() const override { return row_; }
  std::int64_t Count() override { return -1; }

  /// Whether the user had enough.
  bool Stopped() const noexcept { return stopped_; }
  /// Whether the column's cells are figures: so is the first that is not empty among the first rows.
  const std::vector<bool>& Figures() const noexcept { return figures_; }

 private:
  void LookAhead();
  std::vector<platform::Value> Shown(const std::vector<platform::Value>& cells) const;

  const platform::ExportedList& list_;
  platform::ExportRows& rows_;
  std::vector<RowField> fields_;
  std::vector<std::vector<platform::Value>> ahead_;  ///< the first rows
  std::size_t taken_ = 0;
  std::vector<bool> figures_;
  std::vector<platform::Value> row_;
  bool ended_ = false;
  bool stopped_ = false;
};

}  // namespace printing
