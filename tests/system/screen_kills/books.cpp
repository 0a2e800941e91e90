#include "system/screen_kills/books.h"

#include <sqlite3.h>

#include <algorithm>
#include <stdexcept>

#include "platform/values/convert.h"
#include "suite/company_schema.h"
#include "system/numbered_writes.h"

namespace system_test {
namespace {

constexpr std::size_t kShown = 8;

std::vector<std::string> KeyFields(const platform::TableDefinition& table) {
  for (const auto& index : table.indexes)
    if (index.primary) return index.fields;
  for (const auto& index : table.indexes)
    if (index.unique) return index.fields;
  std::vector<std::string> all;
  for (const auto& field : table.fields) all.push_back(field.name);
  return all;
}

Row RowOf(const platform::Recordset& rows, const platform::TableDefinition& table) {
  Row row;
  for (const auto& field : table.fields) {
    const platform::Value value = rows.Field(field.name);
    row[field.name] = value.IsNull() ? "Null" : platform::CStr(value);
  }
  return row;
}

/// The store keeps them where no statement of the dialect reaches.
std::map<std::string, std::int64_t> ReadNumbers(const std::string& file) {
  sqlite3* store = nullptr;
  sqlite3_stmt* statement = nullptr;
  std::map<std::string, std::int64_t> numbers;
  if (sqlite3_open_v2(file.c_str(), &store, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK ||
      sqlite3_prepare_v2(store, "SELECT name, seq FROM sqlite_sequence", -1, &statement, nullptr) != SQLITE_OK)
    throw std::runtime_error("the numbers can't be read");
  while (sqlite3_step(statement) == SQLITE_ROW)
    numbers[reinterpret_cast<const char*>(sqlite3_column_text(statement, 0))] = sqlite3_column_int64(statement, 1);
  sqlite3_finalize(statement);
  sqlite3_close(store);
  return numbers;
}

std::string Shown(const std::string& text) { return text.size() > 60 ? text.substr(0, 60) + "..." : text; }

void CompareRows(const std::string& place, const Row& expected, const Row& actual, std::vector<std::string>& found) {
  for (const auto& [field, value] : expected) {
    const auto other = actual.find(field);
    const std::string now = other == actual.end() ? "missing" : other->second;
    if (now != value) found.push_back(place + "." + field + " is \"" + Shown(now) + "\", not \"" + Shown(value) + "\"");
  }
  for (const auto& [field, value] : actual)
    if (!expected.contains(field)) found.push_back(place + "." + field + " is \"" + Shown(value) + "\", which nobody expects");
}

void CompareTables(const std::string& table, const std::map<std::string, Row>& expected, const std::map<std::string, Row>& actual,
                   std::vector<std::string>& found) {
  for (const auto& [key, row] : expected) {
    const auto other = actual.find(key);
    if (other == actual.end())
      found.push_back(table + " " + key + " is missing");
    else
      CompareRows(table + " " + key, row, other->second, found);
  }
  for (const auto& [key, row] : actual)
    if (!expected.contains(key)) found.push_back(table + " " + key + " is there and should not be");
}

}  // namespace

Books ReadBooks(const std::string& file) {
  Books books;
  {
    Session session(file);
    for (const auto& table : suite::TablesOf(suite::DataFile::Customer)) {
      auto& kept = books.tables[table.name];
      const auto keyFields = KeyFields(table);
      const auto rows = session.Database().OpenRecordset(table.name, platform::RecordsetType::Table);
      for (; !rows->Eof(); rows->MoveNext()) {
        Row row = RowOf(*rows, table);
        std::string key;
        for (const auto& field : keyFields) key += (key.empty() ? "" : "|") + row[field];
        if (!kept.emplace(key, std::move(row)).second) throw std::runtime_error(table.name + " holds " + key + " twice");
      }
    }
  }
  // Tables without a Counter have a hidden one, whose numbers nobody sees.
  const auto numbers = ReadNumbers(file);
  for (const auto& table : suite::TablesOf(suite::DataFile::Customer)) {
    const auto counter = std::ranges::find(table.fields, platform::FieldType::Counter, &platform::FieldDefinition::type);
    const auto number = numbers.find(table.name);
    if (counter != table.fields.end()) books.numbers[table.name] = number == numbers.end() ? 0 : number->second;
  }
  return books;
}

std::vector<std::string> Differences(const Books& expected, const Books& actual) {
  std::vector<std::string> found;
  for (const auto& [table, rows] : expected.tables) {
    const auto other = actual.tables.find(table);
    CompareTables(table, rows, other == actual.tables.end() ? std::map<std::string, Row>{} : other->second, found);
  }
  for (const auto& [table, number] : expected.numbers) {
    const auto other = actual.numbers.find(table);
    const std::int64_t now = other == actual.numbers.end() ? 0 : other->second;
    if (now != number) found.push_back("the last number of " + table + " is " + std::to_string(now) + ", not " + std::to_string(number));
  }
  for (const auto& [table, number] : actual.numbers)
    if (!expected.numbers.contains(table)) found.push_back(table + " has given the number " + std::to_string(number));
  if (found.size() > kShown) found.resize(kShown);
  return found;
}

void RunStatement(const std::string& file, const std::string& statement) {
  Session session(file);
  session.Database().Execute(statement, platform::dbFailOnError);
}

}  // namespace system_test
