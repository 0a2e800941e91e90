#pragma once

#include <optional>
#include <string>
#include <utility>

#include "engine/values/sql_type.h"
#include "platform/values/value.h"

namespace engine {

/// How tight the outermost operator of a translated text binds in the store, tightest first.
enum class Tightness { Atom, Concat, Product, Sum, Compare, Not, And, Or };

/// A translated expression.
struct Emitted {
  std::string sql;
  SqlType type = SqlType::Null;
  Tightness tightness = Tightness::Atom;
  /// A condition that gives 1, 0 or Null; other expressions give the stored form of `type`.
  bool truth = false;
  /// A number whose range is not tested yet; whoever shows, compares or passes it on tests it first.
  bool unchecked = false;
  int size = 0;  ///< Text: greatest number of characters, 0 if not known
  bool memo = false;
  /// A column: its table and field in the scope.
  int table = -1;
  int field = -1;
  /// What it is compared and ordered by; "" where that is the text itself, or a key that the store must make of it.
  std::string comparable{};
  std::optional<platform::Value> literal;

  bool IsLiteral() const { return literal.has_value(); }
};

/// A condition of that text.
inline Emitted ConditionText(std::string sql, Tightness tightness = Tightness::Compare) {
  return {.sql = std::move(sql), .type = SqlType::Boolean, .tightness = tightness, .truth = true, .literal = {}};
}

/// The text, in parentheses when it binds looser than `loosest`.
std::string Wrap(const Emitted& expression, Tightness loosest);

}  // namespace engine
