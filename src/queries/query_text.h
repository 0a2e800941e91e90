#pragma once

#include <string>

// The two phrases that the query's conditions share.
namespace orcussch {

/// The word before the next condition: " WHERE " for the first one, then " AND ".
void TestWhere(std::string& Where);

/// The tail of a text comparison, up to the parenthesis that the caller has opened. `Comparison` is the code of the way of comparing
/// (c contains, x exactly, e ends with; anything else starts with), which counts without case.
void SQLOperator(std::string& Where, const std::string& Value, const std::string& Comparison);

}  // namespace orcussch
