#pragma once

#include <memory>
#include <vector>

#include "printing/data/row_file.h"
#include "printing/data/row_source.h"

namespace printing {

/// Rows that are written down as they are read, so that they can be given once more as they were, when their files have long been
/// given back.
class KeptRows final : public RowSource {
 public:
  explicit KeptRows(std::unique_ptr<RowSource> rows) : rows_(std::move(rows)), fields_(rows_->Fields()) {}

  const std::vector<RowField>& Fields() const override { return fields_; }
  bool Next() override;
  const std::vector<platform::Value>& Row() const override { return row_; }
  std::int64_t Count() override { return rows_ ? rows_->Count() : file_.Count(); }

  /// All of them from the first on; the reading that this interrupts must have come to its end. The object must outlive it.
  std::unique_ptr<RowSource> Again();

 private:
  std::unique_ptr<RowSource> rows_;  ///< until they have all been read
  std::vector<RowField> fields_;
  std::vector<platform::Value> row_;
  RowFile file_;
};

}  // namespace printing
