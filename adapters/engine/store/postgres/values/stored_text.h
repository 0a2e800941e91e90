#pragma once

#include <cstdint>
#include <string_view>

#include "platform/data/table_definition.h"
#include "platform/values/value.h"

/// Values as the server sends and takes them, in words.
namespace engine::postgres {

/// A whole number; of a real one its whole part, of a condition -1 and 0.
std::int64_t WholeOf(std::string_view text);

/// The value of a field of that type that lies in the store as this text says. One beyond the type's range: 3349.
platform::Value ValueOfText(platform::FieldType type, std::string_view text);

/// Whether the server takes the text: well-formed UTF-8 without a zero byte.
bool IsStorable(std::string_view text);

}  // namespace engine::postgres
