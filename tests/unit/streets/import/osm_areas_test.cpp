#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "streets/import/osm/extract_import.h"
#include "unit/streets/import/extract_test.h"

// Buildings that consist of several ways, told by a relation.
namespace streets {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class AreasTest : public ExtractTest {
 protected:
  // A square of a hundredth of a degree, its corners one to four from the south-west around.
  static void Square(MadeExtract& extract, std::int64_t first, double west, double south) {
    extract.Node(first, west, south);
    extract.Node(first + 1, west + 0.01, south);
    extract.Node(first + 2, west + 0.01, south + 0.01);
    extract.Node(first + 3, west, south + 0.01);
  }
  static MadeExtract::Tags House(const std::string& number, const std::string& type = "multipolygon") {
    return {{"type", type}, {"building", "yes"}, {"addr:housenumber", number}, {"addr:street", "Elm Street"}, {"addr:postcode", "11411"}};
  }
};

TEST_F(AreasTest, AHouseWithACourtLiesInTheMiddleOfItsOuterRing) {
  MadeExtract extract;
  Square(extract, 1, -73.75, 40.71);
  Square(extract, 11, -73.749, 40.711);
  extract.Way(20, {1, 2, 3, 4, 1}, {});
  extract.Way(21, {11, 12, 13, 14, 11}, {});
  extract.Relation(30, House("207-01"), {{20, "outer"}, {21, "inner"}});
  const ExtractCounts counts = Import(extract);
  EXPECT_THAT(told_, IsEmpty());
  EXPECT_EQ(counts.records, 1);
  EXPECT_EQ(counts.points, 1);
  EXPECT_THAT(Houses("ELM"), ElementsAre("207-1 11411 -73745000 40715000"));
}

TEST_F(AreasTest, ARingMayBePartedIntoWaysThatRunAnyWay) {
  MadeExtract extract;
  Square(extract, 1, -73.75, 40.71);
  extract.Way(20, {1, 2}, {});
  extract.Way(21, {4, 3}, {});
  extract.Way(22, {4, 1}, {});
  extract.Way(23, {2, 3}, {});
  extract.Relation(30, House("12"), {{20, "outer"}, {21, ""}, {22, "outer"}, {23, "outer"}});
  extract.Relation(31, House("14", "building"), {{20, "outline"}, {21, "outline"}, {22, "outline"}, {23, "outline"}});
  Import(extract);
  EXPECT_THAT(told_, IsEmpty());
  EXPECT_THAT(Houses("ELM"), UnorderedElementsAre("12 11411 -73745000 40715000", "14 11411 -73745000 40715000"));
}

TEST_F(AreasTest, OfSeveralRingsTheLargestTells) {
  MadeExtract extract;
  Square(extract, 1, -73.75, 40.71);
  extract.Node(5, -73.70, 40.71);
  extract.Node(6, -73.699, 40.71);
  extract.Node(7, -73.699, 40.711);
  extract.Way(20, {5, 6, 7, 5}, {});
  extract.Way(21, {4, 3, 2, 1, 4}, {});
  extract.Relation(30, House("12"), {{20, "outer"}, {21, "outer"}});
  Import(extract);
  EXPECT_THAT(Houses("ELM"), ElementsAre("12 11411 -73745000 40715000"));
}

TEST_F(AreasTest, WhatCantBeTakenIsTold) {
  MadeExtract extract;
  Square(extract, 1, -73.75, 40.71);
  extract.Way(20, {1, 2, 3}, {});
  extract.Way(21, {3, 4, 900, 3}, {});
  extract.Way(22, {}, {});
  extract.Way(23, {1, 2, 1}, {});
  extract.Way(24, {1, 2, 3, 4, 1}, {});
  extract.Relation(30, House("1", "site"), {{24, "outer"}});
  extract.Relation(31, House("2"), {{24, "inner"}});
  extract.Relation(32, House("3"), {{20, "outer"}});
  extract.Relation(33, House("4"), {{24, "outer"}, {21, "outer"}});
  extract.Relation(34, House("5"), {{24, "outer"}, {700, "outer"}});
  extract.Relation(35, House("6"), {{22, "outer"}});
  extract.Relation(36, House("7"), {{23, "outer"}});
  extract.Relation(37, {{"type", "multipolygon"}, {"addr:housenumber", "8"}}, {{24, "outer"}});
  extract.Relation(38, {{"type", "multipolygon"}, {"building", "yes"}}, {{24, "outer"}});
  const ExtractCounts counts = Import(extract);
  EXPECT_THAT(told_, UnorderedElementsAre("relation 30: type=site has no outer ring", "relation 31: none of its ways is an outer ring",
                                          "relation 32: its outer ring is not whole in the file", "relation 33: its outer ring is not whole in the file",
                                          "relation 34: its outer ring is not whole in the file", "relation 35: its outer ring is not whole in the file",
                                          "relation 36: it surrounds nothing", "relation 37: it has no street (addr:street)"));
  EXPECT_EQ(counts.records, 8);
  EXPECT_EQ(counts.refused, 8);
  EXPECT_EQ(counts.points, 0);
}

// The ways of a house may bear addresses and names too, and come in other rounds.
TEST_F(AreasTest, RoundsDontMatter) {
  MadeExtract extract;
  Square(extract, 1, -73.75, 40.71);
  extract.Way(20, {1, 2, 3}, House("1"));
  extract.Way(21, {3, 4, 1}, {{"highway", "residential"}, {"name", "Elm Street"}});
  extract.Relation(30, House("12"), {{20, "outer"}, {21, "outer"}});
  extract.Write(folder_ / "town.pbf");
  for (const std::size_t atATime : {1U, 2U, 1'000U}) {
    std::int64_t last = 0;
    std::int64_t all = 0;
    ExtractListener listener = Listener();
    listener.onProgress = [&](const std::string&, std::int64_t done, std::int64_t of) {
      EXPECT_GE(done, last);
      EXPECT_LE(done, of);
      last = done;
      all = of;
    };
    told_.clear();
    const ExtractCounts counts = ImportExtract(folder_ / "town.pbf", nullptr, nullptr, listener, atATime);
    EXPECT_THAT(told_, IsEmpty()) << atATime;
    EXPECT_EQ(counts.points, 2) << atATime;
    EXPECT_EQ(counts.edges, 1) << atATime;
    EXPECT_GT(all, 0);
  }
}

TEST_F(AreasTest, AnExtractOfRelationsAloneHoldsNothing) {
  MadeExtract extract;
  extract.Relation(30, House("12"), {{20, "outer"}});
  extract.Write(folder_ / "town.pbf");
  EXPECT_THAT(Failure(folder_ / "town.pbf"), testing::HasSubstr("holds neither nodes nor ways"));
}

}  // namespace
}  // namespace streets
