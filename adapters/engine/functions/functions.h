#pragma once

#include <span>
#include <string_view>

#include "engine/functions/store_functions.h"
#include "engine/values/sql_type.h"

namespace engine {

/// A function of the dialect that the store calls by its own name under the dialect's prefix. `parameters` holds one
/// letter an argument: t text, n number, d date, v text or number as it comes; `least` of them must be given.
struct SqlFunction {
  std::string_view name;  ///< lower case
  std::string_view parameters;
  std::size_t least;
  SqlType result;
  StoredValue (*call)(std::span<const StoredValue> arguments);
};

/// All of them; functions whose result depends on their argument's type are the emitter's own matter.
std::span<const SqlFunction> SqlFunctions();
/// nullptr for a name that is none. No regard to case.
const SqlFunction* FindSqlFunction(std::string_view name);

}  // namespace engine
