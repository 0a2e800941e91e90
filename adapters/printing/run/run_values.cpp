#include "printing/run/run_values.h"

#include "platform/values/convert.h"
#include "printing/layout/page.h"

namespace printing {

using platform::Value;

RunValues::RunValues(const ReportDefinition& report, const std::vector<RowField>& fields, const TextRules& rules, const RunFacts& facts)
    : names_(report, fields, rules), rules_(rules), noRow_(fields.size(), platform::Null), noTotals_(report.totals.size(), platform::Null) {
  At(system_, SystemValue::PageCount) = std::string(1, kPageCountMark);
  At(system_, SystemValue::Today) = facts.today;
  At(system_, SystemValue::Selection) = facts.selection;
  At(system_, SystemValue::ReportTitle) = facts.title;
}

int RunValues::Bind(const Expression& expression) {
  bound_.push_back(MakeReportExpression(expression, names_, rules_));
  return static_cast<int>(bound_.size()) - 1;
}

Value RunValues::Evaluate(int bound, const RunPlace& place) {
  At(system_, SystemValue::PageNumber) = static_cast<double>(place.pageNumber);
  At(system_, SystemValue::RecordNumber) = static_cast<double>(place.recordNumber);
  return bound_[static_cast<std::size_t>(bound)].Evaluate(
      {place.row ? *place.row : noRow_, place.totals ? *place.totals : noTotals_, &system_});
}

/// Null stands in front, as in the store's order; numbers of different kinds count as numbers.
int RunValues::Compare(const Value& left, const Value& right) {
  if (left.IsNull() || right.IsNull()) return static_cast<int>(right.IsNull()) - static_cast<int>(left.IsNull());
  if (left.IsText() && right.IsText()) return rules_.compare(left.As<std::string>(), right.As<std::string>());
  const double one = platform::CDbl(left), other = platform::CDbl(right);
  return one < other ? -1 : one > other ? 1 : 0;
}

}  // namespace printing
