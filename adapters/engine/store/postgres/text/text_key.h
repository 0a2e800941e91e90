#pragma once

#include <string>
#include <string_view>

/// The text order as a key that a server compares by bytes: keys stand in the order of their texts, and are equal exactly when the
/// texts are. Keys are ASCII and readable: of "Smith" it is "smith". The server builds the same ones (key_function.h).
namespace engine::postgres {

/// The key of a text.
std::string TextKey(std::string_view text);

/// Every text that begins with the prefix, by primary weights, has a key within lower <= key < upper; few others do.
struct TextKeyRange {
  std::string lower;
  std::string upper;
};
TextKeyRange KeysBeginning(std::string_view prefix);

/// What one character gives to a key: its primary weights, and for the part of the accents a sign for each of these and its marks.
struct KeyParts {
  std::string primary;
  std::string accents;
};
KeyParts KeyPartsOf(char32_t character);

/// Parts the two halves of a key; the second one is there only where there is an accent.
inline constexpr char kAccentsFollow = '\x01';
/// A primary weight in the part of the accents. At the end of a key it isn't written.
inline constexpr char kNoAccent = '!';
/// Leads other symbols, and other letters, in a key.
inline constexpr std::string_view kSymbolLead = "/~\x7F";
inline constexpr std::string_view kLetterLead = "}";
/// A code point in four characters of six bits each.
inline constexpr char kFirstCodeSign = '0';

}  // namespace engine::postgres
