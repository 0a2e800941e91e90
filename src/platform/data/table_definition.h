#pragma once

#include <string>
#include <vector>

#include "platform/values/value.h"

namespace platform {

enum class FieldType { Boolean, Byte, Short, Long, Counter, Currency, Double, Date, Text, Memo };

/// One field of a table as the table's definition declares it.
struct FieldDefinition {
  std::string name;
  FieldType type = FieldType::Long;
  int size = 0;               ///< Text: greatest number of characters, 1 to 255; otherwise 0
  Value defaultValue = Null;  ///< what AddNew and an INSERT that leaves the field out put there
};

/// A named index. The primary one refuses Null (3058); unique ones refuse equal keys (3022), Nulls do not collide.
struct IndexDefinition {
  std::string name;
  std::vector<std::string> fields;
  bool unique = false;
  bool primary = false;
};

/// A table: its fields in column order and its indexes. A table without a Counter has a hidden integer row key.
struct TableDefinition {
  std::string name;
  std::vector<FieldDefinition> fields;
  std::vector<IndexDefinition> indexes;
};

}  // namespace platform
