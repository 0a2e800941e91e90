#pragma once

#include "platform/data/table_definition.h"
#include "platform/values/value.h"

namespace engine {

/// The type of an expression. Null is that of the constant and of names that are not known.
enum class SqlType { Null, Boolean, Byte, Short, Long, Double, Currency, Date, Text };

SqlType SqlTypeOf(platform::FieldType type);
SqlType SqlTypeOf(const platform::Value& literal);
/// The field type in which a result of that type is stored.
platform::FieldType FieldTypeOf(SqlType type);

bool IsWhole(SqlType type);   ///< Boolean, Byte, Short, Long
bool IsNumber(SqlType type);  ///< whole, Double or Currency

/// Types of results: `+` and `-` of two numbers, `*` of two numbers.
SqlType SumType(SqlType left, SqlType right);
SqlType ProductType(SqlType left, SqlType right);

}  // namespace engine
