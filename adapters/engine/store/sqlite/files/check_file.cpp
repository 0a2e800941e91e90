#include <algorithm>

#include "engine/data_file.h"
#include "engine/store/sqlite/declared_types.h"
#include "engine/store/sqlite/files/find_by_name.h"
#include "engine/store/sqlite/files/opened_file.h"
#include "engine/store/sqlite/names.h"
#include "engine/store/sqlite/schema.h"
#include "platform/values/error.h"
#include "platform/values/text.h"

namespace engine {
namespace {

using platform::EqualsNoCase;
using platform::FieldDefinition;
using platform::IndexDefinition;
using platform::TableDefinition;

using Findings = std::vector<std::string>;

std::string TypeText(const FieldDefinition& field) {
  return field.type == platform::FieldType::Counter ? "COUNTER" : DeclaredType(field.type, field.size);
}

std::string FieldList(const IndexDefinition& index) {
  std::string list;
  for (const std::string& field : index.fields) list += (list.empty() ? "" : ", ") + field;
  return list;
}

bool SameFields(const IndexDefinition& left, const IndexDefinition& right) {
  return std::ranges::equal(left.fields, right.fields, [](const std::string& a, const std::string& b) { return EqualsNoCase(a, b); });
}

void CompareFields(const TableDefinition& there, const TableDefinition& expected, Findings& findings) {
  for (const FieldDefinition& field : expected.fields) {
    const FieldDefinition* found = FindByName(there.fields, field.name);
    if (found == nullptr)
      findings.push_back("Table " + expected.name + " has no field " + field.name + ".");
    else if (found->type != field.type || found->size != field.size)
      findings.push_back("Field " + field.name + " of table " + expected.name + " is " + TypeText(*found) + " instead of " +
                         TypeText(field) + ".");
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

void CheckStore(Connection& connection, const std::string& alias, Findings& findings) {
  Query query(connection, "PRAGMA " + QuoteName(alias) + ".integrity_check(20)");
  while (query.Step())
    if (query.Text(0) != "ok") findings.push_back("The file is damaged: " + std::string(query.Text(0)) + ".");
}

}  // namespace

std::vector<std::string> CheckDataFile(const std::string& path, std::span<const TableDefinition> expected) {
  Findings findings;
  try {
    OpenedFile opened(path);
    Connection& connection = opened.connection;
    const auto& file = opened.file;
    CheckStore(connection, file->Qualifier(), findings);
    const auto names = file->TableNames();
    for (const TableDefinition& table : expected) {
      const auto name = std::ranges::find_if(names, [&](const std::string& there) { return EqualsNoCase(there, table.name); });
      if (name == names.end()) {
        findings.push_back("Table " + table.name + " is missing.");
        continue;
      }
      const TableDefinition there = ReadTable(connection, file->Qualifier(), *name);
      CompareFields(there, table, findings);
      CompareIndexes(there, table, findings);
    }
  } catch (const platform::Error& error) {
    findings.push_back(error.Description());
  }
  return findings;
}

}  // namespace engine
