#pragma once

#include <string>
#include <string_view>

#include "platform/values/value.h"

/// How statements of the data engine are written.
namespace printing::dialect {

std::string Name(std::string_view name);
std::string Text(std::string_view text);
std::string Field(std::string_view table, std::string_view field);
/// A Boolean, Double, whole day or text.
std::string Constant(const platform::Value& value);

}  // namespace printing::dialect
