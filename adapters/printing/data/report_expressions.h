#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "printing/data/report_names.h"

namespace printing {

/// The expressions of one report over its rows, each made ready once and known by a number.
class ReportExpressions {
 public:
  /// What the run knows beside its rows.
  struct Known {
    std::string selection;  ///< in words
    std::string pageCount;  ///< what stands for the number of pages
    platform::Date today;
  };
  /// The report and the rules must outlive it.
  ReportExpressions(const ReportDefinition& report, std::vector<RowField> fields, const TextRules& rules, Known known);

  /// The expression's number. Raises ReportFailure for one that doesn't fit the data.
  int Bind(const Expression& expression);
  /// Without a row every field is Null, without totals every total is.
  platform::Value Evaluate(int bound, const std::vector<platform::Value>* row, const std::vector<platform::Value>* totals,
                           std::int64_t recordNumber, std::int64_t pageNumber);
  /// As Evaluate, the value perhaps where it lies: valid until the row, the totals or `room` change.
  const platform::Value& Look(int bound, const std::vector<platform::Value>* row, const std::vector<platform::Value>* totals,
                              std::int64_t recordNumber, std::int64_t pageNumber, platform::Value& room);
  /// Whether a condition is true.
  bool IsTrue(int bound, const std::vector<platform::Value>* row, const std::vector<platform::Value>* totals, std::int64_t recordNumber,
              std::int64_t pageNumber);
  /// How two values of one field stand in the order in which rows come; Null is equal to Null and before all others.
  int Compare(const platform::Value& left, const platform::Value& right) const;

 private:
  EvaluationState StateAt(const std::vector<platform::Value>* row, const std::vector<platform::Value>* totals, std::int64_t recordNumber,
                          std::int64_t pageNumber);

  const TextRules& rules_;
  std::vector<RowField> fields_;
  ReportNames names_;
  SystemValues system_{};
  std::vector<platform::Value> noRow_, noTotals_;
  std::vector<ReadyExpression> ready_;
};

}  // namespace printing
