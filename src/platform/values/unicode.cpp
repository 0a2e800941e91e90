#include "platform/values/unicode.h"

#include <algorithm>
#include <iterator>
#include <tuple>

#include "platform/values/unicode_data.h"

namespace platform {
namespace {

// Hangul syllables are made by rule, not by table.
constexpr char32_t kSyllables = 0xAC00;
constexpr char32_t kLeads = 0x1100;
constexpr char32_t kVowels = 0x1161;
constexpr char32_t kTails = 0x11A7;
constexpr char32_t kLeadCount = 19;
constexpr char32_t kVowelCount = 21;
constexpr char32_t kTailCount = 28;
constexpr char32_t kSyllableCount = kLeadCount * kVowelCount * kTailCount;

char32_t HangulComposition(char32_t first, char32_t second) {
  if (first >= kLeads && first < kLeads + kLeadCount && second >= kVowels && second < kVowels + kVowelCount)
    return kSyllables + ((first - kLeads) * kVowelCount + (second - kVowels)) * kTailCount;
  if (first >= kSyllables && first < kSyllables + kSyllableCount && (first - kSyllables) % kTailCount == 0 && second > kTails &&
      second < kTails + kTailCount)
    return first + (second - kTails);
  return 0;
}

std::optional<Decomposed> HangulDecomposition(char32_t character) {
  if (character < kSyllables || character >= kSyllables + kSyllableCount) return {};
  const char32_t index = character - kSyllables;
  if (index % kTailCount != 0) return Decomposed{character - index % kTailCount, kTails + index % kTailCount};
  return Decomposed{kLeads + index / (kVowelCount * kTailCount), kVowels + index / kTailCount % kVowelCount};
}

/// The entry of a table sorted by ranges that holds the character, or null.
template <class Range, std::size_t Count>
const Range* RangeOf(const Range (&table)[Count], char32_t character) {
  const auto* found =
      std::lower_bound(std::begin(table), std::end(table), character, [](const Range& range, char32_t c) { return range.last < c; });
  return found != std::end(table) && found->first <= character ? found : nullptr;
}

const unicode_data::CaseMapping* CaseOf(char32_t character) {
  using unicode_data::kCase;
  const auto* found = std::lower_bound(std::begin(kCase), std::end(kCase), character,
                                       [](const unicode_data::CaseMapping& row, char32_t c) { return row.character < c; });
  return found != std::end(kCase) && found->character == character ? found : nullptr;
}

}  // namespace

std::optional<Decomposed> DecompositionOf(char32_t character) {
  using unicode_data::kDecompositions;
  if (character < 0xC0) return {};
  if (auto hangul = HangulDecomposition(character)) return hangul;
  const auto* found = std::lower_bound(std::begin(kDecompositions), std::end(kDecompositions), character,
                                       [](const unicode_data::Decomposition& row, char32_t c) { return row.composed < c; });
  if (found == std::end(kDecompositions) || found->composed != character) return {};
  return Decomposed{found->first, found->second};
}

char32_t CompositionOf(char32_t first, char32_t second) {
  using unicode_data::kCompositions;
  if (char32_t hangul = HangulComposition(first, second)) return hangul;
  const auto* found =
      std::lower_bound(std::begin(kCompositions), std::end(kCompositions), std::tuple(first, second),
                       [](const unicode_data::Composition& row, const auto& key) { return std::tuple(row.first, row.second) < key; });
  return found != std::end(kCompositions) && found->first == first && found->second == second ? found->composed : 0;
}

int CombiningClassOf(char32_t character) {
  if (character < 0x300) return 0;
  const auto* range = RangeOf(unicode_data::kMarks, character);
  return range ? range->combiningClass : 0;
}

char32_t UpperOf(char32_t character) {
  if (character < 0x80) return character >= 'a' && character <= 'z' ? character - 32 : character;
  const auto* mapping = CaseOf(character);
  return mapping ? mapping->upper : character;
}

char32_t LowerOf(char32_t character) {
  if (character < 0x80) return character >= 'A' && character <= 'Z' ? character + 32 : character;
  const auto* mapping = CaseOf(character);
  return mapping ? mapping->lower : character;
}

char32_t FoldedOf(char32_t character) {
  if (character < 0x80) return LowerOf(character);
  const auto* mapping = CaseOf(character);
  return mapping ? mapping->folded : character;
}

bool IsSymbol(char32_t character) { return character > 0x9F && RangeOf(unicode_data::kSymbols, character) != nullptr; }

char32_t NextOfNote(char32_t character) {
  char32_t next = 0x110000;
  const auto consider = [&](char32_t noted) {
    if (noted >= character) next = std::min(next, noted);
  };
  const auto* composed = std::ranges::lower_bound(unicode_data::kDecompositions, character, {}, &unicode_data::Decomposition::composed);
  if (composed != std::end(unicode_data::kDecompositions)) consider(composed->composed);
  const auto* cased = std::ranges::lower_bound(unicode_data::kCase, character, {}, &unicode_data::CaseMapping::character);
  if (cased != std::end(unicode_data::kCase)) consider(cased->character);
  const auto* marks = std::ranges::lower_bound(unicode_data::kMarks, character, {}, &unicode_data::MarkRange::last);
  if (marks != std::end(unicode_data::kMarks)) consider(std::max(marks->first, character));
  const auto behind = [](const unicode_data::SymbolRange& range) { return range.last + 1; };
  const auto* symbols = std::ranges::lower_bound(unicode_data::kSymbols, character, {}, behind);
  if (symbols != std::end(unicode_data::kSymbols)) consider(symbols->first >= character ? symbols->first : symbols->last + 1);
  return next;
}

}  // namespace platform
