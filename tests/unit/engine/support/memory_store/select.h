#pragma once

#include <optional>
#include <vector>

#include "unit/engine/support/memory_store/expression.h"

namespace memory_store {

/// SELECT over one table or none.
struct Select {
  struct Item {
    enum class Kind { Value, Count, Least, Greatest } kind = Kind::Value;
    Expression value;
  };
  struct Key {
    Expression value;
    bool descending = false;
    bool nullsFirst = false;
  };
  std::vector<Item> items;
  From from;
  Expression where;
  std::vector<Key> order;
  Expression limit;
  Expression skip;
};

using Rows = std::vector<std::vector<StoredValue>>;

/// From the word SELECT on.
Select ParseSelect(Tokens& tokens, const Disk& disk);
Rows RunSelect(const Select& select, const std::vector<StoredValue>& parameters);

}  // namespace memory_store
