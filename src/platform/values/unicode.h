#pragma once

#include <optional>

/// Facts about single characters (Unicode code points), from generated tables. What composes, sorts or folds texts
/// asks here, so that all of them agree.
namespace platform {

/// One step of a canonical decomposition.
struct Decomposed {
  char32_t first = 0;
  char32_t second = 0;  ///< 0 when the character stands for another single one
};
std::optional<Decomposed> DecompositionOf(char32_t character);
/// The character that `first` and the mark or letter `second` make together, 0 if there is none.
char32_t CompositionOf(char32_t first, char32_t second);
/// 0 for what starts a character of its own, else the place that a combining mark takes among several.
int CombiningClassOf(char32_t character);

char32_t UpperOf(char32_t character);
char32_t LowerOf(char32_t character);
/// One form for all cases of a letter: 's' for 'S', 's' and the long s.
char32_t FoldedOf(char32_t character);

/// Punctuation, currency and other signs, spaces, format characters and fractions beyond ASCII; not letters, marks or
/// digits.
bool IsSymbol(char32_t character);

/// The first character from this one on that the tables tell apart from its neighbours: it has another case, a decomposition or a place
/// among marks, or begins or ends a run of symbols. Syllables of Hangul, which decompose by rule, aren't told apart. 0x110000 when there is
/// none.
char32_t NextOfNote(char32_t character);

}  // namespace platform
