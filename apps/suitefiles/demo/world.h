#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "suitefiles/demo/random.h"
#include "suitefiles/demo/word_lists.h"

namespace suitefiles::demo {

/// Draws places of a list whose first entries are the commonest: the r-th comes up in proportion to 1 / sqrt(r).
class Ranked {
 public:
  /// `firstPerMillion` is how often, in a million draws, the first entry comes up.
  Ranked(std::size_t size, std::uint32_t firstPerMillion);
  /// Shares that make every draw find an entry.
  explicit Ranked(std::size_t size);

  /// The place drawn, or the list's size for the share that the list does not cover.
  std::size_t Pick(Random& random) const;

 private:
  std::vector<std::uint32_t> ends_;  ///< running sums of the shares
  std::uint32_t all_ = 1'000'000;
};

/// What all customers of one invented company have in common.
struct World {
  World(std::uint64_t randomSeed, int lastDayOfAll);

  std::uint64_t seed;
  int lastDay;  ///< serial of the last day that dates reach

  Ranked surnames;
  Ranked men;
  Ranked women;
  Ranked streets;
  Ranked streetKinds;
  Ranked cities;
};

}  // namespace suitefiles::demo
