#include "streets/address/house_number.h"

#include <gtest/gtest.h>

#include "streets/address/words.h"

namespace {

/// prefix|number|suffix
std::string Parts(std::string_view word) {
  const auto number = streets::HouseNumberOf(word);
  return number ? number->prefix + "|" + std::to_string(number->number) + "|" + number->suffix : "none";
}

TEST(HouseNumber, OfOneWord) {
  EXPECT_EQ(Parts("12"), "|12|");
  EXPECT_EQ(Parts("12B"), "|12|B");
  EXPECT_EQ(Parts("12-B"), "|12|B");
  EXPECT_EQ(Parts("243-20"), "243-|20|");
  EXPECT_EQ(Parts("92-05"), "92-|5|");
  EXPECT_EQ(Parts("N6W23001"), "N6W|23001|");
  EXPECT_EQ(Parts("32W280"), "32W|280|");
  EXPECT_EQ(Parts("A12"), "A|12|");
  EXPECT_EQ(Parts("007"), "|7|");
}

TEST(HouseNumber, NoneInOtherWords) {
  for (const char* word : {"", "B", "3RD", "1ST", "MAIN", "US89", "MAIN5", "1/2", "-", "1234567890", "12BC", "12345678901234567890"})
    EXPECT_EQ(Parts(word), "none") << word;
}

TEST(HouseNumber, AtTheStartOfALine) {
  const auto half = streets::LeadingHouseNumber(streets::Words("12 1/2 Main St"));
  ASSERT_TRUE(half);
  EXPECT_EQ(half->number, (streets::HouseNumber{"", 12, "1/2"}));
  EXPECT_EQ(half->words, 2U);
  const auto grid = streets::LeadingHouseNumber(streets::Words("W156 N8480 Pilgrim Rd"));
  ASSERT_TRUE(grid);
  EXPECT_EQ(grid->number, (streets::HouseNumber{"W156N", 8480, ""}));
  EXPECT_FALSE(streets::LeadingHouseNumber(streets::Words("3rd Ave N")));
  EXPECT_FALSE(streets::LeadingHouseNumber({}));
}

TEST(HouseNumber, IsShownAsItIsWritten) {
  EXPECT_EQ(streets::ShownNumber({"92-", 5, ""}), "92-05");
  EXPECT_EQ(streets::ShownNumber({"", 12, "1/2"}), "12 1/2");
  EXPECT_EQ(streets::ShownNumber({"", 12, "REAR"}), "12 REAR");
  EXPECT_EQ(streets::ShownNumber({"N6W", 23001, "B"}), "N6W23001B");
}

}  // namespace
