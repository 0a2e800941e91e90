#include "streets/import/base/base_map.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "streets/check/check_file.h"
#include "streets/file/file_error.h"
#include "streets/file/street_file.h"
#include "streets/file/street_files.h"
#include "streets/ground/file_ground.h"
#include "streets/import/base/zip_areas.h"
#include "streets/index/file_index.h"
#include "support/temporary_folder.h"

namespace streets {
namespace {

using platform::MapLine;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

const char* const kSources = ORCUSSCH_TEST_DIR "/../data/map";

// The map that is delivered, made once.
class BaseMapTest : public testing::Test {
 protected:
  struct Map {
    Map() {
      const auto file = OpenOrMakeStreetFile(folder / "map.zds");
      counts = WriteBaseMap(kSources, *file);
    }
    TemporaryFolder folder;
    BaseMapCounts counts;
  };
  static const Map& Made() {
    static const Map map;
    return map;
  }
  BaseMapTest() : files_({Made().folder / "map.zds"}), index_(files_), ground_(files_) {}

  double FromPoint(const std::string& zip, std::int32_t longitude, std::int32_t latitude) {
    const auto area = index_.Zip(zip);
    return area ? Kilometres(area->at, {longitude, latitude}) : 1e9;
  }

  StreetFiles files_;
  FileIndex index_;
  FileGround ground_;
};

TEST_F(BaseMapTest, HoldsAllOfItsSources) {
  EXPECT_EQ(Made().counts.borders, 9'869u);
  EXPECT_EQ(Made().counts.zips, 41'637u);  // 33,791 areas, and the offices without one
  EXPECT_THAT(CheckStreetFile(Made().folder / "map.zds"), IsEmpty());
  EXPECT_THAT(ground_.Notices(), ElementsAre(HasSubstr("GeoNames")));
}

TEST_F(BaseMapTest, AnAreasOwnPointIsTaken) {
  const auto zip = index_.Zip("59645");
  ASSERT_TRUE(zip);
  EXPECT_EQ(zip->at, (Position{-111'054'662, 46'687'672}));
  EXPECT_EQ(zip->city, "White Sulphur Springs");
  EXPECT_EQ(zip->state, "MT");
  EXPECT_EQ(zip->county, "Meagher");
  EXPECT_FALSE(index_.Zip("00000"));
  EXPECT_FALSE(index_.Zip("5964"));
}

// Anchorage's midtown, which its area's point puts 448 km away, and its base, which the post office's does.
TEST_F(BaseMapTest, OfTwoPositionsFarApartTheRightOneIsBelieved) {
  EXPECT_LT(FromPoint("99503", -149'890'000, 61'190'000), 5);
  EXPECT_LT(FromPoint("99506", -149'800'000, 61'270'000), 5);
  EXPECT_LT(FromPoint("99519", -149'440'000, 61'109'000), 5);  // its area's point lies in the Arctic
  EXPECT_LT(FromPoint("80840", -104'864'000, 39'000'000), 5);  // the office's lies in another county
  EXPECT_LT(FromPoint("66040", -94'738'000, 38'357'000), 5);
}

TEST_F(BaseMapTest, AreasWithoutAnOfficeHaveTheNamesOfTheirOutline) {
  const auto zip = index_.Zip("00601");
  ASSERT_TRUE(zip);
  EXPECT_EQ(zip->city, "");
  EXPECT_EQ(zip->state, "PR");
  EXPECT_EQ(zip->county, "Adjuntas");
}

TEST_F(BaseMapTest, TheForcesPostHasItsLettersForAState) {
  const auto zip = index_.Zip("09007");
  ASSERT_TRUE(zip);
  EXPECT_EQ(zip->city, "APO");
  EXPECT_EQ(zip->state, "AE");
  EXPECT_THAT(index_.Places("APO", ""), IsEmpty());
}

TEST_F(BaseMapTest, PlacesAreFoundByNameAndState) {
  const auto places = index_.Places("WHITE SULPHUR SPRINGS", "MT");
  ASSERT_THAT(places, SizeIs(1));
  EXPECT_EQ(places[0].name, "White Sulphur Springs");
  EXPECT_THAT(places[0].zips, ElementsAre("59645"));
  EXPECT_GT(index_.Places("WHITE SULPHUR SPRINGS", "").size(), 1u);
  EXPECT_THAT(index_.Places("NOWHERE AT ALL", ""), IsEmpty());
  EXPECT_THAT(index_.ZipsOfCounty("MT", "MEAGHER"), ElementsAre("59053", "59642", "59645"));
}

TEST_F(BaseMapTest, DrawsBordersByWhatCanBeSeen) {
  const auto count = [&](MapLine kind, double unitsPerPixel) {
    std::size_t points = 0;
    ground_.Lines(kind, {2'400'000, -12'500'000, 4'900'000, -6'600'000}, unitsPerPixel,
                  [&](MapLine, std::span<const platform::MapPoint> line, const std::string&) { points += line.size(); });
    return points;
  };
  EXPECT_GT(count(MapLine::State, 10), 3 * count(MapLine::State, 6'000) / 2);
  EXPECT_GT(count(MapLine::County, 100), 20'000u);
  EXPECT_EQ(count(MapLine::County, 6'000), 0u);
}

TEST_F(BaseMapTest, NamesTheGreatestPlacesFirst) {
  std::vector<std::string> texts;
  std::size_t zips = 0;
  const platform::MapBox montana{4'400'000, -11'600'000, 4'900'000, -10'400'000};
  const auto take = [&](platform::MapText kind, platform::MapPoint, const std::string& text) {
    texts.push_back(text);
    if (kind == platform::MapText::Zip) ++zips;
  };
  ground_.Texts(montana, 700, take);
  EXPECT_THAT(texts, Contains("Billings"));
  EXPECT_LT(texts.size(), 20u);
  EXPECT_EQ(zips, 0u);
  texts.clear();
  ground_.Texts(montana, 50, take);
  EXPECT_THAT(texts, Contains("White Sulphur Springs"));
  EXPECT_GT(zips, 300u);
}

TEST(BaseMapSources, WhatIsWrongIsToldWithFileAndLine) {
  const TemporaryFolder folder;
  const auto words = [&](const auto& read) -> std::string {
    try {
      read();
    } catch (const FileError& problem) {
      return problem.what();
    }
    return "";
  };
  const std::string points = folder.Write("zip-points.csv", "zip,latitude,longitude\n10001,40.7,-74\n10002,91,0\n");
  EXPECT_EQ(words([&] { ReadZipPoints(points); }), points + ", line 3: \"91\" is no position.");
  const std::string offices = folder.Write("zip-places.tsv", "US\t1\tx\n");
  EXPECT_EQ(words([&] { ReadPostOffices(offices); }), offices + ", line 1: has fewer than 11 fields.");
  EXPECT_THAT(words([&] { ParseOutlines("{", "o.json"); }), HasSubstr("o.json is not a topology"));
  EXPECT_THAT(words([&] { ParseOutlines(R"({"transform":{"scale":[1,1],"translate":[0,0]},"arcs":[[[0,0],[400,0]]]})", "o.json"); }),
              HasSubstr("off the earth"));
  const auto file = OpenOrMakeStreetFile(folder / "map.zds");
  EXPECT_NE(words([&] { WriteBaseMap(folder.Path(), *file); }), "");
}

}  // namespace
}  // namespace streets
