#include "printing/layout/expression_uses.h"

#include <algorithm>

#include "platform/values/text.h"

namespace printing {

namespace {

/// `open` holds the formulas that are being looked into, so that one which names itself ends.
void Look(const ReportDefinition& report, const Expression& expression, std::vector<const ReportFormula*>& open, ExpressionUses& uses) {
  if (expression.kind == ExpressionKind::System) {
    uses.pageNumber |= expression.system == SystemValue::PageNumber;
    uses.pageCount |= expression.system == SystemValue::PageCount;
    uses.row |= expression.system == SystemValue::RecordNumber;
  } else if (expression.kind == ExpressionKind::Name) {
    uses.row |= expression.nameKind == NameKind::Field;
    uses.totals |= expression.nameKind == NameKind::Total;
    if (expression.nameKind != NameKind::Formula) return;
    for (const ReportFormula& formula : report.formulas) {
      if (!platform::EqualsNoCase(formula.name, expression.name)) continue;
      if (std::find(open.begin(), open.end(), &formula) != open.end()) continue;
      open.push_back(&formula);
      Look(report, formula.value, open, uses);
      open.pop_back();
    }
  }
  for (const Expression& operand : expression.operands) Look(report, operand, open, uses);
}

void Look(const ReportDefinition& report, const std::optional<Expression>& expression, ExpressionUses& uses) {
  if (expression) uses.Add(UsesOf(report, *expression));
}

}  // namespace

void ExpressionUses::Add(const ExpressionUses& other) {
  row |= other.row;
  totals |= other.totals;
  pageNumber |= other.pageNumber;
  pageCount |= other.pageCount;
}

ExpressionUses UsesOf(const ReportDefinition& report, const Expression& expression) {
  ExpressionUses uses;
  std::vector<const ReportFormula*> open;
  Look(report, expression, open, uses);
  return uses;
}

ExpressionUses UsesOf(const ReportDefinition& report, const Band& band) {
  ExpressionUses uses;
  Look(report, band.suppress, uses);
  Look(report, band.newPageBefore, uses);
  Look(report, band.newPageAfter, uses);
  for (const Element& element : band.elements) {
    uses.Add(UsesOf(report, element.value));
    Look(report, element.suppress, uses);
  }
  return uses;
}

}  // namespace printing
