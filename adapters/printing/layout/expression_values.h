#pragma once

#include <span>
#include <string>
#include <vector>

#include "printing/data/report_names.h"
#include "printing/expressions/ready_expression.h"
#include "printing/layout/report_values.h"

namespace printing {

/// What the expressions of one run know of it.
struct RunFacts {
  platform::Date today;
  std::string selection;  ///< in words
  std::string title;
};

/// The expressions of a report over rows with these fields. Report, fields and rules must outlive it. Bind raises ReportFailure for what
/// doesn't fit the data.
class ExpressionValues final : public ReportValues {
 public:
  ExpressionValues(const ReportDefinition& report, std::span<const RowField> fields, const TextRules& text, const RunFacts& facts);

  int Bind(const Expression& expression) override;
  const platform::Value& Look(int bound, const RunPlace& place, platform::Value& room) override;
  bool IsTrue(int bound, const RunPlace& place) override;
  int Compare(const platform::Value& left, const platform::Value& right) override;

 private:
  EvaluationState StateAt(const RunPlace& place);

  const TextRules& text_;
  ReportNames names_;
  std::vector<ReadyExpression> ready_;
  SystemValues system_;
  std::int64_t page_ = -1, record_ = -1;  ///< as they stand in `system_`
  std::vector<platform::Value> noRow_, noTotals_;
};

}  // namespace printing
