#include "engine/store/compare_tables.h"

#include <algorithm>

#include "engine/store/find_by_name.h"
#include "platform/values/text.h"

namespace engine {
namespace {

using platform::EqualsNoCase;
using platform::FieldDefinition;
using platform::IndexDefinition;
using platform::TableDefinition;

using Findings = std::vector<std::string>;

std::string FieldList(const IndexDefinition& index) {
  std::string list;
  for (const std::string& field : index.fields) list += (list.empty() ? "" : ", ") + field;
  return list;
}

bool SameFields(const IndexDefinition& left, const IndexDefinition& right) {
  return std::ranges::equal(left.fields, right.fields, [](const std::string& a, const std::string& b) { return EqualsNoCase(a, b); });
}

void CompareFields(const TableDefinition& there, const TableDefinition& expected, TypeWord typeText, Findings& findings) {
  for (const FieldDefinition& field : expected.fields) {
    const FieldDefinition* found = FindByName(there.fields, field.name);
    if (found == nullptr)
      findings.push_back("Table " + expected.name + " has no field " + field.name + ".");
    else if (found->type != field.type || found->size != field.size)
      findings.push_back("Field " + field.name + " of table " + expected.name + " is " + typeText(*found) + " instead of " +
                         typeText(field) + ".");
  }
  for (const FieldDefinition& field : there.fields)
    if (FindByName(expected.fields, field.name) == nullptr)
      findings.push_back("Table " + expected.name + " has an unknown field " + field.name + ".");
}

void CompareIndexes(const TableDefinition& there, const TableDefinition& expected, Findings& findings) {
  for (const IndexDefinition& index : expected.indexes) {
    const IndexDefinition* found = FindByName(there.indexes, index.name);
    if (found == nullptr)
      findings.push_back("Table " + expected.name + " has no index " + index.name + ".");
    else if (!SameFields(*found, index))
      findings.push_back("Index " + index.name + " of table " + expected.name + " is on " + FieldList(*found) + " instead of " +
                         FieldList(index) + ".");
    else if (found->unique != (index.unique || index.primary))
      findings.push_back("Index " + index.name + " of table " + expected.name + (found->unique ? " refuses" : " does not refuse") +
                         " equal keys.");
  }
}

}  // namespace

void CompareTables(StoreFile& file, std::span<const TableDefinition> expected, TypeWord typeText, std::vector<std::string>& findings) {
  for (const TableDefinition& table : expected) {
    const std::string name = file.StoredName(table.name);
    if (name.empty()) {
      findings.push_back("Table " + table.name + " is missing.");
      continue;
    }
    const TableDefinition there = file.ReadTable(name);
    CompareFields(there, table, typeText, findings);
    CompareIndexes(there, table, findings);
  }
}

}  // namespace engine
