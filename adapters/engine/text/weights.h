#pragma once

#include <array>
#include <compare>
#include <cstdint>

/// The table behind the text order: each character's primary weights and accents.
namespace engine::weights {

/// Rank in the high byte; characters that share a rank (other symbols, other letters) are told apart by their code point.
using Primary = std::uint32_t;
using Rank = std::uint8_t;

inline constexpr Primary MakePrimary(Rank rank, char32_t codePoint = 0) {
  return static_cast<Primary>(rank) << 24 | static_cast<Primary>(codePoint);
}
inline constexpr Rank RankOf(Primary weight) { return static_cast<Rank>(weight >> 24); }
inline constexpr char32_t CodePointOf(Primary weight) { return weight & 0xFFFFFF; }

/// What one character is worth: up to three primary weights and the accents behind the last of them. A combining mark has
/// no primary weight and one accent.
struct Weights {
  std::array<Primary, 3> primary{};
  std::array<std::uint32_t, 4> accents{};
  std::uint8_t primaryCount = 0;
  std::uint8_t accentCount = 0;

  auto operator<=>(const Weights&) const = default;
};
Weights WeightsOf(char32_t character);
/// One behind the last of the characters from this one on that are worth the same as it but for the code point under their rank.
char32_t EndOfAlike(char32_t character);

/// A character with this primary weight and no accent.
char32_t CharacterOf(Primary weight);

/// Ranks of the ASCII characters; 0 for all other bytes. Ranks of characters are never 0.
extern const std::array<Rank, 256> kAsciiRanks;
/// The rank of blank, tab and no-break space.
extern const Rank kBlankRank;
/// Whether characters of this rank are told apart by their code points.
bool IsSharedRank(Rank rank);

}  // namespace engine::weights
