#include "printing/layout/expression_values.h"

#include <utility>

#include "printing/layout/page.h"

namespace printing {

ExpressionValues::ExpressionValues(const ReportDefinition& report, const std::vector<RowField>& fields, const TextRules& text,
                                   platform::Date today, std::string selection)
    : expressions_(report, fields, text, {std::move(selection), std::string(1, kPageCountMark), today}) {}

const platform::Value& ExpressionValues::Look(int bound, const RunPlace& place, platform::Value& room) {
  return expressions_.Look(bound, place.row, place.totals, place.recordNumber, place.pageNumber, room);
}

bool ExpressionValues::IsTrue(int bound, const RunPlace& place) {
  return expressions_.IsTrue(bound, place.row, place.totals, place.recordNumber, place.pageNumber);
}

}  // namespace printing
