#include "streets/geocoder/geocoder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "made_index.h"

namespace {

using streets::Line;
using streets::Parity;
using streets::Position;
using Numbers = MadeIndex::Numbers;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

constexpr std::int32_t kMatch = streets::Geocoder::kMatch;

/// A town with two ZIPs and a neighbour in its county, and one far away. Streets run north from their point, 10,000 long, or east.
class GeocoderTest : public testing::Test {
 protected:
  GeocoderTest() {
    index.AddZip("59645", "White Sulphur Springs", "MT", "Meagher", {-110'900'000, 46'500'000});
    index.AddZip("59646", "White Sulphur Springs", "MT", "Meagher", {-110'800'000, 46'500'000});
    index.AddZip("59053", "Martinsdale", "MT", "Meagher", {-110'300'000, 46'400'000});
    index.AddZip("02134", "Boston", "MA", "Suffolk", {-71'130'000, 42'350'000});
    AddNorth("Main St", {-110'900'000, 46'500'000}, 100, 198, "59645");
  }

  /// Even numbers on the right, odd ones on the left.
  void AddNorth(const std::string& name, Position at, std::int64_t from, std::int64_t to, const std::string& zip) {
    index.AddEdge({name}, North(at), Numbers{from + 1, to + 1, Parity::Odd, zip}, Numbers{from, to, Parity::Even, zip});
  }

