#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/table_definition.h"
#include "platform/value.h"

/// How values lie in the store: Booleans as -1 and 0, whole numbers as they are, Currency as its ten-thousandths, dates
/// as ISO text ("1999-01-31", "1999-01-31 13:20:34"; years have four digits, so that texts order as dates do).
namespace engine {

/// The ISO text of a date; without the time when that is midnight. Times are whole seconds.
std::string StoredDate(platform::Date date);

/// The date of an ISO text; nothing when it isn't one.
std::optional<platform::Date> ParseStoredDate(std::string_view text);

/// The value as a literal of the store's statements.
std::string StoredLiteral(const platform::Value& value);

/// The type's word in a table definition: "TEXT(30)", "LONG", "CURRENCY" ... A Counter's is "INTEGER".
std::string DeclaredType(platform::FieldType type, int size);

/// The reverse of DeclaredType; nothing for a type that isn't ours. `size` is set for texts.
std::optional<platform::FieldType> ParseDeclaredType(std::string_view declared, int& size);

}  // namespace engine
