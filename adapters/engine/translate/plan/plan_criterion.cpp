#include <cmath>
#include <limits>

#include "engine/sql/parser.h"
#include "engine/translate/emit/emitter.h"
#include "engine/translate/plan/bounds.h"
#include "engine/translate/plan/column_scope.h"
#include "engine/translate/plan/planning.h"
#include "platform/values/convert.h"

namespace engine {
namespace {

using platform::FieldType;
using platform::Value;
using platform::ValueKind;

// The number as a field of that type would hold it; nothing when it can't hold exactly this number.
std::optional<Value> ExactNumber(double number, FieldType type) {
  switch (type) {
    case FieldType::Byte:
    case FieldType::Short:
    case FieldType::Long:
    case FieldType::Counter:
      if (number != std::trunc(number) || std::fabs(number) > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
      return Value(static_cast<std::int32_t>(number));
    case FieldType::Currency: {
      constexpr double kWidest = 9e11;  // every amount below it is a real number's nearest
      if (std::fabs(number) > kWidest) return std::nullopt;
      const platform::Currency amount = platform::CCur(number);
      if (platform::CDbl(amount) != number) return std::nullopt;
      return Value(amount);
    }
    case FieldType::Double:
      return Value(number);
    case FieldType::Boolean:
      if (number != 0 && number != -1) return std::nullopt;
      return Value(number != 0);
    default:
      return std::nullopt;
  }
}

std::optional<Value> ValueForField(const Value& constant, FieldType type) {
  const bool isText = type == FieldType::Text || type == FieldType::Memo;
  if (constant.IsText()) return isText ? std::optional(constant) : std::nullopt;
  if (constant.Kind() == ValueKind::Date) return type == FieldType::Date ? std::optional(constant) : std::nullopt;
  if (!constant.IsNumber()) return std::nullopt;
  return ExactNumber(platform::CDbl(constant), type);
}

class ShapeFinder {
 public:
  explicit ShapeFinder(Scope& scope) : scope_(scope) {}

  SearchShape Find(const sql::Expression& criterion) {
    if (const auto* binary = std::get_if<sql::Binary>(&criterion.node)) return OfEquality(*binary);
    if (const auto* like = std::get_if<sql::Like>(&criterion.node)) return OfLike(*like);
    return {};
  }

 private:
  std::optional<ResolvedField> Column(const sql::Expression& expression) {
    const auto* name = std::get_if<sql::FieldName>(&expression.node);
    if (name == nullptr) return std::nullopt;
    std::optional<ResolvedField> field = scope_.Resolve(*name);
    return field && field->table >= 0 ? field : std::nullopt;
  }

  SearchShape OfEquality(const sql::Binary& binary) {
    if (binary.op != sql::BinaryOperator::Equal) return {};
    std::optional<ResolvedField> field = Column(*binary.left);
    std::optional<Value> constant = ConstantOf(field ? *binary.right : *binary.left);
    if (!field) field = Column(*binary.right);
    if (!field || !constant) return {};
    constant = ValueForField(*constant, field->type);
    if (!constant) return {};
    return {.kind = SearchShape::Kind::Equals, .table = field->table, .field = field->field, .value = *constant, .pattern = {}};
  }

  SearchShape OfLike(const sql::Like& like) {
    const std::optional<ResolvedField> field = Column(*like.value);
    const std::optional<std::string> start = FixedStartOf(like);
    if (!field || SqlTypeOf(field->type) != SqlType::Text || !start) return {};
    const std::string& text = std::get<sql::Literal>(like.pattern->node).value.As<std::string>();
    return {.kind = SearchShape::Kind::Prefix, .table = field->table, .field = field->field, .value = Value(*start), .pattern = text};
  }

  Scope& scope_;
};

}  // namespace

CriterionPlan PlanCriterion(std::string_view criterion, const SelectPlan& plan, const Dialect& dialect) {
  const sql::Expression expression = sql::ParseCriterion(criterion);
  ColumnScope scope(plan, dialect);
  Emitter emitter(scope, dialect, CallErrors::Criterion);
  CriterionPlan result{.where = emitter.Conjunct(expression), .shape = {}};
  CheckNesting(result.where, dialect);
  result.shape = ShapeFinder(scope).Find(expression);
  return result;
}

}  // namespace engine
