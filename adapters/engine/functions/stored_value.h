#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "engine/functions/store_functions.h"
#include "engine/values/iso_date.h"
#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "platform/values/value.h"

/// Reading the arguments of the store's helpers.
namespace engine {

using Arguments = std::span<const StoredValue>;

inline bool IsNullArgument(const StoredValue& value) { return std::holds_alternative<std::monostate>(value); }

inline bool AnyNull(Arguments arguments) {
  for (const StoredValue& value : arguments) {
    if (IsNullArgument(value)) return true;
  }
  return false;
}

/// The argument as a value: a whole number and a real one as Double, a text as Text, Null.
inline platform::Value ValueOf(const StoredValue& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  if (const auto* real = std::get_if<double>(&value)) return *real;
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  return platform::Null;
}

/// A number; a text is read as one (13).
inline double RealOf(const StoredValue& value) { return platform::CDbl(ValueOf(value)); }

inline const std::string& TextOf(const StoredValue& value) {
  static const std::string none;
  const auto* text = std::get_if<std::string>(&value);
  return text == nullptr ? none : *text;
}

/// A Long, halves rounded to even (6).
inline std::int32_t LongOf(const StoredValue& value) { return platform::CLng(ValueOf(value)); }

/// The date of a stored text (13).
inline platform::Date DateOf(const StoredValue& value) {
  const std::optional<platform::Date> date = DateOfIso(TextOf(value));
  if (!date) throw platform::error::TypeMismatch();
  return *date;
}

/// The stored text of a serial (6 outside the calendar).
inline std::string IsoOfSerial(double serial) {
  constexpr double kFirst = -657434;
  constexpr double kBehind = 2958466;
  if (!(serial > kFirst - 1 && serial < kBehind)) throw platform::error::Overflow();
  return IsoText({serial});
}

}  // namespace engine
