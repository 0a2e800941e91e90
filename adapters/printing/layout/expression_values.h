#pragma once

#include "printing/data/report_expressions.h"
#include "printing/layout/report_values.h"

namespace printing {

/// The expressions of a report's file, as layout asks for them. Report and rules must outlive it.
class ExpressionValues final : public ReportValues {
 public:
  /// `selection`: the run's, in words.
  ExpressionValues(const ReportDefinition& report, const std::vector<RowField>& fields, const TextRules& text, platform::Date today,
                   std::string selection);

  int Bind(const Expression& expression) override { return expressions_.Bind(expression); }
  const platform::Value& Look(int bound, const RunPlace& place, platform::Value& room) override;
  bool IsTrue(int bound, const RunPlace& place) override;
  int Compare(const platform::Value& left, const platform::Value& right) override { return expressions_.Compare(left, right); }

 private:
  ReportExpressions expressions_;
};

}  // namespace printing
