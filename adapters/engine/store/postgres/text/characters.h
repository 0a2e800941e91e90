#pragma once

#include <vector>

#include "engine/text/weights.h"

/// The characters of the text order, seen from their weights.
namespace engine::postgres {

/// A character whose weights say more than "other symbol" or "other letter" with its own code point.
struct SpecialCharacter {
  weights::Weights weights;
  char32_t character = 0;
};

/// Characters from `first` to `last`, both of them.
struct CharacterRange {
  char32_t first = 0;
  char32_t last = 0;
};

struct Characters {
  std::vector<SpecialCharacter> special;  ///< by their weights, then by themselves
  std::vector<CharacterRange> symbols;    ///< runs of other symbols, in order
  std::vector<CharacterRange> letters;    ///< runs of other letters, in order
};

/// All characters that a text can hold. Made at the first use.
const Characters& AllCharacters();

}  // namespace engine::postgres
