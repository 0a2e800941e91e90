#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/data/table_definition.h"

/// The words for field types in table definitions, which are the file's catalogue.
namespace engine {

/// The type's word: "TEXT(30)", "LONG", "CURRENCY" ... A Counter's is "INTEGER".
std::string DeclaredType(platform::FieldType type, int size);

/// The reverse of DeclaredType; nothing for a type that isn't ours. `size` is set for texts.
std::optional<platform::FieldType> ParseDeclaredType(std::string_view declared, int& size);

}  // namespace engine
