#include "platform/values/text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "platform/values/unicode.h"

namespace platform {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

unsigned char ByteAt(std::string_view text, std::size_t offset) { return static_cast<unsigned char>(text[offset]); }
char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
bool Continues(std::string_view text, std::size_t offset) { return offset < text.size() && (ByteAt(text, offset) & 0xC0) == 0x80; }

/// Below U+0300 nothing combines, so that such texts are precomposed already.
bool NothingCombines(std::string_view valid) {
  return std::all_of(valid.begin(), valid.end(), [](char c) { return static_cast<unsigned char>(c) < 0xCC; });
}

void AppendDecomposed(std::u32string& out, char32_t character) {
  if (auto parts = DecompositionOf(character)) {
    AppendDecomposed(out, parts->first);
    if (parts->second) out.push_back(parts->second);
  } else {
    out.push_back(character);
  }
}

/// Marks of one base stand in the order of their combining classes; those of one class keep theirs.
void OrderMarks(std::u32string& text) {
  for (auto at = text.begin(); at != text.end();) {
    if (CombiningClassOf(*at) == 0) {
      ++at;
      continue;
    }
    auto end = std::find_if(at, text.end(), [](char32_t c) { return CombiningClassOf(c) == 0; });
    std::stable_sort(at, end, [](char32_t a, char32_t b) { return CombiningClassOf(a) < CombiningClassOf(b); });
    at = end;
  }
}

/// Each base takes in the marks behind it that compose with it and that no other mark of the same class keeps off.
void Compose(std::u32string& text) {
  std::size_t base = std::u32string::npos;
  std::size_t write = 0;
  int lastClass = 0;  // class of the last character kept behind the base, 0 when none is
  for (std::size_t read = 0; read < text.size(); ++read) {
    const char32_t character = text[read];
    const int markClass = CombiningClassOf(character);
    if (base != std::u32string::npos) {
      const bool adjacent = write == base + 1;
      const bool reachable = adjacent || (lastClass != 0 && lastClass < markClass);
      if (const char32_t composed = reachable ? CompositionOf(text[base], character) : 0) {
        text[base] = composed;
        continue;
      }
    }
    if (markClass == 0) base = write;
    lastClass = markClass;
    text[write++] = character;
  }
  text.resize(write);
}

std::string Precomposed(const std::string& valid) {
  std::u32string decomposed;
  decomposed.reserve(valid.size());
  for (std::size_t at = 0; at < valid.size();) AppendDecomposed(decomposed, NextCodePoint(valid, at));
  OrderMarks(decomposed);
  Compose(decomposed);
  return FromCodePoints(decomposed);
}

}  // namespace

char32_t NextCodePoint(std::string_view text, std::size_t& offset) {
  const unsigned char lead = ByteAt(text, offset);
  if (lead < 0x80) {
    ++offset;
    return lead;
  }
  const std::size_t length = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
  char32_t codePoint = length == 2 ? lead & 0x1Fu : length == 3 ? lead & 0x0Fu : lead & 0x07u;
  for (std::size_t i = 1; i < length; ++i) {
    if (!Continues(text, offset + i)) {
      ++offset;
      return kInvalidByte;
    }
    codePoint = codePoint << 6 | (ByteAt(text, offset + i) & 0x3Fu);
  }
  const bool overlong = (length == 3 && codePoint < 0x800) || (length == 4 && codePoint < 0x10000);
  const bool surrogate = codePoint >= 0xD800 && codePoint < 0xE000;
  if (length == 0 || overlong || surrogate || codePoint > kHighestCodePoint) {
    ++offset;
    return kInvalidByte;
  }
  offset += length;
  return codePoint;
}

bool IsValidUtf8(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size();)
    if (NextCodePoint(bytes, at) == kInvalidByte) return false;
  return true;
}

std::optional<std::string> Normalise(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size();) {
    const char32_t character = NextCodePoint(bytes, at);
    if (character == 0 || character == kInvalidByte || character == kHighestCodePoint) return {};
  }
  std::string text(bytes);
  return NothingCombines(text) ? text : Precomposed(text);
}

std::string NormaliseLossy(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size();) {
    const char32_t character = NextCodePoint(bytes, at);
    const bool refused = character == 0 || character == kInvalidByte || character == kHighestCodePoint;
    AppendCodePoint(text, refused ? kReplacement : character);
  }
  return NothingCombines(text) ? text : Precomposed(text);
}

bool IsAscii(std::string_view text) {
  // Eight bytes at a time: long comments are asked at each key.
  std::size_t at = 0;
  for (std::uint64_t word = 0; at + sizeof word <= text.size(); at += sizeof word) {
    std::memcpy(&word, text.data() + at, sizeof word);
    if ((word & 0x8080808080808080U) != 0) return false;
  }
  return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::size_t CharacterCount(std::string_view text) {
  if (IsAscii(text)) return text.size();
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) NextCodePoint(text, at);
  return count;
}

std::size_t ByteOffset(std::string_view text, std::size_t index) {
  if (IsAscii(text)) return std::min(index, text.size());
  std::size_t at = 0;
  for (; index > 0 && at < text.size(); --index) NextCodePoint(text, at);
  return at;
}

std::u32string ToCodePoints(std::string_view text) {
  std::u32string codePoints;
  codePoints.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const char32_t character = NextCodePoint(text, at);
    codePoints.push_back(character == kInvalidByte ? kReplacement : character);
  }
  return codePoints;
}

std::string FromCodePoints(std::u32string_view codePoints) {
  std::string text;
  text.reserve(codePoints.size());
  for (char32_t codePoint : codePoints) AppendCodePoint(text, codePoint);
  return text;
}

void AppendCodePoint(std::string& text, char32_t codePoint) {
  if (codePoint > kHighestCodePoint) codePoint = kReplacement;
  const auto put = [&](char32_t byte) { text.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
  if (codePoint < 0x80) {
    put(codePoint);
  } else if (codePoint < 0x800) {
    put(0xC0 | codePoint >> 6);
    put(0x80 | (codePoint & 0x3F));
  } else if (codePoint < 0x10000) {
    put(0xE0 | codePoint >> 12);
    put(0x80 | (codePoint >> 6 & 0x3F));
    put(0x80 | (codePoint & 0x3F));
  } else {
    put(0xF0 | codePoint >> 18);
    put(0x80 | (codePoint >> 12 & 0x3F));
    put(0x80 | (codePoint >> 6 & 0x3F));
    put(0x80 | (codePoint & 0x3F));
  }
}

bool EqualsNoCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}

std::string ToLowerAscii(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), LowerAscii);
  return lower;
}

}  // namespace platform
