#pragma once

#include <algorithm>
#include <cstddef>
#include <string>

#include "engine/store/dialect.h"
#include "engine/store/query.h"

namespace engine {

/// Rows asked for together by their keys, a batch a statement. A batch has one of a few sizes, so that as many texts are prepared and not one
/// for each number; its last key fills the rest.
struct KeyBatch {
  std::size_t first = 0;
  std::size_t rows = 0;
  std::size_t parameters = 0;

  static constexpr std::size_t kFew = 8;
  static constexpr std::size_t kPage = 64;
  static constexpr std::size_t kMany = 512;  ///< of rows that are only looked at

  /// The one that begins with the row of that number, of `total`.
  static KeyBatch From(std::size_t first, std::size_t total, std::size_t most = kPage) {
    const std::size_t rows = std::min(most, total - first);
    return {first, rows, rows <= kFew ? kFew : rows <= kPage ? kPage : kMany};
  }
  std::size_t End() const noexcept { return first + rows; }

  /// `keyOf` gives a row's key by its number.
  template <class KeyOf>
  void Bind(Query& query, KeyOf keyOf) const {
    for (std::size_t i = 0; i < parameters; ++i) query.Bind(static_cast<int>(i) + 1, keyOf(first + std::min(i, rows - 1)));
  }
};

/// "IN (" with so many parameters, from the first on.
inline std::string InParameters(const Dialect& dialect, std::size_t count) {
  std::string text = " IN (";
  for (std::size_t i = 1; i <= count; ++i) text += (i == 1 ? "" : ", ") + dialect.Parameter(i);
  return text + ')';
}

}  // namespace engine
