#include "engine/text/weights.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "platform/values/unicode.h"

namespace engine::weights {
namespace {

// The characters with a rank of their own, lowest first; "other symbols" stand in the gap before the digits and all
// other characters behind the last. '\1' to '\x1F' without the tab, and DEL, come first.
constexpr std::u32string_view kSigns = U" !\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~";
constexpr std::u32string_view kDigitsAndLetters = U"0123456789abcd\u00F0efghijklmnopqrstuvwxyz\u00FE\u00F8";

constexpr Rank kFirstControl = 1;
constexpr Rank kDelete = 32;         // behind '\x1F', which has rank 0x1F
constexpr Rank kOtherControls = 33;  // U+0080 to U+009F
constexpr Rank kFirstSign = 34;
constexpr Rank kOtherSymbols = kFirstSign + kSigns.size();
constexpr Rank kFirstDigit = kOtherSymbols + 1;
constexpr Rank kOthers = kFirstDigit + kDigitsAndLetters.size();

constexpr Rank AsciiRank(char32_t character) {
  if (character == U'\t') character = U' ';
  if (character >= U'A' && character <= U'Z') character += U'a' - U'A';
  if (character == 0) return kFirstControl;
  if (character < U' ') return static_cast<Rank>(character);
  if (character == 0x7F) return kDelete;
  if (const auto at = kSigns.find(character); at != kSigns.npos) return static_cast<Rank>(kFirstSign + at);
  return static_cast<Rank>(kFirstDigit + kDigitsAndLetters.find(character));
}

constexpr std::array<Rank, 256> MakeAsciiRanks() {
  std::array<Rank, 256> ranks{};
  for (char32_t character = 0; character < 0x80; ++character) ranks[character] = AsciiRank(character);
  return ranks;
}

/// A character that counts as one or two ASCII characters, with an accent of its own where it isn't the same.
struct Equivalent {
  char32_t character;
  std::u32string_view as;
  char32_t accent;
};

// Only signs and letters that no canonical decomposition covers. The stroke is an accent as any other.
constexpr char32_t kStroke = 0x0335;
constexpr char32_t kNoDot = 0x110000;  // no mark of Unicode
constexpr Equivalent kEquivalents[] = {
    {0x00A0, U" ", 0},      {0x00DF, U"ss", 0},      {0x00E6, U"ae", 0}, {0x0111, U"d", kStroke}, {0x0127, U"h", kStroke},
    {0x0131, U"i", kNoDot}, {0x0142, U"l", kStroke}, {0x0153, U"oe", 0}, {0x0167, U"t", kStroke}, {0x2010, U"-", 0},
    {0x2011, U"-", 0},      {0x2012, U"-", 0},       {0x2013, U"-", 0},  {0x2014, U"-", 0},       {0x2015, U"-", 0},
    {0x2018, U"'", 0},      {0x2019, U"'", 0},       {0x201A, U"'", 0},  {0x201B, U"'", 0},       {0x201C, U"\"", 0},
    {0x201D, U"\"", 0},     {0x201E, U"\"", 0},      {0x201F, U"\"", 0},
};

/// Marks whose order is fixed, lowest first; all others follow by code point.
constexpr char32_t kOrderedMarks[] = {
    0x0300,  // grave
    0x0301,  // acute
    0x0302,  // circumflex
    0x0308,  // diaeresis
    0x0303,  // tilde
    0x030A,  // ring
    0x0327,  // cedilla
    0x030C,  // caron
};

std::uint32_t AccentOf(char32_t mark) {
  const auto* found = std::find(std::begin(kOrderedMarks), std::end(kOrderedMarks), mark);
  if (found != std::end(kOrderedMarks)) return static_cast<std::uint32_t>(1 + (found - kOrderedMarks));
  return mark;  // code points of marks are above 8
}

void AddAccent(Weights& weights, char32_t mark) {
  if (weights.accentCount < weights.accents.size()) weights.accents[weights.accentCount++] = AccentOf(mark);
}

void AddPrimary(Weights& weights, Primary primary) {
  if (weights.primaryCount < weights.primary.size()) weights.primary[weights.primaryCount++] = primary;
}

bool AddEquivalent(Weights& weights, char32_t folded) {
  const auto* found = std::lower_bound(std::begin(kEquivalents), std::end(kEquivalents), folded,
                                       [](const Equivalent& row, char32_t c) { return row.character < c; });
  if (found == std::end(kEquivalents) || found->character != folded) return false;
  for (char32_t character : found->as) AddPrimary(weights, MakePrimary(AsciiRank(character)));
  if (found->accent) AddAccent(weights, found->accent);
  return true;
}

void AddBase(Weights& weights, char32_t character) {
  const char32_t folded = platform::FoldedOf(character);
  if (folded < 0x80) return AddPrimary(weights, MakePrimary(AsciiRank(folded)));
  if (folded < 0xA0) return AddPrimary(weights, MakePrimary(kOtherControls, folded));
  if (AddEquivalent(weights, folded)) return;
  if (const auto at = kDigitsAndLetters.find(folded); at != kDigitsAndLetters.npos)
    return AddPrimary(weights, MakePrimary(static_cast<Rank>(kFirstDigit + at)));
  AddPrimary(weights, MakePrimary(platform::IsSymbol(folded) ? kOtherSymbols : kOthers, folded));
}

void AddDecomposed(Weights& weights, char32_t character) {
  if (const auto parts = platform::DecompositionOf(character); parts && !(character >= 0xAC00 && character < 0xD7A4)) {
    AddDecomposed(weights, parts->first);
    if (parts->second) AddDecomposed(weights, parts->second);
  } else if (platform::CombiningClassOf(character) != 0) {
    AddAccent(weights, character);
  } else {
    AddBase(weights, character);
  }
}

Weights MakeWeights(char32_t character) {
  Weights weights;
  if (character < 0x80) {
    AddPrimary(weights, MakePrimary(AsciiRank(character)));
  } else if (character > 0x10FFFF) {  // a byte that is no text
    AddPrimary(weights, MakePrimary(kOtherControls, 0));
  } else {
    AddDecomposed(weights, character);
  }
  return weights;
}

constexpr std::size_t kFrequent = 0x250;  // all Latin letters that western names have

std::array<Weights, kFrequent> MakeFrequentWeights() {
  std::array<Weights, kFrequent> table;
  for (char32_t character = 0; character < kFrequent; ++character) table[character] = MakeWeights(character);
  return table;
}

}  // namespace

const std::array<Rank, 256> kAsciiRanks = MakeAsciiRanks();
const Rank kBlankRank = AsciiRank(U' ');

bool IsSharedRank(Rank rank) { return rank == kOtherControls || rank == kOtherSymbols || rank == kOthers; }

Weights WeightsOf(char32_t character) {
  static const std::array<Weights, kFrequent> frequent = MakeFrequentWeights();
  return character < kFrequent ? frequent[character] : MakeWeights(character);
}

char32_t EndOfAlike(char32_t character) {
  const char32_t next = character + 1;
  if (next < kFrequent || platform::NextOfNote(character) == character) return next;
  const auto* equivalent = std::ranges::lower_bound(kEquivalents, character, {}, &Equivalent::character);
  if (equivalent == std::end(kEquivalents)) return platform::NextOfNote(next);
  return equivalent->character == character ? next : std::min(equivalent->character, platform::NextOfNote(next));
}

char32_t CharacterOf(Primary weight) {
  const Rank rank = RankOf(weight);
  if (rank >= kFirstDigit && rank < kOthers) return kDigitsAndLetters[rank - kFirstDigit];
  if (rank >= kFirstSign && rank < kOtherSymbols) return kSigns[rank - kFirstSign];
  if (rank == kOtherSymbols || rank == kOthers || (rank == kOtherControls && CodePointOf(weight) != 0)) return CodePointOf(weight);
  if (rank == kDelete) return 0x7F;
  return rank == kOtherControls ? 0x80 : rank;
}

}  // namespace engine::weights
