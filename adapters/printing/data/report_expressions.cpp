#include "printing/data/report_expressions.h"

#include <utility>

#include "printing/expressions/evaluation/comparisons.h"

namespace printing {

ReportExpressions::ReportExpressions(const ReportDefinition& report, std::vector<RowField> fields, const TextRules& rules, Known known)
    : rules_(rules),
      fields_(std::move(fields)),
      names_(report, fields_, rules_),
      noRow_(fields_.size(), platform::Null),
      noTotals_(report.totals.size(), platform::Null) {
  At(system_, SystemValue::PageCount) = std::move(known.pageCount);
  At(system_, SystemValue::Selection) = std::move(known.selection);
  At(system_, SystemValue::ReportTitle) = report.title;
  At(system_, SystemValue::Today) = known.today;
}

int ReportExpressions::Bind(const Expression& expression) {
  ready_.push_back(MakeReportExpression(expression, names_, rules_));
  return static_cast<int>(ready_.size()) - 1;
}

EvaluationState ReportExpressions::StateAt(const std::vector<platform::Value>* row, const std::vector<platform::Value>* totals,
                                           std::int64_t recordNumber, std::int64_t pageNumber) {
  At(system_, SystemValue::RecordNumber) = static_cast<double>(recordNumber);
  At(system_, SystemValue::PageNumber) = static_cast<double>(pageNumber);
  return {row != nullptr ? *row : noRow_, totals != nullptr ? *totals : noTotals_, &system_};
}

platform::Value ReportExpressions::Evaluate(int bound, const std::vector<platform::Value>* row, const std::vector<platform::Value>* totals,
                                            std::int64_t recordNumber, std::int64_t pageNumber) {
  return ready_[static_cast<std::size_t>(bound)].Evaluate(StateAt(row, totals, recordNumber, pageNumber));
}

const platform::Value& ReportExpressions::Look(int bound, const std::vector<platform::Value>* row,
                                               const std::vector<platform::Value>* totals, std::int64_t recordNumber,
                                               std::int64_t pageNumber, platform::Value& room) {
  return ready_[static_cast<std::size_t>(bound)].Look(StateAt(row, totals, recordNumber, pageNumber), room);
}

bool ReportExpressions::IsTrue(int bound, const std::vector<platform::Value>* row, const std::vector<platform::Value>* totals,
                               std::int64_t recordNumber, std::int64_t pageNumber) {
  return ready_[static_cast<std::size_t>(bound)].IsTrue(StateAt(row, totals, recordNumber, pageNumber));
}

int ReportExpressions::Compare(const platform::Value& left, const platform::Value& right) const {
  if (left.IsNull() || right.IsNull()) return static_cast<int>(right.IsNull()) - static_cast<int>(left.IsNull());
  return CompareValues(left, right, rules_).value_or(0);
}

}  // namespace printing
