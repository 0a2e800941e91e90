#include "engine/store/additions.h"

#include <algorithm>

#include "engine/store/find_by_name.h"
#include "platform/values/error.h"
#include "platform/values/text.h"

namespace engine {
namespace {

using platform::FieldDefinition;
using platform::FieldType;
using platform::IndexDefinition;
using platform::TableDefinition;

bool BelongsToKey(const TableDefinition& table, const FieldDefinition& field) {
  if (field.type == FieldType::Counter) return true;
  return std::ranges::any_of(table.indexes, [&](const IndexDefinition& index) {
    return index.primary &&
           std::ranges::any_of(index.fields, [&](const std::string& name) { return platform::EqualsNoCase(name, field.name); });
  });
}

platform::Error MustBeMadeAnew(const std::string& table, const std::string& field) {
  return {3057, "Field '" + field + "' is part of the key of table '" + table + "' and can't be added to it; the table must be made anew."};
}

}  // namespace

Lacking WhatIsLacking(const TableDefinition& there, const TableDefinition& expected) {
  Lacking lacking;
  for (const FieldDefinition& field : expected.fields) {
    if (FindByName(there.fields, field.name) != nullptr) continue;
    if (BelongsToKey(expected, field)) throw MustBeMadeAnew(there.name, field.name);
    lacking.fields.push_back(field);
    lacking.sentences.push_back("Table " + there.name + " has got the field " + field.name + ".");
  }
  for (const IndexDefinition& index : expected.indexes) {
    if (FindByName(there.indexes, index.name) != nullptr) continue;
    lacking.indexes.push_back(index);
    lacking.sentences.push_back("Table " + there.name + " has got the index " + index.name + ".");
  }
  return lacking;
}

std::string TableWasMade(const std::string& table) { return "Table " + table + " was made."; }

}  // namespace engine
