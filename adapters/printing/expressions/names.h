#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "platform/values/value.h"
#include "printing/expressions/expression.h"

namespace printing {

/// What the names of an expression stand for: asked once, while it is made ready. Without regard to case.
class Names {
 public:
  /// A value's place in its array while rows are read, and what it is.
  struct Place {
    std::size_t index = 0;
    ValueType type = ValueType::Text;
  };
  virtual ~Names() = default;
  virtual std::optional<Place> Field(std::string_view table, std::string_view name) = 0;
  virtual std::optional<Place> Total(std::string_view name) = 0;
  struct FormulaOf {
    const Expression* expression = nullptr;  ///< nullptr where there is none of that name
    ValueType type = ValueType::Text;
  };
  virtual FormulaOf Formula(std::string_view name) = 0;
};

/// What the engine itself knows, by SystemValue. The number of pages is a text: a mark, until the last page is laid out.
using SystemValues = std::array<platform::Value, 6>;
inline platform::Value& At(SystemValues& values, SystemValue which) { return values[static_cast<std::size_t>(which)]; }
ValueType TypeOf(SystemValue value);

/// From where a ready expression takes its values: the arrays that Names::Place counts in.
struct EvaluationState {
  std::span<const platform::Value> row;
  std::span<const platform::Value> totals;
  const SystemValues* system = nullptr;
};

}  // namespace printing
