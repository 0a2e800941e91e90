#include "streets/address/unit_words.h"

#include <gtest/gtest.h>

#include "streets/address/words.h"

namespace {

std::string WithoutUnit(const std::string& line) {
  auto words = streets::Words(line);
  streets::CutUnit(words);
  return streets::Join(words);
}

TEST(UnitWords, AreCutOffTheEnd) {
  for (const char* unit :
       {"Apt 5", "APT. 5B", "Suite 200", "Ste C", "#5", "# 5", "Apt #5", "Unit B", "Fl 3", "3rd Floor", "Lot 12", "Rear", "Bldg 4 Apt 2"})
    EXPECT_EQ(WithoutUnit(std::string("100 Main St ") + unit), "100 MAIN ST") << unit;
  EXPECT_EQ(WithoutUnit("Suite 5 100 Main St"), "100 MAIN ST");
  EXPECT_EQ(WithoutUnit("Main St Apt 5"), "MAIN ST");
  EXPECT_EQ(WithoutUnit("Rear 100 Main St"), "100 MAIN ST");
}

TEST(UnitWords, NamesOfStreetsStay) {
  for (const char* line :
       {"100 FRONT ST", "12 PIER 5", "100 KEY RD", "100 FLOOR ST", "100 LOT", "100 UNIT RD", "5 REAR RD", "100 SUITE", "REAR", ""})
    EXPECT_EQ(WithoutUnit(line), line);
  EXPECT_EQ(WithoutUnit("100 Highway 12"), "100 HIGHWAY 12");
}

TEST(UnitWords, AloneInAPart) {
  EXPECT_TRUE(streets::IsOnlyUnit(streets::Words("Suite 5")));
  EXPECT_TRUE(streets::IsOnlyUnit(streets::Words("#12")));
  EXPECT_FALSE(streets::IsOnlyUnit(streets::Words("Springfield")));
  EXPECT_FALSE(streets::IsOnlyUnit({}));
}

TEST(NoStreet, BoxesRoutesAndGeneralDelivery) {
  for (const char* line :
       {"PO Box 12", "P.O. Box 12", "P O BOX 12", "POBox 12", "Post Office Box 12", "Box 12", "PO Box #12", "RR 2", "RR 2 Box 4", "R.R. 2",
        "Rural Route 2", "RFD 3", "HC 62 Box 4", "Rt 2 Box 5", "Star Route", "General Delivery", "Gen Del", "PSC 3 Box 2"})
    EXPECT_TRUE(streets::NamesNoStreet(streets::Words(line))) << line;
  for (const char* line : {"100 Main St", "Box Elder Rd", "100 Box Rd", "Route 2", "Rt 2", "General St", "100 Star Route Rd", ""})
    EXPECT_FALSE(streets::NamesNoStreet(streets::Words(line))) << line;
}

TEST(NoStreet, ABoxBehindAStreetIsCutOff) {
  auto words = streets::Words("100 Main St PO Box 5");
  streets::CutBox(words);
  EXPECT_EQ(streets::Join(words), "100 MAIN ST");
  words = streets::Words("100 Box Canyon Rd");
  streets::CutBox(words);
  EXPECT_EQ(streets::Join(words), "100 BOX CANYON RD");
}

}  // namespace