  static Line North(Position at) { return {at, {at.longitude, at.latitude + 10'000}}; }

  platform::GeocodeAnswer Find(const std::string& text) { return geocoder.Find(text); }
  std::string Best(const std::string& text) {
    const auto answer = Find(text);
    return answer.candidates.empty()
               ? ""
               : answer.candidates.front().substr(answer.candidates.front().find(' ', answer.candidates.front().find(' ') + 1) + 1);
  }

  MadeIndex index;
  streets::Geocoder geocoder{index};
};

TEST_F(GeocoderTest, AFullAddressIsAMatch) {
  const auto answer = Find("100 Main St,White Sulphur Springs,MT,59645");
  ASSERT_EQ(answer.candidates.size(), 1U);
  EXPECT_TRUE(answer.positionFound);
  EXPECT_EQ(answer.result, kMatch);
  EXPECT_EQ(answer.candidates[0],
            std::to_string(answer.longitude) + " " + std::to_string(answer.latitude) + " 100 Main St, White Sulphur Springs, MT 59645");
  // At the start of the line, on its right.
  EXPECT_GT(answer.longitude, -11'090'000);
  EXPECT_NEAR(answer.latitude, 4'650'007, 1);
}

TEST_F(GeocoderTest, EvenAndOddNumbersLieOnTheirSides) {
  EXPECT_GT(Find("150 Main St,59645").longitude, -11'090'000);
  EXPECT_LT(Find("151 Main St,59645").longitude, -11'090'000);
}

TEST_F(GeocoderTest, EvenAndOddNumbersOnOneSide) {
  index.AddEdge({"Lake Rd"}, North({-110'850'000, 46'500'000}), std::nullopt, Numbers{1, 99, Parity::Both, "59645"});
  EXPECT_GT(Find("50 Lake Rd,59645").longitude, -11'085'000);
  EXPECT_GT(Find("51 Lake Rd,59645").longitude, -11'085'000);
}

TEST_F(GeocoderTest, ANumberThatFitsNoSideLiesAcrossTheStreetAndIsNoMatch) {
  index.AddEdge({"Lake Rd"}, North({-110'850'000, 46'500'000}), std::nullopt, Numbers{1, 99, Parity::Odd, "59645"});
  const auto answer = Find("50 Lake Rd,59645");
  EXPECT_LT(answer.longitude, -11'085'000);
  EXPECT_EQ(answer.result, 0);
  EXPECT_THAT(answer.candidates, ElementsAre(EndsWith("(other side)")));
}

TEST_F(GeocoderTest, RangesMayRunDownward) {
  AddNorth("Hill St", {-110'850'000, 46'500'000}, 198, 100, "59645");
  EXPECT_GT(Find("104 Hill St,59645").latitude, Find("190 Hill St,59645").latitude);
}

TEST_F(GeocoderTest, ANumberLiesWhereItsPartOfTheRangeIs) {
  // Only the first few of a hundred numbers exist; they stand at the beginning.
  AddNorth("New St", {-110'850'000, 46'500'000}, 2, 98, "59645");
  const auto answer = Find("8 New St,59645");
  EXPECT_EQ(answer.result, kMatch);
  EXPECT_LT(answer.latitude, 4'650'150);
}

TEST_F(GeocoderTest, ARangeOfOneNumberIsItsMiddle) {
  index.AddEdge({"Lone Ln"}, North({-110'850'000, 46'500'000}), std::nullopt, Numbers{44, 44, Parity::Even, "59645"});
  EXPECT_EQ(Find("44 Lone Ln,59645").latitude, 4'650'500);
}

TEST_F(GeocoderTest, OfOverlappingRangesTheTighterCounts) {
  index.AddEdge({"Main St"}, North({-110'880'000, 46'500'000}), std::nullopt, Numbers{150, 154, Parity::Even, "59645"});
  const auto answer = Find("152 Main St,59645");
  ASSERT_EQ(answer.candidates.size(), 1U);
  EXPECT_GT(answer.longitude, -11'088'000);
}

TEST_F(GeocoderTest, RangesOfStreetsInOtherDirectionsDontOverlap) {
  AddNorth("3rd Ave SE", {-110'860'000, 46'499'000}, 298, 204, "59645");
  AddNorth("3rd Ave NE", {-110'860'000, 46'501'000}, 200, 298, "59645");
  EXPECT_THAT(Find("278 3rd Ave,59645").candidates, testing::UnorderedElementsAre(HasSubstr("3rd Ave SE"), HasSubstr("3rd Ave NE")));
  EXPECT_THAT(Find("278 3rd Ave NE,59645").candidates, ElementsAre(HasSubstr("3rd Ave NE")));
}

TEST_F(GeocoderTest, HousesAtTheRear) {
  const auto front = Find("150 Main St,59645");
  for (const char* text : {"150 Rear Main St,59645", "Rear 150 Main St,59645", "150 Main St Rear,59645"}) {
    EXPECT_EQ(Find(text).result, kMatch) << text;
    EXPECT_EQ(Find(text).longitude, front.longitude) << text;
  }
  // A street of that name is its own.
  AddNorth("Rear Main St", {-110'870'000, 46'500'000}, 100, 198, "59645");
  EXPECT_THAT(Find("150 Rear Main St,59645").candidates, ElementsAre(HasSubstr("150 Rear Main St")));
}

TEST_F(GeocoderTest, AliasesOfAnEdgeCountOnce) {
  index.AddEdge({"State Hwy 360", "Hwy 360", "Fort Logan Rd"}, North({-110'850'000, 46'500'000}), Numbers{1, 99, Parity::Odd, "59645"},
                std::nullopt);
  EXPECT_THAT(Find("11 Hwy 360,59645").candidates, ElementsAre(HasSubstr("11 Hwy 360")));
  EXPECT_THAT(Find("11 Fort Logan Road,59645").candidates, ElementsAre(HasSubstr("11 Fort Logan Rd")));
  EXPECT_EQ(Find("11 MT-360,59645").result, kMatch);
}

TEST_F(GeocoderTest, AStreetSplitByTheBorderOfAZip) {
  AddNorth("Main St", {-110'900'000, 46'510'000}, 200, 298, "59646");
  const auto answer = Find("250 Main St,White Sulphur Springs,MT,59645");
  ASSERT_EQ(answer.candidates.size(), 1U);
  EXPECT_THAT(answer.candidates[0], EndsWith("250 Main St, White Sulphur Springs, MT 59646"));
  EXPECT_EQ(answer.result, kMatch) << "the town matches";
}

TEST_F(GeocoderTest, AnEdgeOnTheBorderOfTwoZips) {
  index.AddEdge({"Border Rd"}, North({-110'850'000, 46'500'000}), Numbers{1, 99, Parity::Odd, "59645"},
                Numbers{2, 98, Parity::Even, "59053"});
  EXPECT_THAT(Find("51 Border Rd,59645").candidates, ElementsAre(EndsWith("White Sulphur Springs, MT 59645")));
  EXPECT_THAT(Find("52 Border Rd,59053").candidates, ElementsAre(EndsWith("Martinsdale, MT 59053")));
  const auto wrong = Find("52 Border Rd,59645");
  EXPECT_THAT(wrong.candidates, ElementsAre(EndsWith("(other side)")));
  EXPECT_EQ(wrong.result, 0);
}

TEST_F(GeocoderTest, OneNameInTwoTownsOfOneZipGivesBothTheNearerTownFirst) {
  AddNorth("Main St", {-110'700'000, 46'500'000}, 100, 198, "59645");
  const auto answer = Find("120 Main St,White Sulphur Springs,MT,59645");
  ASSERT_EQ(answer.candidates.size(), 2U);
  EXPECT_LT(answer.longitude, -11'080'000);
}

TEST_F(GeocoderTest, AStreetThatIsMissingFallsToItsZip) {
  const auto answer = Find("12 Brand New Ct,White Sulphur Springs,MT,59645");
  EXPECT_THAT(answer.candidates, ElementsAre("-11090000 4650000 White Sulphur Springs, MT 59645 (ZIP area)"));
  EXPECT_EQ(answer.result, 0);
}

TEST_F(GeocoderTest, ThenToItsTown) {
  EXPECT_THAT(Find("12 Brand New Ct,Martinsdale,MT").candidates, ElementsAre("-11030000 4640000 Martinsdale, MT (town)"));
  EXPECT_THAT(Find("12 Brand New Ct,Martinsdale,MT,99998").candidates, ElementsAre("-11030000 4640000 Martinsdale, MT (town)"));
  const auto nowhere = Find("12 Brand New Ct,Nowhere,MT");
  EXPECT_TRUE(nowhere.candidates.empty());
  EXPECT_FALSE(nowhere.positionFound);
}

TEST_F(GeocoderTest, LinesWithoutAStreetFallToTheZip) {
  EXPECT_THAT(Find("PO Box 12,White Sulphur Springs,MT,59645").candidates, ElementsAre(EndsWith("(ZIP area)")));
  EXPECT_THAT(Find("RR 2 Box 5,59645").candidates, ElementsAre(EndsWith("(ZIP area)")));
}

TEST_F(GeocoderTest, NamesThatAreTypesOrDirections) {
  for (const char* name : {"Park Ave S", "Forest Rd", "Avenue C", "St Johns Rd", "North St", "Court St", "N W St"}) {
    AddNorth(name, {-110'850'000, 46'500'000}, 100, 198, "59645");
    EXPECT_EQ(Find(std::string("150 ") + name + ",59645").result, kMatch) << name;
  }
  EXPECT_THAT(Best("150 C Avenue,59645"), HasSubstr("150 Avenue C,"));
  EXPECT_THAT(Best("150 Forest Road,59645"), HasSubstr("150 Forest Rd,"));
  EXPECT_THAT(Best("150 N St,59645"), HasSubstr("150 North St,"));
  EXPECT_THAT(Best("150 Saint John's Road,59645"), HasSubstr("150 St Johns Rd,"));
}

TEST_F(GeocoderTest, ADirectionInFrontIsAnotherStreetThanOneBehind) {
  AddNorth("3rd Ave N", {-110'850'000, 46'500'000}, 100, 198, "59645");
  AddNorth("N 3rd Ave", {-110'840'000, 46'500'000}, 100, 198, "59645");
  EXPECT_THAT(Find("150 3rd Ave N,59645").candidates, ElementsAre(HasSubstr(" 150 3rd Ave N,")));
  EXPECT_THAT(Find("150 N 3rd Ave,59645").candidates, ElementsAre(HasSubstr(" 150 N 3rd Ave,")));
  EXPECT_EQ(Find("150 3rd Ave,59645").candidates.size(), 2U) << "lost: both may be meant";
}

TEST_F(GeocoderTest, ADirectionOnTheWrongSideIsStillFound) {
  AddNorth("3rd Ave N", {-110'850'000, 46'500'000}, 100, 198, "59645");
  EXPECT_THAT(Best("150 N 3rd Ave,59645"), HasSubstr("150 3rd Ave N,"));
  EXPECT_THAT(Best("150 Third Avenue North,59645"), HasSubstr("150 3rd Ave N,"));
  AddNorth("3rd Ave", {-110'840'000, 46'500'000}, 100, 198, "59645");
  EXPECT_THAT(Best("150 N 3rd Ave,59645"), HasSubstr("150 3rd Ave N,")) << "likelier than the street without a direction";
  EXPECT_EQ(Find("150 N 3rd Ave,59645").result, 0) << "another street, for who is exact";
}

TEST_F(GeocoderTest, HighwaysWithNumbers) {
  AddNorth("US Hwy 89 N", {-110'850'000, 46'500'000}, 100, 198, "59645");
  AddNorth("Co Rd 89", {-110'840'000, 46'500'000}, 100, 198, "59645");
  EXPECT_THAT(Find("150 US 89 N,59645").candidates, ElementsAre(HasSubstr("US Hwy 89 N")));
  EXPECT_THAT(Find("150 Highway 89,59645").candidates, ElementsAre(HasSubstr("US Hwy 89 N")));
  EXPECT_THAT(Find("150 County Road 89,59645").candidates, ElementsAre(HasSubstr("Co Rd 89")));
}

TEST_F(GeocoderTest, LeadingZerosOfZipsMayBeLost) {
  AddNorth("Brighton Ave", {-71'130'000, 42'350'000}, 100, 198, "02134");
  EXPECT_THAT(Find("150 Brighton Ave,Boston,MA,2134").candidates, ElementsAre(EndsWith("Boston, MA 02134")));
  EXPECT_EQ(Find("2134").latitude, 4'235'000);
  EXPECT_EQ(Find("2134").result, 0) << "not a ZIP as it should be";
}

TEST_F(GeocoderTest, HyphenatedNumbersAreNoRanges) {
  index.AddEdge({"90th Ave"}, North({-110'850'000, 46'500'000}), std::nullopt, Numbers{2, 98, Parity::Even, "59645", "243-"});
  EXPECT_THAT(Find("243-20 90th Ave,59645").candidates, ElementsAre(HasSubstr("243-20 90th Ave")));
  EXPECT_EQ(Find("243-20 90th Ave,59645").result, kMatch);
  EXPECT_THAT(Find("24320 90th Ave,59645").candidates, ElementsAre(HasSubstr("243-20 90th Ave")));
  EXPECT_EQ(Find("24320 90th Ave,59645").result, 0);
  EXPECT_THAT(Find("150-154 Main St,59645").candidates, ElementsAre(HasSubstr("150 Main St")));
}

TEST_F(GeocoderTest, GridNumbers) {
  index.AddEdge({"Pilgrim Rd"}, North({-110'850'000, 46'500'000}), std::nullopt, Numbers{23001, 23099, Parity::Odd, "59645", "N6W"});
  EXPECT_EQ(Find("N6W23051 Pilgrim Rd,59645").result, kMatch);
  EXPECT_EQ(Find("N6 W23051 Pilgrim Rd,59645").result, kMatch);
}

TEST_F(GeocoderTest, ASuppressedNumberLiesAtTheNearestOne) {
  const auto near = Find("250 Main St,59645");
  EXPECT_THAT(near.candidates, ElementsAre(EndsWith("250 Main St, White Sulphur Springs, MT 59645 (nearest number)")));
  EXPECT_EQ(near.result, 0);
  EXPECT_NEAR(near.latitude, 4'651'000 - 7, 2);
}

TEST_F(GeocoderTest, PointsBeatRanges) {
  index.AddPoint("Main St", {"", 150, ""}, {-110'890'000, 46'505'000}, "59645");
  index.AddPoint("Main St", {"", 150, "B"}, {-110'880'000, 46'505'000}, "59645");
  EXPECT_EQ(Find("150 Main St,59645").longitude, -11'089'000);
  EXPECT_EQ(Find("150B Main St,59645").longitude, -11'088'000);
  EXPECT_EQ(Find("150 B Main St,59645").longitude, -11'088'000);
  EXPECT_EQ(Find("150C Main St,59645").candidates.size(), 2U);
  EXPECT_EQ(Find("150 Main St,59645").result, kMatch);
}

TEST_F(GeocoderTest, AcrossTheHundredAndEightiethDegree) {
  index.AddZip("99546", "Adak", "AK", "Aleutians West", {179'990'000, 51'800'000});
  index.AddEdge({"Bayshore Dr"}, {{179'999'000, 51'800'000}, {-179'999'000, 51'800'000}}, Numbers{1, 99, Parity::Odd, "99546"},
                std::nullopt);
  const auto answer = Find("99 Bayshore Dr,Adak,AK,99546");
  ASSERT_EQ(answer.candidates.size(), 1U);
  EXPECT_LT(answer.longitude, -17'999'000);
}

TEST_F(GeocoderTest, LoopsAndEdgesWithoutLength) {
  const Position at{-110'850'000, 46'500'000};
  index.AddEdge(
      {"Loop Rd"},
      {at, {at.longitude + 1'000, at.latitude + 1'000}, {at.longitude + 1'000, at.latitude}, {at.longitude, at.latitude + 1'000}, at},
      Numbers{1, 99, Parity::Odd, "59645"}, std::nullopt);
  index.AddEdge({"Point Rd"}, {at, at}, Numbers{1, 99, Parity::Odd, "59645"}, std::nullopt);
  EXPECT_EQ(Find("51 Loop Rd,59645").result, kMatch);
  EXPECT_EQ(Find("51 Point Rd,59645").longitude, -11'085'000);
}

TEST_F(GeocoderTest, MisspeltNames) {
  AddNorth("Laramie St", {-110'850'000, 46'500'000}, 100, 198, "59645");
  for (const char* name : {"Laramei St", "Larame St", "Larramie St", "Laramy St", "Larime St"})
    EXPECT_THAT(Best(std::string("150 ") + name + ",59645"), HasSubstr("150 Laramie St,")) << name;
  EXPECT_EQ(Find("150 Laramei St,59645").result, 0);
  EXPECT_THAT(Best("150 Laramie Streat,59645"), HasSubstr("150 Laramie St,"));
  EXPECT_THAT(Best("150 Baramie St,59645"), HasSubstr("(ZIP area)")) << "the first letter is kept";
}

TEST_F(GeocoderTest, MissingAndWrongParts) {
  EXPECT_EQ(Find("150 Main,59645").result, kMatch) << "the type alone is missing";
  EXPECT_EQ(Find("150 Main St,White Sulphur Springs,MT").result, kMatch);
  EXPECT_EQ(Find("150 Main St,Martinsdale,MT,59645").result, kMatch) << "the ZIP matches";
  const auto wrongZip = Find("150 Main St,White Sulphur Springs,MT,02134");
  EXPECT_THAT(wrongZip.candidates, ElementsAre(HasSubstr("59645")));
  EXPECT_EQ(wrongZip.result, kMatch) << "the town matches";
  const auto neither = Find("150 Main St,Martinsdale,MT,59053");
  EXPECT_THAT(neither.candidates, ElementsAre(HasSubstr("59645")));
  EXPECT_EQ(neither.result, 0);
  const auto state = Find("150 Main St,Nowhere,MT");
  EXPECT_THAT(state.candidates, ElementsAre(HasSubstr("59645")));
  EXPECT_EQ(state.result, 0);
  EXPECT_EQ(Find("150 Main St").candidates.size(), 1U);
  EXPECT_EQ(Find("150 Main St").result, 0);
  EXPECT_TRUE(Find("150 Main St,Nowhere,WY").candidates.empty());
}

TEST_F(GeocoderTest, AStreetWithoutNumberIsItsMiddle) {
  const auto answer = Find("Main St,59645");
  EXPECT_THAT(answer.candidates, ElementsAre("-11090000 4650500 Main St, White Sulphur Springs, MT 59645 (street)"));
  EXPECT_EQ(answer.result, 0);
}

TEST_F(GeocoderTest, TownAndStreetInOnePart) {
  EXPECT_EQ(Find("150 Main St White Sulphur Springs MT 59645").result, kMatch);
  EXPECT_EQ(Find("150 Main St White Sulphur Springs,MT").result, kMatch);
  AddNorth("Grasshopper", {-110'850'000, 46'500'000}, 100, 198, "59645");
  EXPECT_EQ(Find("150 Grasshopper White Sulphur Springs MT 59645").result, kMatch) << "the ZIP's own town needs no type before it";
}

TEST_F(GeocoderTest, ATextWithoutAStreetLineHasAPositionAndNoLine) {
  for (const char* text : {"59645", "59645-1234"}) {
    const auto answer = Find(text);
    EXPECT_TRUE(answer.positionFound) << text;
    EXPECT_TRUE(answer.candidates.empty()) << text;
    EXPECT_EQ(answer.result, kMatch) << text;
    EXPECT_EQ(answer.latitude, 4'650'000) << text;
  }
  const auto town = Find("Martinsdale, MT");
  EXPECT_TRUE(town.positionFound);
  EXPECT_TRUE(town.candidates.empty());
  EXPECT_EQ(town.result, 0);
  EXPECT_EQ(town.longitude, -11'030'000);
  const auto both = Find("Martinsdale,MT,59053");
  EXPECT_TRUE(both.positionFound);
  EXPECT_TRUE(both.candidates.empty());
  EXPECT_EQ(both.result, 0);
}

TEST_F(GeocoderTest, ATownThatIsNotKnownIsNoStreet) {
  AddNorth("Ringling Rd", {-110'850'000, 46'500'000}, 100, 198, "59645");
  for (const char* text : {"Ringling, MT", "Ringlin, MT", "Ringling"}) {
    EXPECT_FALSE(Find(text).positionFound) << text;
    EXPECT_TRUE(Find(text).candidates.empty()) << text;
  }
  EXPECT_TRUE(Find("Ringlin,59645").candidates.empty());
  EXPECT_EQ(Find("Ringlin,59645").latitude, 4'650'000) << "the ZIP's point";
  EXPECT_THAT(Find("Ringling Rd, MT").candidates, ElementsAre(EndsWith("(street)")));
  EXPECT_THAT(Find("Ringling,59645").candidates, ElementsAre(EndsWith("(street)"))) << "a street of that ZIP";
}

TEST_F(GeocoderTest, WhatCantBeFoundLeavesThePosition) {
  for (const char* text : {"", " ", ",", ", ", "99998", "Nowhere, MT", "MT", "???", "\xFF\xFE", "#", "1 2 3"}) {
    const auto answer = Find(text);
    EXPECT_FALSE(answer.positionFound) << text;
    EXPECT_TRUE(answer.candidates.empty()) << text;
    EXPECT_EQ(answer.result, 0) << text;
  }
}

TEST_F(GeocoderTest, AtMostTwentyFiveCandidates) {
  for (int i = 0; i < 40; ++i) AddNorth("Elm St", {-110'800'000 + i * 100'000, 46'500'000}, 100, 198, "59645");
  EXPECT_EQ(Find("150 Elm St,59645").candidates.size(), 25U);
}

TEST_F(GeocoderTest, AFullAddressAsksLittle) {
  Find("150 Main St,White Sulphur Springs,MT,59645");
  index.questions = 0;
  Find("150 Main St,White Sulphur Springs,MT,59645");
  EXPECT_LE(index.questions, 3);
}

TEST_F(GeocoderTest, LongTextsAreHarmless) {
  for (const char* piece : {"a", "Main ", "1 ", "N ", "St ", "#5 ", "-", "\xE2\x80\xAE", "\x01", "Main St,", "St Johns "}) {
    std::string text;
    while (text.size() < 10'000) text += piece;
    const auto start = std::chrono::steady_clock::now();
    Find(text);
    Find("100 " + text + ",White Sulphur Springs,MT,59645");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2)) << piece;
  }
}

}  // namespace
