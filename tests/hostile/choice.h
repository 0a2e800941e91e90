#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "hostile/interrupting_front_end.h"

namespace hostile {

/// At most this many yields of a procedure are interrupted.
inline constexpr std::size_t kMostYields = 12;

/// The yields to interrupt, from 1, by the places of all: of each place that comes again (a loop) the first, the second and
/// the last, and of the others as many as there is room for, evenly spread.
std::vector<int> ChooseYields(const std::vector<Place>& places);

/// Whether a case belongs to one part in `share` of all: always the same part for a seed, whatever else is run.
bool InShare(const std::string& words, std::uint64_t seed, int share);

/// A number for a text, the same in every run.
std::uint64_t NumberOf(const std::string& text, std::uint64_t seed);

}  // namespace hostile
