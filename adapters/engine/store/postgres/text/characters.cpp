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

void Extend(std::vector<CharacterRange>& runs, CharacterRange by) {
  if (!runs.empty() && runs.back().last + 1 == by.first)
    runs.back().last = by.last;
  else
    runs.push_back(by);
}

Characters MakeCharacters() {
  constexpr char32_t kFirstSurrogate = 0xD800;
  constexpr char32_t kBehindSurrogates = 0xE000;
  const weights::Rank digits = weights::kAsciiRanks['0'];
  Characters all;
  for (char32_t character = 1, end = 0; character <= platform::kHighestCodePoint; character = end) {
    if (character == kFirstSurrogate) character = kBehindSurrogates;
    end = weights::EndOfAlike(character);
    if (character < kFirstSurrogate) end = std::min(end, kFirstSurrogate);
    const Weights own = weights::WeightsOf(character);
    const weights::Rank rank = weights::RankOf(own.primary[0]);
    if (!IsPlain(own, character) || rank < weights::kBlankRank) {
      for (; character < end; ++character) all.special.push_back({weights::WeightsOf(character), character});
    } else {
      Extend(rank < digits ? all.symbols : all.letters, {character, end - 1});
    }
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
