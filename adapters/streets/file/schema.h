#pragma once

#include <cstdint>

#include "streets/file/database.h"

namespace streets {

/// "ZdSt", by which a streets file is known among other files of the store.
inline constexpr std::uint32_t kApplicationId = 0x5A645374;
/// Grows with every change that an older program can't read.
inline constexpr std::uint32_t kFormat = 1;

/// Makes the tables of an empty file, inside the caller's transaction. The base map and the street files have the same.
void CreateSchema(Database& database);

}  // namespace streets
