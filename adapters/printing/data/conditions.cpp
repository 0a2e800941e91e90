#include "printing/data/conditions.h"

#include <cmath>
#include <utility>

#include "printing/data/dialect_text.h"
#include "printing/data/report_names.h"
#include "printing/expressions/evaluation/numbers.h"
#include "printing/expressions/text_rules.h"

namespace printing {
namespace {

using platform::FieldType;
using platform::Value;
using platform::ValueKind;

constexpr int kDeepest = 20;
constexpr std::size_t kLongestChain = 100;
constexpr int kMostFormulas = 10;

std::string_view SignOf(Operator operation) {
  switch (operation) {
    case Operator::Equal:
      return " = ";
    case Operator::NotEqual:
      return " <> ";
    case Operator::Less:
      return " < ";
    case Operator::LessOrEqual:
      return " <= ";
    case Operator::Greater:
      return " > ";
    default:
      return " >= ";
  }
}

Operator Opposite(Operator operation) {
  switch (operation) {
    case Operator::Equal:
      return Operator::NotEqual;
    case Operator::NotEqual:
      return Operator::Equal;
    case Operator::Less:
      return Operator::GreaterOrEqual;
    case Operator::LessOrEqual:
      return Operator::Greater;
    case Operator::Greater:
      return Operator::LessOrEqual;
    default:
      return Operator::Less;
  }
}

// Numbers that count alike: whole ones of any size are one kind.
int NumberKind(FieldType type) {
  if (type == FieldType::Currency) return 1;
  if (type == FieldType::Double) return 2;
  return 0;
}

// Whether the constant is an amount of so few digits that both sides have it exactly.
bool IsAmount(double number) {
  constexpr double kMost = 1e11;
  const double parts = number * 10000;
  return std::abs(number) < kMost && parts == std::trunc(parts);
}

std::string OrNull(std::string condition, const std::string& field) { return '(' + std::move(condition) + " Or " + field + " Is Null)"; }

}  // namespace

std::optional<std::string> Conditions::Write(const Expression& expression, bool wanted, int depth) const {
  if (depth > kDeepest) return std::nullopt;
  switch (expression.kind) {
    case ExpressionKind::Operation:
      return WriteOperation(expression, wanted, depth);
    case ExpressionKind::Name:
      return WriteBoolean(expression, wanted);
    case ExpressionKind::Call:
      return WriteIsNull(expression, wanted);
    case ExpressionKind::InList:
      return WriteList(expression, wanted);
    case ExpressionKind::InRange:
      return WriteRange(expression, wanted);
    case ExpressionKind::StartsWith:
    case ExpressionKind::Like:
      return WriteLike(expression, wanted);
    default:
      return std::nullopt;
  }
}

std::optional<std::string> Conditions::WriteOperation(const Expression& operation, bool wanted, int depth) const {
  switch (operation.operation) {
    case Operator::And:
    case Operator::Or:
      return WriteChain(operation, wanted, depth);
    case Operator::Not:
      return Write(operation.operands[0], !wanted, depth + 1);
    case Operator::Equal:
    case Operator::NotEqual:
    case Operator::Less:
    case Operator::LessOrEqual:
    case Operator::Greater:
    case Operator::GreaterOrEqual:
      return WriteComparison(operation.operation, operation.operands[0], operation.operands[1], wanted);
    default:
      return std::nullopt;
  }
}

// Not all true is one false, and not one true is all false.
std::optional<std::string> Conditions::WriteChain(const Expression& chain, bool wanted, int depth) const {
  if (chain.operands.size() > kLongestChain) return std::nullopt;
  const bool all = (chain.operation == Operator::And) == wanted;
  std::string text;
  for (const Expression& operand : chain.operands) {
    const std::optional<std::string> part = Write(operand, wanted, depth + 1);
    if (!part) return std::nullopt;
    text += (text.empty() ? "(" : (all ? " And " : " Or ")) + *part;
  }
  return text + ')';
}

std::optional<Conditions::Operand> Conditions::FieldOf(const Expression& expression) const {
  std::optional<Operand> operand = OperandOf(expression);
  if (!operand || !operand->field) return std::nullopt;
  return operand;
}

std::optional<Conditions::Operand> Conditions::OperandOf(const Expression& expression, int formulas) const {
  const auto constant = [](ValueType type, Value value) {
    std::string sql = dialect::Constant(value);
    return Operand{std::move(sql), type, std::nullopt, std::move(value)};
  };
  switch (expression.kind) {
    case ExpressionKind::Constant:
      if (expression.constant.IsText()) return constant(ValueType::Text, expression.constant);
      if (expression.constant.Kind() == ValueKind::Boolean) return constant(ValueType::Boolean, expression.constant);
      if (expression.constant.Kind() == ValueKind::Date) return constant(ValueType::Date, expression.constant);
      if (expression.constant.Kind() == ValueKind::Double) return constant(ValueType::Number, expression.constant);
      return std::nullopt;
    case ExpressionKind::System:
      if (expression.system != SystemValue::Today) return std::nullopt;
      return constant(ValueType::Date, today_);
    case ExpressionKind::Operation: {
      if (expression.operation != Operator::Negate) return std::nullopt;
      const Value& number = expression.operands[0].constant;
      if (expression.operands[0].kind != ExpressionKind::Constant || number.Kind() != ValueKind::Double) return std::nullopt;
      return constant(ValueType::Number, -number.As<double>());
    }
    case ExpressionKind::Name:
      break;
    default:
      return std::nullopt;
  }
  if (expression.nameKind == NameKind::Formula) {
    const ReportFormula* formula = FormulaNamed(report_, expression.name);
    if (formula == nullptr || formulas == kMostFormulas) return std::nullopt;
    return OperandOf(formula->value, formulas + 1);
  }
  if (expression.nameKind != NameKind::Field) return std::nullopt;
  const std::optional<StoredField> field = tables_.Find(expression.table, expression.name);
  if (!field) return std::nullopt;
  const std::string& alias = report_.tables[static_cast<std::size_t>(field->table)].alias;
  return Operand{dialect::Field(alias, field->name), TypeOf(field->type), field->type, {}};
}

// Whether the engine compares the two as the selection does.
bool Conditions::Compare(const Operand& left, const Operand& right) {
  if (left.type != right.type || left.type == ValueType::Boolean) return false;
  if (!left.field && !right.field) return false;
  if (left.type != ValueType::Number) return true;
  if (left.field && right.field) return NumberKind(*left.field) == NumberKind(*right.field);
  const Operand& field = left.field ? left : right;
  const Operand& constant = left.field ? right : left;
  return NumberKind(*field.field) == 2 || IsAmount(NumberOf(constant.constant));
}

std::optional<std::string> Conditions::WriteComparison(Operator operation, const Expression& left, const Expression& right,
                                                       bool wanted) const {
  const std::optional<Operand> a = OperandOf(left);
  const std::optional<Operand> b = OperandOf(right);
  if (!a || !b || !Compare(*a, *b)) return std::nullopt;
  std::string text = a->sql + std::string(SignOf(wanted ? operation : Opposite(operation))) + b->sql;
  if (wanted) return '(' + text + ')';
  if (a->field) text += " Or " + a->sql + " Is Null";
  if (b->field) text += " Or " + b->sql + " Is Null";
  return '(' + text + ')';
}

std::optional<std::string> Conditions::WriteList(const Expression& in, bool wanted) const {
  const std::optional<Operand> field = FieldOf(in.operands[0]);
  if (!field || in.operands.size() > kLongestChain) return std::nullopt;
  std::string text;
  for (std::size_t i = 1; i < in.operands.size(); ++i) {
    const std::optional<Operand> item = OperandOf(in.operands[i]);
    if (!item || item->field || !Compare(*field, *item)) return std::nullopt;
    text += (text.empty() ? "" : (wanted ? " Or " : " And ")) + field->sql + (wanted ? " = " : " <> ") + item->sql;
  }
  return wanted ? '(' + text + ')' : OrNull('(' + text + ')', field->sql);
}

std::optional<std::string> Conditions::WriteRange(const Expression& in, bool wanted) const {
  const std::optional<Operand> field = FieldOf(in.operands[0]);
  const std::optional<Operand> low = OperandOf(in.operands[1]);
  const std::optional<Operand> high = OperandOf(in.operands[2]);
  if (!field || !low || !high || low->field || high->field || !Compare(*field, *low) || !Compare(*field, *high)) return std::nullopt;
  if (wanted) return '(' + field->sql + " >= " + low->sql + " And " + field->sql + " <= " + high->sql + ')';
  return OrNull(field->sql + " < " + low->sql + " Or " + field->sql + " > " + high->sql, field->sql);
}

std::optional<std::string> Conditions::WriteLike(const Expression& like, bool wanted) const {
  const std::optional<Operand> field = FieldOf(like.operands[0]);
  if (!field || field->type != ValueType::Text || !like.operands[1].constant.IsText()) return std::nullopt;
  const std::string& given = like.operands[1].constant.As<std::string>();
  const std::string pattern = like.kind == ExpressionKind::Like ? EnginePattern(given) : EnginePatternOfStart(given);
  const std::string text = '(' + field->sql + " Like " + dialect::Text(pattern) + ')';
  return wanted ? text : OrNull("Not " + text, field->sql);
}

std::optional<std::string> Conditions::WriteIsNull(const Expression& call, bool wanted) const {
  if (call.function != Function::IsNull) return std::nullopt;
  const std::optional<Operand> field = FieldOf(call.operands[0]);
  if (!field) return std::nullopt;
  return '(' + field->sql + (wanted ? " Is Null)" : " Is Not Null)");
}

std::optional<std::string> Conditions::WriteBoolean(const Expression& name, bool wanted) const {
  const std::optional<Operand> field = FieldOf(name);
  if (!field || field->type != ValueType::Boolean) return std::nullopt;
  return wanted ? '(' + field->sql + " <> False)" : OrNull(field->sql + " = False", field->sql);
}

}  // namespace printing
