#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace desktop {

/// By which field a list is ordered, for the arrow in its heading.
struct SortHint {
  std::string field;
  bool descending = false;
};

/// The first term of the statement's last ORDER BY, if it is a plain field.
std::optional<SortHint> SortHintOf(std::string_view statement);

}  // namespace desktop
