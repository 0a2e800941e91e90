#pragma once

#include "engine/store/dialect.h"

namespace engine {

/// SQLite's own way of writing statements.
const Dialect& SqliteDialect();

inline std::string QuoteName(std::string_view name) { return SqliteDialect().Name(name); }
inline std::string QuoteText(std::string_view text) { return SqliteDialect().Text(text); }

}  // namespace engine
