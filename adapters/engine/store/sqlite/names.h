#pragma once

#include <string_view>

#include "engine/store/sqlite/dialect.h"
#include "engine/store/store.h"

namespace engine {

/// Tables of the store's own, and the hidden row key of tables without a Counter, begin with ownNameMark.
inline constexpr std::string_view hiddenKey = "~key";
inline constexpr std::string_view infoTable = "~info";
inline constexpr std::string_view linksTable = "~links";

}  // namespace engine
