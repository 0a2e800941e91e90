#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "streets/check/check_file.h"
#include "streets/file/file_error.h"
#include "streets/file/street_file.h"
#include "streets/file/street_files.h"
#include "streets/ground/file_ground.h"
#include "streets/import/osm/extract_import.h"
#include "streets/index/file_index.h"
#include "support/temporary_folder.h"
#include "unit/streets/import/extract_test.h"

namespace streets {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST_F(ExtractTest, NamedWaysAreStreetsWithTheirClassesAndNames) {
  MadeExtract extract;
  for (int i = 1; i <= 4; ++i) extract.Node(i, -68.77 + 0.001 * i, 44.8);
  extract.Way(10, {1, 2, 3}, {{"highway", "residential"}, {"name", "Hammond Street"}, {"alt_name", "Old Post Road;Stage Road"}, {"tiger:zip_left", "04401"}});
  extract.Way(11, {3, 4}, {{"highway", "motorway"}, {"ref", "I 95;ME 15"}});
  extract.Way(12, {3, 4}, {{"highway", "footway"}, {"name", "River Walk"}, {"old_name", "Tow Path"}});
  extract.Way(13, {3, 4}, {{"highway", "primary_link"}, {"name", "Main Street"}});
  extract.Way(14, {3, 4}, {{"highway", "tertiary"}, {"name", "Union Street"}});
  extract.Way(15, {3, 4}, {{"highway", "service"}});
  extract.Way(16, {3, 4}, {{"building", "yes"}, {"name", "Town Hall"}});
  extract.Way(17, {3, 4}, {{"highway", "proposed"}, {"name", "New Street"}});
  const ExtractCounts counts = Import(extract);
  EXPECT_THAT(told_, ElementsAre("way 17: highway=proposed is no street"));
  EXPECT_EQ(counts.records, 6);
  EXPECT_EQ(counts.refused, 1);
  EXPECT_EQ(counts.edges, 5);
  for (const char* boxes : {"HighwayBoxes", "MainRoadBoxes", "RoadBoxes", "StreetBoxes", "PathBoxes"})
    EXPECT_EQ(Ask(std::string("SELECT count(*) FROM ") + boxes), 1) << boxes;
  EXPECT_THAT(CheckStreetFile(folder_ / "s.zds"), IsEmpty());

