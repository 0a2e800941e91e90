#include "streets/address/street_name.h"

#include <gtest/gtest.h>

namespace {

using streets::NormalStreet;

/// before|key|type|behind
std::string Parts(const std::string& written) {
  const auto name = NormalStreet(written);
  return name.before + "|" + name.key + "|" + name.type + "|" + name.behind;
}

TEST(NormalStreet, PartsOfAName) {
  EXPECT_EQ(Parts("N Saint John's Rd"), "N|ST JOHNS|RD|");
  EXPECT_EQ(Parts("north st. johns road"), "N|ST JOHNS|RD|");
  EXPECT_EQ(Parts("Baker St W"), "|BAKER|ST|W");
  EXPECT_EQ(Parts("Forest Rd South"), "|FOREST|RD|S");
  EXPECT_EQ(Parts("Grasshopper"), "|GRASSHOPPER||");
  EXPECT_EQ(Parts("E Smith Crk"), "E|SMITH|CRK|");
  EXPECT_EQ(Parts("N.W. 3rd Ave"), "NW|3RD|AVE|");
  EXPECT_EQ(Parts("N W 3rd Ave"), "NW|3RD|AVE|");
  EXPECT_EQ(Parts("3rd Ave N W"), "|3RD|AVE|NW");
  EXPECT_EQ(Parts(""), "|||");
}

TEST(NormalStreet, KeepsTheTextShown) {
  EXPECT_EQ(NormalStreet("Baker St W").shown, "Baker St W");
  EXPECT_EQ(NormalStreet("Baker St W").id, 0);
}

TEST(NormalStreet, ATypeOrDirectionCanBeTheName) {
  EXPECT_EQ(Parts("Park Ave S"), "|PARK|AVE|S");
  EXPECT_EQ(Parts("Forest Road"), "|FOREST|RD|");
  EXPECT_EQ(Parts("Court St"), "|COURT|ST|");
  EXPECT_EQ(Parts("St Johns"), "|ST JOHNS||");
  EXPECT_EQ(Parts("North St"), "|NORTH|ST|");
  EXPECT_EQ(Parts("N St"), "|N|ST|");
  EXPECT_EQ(Parts("North St E"), "|NORTH|ST|E");
  EXPECT_EQ(Parts("E South St"), "E|SOUTH|ST|");
  EXPECT_EQ(Parts("S East Rd"), "S|EAST|RD|");
  EXPECT_EQ(Parts("N W St"), "N|W|ST|");
  EXPECT_EQ(Parts("Road"), "|ROAD||");
  EXPECT_EQ(Parts("North"), "|NORTH||");
}

TEST(NormalStreet, ATypeCanStandInFront) {
  EXPECT_EQ(Parts("Avenue C"), "|C|AVE|");
  EXPECT_EQ(Parts("C Ave"), "|C|AVE|");
  EXPECT_EQ(Parts("Avenue N"), "|N|AVE|");
  EXPECT_EQ(Parts("Avenue N E"), "|N|AVE|E");
  EXPECT_EQ(Parts("Road 12"), "|12|RD|");
  EXPECT_EQ(Parts("1 Rd"), "|1|RD|");
  EXPECT_EQ(Parts("Avenue of the Americas"), "|AVENUE OF THE AMERICAS||");
}

TEST(NormalStreet, NumbersInWords) {
  EXPECT_EQ(Parts("First Ave SW"), "|1ST|AVE|SW");
  EXPECT_EQ(Parts("Twenty-First St"), "|21ST|ST|");
  EXPECT_EQ(Parts("Lower Sixteen Mile Rd"), "|LOWER 16 MILE|RD|");
  EXPECT_EQ(Parts("71 Ranch Rd"), "|71 RANCH|RD|");
}

TEST(NormalStreet, WordsOfANameAreInFull) {
  EXPECT_EQ(Parts("Castle Mtn Rd"), Parts("Castle Mountain Road"));
  EXPECT_EQ(Parts("Castle Mnt Ests Rd"), "|CASTLE MOUNTAIN ESTATES|RD|");
  EXPECT_EQ(Parts("Jackson Ln Rd"), "|JACKSON LANE|RD|");
  EXPECT_EQ(Parts("Dr Martin Luther King Blvd"), "|DR MARTIN LUTHER KING|BLVD|");
}

TEST(NormalStreet, Highways) {
  for (const char* way : {"US Hwy 89", "US Highway 89", "U.S. 89", "US-89", "US Route 89"}) EXPECT_EQ(Parts(way), "|89|US HWY|") << way;
  for (const char* way : {"State Hwy 360", "State Route 360", "SR 360", "MT-360", "MT Hwy 360", "St Hwy 360", "State Hiway 360"})
    EXPECT_EQ(Parts(way), "|360|STATE HWY|") << way;
  for (const char* way : {"Co Rd 12", "County Road 12", "CR 12"}) EXPECT_EQ(Parts(way), "|12|CO RD|") << way;
  EXPECT_EQ(Parts("US Hwy 12 E"), "|12|US HWY|E");
  EXPECT_EQ(Parts("N US Hwy 12"), "N|12|US HWY|");
  EXPECT_EQ(Parts("Hwy 360"), "|360|HWY|");
  EXPECT_EQ(Parts("I-90"), "|90|I|");
  for (const char* way : {"NFS Rd 211", "NFS 211", "Forest Service Road 211"}) EXPECT_EQ(Parts(way), "|211|NFS RD|") << way;
  EXPECT_EQ(Parts("County Rd X"), "|X|CO RD|");
  EXPECT_EQ(Parts("I St"), "|I|ST|");
  EXPECT_EQ(Parts("State St"), "|STATE|ST|");
  EXPECT_EQ(Parts("County Rd"), "|COUNTY|RD|");
}

}  // namespace
