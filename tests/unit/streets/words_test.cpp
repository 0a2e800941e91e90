#include "streets/address/words.h"

#include <gtest/gtest.h>

#include "streets/address/directions.h"
#include "streets/address/number_words.h"
#include "streets/address/place_key.h"
#include "streets/address/states.h"
#include "streets/address/street_types.h"

namespace {

using List = std::vector<std::string>;
using streets::Words;

TEST(AddressWords, AreCapitalsWithoutSigns) {
  EXPECT_EQ(Words(" 12  Main\tst. "), (List{"12", "MAIN", "ST"}));
  EXPECT_EQ(Words("St. John's Rd"), (List{"ST", "JOHNS", "RD"}));
  EXPECT_EQ(Words("N.W. 3rd Ave.N"), (List{"NW", "3RD", "AVE", "N"}));
  EXPECT_EQ(Words("Pe\xC3\xB1"
                  "a Blvd"),
            (List{"PENA", "BLVD"}));
  EXPECT_EQ(Words("Pen\xCC\x83"
                  "a"),
            (List{"PENA"}));
  EXPECT_EQ(Words(""), List{});
  EXPECT_EQ(Words(" .,;'"), List{});
}

TEST(AddressWords, NumbersKeepTheirSigns) {
  EXPECT_EQ(Words("243-20 12 1/2 #5"), (List{"243-20", "12", "1/2", "#", "5"}));
  EXPECT_EQ(Words("I-90 Twenty-First 5- 6"), (List{"I", "90", "TWENTY", "FIRST", "5", "6"}));
}

TEST(AddressWords, ControlsAndMarksOfDirectionOnlyPart) {
  EXPECT_EQ(Words(std::string("12\0Main\x01St", 11)), (List{"12", "MAIN", "ST"}));
  EXPECT_EQ(Words("12 \xE2\x80\x8FMain\xE2\x80\xAE St"), (List{"12", "MAIN", "ST"}));
  EXPECT_EQ(Words("12 \xFF\xC3 Main"), (List{"12", "MAIN"}));
}

TEST(AddressTables, Directions) {
  EXPECT_EQ(streets::Direction("NORTHWEST"), "NW");
  EXPECT_EQ(streets::Direction("NO"), "N");
  EXPECT_EQ(streets::Direction("NORTHS"), "");
  EXPECT_EQ(streets::Direction("S", "EAST"), "SE");
  EXPECT_EQ(streets::Direction("E", "S"), "");
  EXPECT_EQ(streets::DirectionInFull("NW"), "NORTHWEST");
  EXPECT_EQ(streets::DirectionInFull("MAIN"), "MAIN");
}

TEST(AddressTables, Types) {
  for (const char* way : {"AVE", "AV", "AVENUE"}) EXPECT_EQ(streets::StreetType(way), "AVE") << way;
  EXPECT_EQ(streets::StreetType("TRAILS"), "TRL");
  EXPECT_EQ(streets::StreetType("MAIN"), "");
  EXPECT_EQ(streets::StreetTypeInFull("CRK"), "CREEK");
  EXPECT_EQ(streets::MisspeltStreetType("STREAT"), "ST");
  EXPECT_EQ(streets::MisspeltStreetType("AVENEU"), "AVE");
  EXPECT_EQ(streets::MisspeltStreetType("STREET"), "");
  EXPECT_EQ(streets::MisspeltStreetType("TREET"), "");
}

TEST(AddressTables, Numbers) {
  EXPECT_EQ(streets::NumberInWords({"TWENTY", "FIRST"}, 0)->number, 21);
  EXPECT_EQ(streets::NumberInWords({"TWENTY", "FIRST"}, 0)->words, 2U);
  EXPECT_TRUE(streets::NumberInWords({"TWENTY", "FIRST"}, 0)->ordinal);
  EXPECT_EQ(streets::NumberInWords({"TWENTY", "MULE"}, 0)->words, 1U);
  EXPECT_EQ(streets::NumberInWords({"TWENTY", "TEN"}, 0)->words, 1U);
  EXPECT_FALSE(streets::NumberInWords({"MAIN"}, 0));
  EXPECT_FALSE(streets::NumberInWords({}, 0));
  EXPECT_EQ(streets::MendedNumberWord("SIXTEN"), "SIXTEEN");
  EXPECT_EQ(streets::MendedNumberWord("THRID"), "THIRD");
  EXPECT_EQ(streets::MendedNumberWord("SIXTEEN"), "");
  EXPECT_EQ(streets::MendedNumberWord("TEM"), "");
  EXPECT_EQ(streets::MendedNumberWord(""), "");
  EXPECT_EQ(streets::Ordinal(1), "1ST");
  EXPECT_EQ(streets::Ordinal(11), "11TH");
  EXPECT_EQ(streets::Ordinal(22), "22ND");
  EXPECT_EQ(streets::Ordinal(43), "43RD");
  EXPECT_EQ(streets::Ordinal(112), "112TH");
}

TEST(AddressTables, States) {
  EXPECT_EQ(streets::StateCode("MT"), "MT");
  EXPECT_EQ(streets::StateCode("NORTH DAKOTA"), "ND");
  EXPECT_EQ(streets::StateCode("N DAKOTA"), "ND");
  EXPECT_EQ(streets::StateCode("XX"), "");
  EXPECT_EQ(streets::StateCode(""), "");
}

TEST(PlaceKey, IsTheSameForTheUsualWaysToWriteATown) {
  EXPECT_EQ(streets::PlaceKey("St. Louis"), streets::PlaceKey("SAINT LOUIS"));
  EXPECT_EQ(streets::PlaceKey("Ft Collins"), "FORT COLLINS");
  EXPECT_EQ(streets::PlaceKey("N. Platte"), "NORTH PLATTE");
  EXPECT_EQ(streets::PlaceKey("O'Fallon"), "OFALLON");
  EXPECT_EQ(streets::PlaceKey("Winston-Salem"), "WINSTON SALEM");
  EXPECT_EQ(streets::PlaceKey("White Sulphur Spgs"), "WHITE SULPHUR SPRINGS");
}

}  // namespace
