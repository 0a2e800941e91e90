#include "platform/values/text.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/values/unicode.h"

namespace platform {
namespace {

TEST(Normalise, ComposesLettersAndMarks) {
  EXPECT_EQ(Normalise("e\u0301"), "\u00E9");
  EXPECT_EQ(Normalise("plain ASCII ~"), "plain ASCII ~");
  EXPECT_EQ(Normalise("\u00E9"), "\u00E9");
  EXPECT_EQ(Normalise("x\u0301"), "x\u0301");
  EXPECT_EQ(Normalise("e\u0302\u0301"), "\u1EBF");
  EXPECT_EQ(Normalise(""), "");
}

TEST(Normalise, OrdersMarksBeforeItComposes) {
  EXPECT_EQ(Normalise("a\u0301\u0323"), "\u1EA1\u0301");
  EXPECT_EQ(Normalise("a\u0323\u0301"), "\u1EA1\u0301");
  EXPECT_EQ(Normalise("e\u0301\u0302"), "\u00E9\u0302");
}

TEST(Normalise, AMarkBlocksAnotherOfItsClass) {
  EXPECT_EQ(Normalise("a\u0305\u0301"), "a\u0305\u0301");
  EXPECT_EQ(Normalise("a\u0591b\u0301"), "a\u0591b\u0301");
}

TEST(Normalise, ReplacesCharactersThatStandForOthers) {
  EXPECT_EQ(Normalise("\u212B"), "\u00C5");
  EXPECT_EQ(Normalise("\u2126"), "\u03A9");
  EXPECT_EQ(Normalise("\u0958"), "\u0915\u093C");
}

TEST(Normalise, ComposesHangulByRule) {
  EXPECT_EQ(Normalise("\u1112\u1161\u11AB"), "\uD55C");
  EXPECT_EQ(Normalise("\u1100\u1161"), "\uAC00");
  EXPECT_EQ(Normalise("\uAC00\u11A8"), "\uAC01");
  EXPECT_EQ(Normalise("\uAC01\u11A8"), "\uAC01\u11A8");
  EXPECT_EQ(Normalise("\uD7A3"), "\uD7A3");
}

TEST(Normalise, RefusesWhatIsNoText) {
  EXPECT_FALSE(Normalise("\xFF"));
  EXPECT_FALSE(Normalise("a\xC3"));
  EXPECT_FALSE(Normalise("\xC0\xAF"));
  EXPECT_FALSE(Normalise("\xE0\x80\x80"));
  EXPECT_FALSE(Normalise("\xED\xA0\x80"));
  EXPECT_FALSE(Normalise("\xF4\x90\x80\x80"));
  EXPECT_FALSE(Normalise("\x80"));
  EXPECT_FALSE(Normalise(std::string_view("a\0b", 3)));
  EXPECT_FALSE(Normalise("\U0010FFFF"));
}

TEST(Normalise, LossyReplacesWhatIsNoText) {
  EXPECT_EQ(NormaliseLossy("a\xFFz"), "a\uFFFDz");
  EXPECT_EQ(NormaliseLossy(std::string_view("a\0b", 3)), "a\uFFFDb");
  EXPECT_EQ(NormaliseLossy("e\u0301\xC3"), "\u00E9\uFFFD");
  EXPECT_EQ(NormaliseLossy("\xE2\x82"), "\uFFFD\uFFFD");
  EXPECT_EQ(NormaliseLossy("\U0010FFFF"), "\uFFFD");
}

TEST(Normalise, IsStableForEveryCharacter) {
  for (char32_t character = 1; character < kHighestCodePoint; ++character) {
    if (character >= 0xD800 && character < 0xE000) continue;
    const std::string once = *Normalise(FromCodePoints(std::u32string(1, character)));
    ASSERT_EQ(*Normalise(once), once) << static_cast<unsigned>(character);
  }
}

TEST(Utf8, LengthsOfSequences) {
  EXPECT_TRUE(IsValidUtf8("a\u00E9\u20AC\U0001F600"));
  EXPECT_TRUE(IsValidUtf8("\U0010FFFF"));
  EXPECT_FALSE(IsValidUtf8("\xF0\x9F\x98"));
  EXPECT_FALSE(IsValidUtf8("\xF8\x88\x80\x80\x80"));
}

TEST(Utf8, AsciiEndsAtTheHighestBitOfABeginningAndOfARest) {
  EXPECT_TRUE(IsAscii(""));
  EXPECT_TRUE(IsAscii("12345678\x7F"));
  for (const std::string high : {"\x80", "\xC3\xA9"}) {
    EXPECT_FALSE(IsAscii(high));
    EXPECT_FALSE(IsAscii("12345678" + high));
    EXPECT_FALSE(IsAscii(high + "12345678"));
  }
}

TEST(Utf8, CountsCharacters) {
  EXPECT_EQ(CharacterCount(""), 0u);
  EXPECT_EQ(CharacterCount("abc"), 3u);
  EXPECT_EQ(CharacterCount("a\u00E9\u20AC\U0001F600"), 4u);
}

TEST(Utf8, OffsetsOfCharacters) {
  const std::string text = "a\u00E9\u20AC\U0001F600";
  EXPECT_EQ(ByteOffset(text, 0), 0u);
  EXPECT_EQ(ByteOffset(text, 1), 1u);
  EXPECT_EQ(ByteOffset(text, 2), 3u);
  EXPECT_EQ(ByteOffset(text, 3), 6u);
  EXPECT_EQ(ByteOffset(text, 4), 10u);
  EXPECT_EQ(ByteOffset(text, 99), 10u);
}

TEST(Utf8, CodePointsThereAndBack) {
  const std::string text = "a\u00E9\u20AC\U0001F600";
  EXPECT_EQ(ToCodePoints(text), U"a\u00E9\u20AC\U0001F600");
  EXPECT_EQ(FromCodePoints(ToCodePoints(text)), text);
  EXPECT_EQ(FromCodePoints(U"\x7FFFFFFF"), "\uFFFD");
}

TEST(Names, CompareWithoutAsciiCase) {
  EXPECT_TRUE(EqualsNoCase("LastName", "lastname"));
  EXPECT_FALSE(EqualsNoCase("LastName", "LastNam"));
  EXPECT_FALSE(EqualsNoCase("\u00C9", "\u00E9"));
  EXPECT_FALSE(EqualsNoCase("@", "`"));
  EXPECT_EQ(ToLowerAscii("ABC\u00C9z"), "abc\u00C9z");
}

TEST(Characters, Cases) {
  EXPECT_EQ(UpperOf(U'z'), U'Z');
  EXPECT_EQ(LowerOf(0xC9), char32_t{0xE9});
  EXPECT_EQ(UpperOf(0xFF), char32_t{0x178});
  EXPECT_EQ(UpperOf(0xDF), char32_t{0xDF});
  EXPECT_EQ(FoldedOf(0x17F), U's');
  EXPECT_EQ(FoldedOf(0x3C2), char32_t{0x3C3});
  EXPECT_EQ(LowerOf(0x410), char32_t{0x430});
}

TEST(Characters, SymbolsAreNeitherLettersNorMarks) {
  EXPECT_TRUE(IsSymbol(0x20AC));
  EXPECT_TRUE(IsSymbol(0xBD));
  EXPECT_TRUE(IsSymbol(0x2028));
  EXPECT_FALSE(IsSymbol(0xE9));
  EXPECT_FALSE(IsSymbol(0x301));
  EXPECT_FALSE(IsSymbol(0x660));
  EXPECT_FALSE(IsSymbol(U'#'));
}

}  // namespace
}  // namespace platform
