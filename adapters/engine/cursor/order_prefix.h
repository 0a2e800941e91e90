#pragma once

#include <cstdint>

#include "platform/table_definition.h"
#include "platform/value.h"

namespace engine {

/// The start of a value's place in its order, as one number: different numbers stand in the order of the values, Null has 0.
/// For all types but texts equal numbers mean equal values.
std::uint64_t OrderPrefix(platform::FieldType type, const platform::Value& value);

/// Whether equal prefixes mean equal values.
inline bool PrefixDecides(platform::FieldType type) { return type != platform::FieldType::Text && type != platform::FieldType::Memo; }

/// Whether the prefix is all of this value's order: any other value with the same prefix, if its prefix is whole too, is
/// equal to it.
bool PrefixIsWhole(platform::FieldType type, const platform::Value& value);

}  // namespace engine
