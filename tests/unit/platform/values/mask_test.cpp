#include "platform/values/mask.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

constexpr std::string_view kArea = "(%%%)";
constexpr std::string_view kPhone = "%%%-%%%%";
constexpr std::string_view kAccount = "%%%%%-%%%";

MaskedText Typed(std::string_view mask, std::string_view keys, std::size_t maxLength = 0) {
  MaskedText text;
  for (char key : keys) text = MaskInsert(mask, text, 0, std::string_view(&key, 1), maxLength);
  return text;
}

TEST(Mask, PercentAndUnderscoreArePlaces) {
  EXPECT_EQ(MaskPlaces(kArea), 3u);
  EXPECT_EQ(MaskPlaces("_/_/____"), 6u);
  EXPECT_EQ(MaskPlaces("(___)"), 3u);
  EXPECT_EQ(MaskPlaces(""), 0u);
}

TEST(Mask, DisplayShowsLiteralsUpToTheLastPlaceFilled) {
  EXPECT_EQ(MaskDisplay(kArea, ""), "");
  EXPECT_EQ(MaskDisplay(kArea, "6"), "(6");
  EXPECT_EQ(MaskDisplay(kArea, "61"), "(61");
  EXPECT_EQ(MaskDisplay(kArea, "612"), "(612)");
  EXPECT_EQ(MaskDisplay(kPhone, "555"), "555");
  EXPECT_EQ(MaskDisplay(kPhone, "5551"), "555-1");
  EXPECT_EQ(MaskDisplay(kPhone, "5551234"), "555-1234");
  EXPECT_EQ(MaskDisplay(kAccount, "00000000"), "00000-000");
  EXPECT_EQ(MaskDisplay("", "any text"), "any text");
}

TEST(Mask, WithoutAMaskTheTextIsTakenAsFarAsItFits) {
  const MaskedText inside = MaskInsert("", {"one three", 4}, 0, "two ", 0);
  EXPECT_EQ(inside.raw, "one two three");
  EXPECT_EQ(inside.caret, 8u);
  const MaskedText over = MaskInsert("", {"one two", 0}, 3, "four", 9);
  EXPECT_EQ(over.raw, "four two");
  EXPECT_EQ(over.caret, 4u);
  const MaskedText full = MaskInsert("", {"abc", 3}, 0, "def", 5);
  EXPECT_EQ(full.raw, "abcde");
  EXPECT_EQ(full.caret, 5u);
  EXPECT_EQ(MaskInsert("", {"abcde", 2}, 0, "x", 5).raw, "abcde");
  // A mark that combines with the letter before it is one character with that, wherever it is typed.
  const MaskedText mark = MaskInsert("", {"cafe s", 4}, 0, "\xCC\x81", 0);
  EXPECT_EQ(mark.raw, "caf\xC3\xA9 s");
  EXPECT_EQ(mark.caret, 4u);
}

TEST(Mask, TypingTakesDigitsAndPassesOverTheRest) {
  const MaskedText text = Typed(kArea, "a6(1-2)");
  EXPECT_EQ(text.raw, "612");
  EXPECT_EQ(text.caret, 3u);
}

TEST(Mask, TypingBeyondTheLastPlaceIsPassedOver) { EXPECT_EQ(Typed(kArea, "61299").raw, "612"); }

TEST(Mask, PastingADisplayTextDropsItsLiterals) {
  EXPECT_EQ(MaskInsert(kPhone, {}, 0, "555-1234", 0).raw, "5551234");
  EXPECT_EQ(MaskInsert(kArea, {}, 0, "(612)", 0).raw, "612");
  EXPECT_EQ(MaskInsert(kArea, {}, 0, "\u0661\u0662", 0).raw, "");
}

TEST(Mask, TypingInTheMiddleMovesTheRest) {
  const MaskedText text = MaskInsert(kPhone, {"5534", 2}, 0, "12", 0);
  EXPECT_EQ(text.raw, "551234");
  EXPECT_EQ(text.caret, 4u);
}

TEST(Mask, TypingInAFullTextIsPassedOver) {
  const MaskedText text = MaskInsert(kArea, {"612", 1}, 0, "9", 0);
  EXPECT_EQ(text.raw, "612");
  EXPECT_EQ(text.caret, 1u);
}

