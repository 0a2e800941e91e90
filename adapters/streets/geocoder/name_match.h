#pragma once

#include <optional>

#include "streets/index/street_index.h"

namespace streets {

/// What the differences in direction and type between the name asked for and a street's cost.
int NamePenalty(const StreetName& asked, const StreetName& street);

/// Whether the two can't be one street for somebody who is exact: a direction in front is none behind, and a direction or type that only
/// one of them has contradicts nothing.
bool Contradict(const StreetName& asked, const StreetName& street);

/// What a key that is spelt otherwise costs; nothing when it is another name.
std::optional<int> SpellingPenalty(const std::string& asked, const std::string& key);

}  // namespace streets
