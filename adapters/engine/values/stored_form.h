#pragma once

#include <cstdint>
#include <limits>

#include "engine/errors.h"
#include "platform/data/table_definition.h"
#include "platform/values/value.h"

/// How values lie in a store: Booleans as -1 and 0, whole numbers as they are, Currency as its ten-thousandths, dates as ISO text
/// (iso_date.h), texts as they are.
namespace engine {

/// Refuses a whole number beyond the range of fields of that type: 3349.
inline void RequireWithin(platform::FieldType type, std::int64_t number) {
  const auto within = [number](auto lowest, auto highest) {
    if (number < lowest || number > highest) throw errors::NumericOverflow();
  };
  using platform::FieldType;
  switch (type) {
    case FieldType::Boolean:
    case FieldType::Currency:
      return;
    case FieldType::Byte:
      return within(0, std::numeric_limits<std::uint8_t>::max());
    case FieldType::Short:
      return within(std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max());
    default:
      return within(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max());
  }
}

/// The value of a field of that type that lies in the store as this whole number. One beyond the type's range: 3349.
inline platform::Value ValueOfWhole(platform::FieldType type, std::int64_t number) {
  RequireWithin(type, number);
  using platform::FieldType;
  switch (type) {
    case FieldType::Boolean:
      return number != 0;
    case FieldType::Byte:
      return static_cast<std::uint8_t>(number);
    case FieldType::Short:
      return static_cast<std::int16_t>(number);
    case FieldType::Currency:
      return platform::Currency{number};
    default:
      return static_cast<std::int32_t>(number);
  }
}

/// Whether a field's values lie in the store as whole numbers.
inline bool LiesAsWhole(platform::FieldType type) {
  using platform::FieldType;
  return type != FieldType::Double && type != FieldType::Date && type != FieldType::Text && type != FieldType::Memo;
}

}  // namespace engine
