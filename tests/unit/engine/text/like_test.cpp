#include "engine/text/like.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "platform/values/error.h"

namespace engine {
namespace {

bool Like(std::string_view text, std::string_view pattern) { return LikePattern(pattern).Matches(text); }

int ErrorOf(std::string_view pattern) {
  try {
    LikePattern compiled(pattern);
  } catch (const platform::Error& error) {
    return error.Number();
  }
  return 0;
}

TEST(Like, StarTakesAnyRun) {
  EXPECT_TRUE(Like("XABX", "*ab*"));
  EXPECT_FALSE(Like("aZb", "*ab*"));
  EXPECT_TRUE(Like("abcdefg", "ab*"));
  EXPECT_TRUE(Like("BAT123khg", "B?T*"));
  EXPECT_TRUE(Like("", "*"));
  EXPECT_TRUE(Like("abab", "*ab"));
  EXPECT_TRUE(Like("aXbXc", "a*X*c"));
  EXPECT_FALSE(Like("ab", "ab*c"));
}

TEST(Like, QuestionMarkTakesOneCharacter) {
  EXPECT_TRUE(Like("a3a", "a?a"));
  EXPECT_FALSE(Like("aBBBa", "a?a"));
  EXPECT_FALSE(Like("", "?"));
  EXPECT_TRUE(Like("O'Brien", "O?Brien*"));
  EXPECT_TRUE(Like("M\u00FCller", "M?ller"));
  EXPECT_TRUE(Like("\U0001F600", "?"));
}

TEST(Like, NumberSignTakesOneDigit) {
  EXPECT_TRUE(Like("a0a", "a#a"));
  EXPECT_FALSE(Like("a10a", "a#a"));
  EXPECT_FALSE(Like("axa", "a#a"));
  EXPECT_FALSE(Like("a\u0661a", "a#a"));
}

TEST(Like, ListsTakeOneOfTheirCharacters) {
  EXPECT_TRUE(Like("f", "[a-z]"));
  EXPECT_FALSE(Like("&", "[a-z]"));
  EXPECT_TRUE(Like("9", "[!a-z]"));
  EXPECT_FALSE(Like("b", "[!a-z]"));
  EXPECT_TRUE(Like("A", "[!0-9]"));
  EXPECT_FALSE(Like("0", "[!0-9]"));
  EXPECT_TRUE(Like("An9", "a[!b-m]#"));
  EXPECT_FALSE(Like("abc", "a[!b-m]#"));
  EXPECT_TRUE(Like("aM5b", "a[L-P]#[!c-e]"));
  EXPECT_TRUE(Like("q", "[xyzq]"));
  EXPECT_FALSE(Like("q", "[xyz]"));
}

TEST(Like, ListsMakeWildcardsPlain) {
  EXPECT_TRUE(Like("a*a", "a[*]a"));
  EXPECT_FALSE(Like("aaa", "a[*]a"));
  EXPECT_TRUE(Like("what?", "what[?]"));
  EXPECT_TRUE(Like("#1", "[#]1"));
  EXPECT_TRUE(Like("a [xyz", "a [[]*"));
}

TEST(Like, OutsideListsClosingBracketAndExclamationMarkAreThemselves) {
  EXPECT_TRUE(Like("a]", "a]"));
  EXPECT_TRUE(Like("!a", "!a"));
  EXPECT_TRUE(Like("!", "[!]"));
}

TEST(Like, HyphenFirstOrLastInAListIsItself) {
  EXPECT_TRUE(Like("-", "[-a]"));
  EXPECT_TRUE(Like("a", "[-a]"));
  EXPECT_TRUE(Like("-", "[a-]"));
  EXPECT_FALSE(Like("b", "[a-]"));
  EXPECT_TRUE(Like("-", "[a-c-x]"));
  EXPECT_FALSE(Like("-", "[!-a]"));
  EXPECT_FALSE(Like("a", "[!a-]"));
  EXPECT_TRUE(Like("b", "[!a-]"));
}

TEST(Like, EmptyListStandsForNoCharacter) {
  EXPECT_TRUE(Like("ab", "a[]b"));
  EXPECT_TRUE(Like("", "[]"));
  EXPECT_FALSE(Like("x", "[]"));
}

TEST(Like, BadPatternsAreRefused) {
  EXPECT_EQ(ErrorOf("a [*"), 93);
  EXPECT_EQ(ErrorOf("["), 93);
  EXPECT_EQ(ErrorOf("[z-a]"), 93);
  EXPECT_EQ(ErrorOf("a[!9-0]"), 93);
  EXPECT_EQ(ErrorOf("[a-a]"), 0);
  EXPECT_EQ(ErrorOf("[A-z]"), 0);
}

TEST(Like, CaseNeverCounts) {
  EXPECT_TRUE(Like("SMITH", "smi*"));
  EXPECT_TRUE(Like("\u00C9COLE", "\u00E9cole"));
  EXPECT_TRUE(Like("Q", "[p-r]"));
  EXPECT_TRUE(Like("\u0394", "\u03B4"));
}

TEST(Like, AccentsCount) {
  EXPECT_FALSE(Like("\u00E9", "e"));
  EXPECT_FALSE(Like("e", "\u00E9"));
  EXPECT_FALSE(Like("\u00E8", "\u00E9"));
}

TEST(Like, RangesFollowTheTextOrder) {
  EXPECT_TRUE(Like("\u00E9", "[a-f]"));
  EXPECT_FALSE(Like("\u00E9", "[a-e]"));
  EXPECT_FALSE(Like("\u00F8", "[a-z]"));
  EXPECT_TRUE(Like("\u00DF", "[a-z]"));
}

TEST(Like, PercentAndUnderscoreArePlain) {
  EXPECT_TRUE(Like("50%", "50%"));
  EXPECT_FALSE(Like("500", "50%"));
  EXPECT_FALSE(Like("ax", "a_"));
}

TEST(Like, TrailingBlanksDontCount) {
  EXPECT_TRUE(Like("abc   ", "abc"));
  EXPECT_TRUE(Like("abc", "abc  "));
  EXPECT_TRUE(Like("abc  ", "*c"));
  EXPECT_FALSE(Like("a ", "a?"));
  EXPECT_TRUE(Like("a b", "a *"));
  EXPECT_TRUE(Like("   ", ""));
}

TEST(Like, TiedCharactersMatchEachOther) {
  EXPECT_TRUE(Like("O\u2019Brien", "O'Brien"));
  EXPECT_TRUE(Like("a\u2013b", "a-b"));
  EXPECT_TRUE(Like("a\u00A0b", "a b"));
}

TEST(Like, ExpandingLetterIsOneCharacter) {
  EXPECT_TRUE(Like("Stra\u00DFe", "stra\u00DFe"));
  EXPECT_TRUE(Like("Stra\u00DFe", "stra?e"));
  EXPECT_FALSE(Like("Strasse", "stra\u00DFe"));
}

TEST(Like, HostilePatternEndsSoon) {
  std::string pattern;
  for (int i = 0; i < 1000; ++i) pattern += "*a";
  const std::string text(20'000, 'a');
  EXPECT_FALSE(Like(text, pattern + "*b"));
  EXPECT_TRUE(Like(text + 'b', pattern + "*b"));
}

/// The definition of `*`, `?` and literals, tried in every way.
bool LikeByDefinition(std::string_view text, std::string_view pattern) {
  if (pattern.empty()) return text.empty();
  if (pattern[0] == '*') {
    for (std::size_t run = 0; run <= text.size(); ++run)
      if (LikeByDefinition(text.substr(run), pattern.substr(1))) return true;
    return false;
  }
  return !text.empty() && (pattern[0] == '?' || pattern[0] == text[0]) && LikeByDefinition(text.substr(1), pattern.substr(1));
}

TEST(LikeProperty, AgreesWithItsDefinition) {
  std::mt19937 random(7);
  const auto any = [&](std::string_view alphabet, std::size_t longest) {
    std::string made(random() % (longest + 1), ' ');
    for (char& c : made) c = alphabet[random() % alphabet.size()];
    return made;
  };
  int matches = 0;
  for (int round = 0; round < 200'000; ++round) {
    const std::string pattern = any("ab*?*", 7);
    const std::string text = any("ab", 9);
    const bool expected = LikeByDefinition(text, pattern);
    ASSERT_EQ(Like(text, pattern), expected) << text << " Like " << pattern;
    matches += expected;
  }
  EXPECT_GT(matches, 20'000);
}

TEST(Like, FixedPrefixEndsAtTheFirstWildcard) {
  EXPECT_EQ(LikePattern("smi*").FixedPrefix(), "smi");
  EXPECT_EQ(LikePattern("a[*]b?c").FixedPrefix(), "a*b");
  EXPECT_EQ(LikePattern("[ab]c").FixedPrefix(), "");
  EXPECT_EQ(LikePattern("[!a]c").FixedPrefix(), "");
  EXPECT_EQ(LikePattern("*x").FixedPrefix(), "");
  EXPECT_EQ(LikePattern("O'B").FixedPrefix(), "O'B");
  EXPECT_EQ(LikePattern("1#").FixedPrefix(), "1");
}

TEST(Like, ShapeTellsPrefixSearchesAndLiterals) {
  EXPECT_TRUE(LikePattern("smi*").IsPrefixOnly());
  EXPECT_TRUE(LikePattern("*").IsPrefixOnly());
  EXPECT_FALSE(LikePattern("smi*t").IsPrefixOnly());
  EXPECT_FALSE(LikePattern("*smi*").IsPrefixOnly());
  EXPECT_FALSE(LikePattern("smi").IsPrefixOnly());
  EXPECT_FALSE(LikePattern("").IsPrefixOnly());
  EXPECT_TRUE(LikePattern("smi").IsLiteral());
  EXPECT_FALSE(LikePattern("sm?").IsLiteral());
}

}  // namespace
}  // namespace engine
