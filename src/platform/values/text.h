#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// UTF-8 texts. Every text inside the library is valid and precomposed; the boundary (host, scenario files, widgets,
/// database) brings what enters into that form with Normalise.
namespace platform {

/// The highest code point, no character: the data engine's bound above all texts, so no text may hold it.
inline constexpr char32_t kHighestCodePoint = 0x10FFFF;

/// The text precomposed (canonical composition), or nothing when the bytes are not valid UTF-8, hold a NUL or hold
/// kHighestCodePoint.
std::optional<std::string> Normalise(std::string_view bytes);

/// As Normalise, with every invalid byte (and NUL, and kHighestCodePoint) replaced by U+FFFD, for texts that must be shown in any case.
std::string NormaliseLossy(std::string_view bytes);

/// Whether each byte is a character, below 128.
bool IsAscii(std::string_view text);
bool IsValidUtf8(std::string_view bytes);
std::size_t CharacterCount(std::string_view text);
/// Byte offset of the character at `index`, the text's size when it has fewer.
std::size_t ByteOffset(std::string_view text, std::size_t index);
std::u32string ToCodePoints(std::string_view text);
std::string FromCodePoints(std::u32string_view codePoints);
void AppendCodePoint(std::string& text, char32_t codePoint);
/// The code point at byte `offset`, which moves behind it. A byte that starts no valid sequence counts as one character,
/// kInvalidByte, so that a walk over any bytes ends. `offset` must be below the size.
char32_t NextCodePoint(std::string_view text, std::size_t& offset);
inline constexpr char32_t kInvalidByte = 0xFFFFFFFF;

/// Equality and searching of names (tables, fields, controls, ini keys): ASCII case does not count.
bool EqualsNoCase(std::string_view left, std::string_view right);
std::string ToLowerAscii(std::string_view text);

}  // namespace platform
