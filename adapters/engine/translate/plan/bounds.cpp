#include "engine/translate/plan/bounds.h"

#include "engine/text/like.h"
#include "engine/text/text_order.h"
#include "engine/values/sql_type.h"
#include "platform/values/convert.h"

namespace engine {
namespace {

bool HoldsWholes(platform::FieldType type) {
  using enum platform::FieldType;
  return type == Byte || type == Short || type == Long || type == Counter;
}

bool IsWholeNumber(const platform::Value& value) {
  using enum platform::ValueKind;
  return value.Kind() == Byte || value.Kind() == Short || value.Kind() == Long;
}

std::optional<FieldBound> OnField(const sql::Expression& expression, Scope& scope) {
  const auto* name = std::get_if<sql::FieldName>(&expression.node);
  if (name == nullptr) return std::nullopt;
  const std::optional<ResolvedField> field = scope.Resolve(*name);
  if (!field || field->table < 0 || field->field < 0) return std::nullopt;
  return FieldBound{
      .table = field->table, .field = field->field, .isText = SqlTypeOf(field->type) == SqlType::Text, .isWhole = HoldsWholes(field->type)};
}

bool IsComparison(sql::BinaryOperator op) {
  using enum sql::BinaryOperator;
  return op == Equal || op == Less || op == Greater || op == LessEqual || op == GreaterEqual;
}

std::optional<FieldBound> OfComparison(const sql::Binary& binary, Scope& scope) {
  if (!IsComparison(binary.op)) return std::nullopt;
  std::optional<FieldBound> bound = OnField(*binary.left, scope);
  const sql::Expression& other = bound ? *binary.right : *binary.left;
  if (!bound) bound = OnField(*binary.right, scope);
  const std::optional<platform::Value> constant = ConstantOf(other);
  if (!bound || !constant) return std::nullopt;
  bound->equals = binary.op == sql::BinaryOperator::Equal;
  if (bound->equals && bound->isWhole && IsWholeNumber(*constant)) bound->number = platform::CLng(*constant);
  return bound;
}

// One field equal to one of several values.
std::optional<FieldBound> OfAlternatives(const sql::Chain& chain, Scope& scope) {
  if (chain.op != sql::ChainOperator::Or) return std::nullopt;
  std::optional<FieldBound> all;
  for (const sql::Expression& operand : chain.operands) {
    const std::optional<FieldBound> one = FieldBoundOf(operand, scope);
    if (!one || !one->equals || (all && (all->table != one->table || all->field != one->field))) return std::nullopt;
    all = one;
  }
  if (all) all->equals = false;
  return all;
}

}  // namespace

std::optional<platform::Value> ConstantOf(const sql::Expression& expression) {
  if (const auto* literal = std::get_if<sql::Literal>(&expression.node)) return literal->value;
  const auto* unary = std::get_if<sql::Unary>(&expression.node);
  if (unary == nullptr || unary->op != sql::UnaryOperator::Minus) return std::nullopt;
  const auto* literal = std::get_if<sql::Literal>(&unary->operand->node);
  if (literal == nullptr || !literal->value.IsNumber()) return std::nullopt;
  return platform::Value(-platform::CDbl(literal->value));
}

std::optional<std::string> FixedStartOf(const sql::Like& like) {
  const auto* literal = std::get_if<sql::Literal>(&like.pattern->node);
  if (like.negated || literal == nullptr || !literal->value.IsText()) return std::nullopt;
  const LikePattern pattern(literal->value.As<std::string>());
  const std::string_view start = WithoutTrailingBlanks(pattern.FixedPrefix());
  if (start.empty()) return std::nullopt;
  return std::string(start);
}

std::optional<FieldBound> FieldBoundOf(const sql::Expression& condition, Scope& scope) {
  if (const auto* binary = std::get_if<sql::Binary>(&condition.node)) return OfComparison(*binary, scope);
  if (const auto* chain = std::get_if<sql::Chain>(&condition.node)) return OfAlternatives(*chain, scope);
  if (const auto* between = std::get_if<sql::Between>(&condition.node)) {
    if (between->negated || !ConstantOf(*between->low) || !ConstantOf(*between->high)) return std::nullopt;
    return OnField(*between->value, scope);
  }
  const auto* like = std::get_if<sql::Like>(&condition.node);
  if (like == nullptr) return std::nullopt;
  std::optional<std::string> start = FixedStartOf(*like);
  std::optional<FieldBound> bound = OnField(*like->value, scope);
  if (!start || !bound || !bound->isText) return std::nullopt;
  bound->start = std::move(start);
  return bound;
}

}  // namespace engine
