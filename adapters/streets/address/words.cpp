#include "streets/address/words.h"

#include <algorithm>

#include "platform/values/text.h"

namespace streets {

namespace {

/// The capitals without accents of U+00C0 to U+017F, in their order; "." for what is no letter.
constexpr std::string_view kPlainLatin =
    "AAAAAAACEEEEIIIIDNOOOOO.OUUUUYTSAAAAAAACEEEEIIIIDNOOOOO.OUUUUYTY"
    "AAAAAACCCCCCCCDDDDEEEEEEEEEEGGGGGGGGHHHHIIIIIIIIIIIIJJKKKLLLLLLLLLLNNNNNNNNNOOOOOOOORRRRRRSSSSSSSSTTTTTTUUUUUUUUUUUUWWYYYZZZZZZS";
static_assert(kPlainLatin.size() == 0x180 - 0xC0);

char32_t Plain(char32_t character) {
  if (character >= U'a' && character <= U'z') return character - U'a' + U'A';
  if (character >= 0xC0 && character < 0x180) return static_cast<char32_t>(kPlainLatin[character - 0xC0]);
  return character;
}

/// What leaves a word going on: apostrophes, and accents that stand for themselves.
bool IsDropped(char32_t character) {
  return character == U'\'' || character == U'`' || character == 0x2019 || character == 0x2018 || (character >= 0x300 && character < 0x370);
}

bool BelongsToWord(char32_t character) {
  if (character < 0x80) return IsDigit(static_cast<char>(character)) || IsLetter(static_cast<char>(character));
  // Above the signs, blanks and marks of direction; private and odd characters don't stand in addresses.
  return (character >= 0x180 && character < 0x300) || (character >= 0x370 && character < 0x2000) ||
         (character >= 0x3040 && character < 0xD800);
}

class WordReader {
 public:
  explicit WordReader(std::string_view text) : text_(text) {}

  std::vector<std::string> Read() {
    for (std::size_t at = 0; at < text_.size();) {
      const char32_t character = Plain(platform::NextCodePoint(text_, at));
      if (BelongsToWord(character)) {
        platform::AppendCodePoint(word_, character);
      } else if (!IsInsideWord(character, at)) {
        Finish();
        if (character == U'#') words_.emplace_back("#");
      }
    }
    Finish();
    return std::move(words_);
  }

 private:
  /// Whether a sign leaves the word going on, and adds it where it says something. `next` is the place behind it.
  bool IsInsideWord(char32_t character, std::size_t next) {
    if (IsDropped(character)) return true;
    // "N.W." is one word, "St.Johns" are two.
    if (character == U'.') return word_.size() < 2;
    if (character != U'-' && character != U'/') return false;
    if (word_.empty() || !IsDigit(word_.back()) || next >= text_.size() || !IsDigit(text_[next])) return false;
    word_ += static_cast<char>(character);
    return true;
  }

  void Finish() {
    if (!word_.empty()) words_.push_back(std::move(word_));
    word_.clear();
  }

  std::string_view text_;
  std::string word_;
  std::vector<std::string> words_;
};

}  // namespace

bool IsDigit(char character) { return character >= '0' && character <= '9'; }
bool IsLetter(char character) { return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z'); }
bool IsNumber(std::string_view word) { return !word.empty() && std::all_of(word.begin(), word.end(), IsDigit); }

bool IsOrdinal(std::string_view word) {
  if (word.size() < 3 || !IsNumber(word.substr(0, word.size() - 2))) return false;
  const std::string_view ending = word.substr(word.size() - 2);
  return ending == "ST" || ending == "ND" || ending == "RD" || ending == "TH";
}

std::vector<std::string> Words(std::string_view text) { return WordReader(text).Read(); }

std::string Join(const std::vector<std::string>& words, std::size_t first, std::size_t last) {
  std::string text;
  for (std::size_t i = first; i < std::min(last, words.size()); ++i) {
    if (i > first) text += ' ';
    text += words[i];
  }
  return text;
}

}  // namespace streets
