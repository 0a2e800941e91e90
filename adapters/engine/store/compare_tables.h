#pragma once

#include <span>
#include <string>
#include <vector>

#include "engine/store/store.h"

namespace engine {

/// A field's type in the store's words.
using TypeWord = std::string (*)(const platform::FieldDefinition& field);

/// Adds a sentence for each difference of a file from the tables that it should have.
void CompareTables(StoreFile& file, std::span<const platform::TableDefinition> expected, TypeWord typeText,
                   std::vector<std::string>& findings);

}  // namespace engine
