#pragma once

#include <cstdint>
#include <string_view>

#include "engine/catalogue/database_catalogue.h"
#include "engine/catalogue/engine_context.h"

namespace engine {

/// What becomes of a row that can't be written as the statement says.
enum class Unfit {
  Raise,  ///< the first one raises its error, and nothing stays
  Null,   ///< a value that can't become its field's is Null there; a row that breaks a key is left out
  Leave,  ///< the row is left out
};

/// Runs an action statement and returns how many rows it wrote.
std::int32_t RunAction(EngineContext& context, DatabaseCatalogue& catalogue, std::string_view sql, Unfit unfit);

}  // namespace engine
