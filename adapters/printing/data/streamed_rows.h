#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/data/row_stream.h"
#include "printing/data/data_tables.h"
#include "printing/data/row_source.h"
#include "printing/definition/report_definition.h"
#include "printing/expressions/evaluation/ready_expression.h"

namespace printing {

/// Rows as the store gives them, without those that conditions of our own refuse.
class StreamedRows final : public RowSource {
 public:
  /// Opens the statement, on the file of the first table; takes the reader when that has gone well. Raises platform::Error.
  /// `countIsCheap`: the statement asks for all rows of one table.
  StreamedRows(const ReportDefinition& report, std::vector<RowField> fields, std::span<const Expression* const> conditions,
               const DataServices& services, std::unique_ptr<platform::SnapshotReader>& reader, const std::string& path,
               const std::string& statement, bool countIsCheap);

  const std::vector<RowField>& Fields() const override { return fields_; }
  bool Next() override;
  const std::vector<platform::Value>& Row() const override { return stream_->Row(); }
  std::int64_t Count() override;

 private:
  bool NextRead();
  bool IsWanted() const;

  std::vector<RowField> fields_;
  TextRules rules_;
  SystemValues system_{};
  std::vector<ReadyExpression> conditions_;
  std::function<bool(std::int64_t)> goOn_;
  std::unique_ptr<platform::SnapshotReader> reader_;
  std::unique_ptr<platform::RowStream> stream_;
  bool countIsCheap_;
  std::int64_t count_ = -1;
  std::int64_t read_ = 0;
  std::int64_t given_ = 0;
};

}  // namespace printing
