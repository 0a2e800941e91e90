#include "engine/translate/plan/action_planner.h"
#include "platform/values/convert.h"

namespace engine {
namespace {

using platform::FieldType;

// Every value of the type is one of the field's.
bool AlwaysFits(SqlType type, FieldType field) {
  switch (field) {
    case FieldType::Boolean:
      return IsNumber(type);
    case FieldType::Byte:
      return type == SqlType::Byte;
    case FieldType::Short:
      return type == SqlType::Boolean || type == SqlType::Byte || type == SqlType::Short;
    case FieldType::Long:
    case FieldType::Counter:
      return IsWhole(type);
    case FieldType::Currency:
      return IsWhole(type) || type == SqlType::Currency;
    case FieldType::Double:
      return IsNumber(type);
    case FieldType::Date:
      return type == SqlType::Date;
    case FieldType::Text:
    case FieldType::Memo:
      return false;  // texts have their own rule
  }
  return false;
}

bool ConstantFits(const platform::Value& constant, FieldType field) {
  if (!constant.IsNumber()) return false;
  const double number = platform::CDbl(constant);
  const bool whole = number == static_cast<double>(static_cast<std::int64_t>(number));
  switch (field) {
    case FieldType::Byte:
      return whole && number >= 0 && number <= 255;
    case FieldType::Short:
      return whole && number >= -32768 && number <= 32767;
    default:
      return false;
  }
}

}  // namespace

std::optional<std::string> SafeForField(const Emitted& value, const platform::FieldDefinition& field, const Forms& forms) {
  if (value.type == SqlType::Null) return value.sql;
  if (value.type == SqlType::Text) {
    if (field.type == FieldType::Memo) return value.sql;
    const bool sized = value.IsLiteral() || (value.size > 0 && !value.memo);
    return field.type == FieldType::Text && sized && value.size <= field.size ? std::optional(value.sql) : std::nullopt;
  }
  const bool small = value.literal && value.literal->Kind() == platform::ValueKind::Long && ConstantFits(*value.literal, field.type);
  if (!small && !AlwaysFits(value.type, field.type)) return std::nullopt;
  switch (field.type) {
    case FieldType::Boolean:
      if (value.type == SqlType::Boolean) return value.sql;
      return "-(" + Wrap(value, Tightness::Sum) + " <> 0)" + forms.GetDialect().conditionCast;
    case FieldType::Currency:
      return forms.Stored(forms.Currency(value)).sql;
    case FieldType::Double:
      return forms.Number(value).sql;
    default:
      return value.sql;
  }
}

}  // namespace engine
