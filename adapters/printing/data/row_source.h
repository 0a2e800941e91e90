#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/values/value.h"
#include "printing/expressions/expression.h"

namespace printing {

/// A field of the rows that a report reads: the table's place in the definition and the field's name there.
struct RowField {
  int table = 0;
  std::string name;
  ValueType type = ValueType::Text;
};

/// The rows of a report in their order: chosen, joined and sorted. Read once, from the first to the last.
class RowSource {
 public:
  virtual ~RowSource() = default;
  /// The fields of each row, in the order of Row().
  virtual const std::vector<RowField>& Fields() const = 0;
  /// Goes to the next row, first of all to the first; false behind the last.
  virtual bool Next() = 0;
  virtual const std::vector<platform::Value>& Row() const = 0;
  /// How many rows there are, for the progress; -1 while that isn't known.
  virtual std::int64_t Count() = 0;
};

}  // namespace printing
