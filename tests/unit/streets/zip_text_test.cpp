#include "streets/address/zip_text.h"

#include <gtest/gtest.h>

#include "streets/address/words.h"

namespace {

using streets::Words;
using streets::ZipOf;

TEST(ZipText, FiveOrFiveAndFourDigitsAreWhole) {
  for (const char* text : {"59645", "59645-1234", "59645 1234", "596451234"}) {
    EXPECT_EQ(ZipOf(Words(text)).zip, "59645") << text;
    EXPECT_TRUE(ZipOf(Words(text)).whole) << text;
  }
}

TEST(ZipText, DamagedOnesAreMended) {
  const std::pair<const char*, const char*> damaged[] = {
      {"2134", "02134"},    {"501", "00501"},      {"O2134", "02134"},       {"5964S-1", ""},         {"59645-12", "59645"},
      {"5964512", "59645"}, {"59645 12", "59645"}, {"59645-12345", "59645"}, {"5964512345", "59645"}, {"l2345", "12345"}};
  for (const auto& [text, zip] : damaged) {
    EXPECT_EQ(ZipOf(Words(text)).zip, zip) << text;
    EXPECT_FALSE(ZipOf(Words(text)).whole) << text;
  }
}

TEST(ZipText, AHyphenWithoutDigitsSaysNothing) { EXPECT_TRUE(ZipOf(Words("59645-")).whole); }

TEST(ZipText, OtherTextsAreNone) {
  for (const char* text : {"", "MT", "12", "K1A 0B6", "59645 Main", "HELLO", "A1B2C", "12345 67890"})
    EXPECT_FALSE(ZipOf(Words(text))) << text;
}

TEST(ZipText, IsTakenOffTheEndOfMore) {
  auto words = Words("Springfield IL 62701-1234");
  EXPECT_EQ(streets::TakeZip(words).zip, "62701");
  EXPECT_EQ(words, Words("Springfield IL"));
  words = Words("County Road 12345");
  EXPECT_FALSE(streets::TakeZip(words));
  EXPECT_EQ(words, Words("County Road 12345"));
}

}  // namespace
