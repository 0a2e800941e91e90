#pragma once

#include <string>
#include <string_view>

#include "platform/data/table_definition.h"

/// The columns beside a table's texts that hold their keys (text_key.h).
namespace engine::postgres {

/// A text of an index has its key in full. Another one has it only where it isn't the text in small letters, Null elsewhere: most
/// texts need none. A memo has none unless an index wants it.
enum class KeyColumn { None, Sparse, Full };
KeyColumn KeyColumnOf(const platform::TableDefinition& table, const platform::FieldDefinition& field);

/// Its name, not quoted.
std::string NameOf(KeyColumn column, std::string_view field);

/// The field that a column of an index stands for.
std::string_view FieldOfColumn(std::string_view column);

/// The function by which a schema makes the key of any text.
inline constexpr std::string_view kTextKeyFunction = "text_key";

}  // namespace engine::postgres
