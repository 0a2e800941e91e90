#include <gmock/gmock.h>

#include "printing/layout/text_lines.h"
#include "unit/printing/support/made_up_report.h"

namespace printing_test {
namespace {

using printing::CleanText;
using printing::FitText;
using printing::TextStyle;
using printing::WrapText;
using testing::ElementsAre;
using testing::SizeIs;

const EvenFont kFont;
const TextStyle kStyle;

/// Lines of so many characters.
std::vector<std::string> Lines(std::string_view text, int characters, std::size_t most = 0) {
  return WrapText(text, 0.5 * characters, kStyle, kFont, most);
}

TEST(TextLines, BreakBetweenWords) {
  EXPECT_THAT(Lines("the quick brown fox", 9), ElementsAre("the quick", "brown fox"));
  EXPECT_THAT(Lines("the quick brown fox", 8), ElementsAre("the", "quick", "brown", "fox"));
  EXPECT_THAT(Lines("fox", 3), ElementsAre("fox"));
  EXPECT_THAT(Lines("", 3), ElementsAre(""));
}

TEST(TextLines, PartAWordThatIsTooLong) {
  EXPECT_THAT(Lines("ab abcdefgh c", 3), ElementsAre("ab", "abc", "def", "gh", "c"));
  EXPECT_THAT(Lines("abc", 0), ElementsAre("a", "b", "c")) << "a line has one character at least";
}

TEST(TextLines, KeepTheTextsOwnLineEnds) {
  EXPECT_THAT(Lines("one\n\ntwo three", 5), ElementsAre("one", "", "two", "three"));
  EXPECT_THAT(Lines("one\n\n", 5), ElementsAre("one"));
}

TEST(TextLines, PutTheRestIntoTheLastOneThatThereMayBe) {
  EXPECT_THAT(Lines("one two three", 5, 2), ElementsAre("one", "two three"));
  EXPECT_THAT(Lines("one\ntwo\nthree", 9, 2), ElementsAre("one", "two three"));
  EXPECT_THAT(Lines("one two", 9, 1), ElementsAre("one two"));
}

TEST(TextLines, NeverPartWhatIsOneCharacter) {
  const std::string accented = "e\xCC\x81";                                   // e and its accent
  const std::string family = "\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7";  // woman, joiner, girl
  const std::string flag = "\xF0\x9F\x87\xBA\xF0\x9F\x87\xB8";                // two letters, one flag
  EXPECT_THAT(Lines(accented + accented, 2), ElementsAre(accented, accented));
  EXPECT_THAT(Lines(family + family, 3), ElementsAre(family, family));
  EXPECT_THAT(Lines(flag + flag, 2), ElementsAre(flag, flag));
}

TEST(TextLines, OfTenThousandCharactersAndOfAnyBytes) {
  EXPECT_THAT(Lines(std::string(10000, 'w'), 100), SizeIs(100));
  std::string words;
  for (int word = 0; word < 2500; ++word) words += "\xD7\xA9\xD7\x9C\xD7\x9D ";
  EXPECT_THAT(Lines(words, 99), SizeIs(100));
  std::string bytes;
  for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_FALSE(Lines(bytes, 7).empty());
}

TEST(TextLines, AreCutWithAnEllipsisAndFiguresNotAtAll) {
  EXPECT_EQ(FitText("abcdef", 3, kStyle, kFont, false), "abcdef");
  EXPECT_EQ(FitText("abcdefg", 3, kStyle, kFont, false), "abcde\xE2\x80\xA6");
  EXPECT_EQ(FitText("ab cdefg", 2, kStyle, kFont, false), "ab\xE2\x80\xA6") << "no blank before it";
  EXPECT_EQ(FitText("1234567", 3, kStyle, kFont, true), "######");
  EXPECT_EQ(FitText("1234567", 0, kStyle, kFont, true), "");
  EXPECT_EQ(FitText("abc", 0.2, kStyle, kFont, false), "");
}

TEST(TextLines, HaveNoControlCharacters) {
  EXPECT_EQ(CleanText("a\tb\x01"
                      "c\r\nd\re\nf",
                      false, false),
            "a b c\nd\ne\nf");
  EXPECT_EQ(CleanText("a\r\nb\x7F", true, false), "a b ");
  EXPECT_EQ(CleanText("of \x01", true, true), "of \x01");
}

Element Growing(double x, double y, double width, const std::string& text) {
  Element made = TextAt(x, y, width, 0.2, text);
  made.canGrow = true;
  return made;
}

TEST(GrowingTexts, MoveWhatStandsBelowThemAndTheNextBand) {
  // An inch holds 14 characters; a line is a sixth of an inch high, three of them half an inch: 0.3 more than the box has.
  auto report = Report({BandOf(BandKind::Detail, 0.5,
                               {Growing(0, 0, 1, "fourteen signs fourteen signs fourteen signs"), TextAt(2, 0, 1, 0.2, "beside"),
                                TextAt(0, 0.25, 1, 0.2, "below")})});
  const auto pages = LaidOut(report, Numbered(2));
  EXPECT_THAT(TextsOf(pages.at(0)), ElementsAre("500 500 fourteen signs", "500 667 fourteen signs", "500 833 fourteen signs",
                                                "2500 500 beside", "500 1050 below", "500 1300 fourteen signs", "500 1467 fourteen signs",
                                                "500 1633 fourteen signs", "2500 1300 beside", "500 1850 below"));
}

TEST(GrowingTexts, MakeTheFrameAroundThemLonger) {
  Element frame;
  frame.kind = printing::ElementKind::Box;
  frame.width = 3;
  frame.height = 0.5;
  Element underline;
  underline.kind = printing::ElementKind::Line;
  underline.y = 0.45;
  underline.width = 3;
  const auto report =
      Report({BandOf(BandKind::Detail, 0.5, {frame, underline, Growing(0, 0, 1, "fourteen signs fourteen signs fourteen signs")})});
  const auto items = LaidOut(report, Numbered(1)).at(0).items;
  EXPECT_NEAR(std::get<printing::BoxItem>(items.at(0)).height, 0.8, 1e-9);
  EXPECT_NEAR(std::get<printing::LineItem>(items.at(1)).y1, 0.5 + 0.75, 1e-9);
  EXPECT_NEAR(std::get<printing::LineItem>(items.at(1)).y2, 0.5 + 0.75, 1e-9);
}

TEST(GrowingTexts, WithoutLeaveToGrowEndInTheirBox) {
  const auto words = [](Element element) {
    return WordsOf(LaidOut(Report({BandOf(BandKind::Detail, 1, {std::move(element)})}), Numbered(1)).at(0));
  };
  EXPECT_THAT(words(TextAt(0, 0, 1, 0.2, "fourteen signs and more")), ElementsAre("fourteen sign\xE2\x80\xA6"));
  EXPECT_THAT(words(TextAt(0, 0, 1, 0.35, "fourteen signs and more of that kind")),
              ElementsAre("fourteen signs", "and more of t\xE2\x80\xA6"));
  EXPECT_THAT(words(FieldAt(0, 0, 0.3, 0.2, Field("N"))), ElementsAre("1"));
  EXPECT_THAT(words(FieldAt(7.4, 0, 1, 0.2, Text("abc"))), ElementsAre("\xE2\x80\xA6")) << "the page's margin ends it";
}

TEST(GrowingTexts, AmountsThatDoNotFitAreNeverShortened) {
  MadeUpRows rows({"Amount"}, {{platform::Currency{123456789000}}});
  const auto report = Report({BandOf(BandKind::Detail, 1, {FieldAt(0, 0, 0.5, 0.2, Field("Amount"))})});
  EXPECT_THAT(WordsOf(LaidOut(report, rows).at(0)), ElementsAre("#######"));
}

}  // namespace
}  // namespace printing_test
