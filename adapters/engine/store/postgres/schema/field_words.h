#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/table_definition.h"

/// The words for field types in table definitions, which are the schema's catalogue.
namespace engine::postgres {

/// The statements that make a schema's words: types of its own, each on one of the server's.
std::vector<std::string> CreateWordTexts(std::string_view schema);

/// A field's type as its column declares it. Not for Counters, which the server numbers.
std::string DeclaredType(std::string_view schema, const platform::FieldDefinition& field);

/// A field's type for messages: "Text(30)", "Long", "Counter".
std::string TypeText(const platform::FieldDefinition& field);

/// A column's type as the server tells it.
struct ColumnType {
  std::string_view name;
  bool ownWord = false;  ///< one of the schema's own
  int width = 0;         ///< of a text
  bool numbered = false;
};
/// The reverse; nothing for a type that isn't ours. `size` is set for texts.
std::optional<platform::FieldType> ParseType(const ColumnType& type, int& size);

}  // namespace engine::postgres
