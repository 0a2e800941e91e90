#pragma once

#include <cstdint>
#include <vector>

#include "printing/data/row_file.h"
#include "printing/data/row_source.h"

namespace printing {

/// Rows that were all read at once and lie in a file of their own, so that nothing that happens to their tables later changes them.
class SpooledRows final : public RowSource {
 public:
  /// Reads the rows to their end. Raises ReportFailure, also when there is no room for the file.
  explicit SpooledRows(RowSource& rows);

  const std::vector<RowField>& Fields() const override { return fields_; }
  bool Next() override { return file_.Read(row_, fields_.size()); }
  const std::vector<platform::Value>& Row() const override { return row_; }
  std::int64_t Count() override { return file_.Count(); }

 private:
  RowFile file_;
  std::vector<RowField> fields_;
  std::vector<platform::Value> row_;
};

}  // namespace printing
