#pragma once

#include <optional>
#include <string>

#include "engine/sql/ast/expression.h"
#include "engine/translate/names/scope.h"

namespace engine {

/// A condition that holds one bare field to constants, so that an index on the field leads to its rows.
struct FieldBound {
  int table = -1;
  int field = -1;
  bool equals = false;  ///< to one value
  bool isText = false;
  bool isWhole = false;
  std::optional<std::int64_t> number{};  ///< of a whole-number field that equals one
  std::optional<std::string> start{};  ///< of a Like: what its texts begin with, without blanks at its end
};

/// Nothing for any other condition.
std::optional<FieldBound> FieldBoundOf(const sql::Expression& condition, Scope& scope);

/// A constant of the dialect, a minus in front of it included; nothing for anything else.
std::optional<platform::Value> ConstantOf(const sql::Expression& expression);

/// The fixed start of a text field's Like, without blanks at its end; nothing for any other condition or a pattern without one.
std::optional<std::string> FixedStartOf(const sql::Like& like);

}  // namespace engine
