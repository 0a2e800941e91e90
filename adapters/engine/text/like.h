#pragma once

#include <bitset>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "engine/text/weights.h"

namespace engine {

/// A pattern of the dialect's Like, ready for many tests: `?` one character, `*` any run, `#` one digit, `[abc]`, `[a-z]`,
/// `[!a-z]` one of a list; everything else is itself. Characters compare as in the text order: no case, accents count;
/// trailing blanks of the text and of the pattern don't. An expanding letter is one character here and no pair.
class LikePattern {
 public:
  /// Characters whose weights lie between these two, both of them among them.
  struct Range {
    weights::Weights first;
    weights::Weights last;
  };
  /// One sign of a pattern.
  struct Token {
    enum class Kind { Literal, AnyCharacter, AnyRun, Digit, List } kind = Kind::Literal;
    char32_t character = 0;
    bool negated = false;
    std::vector<Range> ranges{};    ///< of a list; the literal's own weights for a literal
    std::bitset<128> takesAscii{};  ///< what it takes of the ASCII characters, found beforehand
  };

  /// Error 93 for a list without its closing bracket or with a range that runs backwards.
  explicit LikePattern(std::string_view pattern);

  /// In time of at most text times pattern, whatever the pattern.
  bool Matches(std::string_view text) const;

  /// The literal start before the first wildcard; a list of one character counts as that character.
  const std::string& FixedPrefix() const { return fixedPrefix_; }
  /// The fixed start, then one run, and nothing else.
  bool IsPrefixOnly() const;
  /// No wildcard at all.
  bool IsLiteral() const;
  /// The signs in order, for stores that have a test of their own.
  const std::vector<Token>& Tokens() const { return tokens_; }

 private:
  /// The list behind a "[" at `at`, which moves behind the "]".
  void AddList(std::u32string_view pattern, std::size_t& at);
  void AddLiteral(char32_t character);
  void AddRun();
  static void FindAscii(Token& token);
  /// Whether a token that is no run takes the character.
  static bool TakesCharacter(const Token& token, char32_t character);
  /// Whether it takes the character at `at`, which then moves behind it.
  static bool TakesNext(const Token& token, std::string_view text, std::size_t& at);
  /// The place from `at` on where the token, the first behind a run, can start to match; the text's size if there is none.
  static std::size_t NextStart(const Token& token, std::string_view text, std::size_t at);

  std::vector<Token> tokens_;
  std::string fixedPrefix_;
};

}  // namespace engine