TEST(Mask, TypingReplacesTheSelection) {
  const MaskedText text = MaskInsert(kArea, {"612", 0}, 3, "9", 0);
  EXPECT_EQ(text.raw, "9");
  EXPECT_EQ(text.caret, 1u);
  EXPECT_EQ(MaskInsert(kArea, {"612", 1}, 1, "99", 0).raw, "692");
}

TEST(Mask, RefusedTypingLeavesTheSelection) {
  const MaskedText text = MaskInsert(kArea, {"612", 0}, 3, "x", 0);
  EXPECT_EQ(text.raw, "612");
  EXPECT_EQ(text.caret, 0u);
}

TEST(Mask, LengthCutsWhatIsLonger) {
  EXPECT_EQ(MaskInsert("", {}, 0, "abcdef", 4).raw, "abcd");
  EXPECT_EQ(MaskInsert("", {"abc", 1}, 0, "xyz", 5).raw, "axybc");
  EXPECT_EQ(MaskInsert("", {}, 0, "\u00E4\u00F6\u00FC", 2).raw, "\u00E4\u00F6");
  EXPECT_EQ(MaskInsert(kPhone, {}, 0, "5551234", 4).raw, "5551");
}

TEST(Mask, WithoutMaskAndLengthAllIsTaken) {
  const MaskedText text = MaskInsert("", {"ab", 1}, 0, "x%_ ", 0);
  EXPECT_EQ(text.raw, "ax%_ b");
  EXPECT_EQ(text.caret, 5u);
}

TEST(Mask, AccentTypedBehindItsLetterJoinsIt) {
  const MaskedText text = MaskInsert("", {"e", 1}, 0, "\u0301", 0);
  EXPECT_EQ(text.raw, "\u00E9");
  EXPECT_EQ(text.caret, 1u);
}

TEST(Mask, BackspaceTakesTheCharacterBefore) {
  EXPECT_EQ(MaskBackspace({"612", 3}, 0).raw, "61");
  EXPECT_EQ(MaskBackspace({"612", 3}, 0).caret, 2u);
  EXPECT_EQ(MaskBackspace({"612", 0}, 0).raw, "612");
  EXPECT_EQ(MaskBackspace({"\u00E9\u00E8", 1}, 0).raw, "\u00E8");
}

TEST(Mask, DeleteTakesTheCharacterBehind) {
  EXPECT_EQ(MaskDelete({"612", 0}, 0).raw, "12");
  EXPECT_EQ(MaskDelete({"612", 0}, 0).caret, 0u);
  EXPECT_EQ(MaskDelete({"612", 3}, 0).raw, "612");
}

TEST(Mask, BackspaceAndDeleteTakeTheSelectionAlone) {
  EXPECT_EQ(MaskBackspace({"61234", 1}, 2).raw, "634");
  EXPECT_EQ(MaskBackspace({"61234", 1}, 2).caret, 1u);
  EXPECT_EQ(MaskDelete({"61234", 1}, 2).raw, "634");
  EXPECT_EQ(MaskDelete({"61234", 1}, 99).raw, "6");
}

TEST(Mask, CaretOfTheDisplayStandsBehindTheSamePlace) {
  EXPECT_EQ(MaskDisplayCaret(kPhone, 0), 0u);
  EXPECT_EQ(MaskDisplayCaret(kPhone, 3), 3u);
  EXPECT_EQ(MaskDisplayCaret(kPhone, 4), 5u);
  EXPECT_EQ(MaskDisplayCaret(kArea, 3), 5u);
  EXPECT_EQ(MaskDisplayCaret("", 7), 7u);
  EXPECT_EQ(MaskRawCaret(kPhone, 3), 3u);
  EXPECT_EQ(MaskRawCaret(kPhone, 4), 3u);
  EXPECT_EQ(MaskRawCaret(kPhone, 5), 4u);
  EXPECT_EQ(MaskRawCaret(kArea, 99), 3u);
  EXPECT_EQ(MaskRawCaret("", 7), 7u);
}

TEST(Mask, CaretAtTheEndIsTheDisplaysEnd) {
  for (std::string_view mask : {kArea, kPhone, kAccount}) {
    std::string raw;
    for (std::size_t count = 0; count <= MaskPlaces(mask); ++count, raw += '1') {
      EXPECT_EQ(MaskDisplayCaret(mask, count), MaskDisplay(mask, raw).size()) << mask << ' ' << count;
      EXPECT_EQ(MaskRawCaret(mask, MaskDisplayCaret(mask, count)), count) << mask << ' ' << count;
    }
  }
}

}  // namespace
}  // namespace platform
