#pragma once

#include <functional>
#include <vector>

#include "unit/engine/support/memory_store/tables.h"
#include "unit/engine/support/memory_store/tokens.h"

namespace memory_store {

/// What an expression may look at.
struct Scene {
  const std::vector<StoredValue>* parameters = nullptr;  ///< by number, from 1 on
  const Table* table = nullptr;
  std::int64_t key = 0;
  const std::vector<StoredValue>* cells = nullptr;
};
using Expression = std::function<StoredValue(const Scene&)>;

/// What the rows of a statement are read from.
struct From {
  Table* table = nullptr;
  std::string alias;
};

/// The table that `file`.`table` names.
Table& NeedTable(Tokens& tokens, const Disk& disk);

Expression ParseExpression(Tokens& tokens, const From& from, const Disk& disk);

bool IsNull(const StoredValue& value);
/// Below, equal to or above 0; texts by the text order, Null below all.
int Order(const StoredValue& left, const StoredValue& right);
/// 1 or 0 for a condition that holds or not; Null for neither.
bool Holds(const StoredValue& condition);

}  // namespace memory_store
