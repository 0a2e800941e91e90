#pragma once

#include <string>
#include <vector>

#include "printing/data/report_names.h"
#include "printing/data/row_source.h"
#include "printing/expressions/ready_expression.h"
#include "printing/layout/report_values.h"

namespace printing {

/// What the engine itself knows of a run.
struct RunFacts {
  std::string title;
  std::string selection;  ///< in words
  platform::Date today;
};

/// The expressions of a report over the rows of one run. Everything that is handed in must outlive it.
class RunValues final : public ReportValues {
 public:
  RunValues(const ReportDefinition& report, const std::vector<RowField>& fields, const TextRules& rules, const RunFacts& facts);

  int Bind(const Expression& expression) override;
  platform::Value Evaluate(int bound, const RunPlace& place) override;
  int Compare(const platform::Value& left, const platform::Value& right) override;

 private:
  ReportNames names_;
  const TextRules& rules_;
  SystemValues system_{};
  std::vector<platform::Value> noRow_;
  std::vector<platform::Value> noTotals_;
  std::vector<ReadyExpression> bound_;
};

}  // namespace printing
