#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The dialect's functions (engine/functions) as functions of each schema.
namespace engine::postgres {

/// The statements that make them in that schema. They need nothing but each other: no table, no extension. Names within them carry the
/// schema, so that a dump can be restored. A call that fails raises the state "ORnnn" with its error's number.
std::vector<std::string> FunctionTexts(std::string_view schema);

}  // namespace engine::postgres
