#pragma once

#include <string>
#include <vector>

#include "platform/data/table_definition.h"

namespace engine {

/// What a table that is there lacks of an expected one.
struct Lacking {
  std::vector<platform::FieldDefinition> fields;
  std::vector<platform::IndexDefinition> indexes;
  std::vector<std::string> sentences;  ///< that tell of what was added, one for each
};
/// Raises 3057 for a Counter or a primary key's field: such a table can only be made anew.
Lacking WhatIsLacking(const platform::TableDefinition& there, const platform::TableDefinition& expected);

/// The sentence about a table that was lacking as a whole.
std::string TableWasMade(const std::string& table);

}  // namespace engine
