#include "engine/store/postgres/text/characters.h"

#include <algorithm>

#include "platform/values/text.h"

namespace engine::postgres {
namespace {

using weights::Weights;

// Whether it is worth its own code point under a shared rank, and nothing else.
bool IsPlain(const Weights& own, char32_t character) {
  return own.primaryCount == 1 && own.accentCount == 0 && weights::CodePointOf(own.primary[0]) == character;
}

void Extend(std::vector<CharacterRange>& runs, char32_t character) {
  if (!runs.empty() && runs.back().last + 1 == character)
    runs.back().last = character;
  else
    runs.push_back({character, character});
}

Characters MakeCharacters() {
  constexpr char32_t kFirstSurrogate = 0xD800;
  constexpr char32_t kBehindSurrogates = 0xE000;
  const weights::Rank digits = weights::kAsciiRanks['0'];
  Characters all;
  for (char32_t character = 1; character <= platform::kHighestCodePoint; ++character) {
    if (character == kFirstSurrogate) character = kBehindSurrogates;
    const Weights own = weights::WeightsOf(character);
    const weights::Rank rank = weights::RankOf(own.primary[0]);
    if (!IsPlain(own, character) || rank < weights::kBlankRank)
      all.special.push_back({own, character});
    else
      Extend(rank < digits ? all.symbols : all.letters, character);
  }
  std::stable_sort(all.special.begin(), all.special.end(),
                   [](const SpecialCharacter& a, const SpecialCharacter& b) { return a.weights < b.weights; });
  return all;
}

}  // namespace

const Characters& AllCharacters() {
  static const Characters all = MakeCharacters();
  return all;
}

}  // namespace engine::postgres
