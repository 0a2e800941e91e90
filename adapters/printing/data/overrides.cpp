#include "printing/data/overrides.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "platform/values/convert.h"
#include "platform/values/text.h"
#include "printing/data/report_errors.h"
#include "printing/expressions/evaluation/numbers.h"
#include "printing/expressions/expression_error.h"
#include "printing/expressions/parser.h"

namespace printing {
namespace {

using platform::Value;
using platform::ValueKind;

std::optional<Value> QuotedText(std::string_view value) {
  const std::size_t first = value.find('"');
  const std::size_t last = value.rfind('"');
  if (first == last) return std::nullopt;
  return Value(platform::NormaliseLossy(value.substr(first + 1, last - first - 1)));
}

// A constant, perhaps behind a minus sign.
std::optional<Value> BareValue(std::string_view value) {
  try {
    const Expression expression = ParseExpression(value);
    if (expression.kind == ExpressionKind::Constant) return expression.constant;
    const bool negative = expression.kind == ExpressionKind::Operation && expression.operation == Operator::Negate;
    if (!negative || expression.operands[0].kind != ExpressionKind::Constant || !expression.operands[0].constant.IsNumber())
      return std::nullopt;
    return Value(-NumberOf(expression.operands[0].constant));
  } catch (const ExpressionError&) {
    return std::nullopt;
  }
}

bool HasType(const Value& value, FormulaType type) {
  switch (type) {
    case FormulaType::Text:
      return value.IsText();
    case FormulaType::Boolean:
      return value.Kind() == ValueKind::Boolean;
    case FormulaType::Number:
      return value.Kind() == ValueKind::Double;
    case FormulaType::Date:
      break;
  }
  return value.Kind() == ValueKind::Date;
}

}  // namespace

void ApplyFormulas(ReportDefinition& report, const std::map<int, std::string>& formulas) {
  for (const auto& [index, text] : formulas) {
    if (text.empty()) continue;
    const std::size_t sign = text.find('=');
    const std::string name = platform::Trim(std::string_view(text).substr(0, sign));
    const auto formula = std::ranges::find_if(report.formulas, [&](const auto& each) { return platform::EqualsNoCase(each.name, name); });
    const std::string where = "formula " + std::to_string(index) + " (" + platform::NormaliseLossy(name.substr(0, 100)) + ")";
    if (formula == report.formulas.end())
      throw ReportFailure(ReportError::UnknownFormula, where + ": the report has no formula of this name.");
    const std::string_view given = sign == std::string::npos ? std::string_view() : std::string_view(text).substr(sign + 1);
    const std::optional<Value> value = formula->type == FormulaType::Text ? QuotedText(given) : BareValue(given);
    if (!value || !HasType(*value, formula->type))
      throw ReportFailure(ReportError::BadFormulaValue, where + ": the value isn't of the formula's type.");
    formula->value = Expression{};
    formula->value.constant = *value;
  }
}

}  // namespace printing
