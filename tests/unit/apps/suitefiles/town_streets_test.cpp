#include <gtest/gtest.h>

#include "streets/check/check_file.h"
#include "streets/file/street_files.h"
#include "streets/geocoder/geocoder.h"
#include "streets/index/file_index.h"
#include "suitefiles/demo/customers.h"
#include "suitefiles/demo/town_grid.h"
#include "suitefiles/demo/town_streets.h"
#include "unit/apps/suitefiles/program_runner.h"

namespace suitefiles::demo {
namespace {

TEST(TownGrid, NumberAndStreetOfALine) {
  EXPECT_EQ(PartsOf("1204 N Oak St").number, 1204);
  EXPECT_EQ(PartsOf("1204 N Oak St").street, "N Oak St");
  EXPECT_EQ(PartsOf("PO Box 12").street, "");
  EXPECT_EQ(PartsOf("12").street, "");
}

TEST(TownGrid, AnAvenueRunsNorthAndAStreetEast) {
  bool avenue = false;
  bool street = false;
  for (const GridPiece& piece : TownGrid({-93'000'000, 45'000'000}, {{"Elm Ave", 1'500}, {"Elm St", 20}})) {
    ASSERT_EQ(piece.line.size(), 2u);
    const bool north = piece.line[0].longitude == piece.line[1].longitude;
    EXPECT_NE(north, piece.line[0].latitude == piece.line[1].latitude);
    avenue = avenue || (piece.street == "Elm Ave" && north && piece.first == 1'001);
    street = street || (piece.street == "Elm St" && !north && piece.first == 1);
  }
  EXPECT_TRUE(avenue);
  EXPECT_TRUE(street);
}

TEST(TownGrid, ASmallTownHasSixteenStreets) {
  std::set<std::string> names;
  for (const GridPiece& piece : TownGrid({0, 0}, {{"Elm Ave", 1}})) names.insert(piece.street);
  EXPECT_EQ(names.size(), 16u);
}

// Where the base map was built beside the program.
TEST(TownStreets, EveryCustomerLivesInThem) {
  const TemporaryFolder folder;
  const std::string file = folder / "streets.zds";
  const World world(7, 45'000);
  constexpr std::int32_t kCustomers = 400;
  const auto quiet = [](std::int64_t, std::int64_t) {};
  const int towns = MakeTownStreets(world, kCustomers, 1, BASE_MAP, file, quiet);
  EXPECT_GT(towns, 100);
  EXPECT_EQ(MakeTownStreets(world, kCustomers, 1, BASE_MAP, file, quiet), towns);  // in the place of the first
  EXPECT_TRUE(streets::CheckStreetFile(file).empty());

  streets::StreetFiles files({BASE_MAP, file});
  streets::FileIndex index(files);
  streets::Geocoder geocoder(index);
  int unknownZips = 0;
  for (std::int32_t account = 1; account <= kCustomers; ++account) {
    const Identity identity = MakeIdentity(world, account);
    const Contact contact = MakeContact(world, identity);
    if (!index.Zip(contact.zip.substr(0, 5))) {
      ++unknownZips;
      continue;
    }
    const std::string address = contact.street.line1 + "," + std::string(identity.city->name) + "," + std::string(identity.city->state) + "," + contact.zip;
    const auto answer = geocoder.Find(address);
    EXPECT_EQ(answer.result, streets::Geocoder::kMatch) << address;
    ASSERT_FALSE(answer.candidates.empty()) << address;
  }
  EXPECT_LT(unknownZips, kCustomers / 10);
}

TEST(TownStreets, TheDemonstrationMakesThem) {
  const TemporaryFolder folder;
  const auto made = RunSuitefiles({"demo", folder / "a", "--company", "1", "--customers", "30"});
  EXPECT_EQ(made.status, 0) << made.err;
  EXPECT_NE(made.out.find("Invented streets in "), std::string::npos) << made.out << made.err;
  EXPECT_TRUE(streets::CheckStreetFile(folder / "a/streets.zds").empty());
  EXPECT_EQ(RunSuitefiles({"check", folder / "a"}).status, 0);
}

}  // namespace
}  // namespace suitefiles::demo
