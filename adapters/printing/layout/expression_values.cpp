#include "printing/layout/expression_values.h"

#include <compare>

#include "platform/values/convert.h"
#include "printing/layout/page.h"

namespace printing {

using platform::Value;
using platform::ValueKind;

ExpressionValues::ExpressionValues(const ReportDefinition& report, std::span<const RowField> fields, const TextRules& text,
                                   const RunFacts& facts)
    : text_(text),
      names_(report, fields, text),
      noRow_(fields.size(), Value(platform::Null)),
      noTotals_(report.totals.size(), Value(platform::Null)) {
  At(system_, SystemValue::PageCount) = std::string(1, kPageCountMark);
  At(system_, SystemValue::Today) = facts.today;
  At(system_, SystemValue::Selection) = facts.selection;
  At(system_, SystemValue::ReportTitle) = facts.title;
}

int ExpressionValues::Bind(const Expression& expression) {
  ready_.push_back(MakeReportExpression(expression, names_, text_));
  return static_cast<int>(ready_.size()) - 1;
}

EvaluationState ExpressionValues::StateAt(const RunPlace& place) {
  if (place.pageNumber != page_) At(system_, SystemValue::PageNumber) = static_cast<double>(page_ = place.pageNumber);
  if (place.recordNumber != record_) At(system_, SystemValue::RecordNumber) = static_cast<double>(record_ = place.recordNumber);
  return {place.row ? *place.row : noRow_, place.totals ? *place.totals : noTotals_, &system_};
}

const Value& ExpressionValues::Look(int bound, const RunPlace& place, Value& room) {
  return ready_[static_cast<std::size_t>(bound)].Look(StateAt(place), room);
}

bool ExpressionValues::IsTrue(int bound, const RunPlace& place) { return ready_[static_cast<std::size_t>(bound)].IsTrue(StateAt(place)); }

int ExpressionValues::Compare(const Value& left, const Value& right) {
  if (left.IsText() && right.IsText()) return text_.compare(left.As<std::string>(), right.As<std::string>());
  const auto sign = [](auto order) { return order < 0 ? -1 : order > 0 ? 1 : 0; };
  if (left.Kind() == ValueKind::Currency && right.Kind() == ValueKind::Currency)
    return sign(left.As<platform::Currency>() <=> right.As<platform::Currency>());
  if (left.Kind() == ValueKind::Date && right.Kind() == ValueKind::Date)
    return sign(left.As<platform::Date>() <=> right.As<platform::Date>());
  if (left.IsNumber() && right.IsNumber()) return sign(platform::CDbl(left) <=> platform::CDbl(right));
  return sign(left.Kind() <=> right.Kind());
}

}  // namespace printing
