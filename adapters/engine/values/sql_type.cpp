#include "engine/values/sql_type.h"

#include <algorithm>

namespace engine {

SqlType SqlTypeOf(platform::FieldType type) {
  switch (type) {
    case platform::FieldType::Boolean:
      return SqlType::Boolean;
    case platform::FieldType::Byte:
      return SqlType::Byte;
    case platform::FieldType::Short:
      return SqlType::Short;
    case platform::FieldType::Long:
    case platform::FieldType::Counter:
      return SqlType::Long;
    case platform::FieldType::Currency:
      return SqlType::Currency;
    case platform::FieldType::Double:
      return SqlType::Double;
    case platform::FieldType::Date:
      return SqlType::Date;
    case platform::FieldType::Text:
    case platform::FieldType::Memo:
      return SqlType::Text;
  }
  return SqlType::Null;
}

SqlType SqlTypeOf(const platform::Value& literal) {
  switch (literal.Kind()) {
    case platform::ValueKind::Boolean:
      return SqlType::Boolean;
    case platform::ValueKind::Byte:
      return SqlType::Byte;
    case platform::ValueKind::Short:
      return SqlType::Short;
    case platform::ValueKind::Long:
      return SqlType::Long;
    case platform::ValueKind::Currency:
      return SqlType::Currency;
    case platform::ValueKind::Double:
      return SqlType::Double;
    case platform::ValueKind::Date:
      return SqlType::Date;
    case platform::ValueKind::Text:
      return SqlType::Text;
    default:
      return SqlType::Null;
  }
}

platform::FieldType FieldTypeOf(SqlType type) {
  switch (type) {
    case SqlType::Boolean:
      return platform::FieldType::Boolean;
    case SqlType::Byte:
      return platform::FieldType::Byte;
    case SqlType::Short:
      return platform::FieldType::Short;
    case SqlType::Long:
      return platform::FieldType::Long;
    case SqlType::Double:
      return platform::FieldType::Double;
    case SqlType::Currency:
      return platform::FieldType::Currency;
    case SqlType::Date:
      return platform::FieldType::Date;
    case SqlType::Null:
    case SqlType::Text:
      return platform::FieldType::Text;
  }
  return platform::FieldType::Text;
}

bool IsWhole(SqlType type) { return type >= SqlType::Boolean && type <= SqlType::Long; }

bool IsNumber(SqlType type) { return type >= SqlType::Boolean && type <= SqlType::Currency; }

namespace {

// A Boolean counts as a Short, having no place of its own among the numbers.
SqlType AsNumber(SqlType type) { return type == SqlType::Boolean ? SqlType::Short : type; }

}  // namespace

SqlType SumType(SqlType left, SqlType right) { return std::max(AsNumber(left), AsNumber(right)); }

SqlType ProductType(SqlType left, SqlType right) {
  if (left == SqlType::Double || right == SqlType::Double) return SqlType::Double;
  return SumType(left, right);
}

}  // namespace engine
