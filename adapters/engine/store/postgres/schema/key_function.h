#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The function by which a schema builds the keys of its texts (text_key.h).
namespace engine::postgres {

/// The statements that make it in that schema. It needs nothing but itself: no table, no extension, no data of the server about
/// characters. Names within it carry the schema, so that a dump can be restored.
std::vector<std::string> KeyFunctionTexts(std::string_view schema);

}  // namespace engine::postgres
