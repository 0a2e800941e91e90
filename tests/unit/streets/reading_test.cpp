#include "streets/address/reading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "streets/address/house_number.h"
#include "streets/address/words.h"

namespace {

using testing::Contains;
using testing::Not;

/// number before|key|type|behind
std::string Text(const streets::Reading& reading) {
  const auto& name = reading.street;
  return (reading.number ? streets::ShownNumber(*reading.number) + " " : "") + name.before + "|" + name.key + "|" + name.type + "|" +
         name.behind;
}

std::string Plain(const std::string& line) { return Text(streets::PlainReading(streets::Words(line))); }

std::vector<std::string> Others(const std::string& line) {
  std::vector<std::string> texts;
  for (const auto& reading : streets::OtherReadings(streets::Words(line))) texts.push_back(Text(reading));
  return texts;
}

TEST(Reading, ThePlainOne) {
  EXPECT_EQ(Plain("100 Main St"), "100 |MAIN|ST|");
  EXPECT_EQ(Plain("243-20 3rd Ave N"), "243-20 |3RD|AVE|N");
  EXPECT_EQ(Plain("12 N 3rd Ave"), "12 N|3RD|AVE|");
  EXPECT_EQ(Plain("12 123rd St"), "12 |123RD|ST|");
  EXPECT_EQ(Plain("500 Highway 12"), "500 |12|HWY|");
  EXPECT_EQ(Plain("5 1 Rd"), "5 |1|RD|");
  EXPECT_EQ(Plain("1 Rd"), "|1|RD|");
  EXPECT_EQ(Plain("1200 S 500 E"), "1200 S|500||E");
  EXPECT_EQ(Plain("Main St"), "|MAIN|ST|");
  EXPECT_EQ(Plain("12 B St"), "12 |B|ST|");
  EXPECT_EQ(Plain("12 Avenue C"), "12 |C|AVE|");
}

TEST(Reading, AWordCanBelongToTheName) {
  EXPECT_THAT(Others("100 Smith Creek"), Contains("100 |SMITH CREEK||"));
  EXPECT_THAT(Others("100 North Star Rd"), Contains("100 |NORTH STAR|RD|"));
  EXPECT_THAT(Others("100 N St"), Contains("100 |NORTH|ST|"));
  EXPECT_THAT(Others("100 North St"), Contains("100 |N|ST|"));
  EXPECT_THAT(Others("100 E Grove"), Contains("100 E|GROVE||"));
  EXPECT_THAT(Others("100 3 Ave"), Contains("100 |3RD|AVE|"));
  EXPECT_THAT(Others("100 3rd Rd"), Contains("100 |3|RD|"));
}

TEST(Reading, ANumberCanBelongToTheName) {
  EXPECT_THAT(Others("71 Ranch Rd"), Contains("|71 RANCH|RD|"));
  EXPECT_THAT(Others("12 B Main St"), Contains("12B |MAIN|ST|"));
  EXPECT_THAT(Others("12 N Main St"), Not(Contains("12N |MAIN|ST|")));
  EXPECT_THAT(Others("One Main St"), Contains("1 |MAIN|ST|"));
  EXPECT_THAT(Others("Main St 12"), Contains("12 |MAIN|ST|"));
}

TEST(Reading, HyphensTooManyOrTooFew) {
  EXPECT_THAT(Others("100-104 Main St"), Contains("100 |MAIN|ST|"));
  EXPECT_THAT(Others("24320 90th Ave"), Contains("243-20 |90TH|AVE|"));
}

TEST(Reading, MisspeltTypesAndUnitsWithoutTheirWord) {
  EXPECT_THAT(Others("100 Main Streat"), Contains("100 |MAIN|ST|"));
  EXPECT_THAT(Others("100 Main Avenua N"), Contains("100 |MAIN|AVE|N"));
  EXPECT_THAT(Others("100 Lower Sixten Mile Rd"), Contains("100 |LOWER 16 MILE|RD|"));
  EXPECT_THAT(Others("100 Main St 5B"), Contains("100 |MAIN|ST|"));
}

TEST(Reading, TheCheapestFirstAndEachOnce) {
  const auto readings = streets::OtherReadings(streets::Words("100-104 N Smith Creek Rd E 5"));
  for (std::size_t i = 1; i < readings.size(); ++i) {
    EXPECT_LE(readings[i - 1].cost, readings[i].cost);
    for (std::size_t j = 0; j < i; ++j) EXPECT_NE(Text(readings[i]), Text(readings[j]));
  }
}

}  // namespace
