#pragma once

#include <string_view>

#include "engine/store/dialect.h"

namespace engine {

/// Tables of the store's own, and the hidden row key of tables without a Counter, begin with this sign; the catalogue
/// never shows them.
inline constexpr char ownNameMark = '~';
inline constexpr std::string_view hiddenKey = "~key";
inline constexpr std::string_view infoTable = "~info";
inline constexpr std::string_view linksTable = "~links";

}  // namespace engine
