#include "printing/data/streamed_rows.h"

#include <algorithm>
#include <utility>

#include "platform/values/error.h"
#include "printing/data/report_errors.h"
#include "printing/data/report_names.h"

namespace printing {

StreamedRows::StreamedRows(const ReportDefinition& report, std::vector<RowField> fields, std::span<const Expression* const> conditions,
                           const DataServices& services, std::unique_ptr<platform::SnapshotReader>& reader, const std::string& path,
                           const std::string& statement, bool countIsCheap)
    : fields_(std::move(fields)), rules_(services.text), goOn_(services.goOn), countIsCheap_(countIsCheap) {
  At(system_, SystemValue::Today) = services.today;
  At(system_, SystemValue::ReportTitle) = report.title;
  At(system_, SystemValue::Selection) = std::string();
  At(system_, SystemValue::PageCount) = std::string();
  At(system_, SystemValue::PageNumber) = 0.0;
  At(system_, SystemValue::RecordNumber) = 0.0;
  ReportNames names(report, fields_, rules_, ReportNames::Totals::None);
  for (const Expression* condition : conditions) conditions_.push_back(MakeReportCondition(*condition, names, rules_));
  if (goOn_) reader->OnWait([this] { return goOn_(read_); });
  stream_ = reader->OpenRows(path, statement);
  reader_ = std::move(reader);
}

bool StreamedRows::Next() {
  while (NextRead()) {
    ++read_;
    if (!IsWanted()) continue;
    ++given_;
    return true;
  }
  count_ = given_;
  return false;
}

bool StreamedRows::NextRead() {
  try {
    return stream_->Next();
  } catch (const platform::Error& error) {
    if (error.Number() == platform::kReadingStopped) throw ReportFailure(ReportError::Stopped, "The report was stopped.");
    throw ReportFailure(ReportError::ReadingFailed, "row " + std::to_string(read_ + 1) + ": " + error.Description());
  }
}

bool StreamedRows::IsWanted() const {
  if (conditions_.empty()) return true;
  const EvaluationState state{stream_->Row(), {}, &system_};
  return std::ranges::all_of(conditions_, [&](const ReadyExpression& condition) { return condition.IsTrue(state); });
}

std::int64_t StreamedRows::Count() {
  if (count_ >= 0 || !countIsCheap_) return count_;
  try {
    count_ = stream_->Count();
  } catch (const platform::Error& error) {
    if (error.Number() == platform::kReadingStopped) throw ReportFailure(ReportError::Stopped, "The report was stopped.");
    throw ReportFailure(ReportError::ReadingFailed, error.Description());
  }
  return count_;
}

}  // namespace printing
