#pragma once

#include "printing/definition/report_definition.h"

namespace printing {

/// What an expression looks at, its formulas included.
struct ExpressionUses {
  bool row = false;  ///< fields, or the number of the row
  bool totals = false;
  bool pageNumber = false;
  bool pageCount = false;

  void Add(const ExpressionUses& other);
};

ExpressionUses UsesOf(const ReportDefinition& report, const Expression& expression);
/// Of all texts and conditions in a band.
ExpressionUses UsesOf(const ReportDefinition& report, const Band& band);

}  // namespace printing
