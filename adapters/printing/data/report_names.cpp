#include "printing/data/report_names.h"

#include <algorithm>

#include "platform/values/text.h"
#include "printing/data/report_errors.h"
#include "printing/expressions/expression_error.h"

namespace printing {

using platform::EqualsNoCase;

int TableNamed(const ReportDefinition& report, std::string_view alias) {
  for (std::size_t i = 0; i < report.tables.size(); ++i)
    if (EqualsNoCase(report.tables[i].alias, alias)) return static_cast<int>(i);
  return -1;
}

const ReportFormula* FormulaNamed(const ReportDefinition& report, std::string_view name) {
  const auto found = std::ranges::find_if(report.formulas, [&](const auto& each) { return EqualsNoCase(each.name, name); });
  return found == report.formulas.end() ? nullptr : &*found;
}

ValueType TypeOf(FormulaType type) {
  switch (type) {
    case FormulaType::Text:
      return ValueType::Text;
    case FormulaType::Boolean:
      return ValueType::Boolean;
    case FormulaType::Number:
      return ValueType::Number;
    case FormulaType::Date:
      break;
  }
  return ValueType::Date;
}

std::optional<Names::Place> ReportNames::Field(std::string_view table, std::string_view name) {
  const int wanted = TableNamed(report_, table);
  for (std::size_t i = 0; i < fields_.size(); ++i)
    if (fields_[i].table == wanted && EqualsNoCase(fields_[i].name, name)) return Place{i, fields_[i].type};
  return std::nullopt;
}

std::optional<Names::Place> ReportNames::Total(std::string_view name) {
  if (totals_ == Totals::None) return std::nullopt;
  for (std::size_t i = 0; i < report_.totals.size(); ++i) {
    const ReportTotal& total = report_.totals[i];
    if (!EqualsNoCase(total.name, name)) continue;
    if (total.summary != Summary::Least && total.summary != Summary::Greatest) return Place{i, ValueType::Number};
    ReportNames inside(report_, fields_, rules_, Totals::None);
    return Place{i, MakeReady(total.value, inside, rules_).Type()};
  }
  return std::nullopt;
}

Names::FormulaOf ReportNames::Formula(std::string_view name) {
  const ReportFormula* formula = FormulaNamed(report_, name);
  if (formula == nullptr) return {};
  return {&formula->value, TypeOf(formula->type)};
}

std::string PlaceOf(const Expression& expression, std::size_t place) {
  if (expression.line == 0) return {};
  return "line " + std::to_string(expression.line) + ':' + std::to_string(place + 1) + ": ";
}

ReadyExpression MakeReportExpression(const Expression& expression, Names& names, const TextRules& rules) {
  try {
    return MakeReady(expression, names, rules);
  } catch (const ExpressionError& error) {
    throw ReportFailure(ReportError::FileExpression, PlaceOf(expression, error.Place()) + error.Text());
  }
}

ReadyExpression MakeReportCondition(const Expression& expression, Names& names, const TextRules& rules) {
  try {
    return MakeReadyCondition(expression, names, rules);
  } catch (const ExpressionError& error) {
    throw ReportFailure(ReportError::FileExpression, PlaceOf(expression, error.Place()) + error.Text());
  }
}

ReportFailure NoSuchField(const Expression& name) {
  return {ReportError::FieldMissing, PlaceOf(name, name.place) + "There is no field {" + name.table + '.' + name.name + "}."};
}

}  // namespace printing
