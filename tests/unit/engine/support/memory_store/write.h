#pragma once

#include <optional>
#include <vector>

#include "unit/engine/support/memory_store/select.h"

namespace memory_store {

/// INSERT of one row of values, UPDATE or DELETE of one table.
struct Write {
  enum class Kind { Insert, Update, Delete } kind = Kind::Insert;
  From from;
  File* file = nullptr;
  struct Setting {
    int column = 0;
    Expression value;
  };
  std::vector<Setting> settings;
  Expression where;
};

bool BeginsWrite(const Tokens& tokens);
Write ParseWrite(Tokens& tokens, const Disk& disk);
struct Written {
  std::int64_t rows = 0;
  std::int64_t added = 0;  ///< row key of an INSERT's row
};
/// A unique index violated: 3022; Null in a primary key: 3058.
Written RunWrite(const Write& write, const std::vector<StoredValue>& parameters);

}  // namespace memory_store
