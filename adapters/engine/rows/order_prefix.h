#pragma once

#include <cstdint>

#include "engine/store/query.h"
#include "platform/data/table_definition.h"
#include "platform/values/value.h"

namespace engine {

/// The start of a value's place in its order, as one number: different numbers stand in the order of the values, Null has 0.
/// For all types but texts equal numbers mean equal values.
std::uint64_t OrderPrefix(platform::FieldType type, const platform::Value& value);

/// Whether equal prefixes mean equal values.
inline bool PrefixDecides(platform::FieldType type) { return type != platform::FieldType::Text && type != platform::FieldType::Memo; }

/// The prefix of a column of a query's row, and whether it is all of the value's order: any other value with the same
/// prefix, if its prefix is whole too, is equal to it.
struct OrderStart {
  std::uint64_t prefix = 0;
  bool whole = true;
};
OrderStart OrderStartOf(const Query& row, int column, platform::FieldType type);

}  // namespace engine
