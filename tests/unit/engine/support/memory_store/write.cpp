#include "unit/engine/support/memory_store/write.h"

#include <algorithm>

#include "engine/errors.h"

namespace memory_store {
namespace {

std::vector<int> Columns(const Table& table, const std::vector<std::string>& names) {
  std::vector<int> columns;
  for (const std::string& name : names) columns.push_back(table.Column(name));
  return columns;
}

void CheckKeys(const Table& table, std::int64_t rowKey, const std::vector<StoredValue>& cells) {
  for (const platform::IndexDefinition& index : table.definition.indexes) {
    if (!index.unique && !index.primary) continue;
    // The Counter's own number is the row key.
    if (index.fields.size() == 1 && table.Column(index.fields.front()) == table.Counter()) continue;
    const auto valuesOf = [columns = Columns(table, index.fields)](const std::vector<StoredValue>& row) {
      std::vector<StoredValue> values;
      for (const int column : columns) values.push_back(row.at(static_cast<std::size_t>(column)));
      return values;
    };
    const std::vector<StoredValue> own = valuesOf(cells);
    const bool hasNull = std::ranges::any_of(own, IsNull);
    if (hasNull && index.primary) throw engine::errors::NullInKey();
    if (hasNull) continue;
    for (const auto& [key, other] : table.rows) {
      const std::vector<StoredValue> values = valuesOf(other);
      const auto same = [](const StoredValue& a, const StoredValue& b) { return Order(a, b) == 0; };
      if (key != rowKey && std::ranges::equal(own, values, same)) throw engine::errors::DuplicateKey();
    }
  }
}

void ParseTable(Tokens& tokens, const Disk& disk, Write& write) {
  write.file = disk.WithQualifier(tokens.Peek().text).get();
  write.from.table = &NeedTable(tokens, disk);
  if (tokens.TakeWord("AS")) write.from.alias = tokens.Take().text;
}

int NeedColumn(Tokens& tokens, const Write& write) {
  const int column = write.from.table->Column(tokens.NeedName());
  if (column < -1) tokens.Refuse();
  return column;
}

void ParseInsert(Tokens& tokens, const Disk& disk, Write& write) {
  tokens.NeedWord("INTO");
  ParseTable(tokens, disk, write);
  if (tokens.TakeWord("DEFAULT")) {
    tokens.NeedWord("VALUES");
  } else {
    tokens.NeedSign("(");
    do write.settings.push_back({NeedColumn(tokens, write), {}});
    while (tokens.TakeSign(","));
    tokens.NeedSign(")");
    tokens.NeedWord("VALUES");
    for (std::size_t i = 0; i < write.settings.size(); ++i) {
      tokens.NeedSign(i == 0 ? "(" : ",");
      write.settings[i].value = ParseExpression(tokens, {}, disk);
    }
    tokens.NeedSign(")");
  }
}

std::int64_t Insert(const Write& write, const std::vector<StoredValue>& parameters) {
  Table& table = *write.from.table;
  std::vector<StoredValue> cells(table.definition.fields.size());
  std::int64_t key = std::max(table.lastNumber, table.rows.empty() ? 0 : table.rows.rbegin()->first) + 1;
  for (const Write::Setting& setting : write.settings) {
    StoredValue value = setting.value({.parameters = &parameters});
    if (setting.column == table.Counter() || setting.column < 0) key = std::get<std::int64_t>(value);
    if (setting.column >= 0) cells[static_cast<std::size_t>(setting.column)] = std::move(value);
  }
  if (const int counter = table.Counter(); counter >= 0) cells[static_cast<std::size_t>(counter)] = key;
  CheckKeys(table, key, cells);
  table.lastNumber = std::max(table.lastNumber, key);
  table.rows.emplace(key, std::move(cells));
  return key;
}

}  // namespace

bool BeginsWrite(const Tokens& tokens) { return tokens.AtWord("INSERT") || tokens.AtWord("UPDATE") || tokens.AtWord("DELETE"); }

Write ParseWrite(Tokens& tokens, const Disk& disk) {
  Write write;
  if (tokens.TakeWord("INSERT")) {
    ParseInsert(tokens, disk, write);
    return write;
  }
  write.kind = tokens.TakeWord("UPDATE") ? Write::Kind::Update : Write::Kind::Delete;
  if (write.kind == Write::Kind::Delete) {
    tokens.NeedWord("DELETE");
    tokens.NeedWord("FROM");
  }
  ParseTable(tokens, disk, write);
  if (write.kind == Write::Kind::Update) {
    tokens.NeedWord("SET");
    do {
      const int column = NeedColumn(tokens, write);
      tokens.NeedSign("=");
      write.settings.push_back({column, ParseExpression(tokens, write.from, disk)});
    } while (tokens.TakeSign(","));
  }
  if (tokens.TakeWord("WHERE")) write.where = ParseExpression(tokens, write.from, disk);
  return write;
}

Written RunWrite(const Write& write, const std::vector<StoredValue>& parameters) {
  if (write.kind == Write::Kind::Insert) return {1, Insert(write, parameters)};
  Table& table = *write.from.table;
  std::vector<std::int64_t> keys;
  for (const auto& [key, cells] : table.rows)
    if (!write.where || Holds(write.where({&parameters, &table, key, &cells}))) keys.push_back(key);
  for (const std::int64_t key : keys) {
    if (write.kind == Write::Kind::Delete) {
      table.rows.erase(key);
      continue;
    }
    std::vector<StoredValue> cells = table.rows.at(key);
    for (const Write::Setting& setting : write.settings)
      cells[static_cast<std::size_t>(setting.column)] = setting.value({&parameters, &table, key, &table.rows.at(key)});
    CheckKeys(table, key, cells);
    table.rows.at(key) = std::move(cells);
  }
  return {static_cast<std::int64_t>(keys.size()), 0};
}

}  // namespace memory_store
