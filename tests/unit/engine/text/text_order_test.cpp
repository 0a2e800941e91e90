#include "engine/text/text_order.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "engine/text/like.h"
#include "engine/text/weights.h"
#include "platform/values/text.h"
#include "platform/values/unicode.h"

namespace engine {
namespace {

int Sign(int number) { return (number > 0) - (number < 0); }
int Order(std::string_view left, std::string_view right) { return Sign(CompareText(left, right)); }

void ExpectAscending(const std::vector<std::string>& texts) {
  for (std::size_t i = 0; i < texts.size(); ++i)
    for (std::size_t j = 0; j < texts.size(); ++j)
      EXPECT_EQ(Order(texts[i], texts[j]), i < j ? -1 : i > j ? 1 : 0) << '"' << texts[i] << "\" and \"" << texts[j] << '"';
}

TEST(TextOrder, CaseNeverCounts) {
  EXPECT_EQ(Order("abc", "ABC"), 0);
  EXPECT_EQ(Order("\u00E9COLE", "\u00C9cole"), 0);
  EXPECT_EQ(Order("\u0416", "\u0436"), 0);
  EXPECT_EQ(Order("\u03A3", "\u03C2"), 0);
}

TEST(TextOrder, TrailingBlanksNeverCount) {
  EXPECT_EQ(Order("abc", "abc  "), 0);
  EXPECT_EQ(Order("abc\t", "abc\u00A0 "), 0);
  EXPECT_EQ(Order("   ", ""), 0);
  EXPECT_EQ(Order("\u00E9 ", "\u00E9"), 0);
}

TEST(TextOrder, LeadingAndInnerBlanksCountAtTheLowestPrintingWeight) {
  EXPECT_EQ(Order(" abc", "abc"), -1);
  EXPECT_EQ(Order("a b", "ab"), -1);
  EXPECT_EQ(Order("a b", "a!b"), -1);
  EXPECT_EQ(Order("a b", "a\u00A0b"), 0);
  EXPECT_EQ(Order("a b", "a\tb"), 0);
}

TEST(TextOrder, HyphenAndApostropheAreOrdinaryCharacters) {
  EXPECT_EQ(Order("O'Brien", "OBrien"), -1);
  EXPECT_EQ(Order("a-b", "ab"), -1);
  EXPECT_EQ(Order("10", "9"), -1);
}

TEST(TextOrder, ShorterTextThatIsAStartComesFirst) {
  ExpectAscending({"", "a", "aa", "ab"});
  ExpectAscending({"e", "\u00E9", "ea", "\u00E9a"});
}

TEST(TextOrder, SignsStandInTheirOrder) {
  const std::string order = "\x01\x02\x1F !\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~";
  std::vector<std::string> texts;
  for (char sign : order) texts.push_back(sign + std::string("x"));
  for (const char* next : {"\u00A3x", "\u00A7x", "\u20ACx", "0x", "1x", "9x"}) texts.push_back(next);
  for (const char* letter : {"a", "B", "c", "D", "\u00D0", "e", "F", "g", "H", "i", "J", "k",      "L",      "m",      "N",      "o",
                             "P", "q", "R", "s", "T",      "u", "V", "w", "X", "y", "Z", "\u00FE", "\u00D8", "\u03B1", "\u0436", "\u4E2D"})
    texts.push_back(letter);
  ExpectAscending(texts);
}

TEST(TextOrder, QuotesAndDashesTie) {
  EXPECT_EQ(Order("O'Brien", "O\u2019Brien"), 0);
  EXPECT_EQ(Order("\"a\"", "\u201Ca\u201D"), 0);
  EXPECT_EQ(Order("a-b", "a\u2014b"), 0);
}

TEST(TextOrder, AccentsCountOnlyWhenAllBaseLettersTie) {
  ExpectAscending({"resume", "r\u00E9sum\u00E9", "resumf"});
  ExpectAscending({"a", "\u00E0", "\u00E1", "\u00E2", "\u00E4", "\u00E3", "\u00E5"});
  ExpectAscending({"c", "\u00E7", "\u010D"});
  ExpectAscending({"cote", "cot\u00E9", "c\u00F4te", "c\u00F4t\u00E9"});
  ExpectAscending({"l", "\u0142", "lb"});
  ExpectAscending({"i", "\u0131", "j"});
}

TEST(TextOrder, ExpandingLettersAreTwo) {
  EXPECT_EQ(Order("Stra\u00DFe", "STRASSE"), 0);
  EXPECT_EQ(Order("\u1E9E", "ss"), 0);
  EXPECT_EQ(Order("\u00C6on", "aeon"), 0);
  EXPECT_EQ(Order("\u0152uvre", "oeuvre"), 0);
  ExpectAscending({"ad", "\u00E6", "af"});
  ExpectAscending({"ae", "\u01FD", "af"});
}

TEST(TextOrder, AnyBytesHaveAPlace) {
  EXPECT_EQ(Order("\xFF", "\xFF"), 0);
  EXPECT_EQ(Order("a\xC3", "b"), -1);
  EXPECT_EQ(Order(std::string_view("a\0b", 3), "ab"), -1);
}

TEST(TextOrder, CharactersCompareWithTheirBlanks) {
  EXPECT_EQ(Sign(CompareCharacters(U' ', U'\t')), 0);
  EXPECT_EQ(Sign(CompareCharacters(U' ', 0xA0)), 0);
  EXPECT_EQ(Sign(CompareCharacters(U' ', U'\x01')), 1);
  EXPECT_EQ(Sign(CompareCharacters(U'E', 0xE9)), -1);
  EXPECT_EQ(Sign(CompareCharacters(0xC9, 0xE9)), 0);
}

TEST(TextOrder, EveryCharacterTiesWithItsOtherCasesAndItsPrimaryWeightsHaveOneCharacterEach) {
  for (char32_t character = 1; character < 0x110000; ++character) {
    if (character >= 0xD800 && character < 0xE000) continue;
    const auto own = weights::WeightsOf(character);
    ASSERT_EQ(own.primaryCount + own.accentCount > 0, true) << static_cast<unsigned>(character);
    const bool markWithLetterAsCapital = character == 0x345;
    ASSERT_TRUE(own == weights::WeightsOf(platform::FoldedOf(character)) || markWithLetterAsCapital) << static_cast<unsigned>(character);
    for (int i = 0; i < own.primaryCount; ++i) {
      const auto primary = own.primary[static_cast<std::size_t>(i)];
      const auto plain = weights::WeightsOf(weights::CharacterOf(primary));
      ASSERT_EQ(plain.primaryCount, 1) << static_cast<unsigned>(character);
      ASSERT_EQ(plain.accentCount, 0) << static_cast<unsigned>(character);
      ASSERT_EQ(plain.primary[0], primary) << static_cast<unsigned>(character);
    }
  }
}

/// Short texts over an alphabet in which much ties, expands or combines.
class RandomTexts {
 public:
  std::string Next() {
    static const std::vector<char32_t> kAlphabet = {U'a',  U'A',  U'e',  U'E',   U's',    U'o',   U'z',    U' ',   U' ',     U'\t', U'\'',
                                                    U'-',  U'"',  U'0',  U'~',   U'\x01', 0xA0,   0xE9,    0xC8,   0xDF,     0xE6,  0x153,
                                                    0xF8,  0xDE,  0xF0,  0x301,  0x308,   0x327,  0x323,   0x2019, 0x2014,   0xA3,  0x20AC,
                                                    0x3B1, 0x3A3, 0x416, 0x1EBF, 0xAC00,  0x4E2D, 0x1F600, 0x345,  0x10FFFD, 0x80,  0x142};
    std::u32string text;
    const auto length = std::uniform_int_distribution<int>(0, 6)(random_);
    for (int i = 0; i < length; ++i)
      text.push_back(kAlphabet[std::uniform_int_distribution<std::size_t>(0, kAlphabet.size() - 1)(random_)]);
    return *platform::Normalise(platform::FromCodePoints(text));
  }

