#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace platform {

/// An exact amount of money: a 64-bit count of ten-thousandths.
struct Currency {
  std::int64_t tenThousandths = 0;
  auto operator<=>(const Currency&) const = default;
};

/// A point in time: days since 30 December 1899, the fraction is the time of day (also for days before the epoch:
/// the whole part is the day, the fraction's absolute value the time).
struct Date {
  double serial = 0;
  auto operator<=>(const Date&) const = default;
};

/// "No value", as a field holds it.
struct NullType {
  auto operator<=>(const NullType&) const = default;
};

/// "Nothing was ever put here", as a variant property without a value gives it.
struct EmptyType {
  auto operator<=>(const EmptyType&) const = default;
};

enum class ValueKind { Empty, Null, Boolean, Byte, Short, Long, Currency, Double, Date, Text };

/// One value of a field, a property or a criterion. Texts are valid, precomposed UTF-8 (see text.h); lengths are
/// counted in characters. Conversions with their failures stand in convert.h.
class Value {
 public:
  Value() = default;  ///< Empty
  Value(NullType null) : data_(null) {}
  Value(bool boolean) : data_(boolean) {}
  Value(std::uint8_t byte) : data_(byte) {}
  Value(std::int16_t number) : data_(number) {}
  Value(std::int32_t number) : data_(number) {}
  Value(Currency amount) : data_(amount) {}
  Value(double number) : data_(number) {}
  Value(Date date) : data_(date) {}
  Value(std::string text) : data_(std::move(text)) {}
  Value(std::string_view text) : data_(std::string(text)) {}
  Value(const char* text) : data_(std::string(text)) {}

  ValueKind Kind() const noexcept { return static_cast<ValueKind>(data_.index()); }
  bool IsNull() const noexcept { return Kind() == ValueKind::Null; }
  bool IsEmpty() const noexcept { return Kind() == ValueKind::Empty; }
  bool IsText() const noexcept { return Kind() == ValueKind::Text; }
  bool IsNumber() const noexcept { return Kind() >= ValueKind::Boolean && Kind() <= ValueKind::Double; }

  /// The alternative itself; asking for another kind than Kind() is a bug (std::bad_variant_access).
  template <class T>
  const T& As() const {
    return std::get<T>(data_);
  }

  /// Same kind and same content. Not the comparison of the SQL dialect, and not that of the screens' language.
  bool operator==(const Value&) const = default;

 private:
  std::variant<EmptyType, NullType, bool, std::uint8_t, std::int16_t, std::int32_t, Currency, double, Date, std::string> data_;
};

inline constexpr NullType Null{};

}  // namespace platform
