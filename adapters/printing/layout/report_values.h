#pragma once

#include <cstdint>
#include <vector>

#include "platform/values/value.h"
#include "printing/expressions/expression.h"

namespace printing {

/// Where a report stands while a band of it is laid out.
struct RunPlace {
  const std::vector<platform::Value>* row = nullptr;     ///< none: there is no row, and every field is Null
  const std::vector<platform::Value>* totals = nullptr;  ///< in the definition's order; none: there are no totals
  std::int64_t recordNumber = 0;
  std::int64_t pageNumber = 0;
};

/// What the expressions of one report are worth.
class ReportValues {
 public:
  virtual ~ReportValues() = default;
  /// Resolves the names of `expression`, which must outlive this; the number that the others take.
  virtual int Bind(const Expression& expression) = 0;
  /// The value, perhaps where it lies: valid until `room`, the row or the totals change. PageCount, which nobody knows yet, is the text
  /// kPageCountMark.
  virtual const platform::Value& Look(int bound, const RunPlace& place, platform::Value& room) = 0;
  /// Whether a condition is true.
  virtual bool IsTrue(int bound, const RunPlace& place) = 0;
  /// Below, equal to or above 0, in the order in which the rows come: values that it calls equal are one group.
  virtual int Compare(const platform::Value& left, const platform::Value& right) = 0;
};

}  // namespace printing