  StreetFiles files({folder_ / "s.zds"});
  FileIndex index(files);
  const std::vector<std::string> zip{"04401"};
  for (const char* key : {"HAMMOND", "OLD POST", "STAGE"}) {
    const auto names = index.Named(key, zip);
    ASSERT_EQ(names.size(), 1U) << key;
    const auto edges = index.Edges(names[0].id, zip);
    ASSERT_EQ(edges.size(), 1U) << key;
    EXPECT_THAT(index.Shape(edges[0]), ElementsAre(Position{-68'769'000, 44'800'000}, Position{-68'768'000, 44'800'000}, Position{-68'767'000, 44'800'000}));
  }
  for (const char* key : {"95", "15", "RIVER", "MAIN", "UNION"}) EXPECT_EQ(index.Named(key, {}).size(), 1U) << key;
  EXPECT_THAT(FileGround(files).Notices(), ElementsAre("(C) OpenStreetMap contributors"));
}

TEST_F(ExtractTest, HousesAreTheirPlacesOrTheMiddleOfTheirWalls) {
  MadeExtract extract;
  extract.Node(1, -73.75, 40.71, {{"addr:housenumber", "12"}, {"addr:street", "Elm Street"}, {"addr:postcode", "11428-1203"}});
  extract.Node(2, -73.752, 40.71);
  extract.Node(3, -73.750, 40.71);
  extract.Node(4, -73.750, 40.712);
  extract.Node(5, -73.752, 40.712);
  extract.Way(20, {2, 3, 4, 5, 2}, {{"building", "yes"}, {"addr:housenumber", "14"}, {"addr:street", "Elm Street"}, {"addr:postcode", "11428"}});
  // An L, whose middle isn't that of its corners; then the walls of which only some are there.
  extract.Node(6, -73.748, 40.71);
  extract.Node(7, -73.748, 40.711);
  extract.Node(8, -73.750, 40.711);
  extract.Way(21, {2, 6, 7, 8, 4, 5, 2}, {{"addr:housenumber", "16"}, {"addr:street", "Elm Street"}});
  extract.Way(22, {2, 3, 900, 2}, {{"addr:housenumber", "18"}, {"addr:street", "Elm Street"}});
  extract.Way(23, {4}, {{"addr:housenumber", "20"}, {"addr:street", "Elm Street"}});
  extract.Way(24, {3, 3, 3}, {{"addr:housenumber", "22"}, {"addr:street", "Elm Street"}});
  EXPECT_EQ(Import(extract).points, 6);
  EXPECT_THAT(told_, IsEmpty());
  EXPECT_THAT(Houses("ELM"), UnorderedElementsAre("12 11428 -73750000 40710000", "14 11428 -73751000 40711000", "16  -73750333 40710833",
                                                  "18  -73751000 40710000", "20  -73750000 40712000", "22  -73750000 40710000"));
  EXPECT_THAT(CheckStreetFile(folder_ / "s.zds"), IsEmpty());
}

TEST_F(ExtractTest, ATextOfNumbersIsEveryHouseThatItNames) {
  MadeExtract extract;
  std::int64_t id = 0;
  const auto house = [&](const std::string& number, const std::string& street, const std::string& zip) {
    extract.Node(++id, -73.75, 40.71, {{"addr:housenumber", number}, {"addr:street", street}, {"addr:postcode", zip}});
  };
  for (const char* number : {"7", "9", "11", "12-16", "21-22", "30;32", "12A", "14 b", "40 1/2"}) house(number, "Plain Street", "04401");
  for (const char* number : {"243-20", "92-05", "90-94", "90-10-90-14", "87-12A", "214-39 REAR"}) house(number, "204th Street", "11428");
  house("12-14", "Short Place", "11428");  // nothing tells but the ZIP
  Import(extract);
  EXPECT_THAT(told_, IsEmpty());
  const auto numbers = [&](const std::string& key) {
    std::vector<std::string> all;
    for (const std::string& each : Houses(key)) all.push_back(each.substr(0, each.find(' ', each.find(' ') + 1)));
    return all;
  };
  EXPECT_THAT(numbers("PLAIN"), UnorderedElementsAre("7 04401", "9 04401", "11 04401", "12 04401", "14 04401", "16 04401", "21 04401", "22 04401", "30 04401",
                                                     "32 04401", "12A 04401", "14B 04401", "401/2 04401"));
  EXPECT_THAT(numbers("204TH"), UnorderedElementsAre("243-20 11428", "92-5 11428", "90-94 11428", "90-10 11428", "90-12 11428", "90-14 11428", "87-12A 11428", "214-39REAR 11428"));
  EXPECT_THAT(numbers("SHORT"), ElementsAre("12-14 11428"));
}

TEST_F(ExtractTest, LinesOfNumbersAreHousesBetween) {
  MadeExtract extract;
  extract.Node(1, -73.75, 40.70, {{"addr:housenumber", "1"}, {"addr:street", "Oak Street"}, {"addr:postcode", "04401"}});
  extract.Node(2, -73.74, 40.70);
  extract.Node(3, -73.73, 40.70, {{"addr:housenumber", "9"}, {"addr:street", "Oak Street"}, {"addr:postcode", "04401"}});
  extract.Way(30, {1, 2, 3}, {{"addr:interpolation", "odd"}});
  // Downward, with a prefix, and the street told by the line alone.
  extract.Node(4, -73.75, 40.71, {{"addr:housenumber", "90-06"}});
  extract.Node(5, -73.72, 40.71, {{"addr:housenumber", "90-03"}});
  extract.Way(31, {4, 5}, {{"addr:interpolation", "all"}, {"addr:street", "Ash Street"}});
  extract.Way(32, {1, 3}, {{"addr:interpolation", "alphabetic"}});
  extract.Way(33, {1, 3}, {{"addr:interpolation", "even"}});
  extract.Way(34, {1, 2}, {{"addr:interpolation", "odd"}});
  extract.Way(35, {1, 77}, {{"addr:interpolation", "odd"}});
  extract.Way(36, {1}, {{"addr:interpolation", "odd"}});
  extract.Node(6, -73.72, 40.71, {{"addr:housenumber", "9001"}, {"addr:street", "Oak Street"}});
  extract.Way(37, {1, 6}, {{"addr:interpolation", "odd"}});
  Import(extract);
  EXPECT_THAT(told_, UnorderedElementsAre("way 32: addr:interpolation=alphabetic can't be counted", "way 33: its numbers belie it",
                                          "way 34: fewer than two of its nodes have a number and a place",
                                          "way 35: fewer than two of its nodes have a number and a place", "way 36: it has fewer than two nodes",
                                          "way 37: its numbers lie too far apart"));
  EXPECT_THAT(Houses("OAK"), UnorderedElementsAre("1 04401 -73750000 40700000", "3 04401 -73745000 40700000", "5 04401 -73740000 40700000",
                                                  "7 04401 -73735000 40700000", "9 04401 -73730000 40700000", "9001  -73720000 40710000"));
  EXPECT_THAT(Houses("ASH"), UnorderedElementsAre("90-6  -73750000 40710000", "90-5  -73740000 40710000", "90-4  -73730000 40710000", "90-3  -73720000 40710000"));
  EXPECT_EQ(Ask("SELECT count(*) FROM Edges"), 0);
}

TEST_F(ExtractTest, WhatTellsNoZipHasTheNearestOne) {
  {
    const auto base = OpenOrMakeStreetFile(folder_ / "map.zds");
    // The post office stands nearer, but has no area of its own.
    base->Execute(
        "INSERT INTO Zips VALUES(4401, -68800000, 44840000, 'Bangor', 'ME', 'Penobscot'), (4412, -68760000, 44780000, 'Brewer', 'ME', 'Penobscot'),"
        " (4402, -68790000, 44800000, 'Bangor', 'ME', 'Penobscot');"
        "INSERT INTO ZipBoxes VALUES(4401, -68800000, -68800000, 44840000, 44840000), (4412, -68760000, -68760000, 44780000, 44780000)");
  }
  const auto base = OpenStreetFile(folder_ / "map.zds");
  MadeExtract extract;
  extract.Node(1, -68.79, 44.83, {{"addr:housenumber", "1"}, {"addr:street", "Oak Street"}});
  extract.Node(2, -68.76, 44.785, {{"addr:housenumber", "2"}, {"addr:street", "Oak Street"}, {"addr:postcode", "63-435"}});
  extract.Node(3, 10, 50, {{"addr:housenumber", "3"}, {"addr:street", "Oak Street"}});
  extract.Node(4, -68.799, 44.839);
  extract.Way(10, {4, 2}, {{"highway", "residential"}, {"name", "Ferry Street"}});
  Import(extract, "town.osm.pbf", base.get());
  EXPECT_THAT(told_, IsEmpty());
  EXPECT_THAT(Houses("OAK"), UnorderedElementsAre("1 04401 -68790000 44830000", "2 04412 -68760000 44785000", "3  10000000 50000000"));
  StreetFiles files({folder_ / "s.zds"});
  FileIndex index(files);
  for (const char* zip : {"04401", "04412"}) {
    const std::vector<std::string> zips{zip};
    EXPECT_EQ(index.Named("FERRY", zips).size(), 1U) << zip;
  }
}

TEST_F(ExtractTest, ASecondImportReplacesTheFirst) {
  const auto make = [](MadeExtract& extract, const std::string& street) {
    extract.Node(1, -68.77, 44.8, {{"addr:housenumber", "12"}, {"addr:street", street}, {"addr:postcode", "04401"}});
    extract.Node(2, -68.76, 44.8);
    extract.Way(10, {1, 2}, {{"highway", "residential"}, {"name", street}, {"tiger:zip_left", "04401"}});
  };
  MadeExtract first;
  make(first, "Elm Street");
  Import(first);
  MadeExtract second;
  make(second, "Oak Street");
  folder_.Write("elsewhere/empty", "");
  Import(second, "elsewhere/town.pbf");
  EXPECT_EQ(Ask("SELECT count(*) FROM Sources"), 1);
  EXPECT_EQ(Ask("SELECT count(*) FROM Sources WHERE code = 'osm:town'"), 1);
  EXPECT_EQ(Ask("SELECT count(*) FROM Streets"), 1);
  EXPECT_EQ(Ask("SELECT count(*) FROM ZipNames"), 1);
  EXPECT_EQ(Houses("OAK").size(), 1U);
  EXPECT_THAT(CheckStreetFile(folder_ / "s.zds"), IsEmpty());
  MadeExtract other;
  make(other, "Ash Street");
  Import(other, "village.osm.pbf");
  EXPECT_EQ(Ask("SELECT count(*) FROM Sources"), 2);
  EXPECT_EQ(Houses("ASH").size() + Houses("OAK").size(), 2U);
}

TEST_F(ExtractTest, RecordsThatCantBeTakenAreToldAndTheOthersAreTaken) {
  MadeExtract extract;
  extract.Node(1, -68.77, 44.8, {{"addr:housenumber", "12"}});
  extract.Node(2, -68.76, 44.8, {{"addr:housenumber", "27/2"}, {"addr:street", "Elm Street"}});
  extract.Node(3, -68.75, 95, {{"addr:housenumber", "14"}, {"addr:street", "Elm Street"}});
  extract.Node(4, -68.75, 44.8, {{"addr:housenumber", "16"}, {"addr:street", "Elm Street"}});
  const MadeExtract::Tags elm{{"highway", "residential"}, {"name", "Elm Street"}};
  extract.Way(10, {1}, elm);
  extract.Way(11, {}, elm);
  extract.Way(12, {1, 1, 1}, elm);
  extract.Way(13, {800, 801}, elm);
  extract.Way(14, {1, 2, 800, 2, 4, 801}, elm);
  extract.Way(15, {1, 3, 4}, elm);  // through the node that lies nowhere
  extract.Way(-16, {1, 2}, elm);
  extract.Way(17, {800, 801, 800}, {{"addr:housenumber", "18"}, {"addr:street", "Elm Street"}});
  extract.Way(18, {}, {{"addr:housenumber", "20"}, {"addr:street", "Elm Street"}});
  extract.Relation(30, {{"addr:housenumber", "22"}, {"addr:street", "Elm Street"}, {"type", "multipolygon"}});
  const ExtractCounts counts = Import(extract);
  EXPECT_THAT(told_, UnorderedElementsAre("node 1: it has no street (addr:street)", "node 2: \"27/2\" is no house number", "node 3: it lies nowhere on the earth",
                                          "way 10: it has fewer than two nodes", "way 11: it has fewer than two nodes", "way 12: its line has no length",
                                          "way 13: too few of its nodes are in the file", "way 14: 2 of its nodes are not in the file",
                                          "way 15: too few of its nodes are in the file", "way -16: its number can't be kept",
                                          "way 17: none of its nodes is in the file", "way 18: none of its nodes is in the file",
                                          "relation 30: none of its ways is an outer ring"));
  EXPECT_EQ(counts.records, 14);
  EXPECT_EQ(counts.refused, 13);
  EXPECT_EQ(counts.edges, 2);  // both parts of way 14
  EXPECT_EQ(counts.points, 1);
  EXPECT_THAT(CheckStreetFile(folder_ / "s.zds"), IsEmpty());
}

TEST_F(ExtractTest, WaysMayComeBeforeTheirNodes) {
  MadeExtract extract;
  extract.Way(10, {1, 2}, {{"highway", "residential"}, {"name", "Elm Street"}});
  extract.Node(2, -68.77, 44.8);
  extract.Node(1, -68.76, 44.8);
  EXPECT_EQ(Import(extract).edges, 1);
  EXPECT_THAT(told_, IsEmpty());
}

TEST_F(ExtractTest, MoreNodesThanAreKeptAtATimeComeInRounds) {
  MadeExtract extract;
  for (int i = 1; i <= 20; ++i) extract.Node(i, -68.77 + 0.001 * i, 44.8, {{"addr:housenumber", std::to_string(i)}, {"addr:street", "Elm Street"}});
  for (int way = 1; way <= 17; ++way) extract.Way(way, {way, way + 1, way + 2}, {{"highway", "residential"}, {"name", "Elm Street"}});
  extract.Way(18, {}, {{"highway", "residential"}, {"name", "Elm Street"}});
  extract.Write(folder_ / "large.pbf");
  for (const std::size_t atATime : {1U, 3U, 7U, 50U, 51U, 1'000U}) {
    told_.clear();
    const ExtractCounts counts = ImportExtract(folder_ / "large.pbf", nullptr, nullptr, Listener(), atATime);
    EXPECT_EQ(counts.edges, 17) << atATime;
    EXPECT_EQ(counts.records, 38) << atATime;
    EXPECT_EQ(counts.points, 20) << atATime;
    EXPECT_THAT(told_, ElementsAre("way 18: it has fewer than two nodes")) << atATime;
  }
}

TEST_F(ExtractTest, ADryRunWritesNothing) {
  MadeExtract extract;
  extract.Node(1, -68.77, 44.8, {{"addr:housenumber", "12"}, {"addr:street", "Elm Street"}});
  extract.Node(2, -68.77, 44.9, {{"addr:housenumber", "14"}});
  extract.Write(folder_ / "town.pbf");
  const ExtractCounts counts = ImportExtract(folder_ / "town.pbf", nullptr, nullptr, Listener());
  EXPECT_EQ(counts.records, 2);
  EXPECT_EQ(counts.refused, 1);
  EXPECT_EQ(counts.points, 1);
  EXPECT_THAT(told_, ElementsAre("node 2: it has no street (addr:street)"));
}

TEST_F(ExtractTest, AnExtractWithHistoryIsNoMap) {
  MadeExtract extract;
  extract.Node(1, -68.77, 44.8, {{"addr:housenumber", "12"}, {"addr:street", "Elm Street"}});
  extract.Write(folder_ / "town.pbf", "pbf,history=true");
  EXPECT_THAT(Failure(folder_ / "town.pbf"), HasSubstr("it holds what once was beside what is"));
}

// Each way to pack blocks that the format knows and the library can read.
TEST_F(ExtractTest, BlocksMayBePackedOrNot) {
  for (const char* format : {"pbf,pbf_compression=none", "pbf,pbf_compression=zlib", "pbf,pbf_dense_nodes=false", "pbf,locations_on_ways=true"}) {
    MadeExtract extract;
    extract.Node(1, -68.77, 44.8, {{"addr:housenumber", "12"}, {"addr:street", "Elm Street"}});
    extract.Node(2, -68.76, 44.8);
    extract.Way(10, {1, 2}, {{"highway", "residential"}, {"name", "Elm Street"}});
    extract.Write(folder_ / "town.pbf", format);
    const ExtractCounts counts = ImportFile(folder_ / "town.pbf");
    EXPECT_EQ(counts.edges, 1) << format;
    EXPECT_EQ(counts.points, 1) << format;
    EXPECT_THAT(told_, IsEmpty()) << format;
  }
}

TEST_F(ExtractTest, DamagedFilesAreToldAndNothingOfThemComes) {
  MadeExtract extract;
  for (int i = 1; i <= 20'000; ++i)
    extract.Node(i, -68.77 + 0.00001 * i, 44.8, {{"addr:housenumber", std::to_string(i)}, {"addr:street", "Elm Street"}});
  extract.Write(folder_ / "town.pbf");
  const std::string content = ReadAll(folder_ / "town.pbf");
  const auto failureOf = [&](const std::string& bytes) { return Failure(folder_.Write("bad.pbf", bytes)); };
  EXPECT_THAT(Failure(folder_ / "none.pbf"), HasSubstr("none.pbf is not there"));
  EXPECT_THAT(failureOf(""), HasSubstr("is empty"));
  EXPECT_THAT(failureOf("<?xml version='1.0'?><osm/>"), HasSubstr("is no extract of OpenStreetMap"));
  EXPECT_THAT(failureOf(std::string(5'000, 'x')), HasSubstr("is no extract of OpenStreetMap"));
  EXPECT_THAT(failureOf(std::string(5'000, '\0')), HasSubstr("is no extract of OpenStreetMap"));
  EXPECT_THAT(failureOf(content.substr(0, 3)), HasSubstr("is no extract of OpenStreetMap"));
  EXPECT_THAT(failureOf(content.substr(0, content.size() / 2)), HasSubstr("is cut short"));
  EXPECT_THAT(failureOf(content + std::string("\0\0", 2)), HasSubstr("is cut short"));
  EXPECT_THAT(failureOf(content + "xxxxxxxx"), HasSubstr("is damaged at byte " + std::to_string(content.size())));
  std::string inside = content;
  for (std::size_t at = content.size() / 2; at < content.size() / 2 + 200; ++at) inside[at] = '\x7f';
  EXPECT_THAT(failureOf(inside), HasSubstr("is damaged at byte "));
  // Cut behind its first block: nothing can be said against it, but there is nothing in it.
  const std::size_t second = content.find("OSMData") - 7;
  EXPECT_NE(failureOf(content.substr(0, second)), "");
  EXPECT_EQ(Ask("SELECT count(*) FROM Sources"), 0);
  EXPECT_EQ(Ask("SELECT count(*) FROM Points"), 0);
}

// What the reader complains of holds words of the file, which a terminal would obey.
TEST_F(ExtractTest, ComplaintsHoldNoControlCharacters) {
  MadeExtract extract;
  extract.Node(1, -68.77, 44.8);
  extract.Write(folder_ / "town.pbf", "pbf,pbf_compression=none");
  std::string content = ReadAll(folder_ / "town.pbf");
  const std::string feature = "OsmSchema-V0.6";
  content.replace(content.find(feature), feature.size(), "Osm\x1b[31m\nV0.60");
  EXPECT_THAT(Failure(folder_.Write("bad.pbf", content)), testing::EndsWith("Osm[31mV0.60."));
}

TEST_F(ExtractTest, ATagWithAZeroByteIsDamage) {
  MadeExtract extract;
  extract.Node(1, -68.77, 44.8, {{"addr:housenumber", "12"}, {"addr:street", "Elm Street"}});
  extract.Write(folder_ / "town.pbf", "pbf,pbf_compression=none");
  std::string content = ReadAll(folder_ / "town.pbf");
  content[content.find("Elm Street") + 3] = '\0';
  EXPECT_THAT(Failure(folder_.Write("bad.pbf", content)), HasSubstr("a tag holds a zero byte"));
  EXPECT_EQ(Ask("SELECT count(*) FROM Points"), 0);
}

}  // namespace
}  // namespace streets
