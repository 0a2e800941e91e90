#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

/// Helpers that translated expressions call. The store registers each under the dialect's prefix and its name
/// ("f_" + "ccur"), as a deterministic function, and hands a thrown platform::Error to the statement's caller.
namespace engine {

/// A value as the store's expressions hold it: Null, a whole number (also Currency in ten-thousandths, Boolean -1 and 0),
/// a real number, a text (also a date in its stored form).
using StoredValue = std::variant<std::monostate, std::int64_t, double, std::string>;

struct StoreFunction {
  std::string_view name;
  int arguments;  ///< -1: any number
  StoredValue (*call)(std::span<const StoredValue> arguments);
};

/// All helpers.
std::span<const StoreFunction> StoreFunctions();

}  // namespace engine
