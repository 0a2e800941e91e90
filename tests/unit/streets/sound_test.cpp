#include "streets/address/sound.h"

#include <gtest/gtest.h>

namespace {

TEST(Soundex, OfKnownNames) {
  const std::pair<const char*, const char*> names[] = {
      {"ROBERT", "R163"},  {"RUPERT", "R163"},   {"RUBIN", "R150"}, {"ASHCRAFT", "A261"}, {"ASHCROFT", "A261"}, {"TYMCZAK", "T522"},
      {"PFISTER", "P236"}, {"HONEYMAN", "H555"}, {"Smith", "S530"}, {"SMYTH", "S530"},    {"ST JOHNS", "S325"}, {"LEE", "L000"},
      {"3RD", "3630"},     {"89", "8000"},       {"", ""},          {"\xC3\xB1", ""},     {"- A", "A000"},
  };
  for (const auto& [name, code] : names) EXPECT_EQ(streets::Soundex(name), code) << name;
}

TEST(EditDistance, CountsLettersAddedDroppedReplacedAndSwapped) {
  EXPECT_EQ(streets::EditDistance("LARAMIE", "LARAMIE", 2), 0);
  EXPECT_EQ(streets::EditDistance("LARAMIE", "LARIME", 2), 2);
  EXPECT_EQ(streets::EditDistance("LARAMIE", "LARAMEI", 2), 1);
  EXPECT_EQ(streets::EditDistance("LARAMIE", "LARMIE", 2), 1);
  EXPECT_EQ(streets::EditDistance("MAIN", "BROADWAY", 2), 3);
  EXPECT_EQ(streets::EditDistance("", "AB", 2), 2);
  EXPECT_EQ(streets::EditDistance("", "", 2), 0);
}

TEST(EditDistance, NumbersAreNeverMisspelt) {
  EXPECT_EQ(streets::EditDistance("4TH", "5TH", 2), 3);
  EXPECT_EQ(streets::EditDistance("14TH", "41ST", 2), 3);
  EXPECT_EQ(streets::EditDistance("71 RANCH", "71 RANHC", 2), 1);
}

TEST(EditDistance, LongTextsAreFarApart) { EXPECT_EQ(streets::EditDistance(std::string(10'000, 'A'), std::string(10'000, 'A'), 2), 3); }

}  // namespace
