#pragma once

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/values/text.h"

namespace engine {

/// The table, field or index of that name, without regard to case; nullptr when there is none.
template <class Named>
const Named* FindByName(const std::vector<Named>& list, std::string_view name) {
  const auto found = std::find_if(list.begin(), list.end(), [&](const Named& item) { return platform::EqualsNoCase(item.name, name); });
  return found == list.end() ? nullptr : &*found;
}

}  // namespace engine
