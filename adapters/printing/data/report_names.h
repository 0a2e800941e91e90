#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "printing/data/report_errors.h"
#include "printing/data/row_source.h"
#include "printing/definition/report_definition.h"
#include "printing/expressions/evaluation/ready_expression.h"
#include "printing/expressions/names.h"
#include "printing/expressions/text_rules.h"

namespace printing {

/// The place of the table that a report's expressions call so; -1 for none.
int TableNamed(const ReportDefinition& report, std::string_view alias);
const ReportFormula* FormulaNamed(const ReportDefinition& report, std::string_view name);
ValueType TypeOf(FormulaType type);

/// A report's names over rows with these fields. Totals have the report's own order; where they can't stand (in selections and in
/// totals themselves) there are none.
class ReportNames final : public Names {
 public:
  enum class Totals { None, All };
  /// The report, the fields and the rules must outlive it.
  ReportNames(const ReportDefinition& report, std::span<const RowField> fields, const TextRules& rules, Totals totals = Totals::All)
      : report_(report), fields_(fields), rules_(rules), totals_(totals) {}

  std::optional<Place> Field(std::string_view table, std::string_view name) override;
  std::optional<Place> Total(std::string_view name) override;
  FormulaOf Formula(std::string_view name) override;

 private:
  const ReportDefinition& report_;
  std::span<const RowField> fields_;
  const TextRules& rules_;
  Totals totals_;
};

/// Where in the report's file the expression's byte `place` is, "line 12:7: "; "" for one that stands in none.
std::string PlaceOf(const Expression& expression, std::size_t place);
ReportFailure NoSuchField(const Expression& name);

/// MakeReady for an expression of the report file itself: raises ReportFailure with the number for those.
ReadyExpression MakeReportExpression(const Expression& expression, Names& names, const TextRules& rules);
ReadyExpression MakeReportCondition(const Expression& expression, Names& names, const TextRules& rules);

}  // namespace printing
