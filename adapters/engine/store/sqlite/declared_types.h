#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/data/table_definition.h"
#include "platform/values/value.h"

/// How values lie in the store: Booleans as -1 and 0, whole numbers as they are, Currency as its ten-thousandths, dates
/// as ISO text.
namespace engine {

/// The value as a literal of the store's statements.
std::string StoredLiteral(const platform::Value& value);

/// The type's word in a table definition: "TEXT(30)", "LONG", "CURRENCY" ... A Counter's is "INTEGER".
std::string DeclaredType(platform::FieldType type, int size);

/// The reverse of DeclaredType; nothing for a type that isn't ours. `size` is set for texts.
std::optional<platform::FieldType> ParseDeclaredType(std::string_view declared, int& size);

}  // namespace engine
