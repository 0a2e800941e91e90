#pragma once

#include <string>
#include <string_view>

#include "engine/store/postgres/wording/dialect.h"

namespace engine::postgres {

inline std::string QuoteName(std::string_view name) { return ServerDialect().Name(name); }
inline std::string QuoteText(std::string_view text) { return ServerDialect().Text(text); }

/// The store's own tables of a schema, and its own columns of the user's tables. All begin with kOwnNameMark.
inline constexpr std::string_view kHiddenKey = "~key";
inline constexpr std::string_view kInfoTable = "~info";
inline constexpr std::string_view kLinksTable = "~links";
inline constexpr std::string_view kSavesTable = "~saves";

/// Longer names the server cuts, in bytes.
inline constexpr std::size_t kLongestName = 63;

}  // namespace engine::postgres
