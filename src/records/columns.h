#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/controls/grid.h"

/// The kinds of columns of the lists.
namespace orcussch::column {

platform::GridColumn Plain(const char* caption, const char* field);
/// Keys, counters, money kept by other modules and other tables' fields are not typed over.
platform::GridColumn Closed(platform::GridColumn column);
/// No more characters than these can be typed.
platform::GridColumn Limited(platform::GridColumn column, int characters);
platform::GridColumn Formatted(const char* caption, const char* field, const char* format);
platform::GridColumn Money(const char* caption, const char* field);
platform::GridColumn Percent(const char* caption, const char* field);
/// A number that is nobody else's business.
platform::GridColumn CardNumber(const char* caption, const char* field);
platform::GridColumn Check(const char* caption, const char* field);
platform::GridColumn Coded(const char* caption, const char* field, std::vector<std::pair<platform::Value, std::string>> items);

}  // namespace orcussch::column
