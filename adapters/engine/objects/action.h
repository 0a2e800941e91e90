#pragma once

#include <cstdint>
#include <string_view>

#include "engine/objects/database_catalogue.h"
#include "engine/objects/session.h"

namespace engine {

/// Runs an action statement and returns how many rows it wrote. With `failOnError` the first row that fails raises its error
/// and nothing stays; without it rows that break a key are left out, and what can't become a field's value is Null.
std::int32_t RunAction(Session& session, DatabaseCatalogue& catalogue, std::string_view sql, bool failOnError);

}  // namespace engine