 private:
  std::mt19937 random_{20240611};
};

TEST(TextOrderProperty, ComparisonIsAntisymmetricAndTransitive) {
  RandomTexts texts;
  for (int round = 0; round < 100'000; ++round) {
    const std::string a = texts.Next();
    const std::string b = texts.Next();
    const std::string c = texts.Next();
    ASSERT_EQ(Order(a, a), 0);
    ASSERT_EQ(Order(a, b), -Order(b, a)) << a << '|' << b;
    if (Order(a, b) <= 0 && Order(b, c) <= 0) {
      ASSERT_LE(Order(a, c), 0) << a << '|' << b << '|' << c;
      if (Order(a, b) < 0 || Order(b, c) < 0) {
        ASSERT_LT(Order(a, c), 0) << a << '|' << b << '|' << c;
      }
    }
  }
}

TEST(TextOrderProperty, SortPrefixAgreesWithComparison) {
  RandomTexts texts;
  for (int round = 0; round < 100'000; ++round) {
    const std::string a = texts.Next();
    const std::string b = texts.Next();
    const auto left = SortPrefix(a);
    const auto right = SortPrefix(b);
    const int prefixes = left < right ? -1 : left > right ? 1 : 0;
    ASSERT_TRUE(prefixes == 0 || prefixes == Order(a, b)) << a << '|' << b;
  }
}

TEST(TextOrder, SortPrefixTellsApartEightLetters) {
  EXPECT_LT(SortPrefix("abcdefgh"), SortPrefix("abcdefgi"));
  EXPECT_EQ(SortPrefix("abcdefghX"), SortPrefix("ABCDEFGHY"));
  EXPECT_EQ(SortPrefix("e"), SortPrefix("\u00E9"));
  EXPECT_EQ(SortPrefix(""), 0u);
}

bool InRange(const PrimaryRange& range, std::string_view text) {
  return CompareText(range.lower, text) <= 0 && CompareText(text, range.upper) < 0;
}

/// A pattern that takes the prefix's characters as they are, then anything.
std::string PrefixPattern(std::string_view prefix) {
  std::string pattern;
  for (char32_t character : platform::ToCodePoints(prefix)) {
    pattern += '[';
    platform::AppendCodePoint(pattern, character);
    pattern += ']';
  }
  return pattern + '*';
}

TEST(TextOrderProperty, PrefixRangeHoldsAllThatLikeFinds) {
  RandomTexts texts;
  int found = 0;
  for (int round = 0; round < 60'000; ++round) {
    const std::string prefix = texts.Next();
    const std::string text = round % 2 ? texts.Next() : *platform::Normalise(prefix + texts.Next());
    const LikePattern pattern(PrefixPattern(prefix));
    if (!pattern.Matches(text)) continue;
    ++found;
    ASSERT_TRUE(InRange(PrefixRange(pattern.FixedPrefix()), text)) << '"' << prefix << "\" \"" << text << '"';
  }
  EXPECT_GT(found, 20'000);
}

TEST(TextOrder, PrefixRangeIsNarrow) {
  const auto range = PrefixRange("Smi");
  EXPECT_TRUE(InRange(range, "SMITH"));
  EXPECT_TRUE(InRange(range, "smi"));
  EXPECT_TRUE(InRange(range, "sm\u00EDd"));
  EXPECT_TRUE(InRange(range, "smi\u4E2D"));
  EXPECT_FALSE(InRange(range, "Smh"));
  EXPECT_FALSE(InRange(range, "Smj"));
  EXPECT_FALSE(InRange(range, "Sm"));
}

TEST(TextOrder, PrefixRangeOfATrailingBlankFindsWhatFollows) {
  const auto range = PrefixRange("a ");
  EXPECT_TRUE(InRange(range, "a b"));
  EXPECT_TRUE(InRange(range, "A \u4E2D"));
  EXPECT_FALSE(InRange(range, "ab"));
}

TEST(TextOrder, PrefixRangeOfExpandingLettersFindsBothSpellings) {
  EXPECT_TRUE(InRange(PrefixRange("stra\u00DF"), "Strasse"));
  EXPECT_TRUE(InRange(PrefixRange("strass"), "Stra\u00DFe"));
  EXPECT_TRUE(InRange(PrefixRange("stras"), "Stra\u00DFe"));
  EXPECT_TRUE(InRange(PrefixRange("\u00E9"), "Ecole"));
}

TEST(TextOrder, TheUpperBoundStandsAboveAllThatBeginsAlike) {
  const std::string bound = PrefixRange("smi").upper;
  for (const char* text :
       {"smi", "Smith", "SMI~", "smi \u00E9", "smi\u00E9", "smi\u0301", "smi\u4E2D", "smi\U0010FFFD", "sm\u00CD", "sm"}) {
    EXPECT_LT(CompareText(text, bound), 0) << text;
    EXPECT_GT(CompareText(bound, text), 0) << text;
  }
  for (const char* text : {"smj", "smj\u0301", "sn", "\u015Fn"}) {
    EXPECT_GT(CompareText(text, bound), 0) << text;
    EXPECT_LT(CompareText(bound, text), 0) << text;
  }
  EXPECT_EQ(CompareText(bound, bound + ' '), 0);
}

TEST(TextOrder, PrefixRangeOfNothingHoldsAll) {
  EXPECT_TRUE(InRange(PrefixRange(""), ""));
  EXPECT_TRUE(InRange(PrefixRange(""), "\U0010FFFD"));
}

TEST(TextOrder, TellsRunsOfCharactersApartByTheirCodePointsAlone) {
  using weights::Weights;
  const auto plain = [](char32_t character) {
    Weights own = weights::WeightsOf(character);
    if (own.primaryCount == 1 && weights::CodePointOf(own.primary[0]) == character) own.primary[0] -= character;
    return own;
  };
  int runs = 0;
  for (char32_t character = 1, end = 0; character <= platform::kHighestCodePoint; character = end, ++runs) {
    end = weights::EndOfAlike(character);
    ASSERT_GT(end, character);
    for (char32_t other = character; other < end; ++other) ASSERT_EQ(plain(other), plain(character)) << static_cast<unsigned>(other);
  }
  EXPECT_LT(runs, 10'000);
}

}  // namespace
}  // namespace engine
