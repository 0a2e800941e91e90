#pragma once

#include <string_view>

#include "engine/store/sqlite/dialect.h"
#include "engine/store/store.h"

namespace engine {

/// Tables of the store's own, and the hidden row key of tables without a Counter, begin with ownNameMark.
inline constexpr std::string_view kHiddenKey = "~key";
inline constexpr std::string_view kInfoTable = "~info";
inline constexpr std::string_view kLinksTable = "~links";

}  // namespace engine
