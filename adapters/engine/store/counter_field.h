#pragma once

#include <algorithm>

#include "platform/data/table_definition.h"

namespace engine {

/// A table's Counter, which is its row key; nullptr for a table with a hidden one.
inline const platform::FieldDefinition* CounterOf(const platform::TableDefinition& table) {
  const auto found = std::ranges::find(table.fields, platform::FieldType::Counter, &platform::FieldDefinition::type);
  return found == table.fields.end() ? nullptr : &*found;
}

}  // namespace engine
