#include "robot/language/value_text.h"

#include <gtest/gtest.h>

namespace robot {
namespace {

using platform::Value;

TEST(ValueText, EachKindReadsAsScenariosWriteIt) {
  EXPECT_EQ(TextOf(Value(true)), "True");
  EXPECT_EQ(TextOf(Value(std::int32_t{-12})), "-12");
  EXPECT_EQ(TextOf(Value(platform::Currency{1005000})), "100.5");
  EXPECT_EQ(TextOf(Value(platform::Date{45292.75})), "1/1/2024");
  EXPECT_EQ(TextOf(Value(platform::Null)), "Null");
  EXPECT_EQ(TextOf(Value()), "");
}

TEST(ValueText, PatternsMatchWholeTextsWithCase) {
  EXPECT_TRUE(MatchesPattern("Smith", "S*"));
  EXPECT_TRUE(MatchesPattern("Smith", "*it?"));
  EXPECT_TRUE(MatchesPattern("", "*"));
  EXPECT_TRUE(MatchesPattern("a\rb\rc", "a*c"));
  EXPECT_TRUE(MatchesPattern("M\xC3\xBCller", "M?ller"));
  EXPECT_FALSE(MatchesPattern("Smith", "s*"));
  EXPECT_FALSE(MatchesPattern("Smith", "Smit"));
  EXPECT_FALSE(MatchesPattern("Smith", "Smith?"));
}

TEST(ValueText, NumbersCompareAsNumbers) {
  EXPECT_TRUE(Meets(Value(platform::Currency{1000000}), {"100.00"}));
  EXPECT_TRUE(Meets(Value(0.5), {".5"}));
  EXPECT_FALSE(Meets(Value(0.5), {".55"}));
  EXPECT_FALSE(Meets(Value("100"), {"100.0"})) << "texts compare exactly";
  EXPECT_FALSE(Meets(Value(true), {"-1"})) << "a Boolean is no number";
  EXPECT_TRUE(Meets(Value(true), {"True"}));
  EXPECT_TRUE(Meets(Value(std::int32_t{17}), {"1?", false, true}));
}

}  // namespace
}  // namespace robot
