#include "streets/entry/street_map.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "streets/address/street_name.h"
#include "streets/file/street_file.h"
#include "streets/import/source_writer.h"
#include "support/temporary_folder.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// A street with even numbers on its right.
void Write(const std::string& path, const std::string& street) {
  const auto file = streets::OpenOrMakeStreetFile(path);
  streets::SourceWriter writer(*file, {street, street, ""});
  writer.Edge(1, platform::MapLine::Street, street, {{-110'900'000, 46'500'000}, {-110'900'000, 46'510'000}});
  const std::int64_t number = writer.Street(streets::NormalStreet(street));
  writer.Name(1, number, "59645");
  writer.Range({1, number, true, "", 100, 198, streets::Parity::Even, "59645"});
  writer.Commit(1, 0);
}

class StreetMapTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  std::string file = folder / "streets.zds";
  int asked = 0;
  std::unique_ptr<platform::MapEngine> map = streets::MakeStreetMap([this] {
    ++asked;
    return std::vector<std::string>{file};
  });
};

TEST_F(StreetMapTest, FilesAreOpenedAtTheFirstUse) {
  EXPECT_EQ(asked, 0);
  Write(file, "Main St");
  EXPECT_THAT(map->Geocode("150 Main St,59645").candidates, ElementsAre(HasSubstr("150 Main St")));
  EXPECT_EQ(asked, 1);
}

TEST_F(StreetMapTest, AMissingFileIsToldAndFindsNothing) {
  EXPECT_FALSE(map->Geocode("150 Main St,59645").positionFound);
  EXPECT_THAT(map->Scene()->Ground().Complaint(), HasSubstr("streets.zds is not there"));
}

TEST_F(StreetMapTest, AChangedFileIsReadAnewAtTheNextRun) {
  EXPECT_FALSE(map->Geocode("150 Main St,59645").positionFound);
  platform::MapGround& ground = map->Scene()->Ground();
  Write(file, "Main St");
  EXPECT_FALSE(map->Geocode("150 Main St,59645").positionFound) << "the answers of a run stay";
  map->Prepare();
  EXPECT_TRUE(map->Geocode("150 Main St,59645").positionFound);
  EXPECT_EQ(ground.Complaint(), "") << "a window keeps its ground";
  int lines = 0;
  ground.Lines(platform::MapLine::Street, {4'600'000, -11'200'000, 4'700'000, -11'000'000}, 1, [&](auto, auto, const auto&) { ++lines; });
  EXPECT_EQ(lines, 1);
}

TEST_F(StreetMapTest, DistancesAreFeetOnTheMeanSphere) {
  EXPECT_EQ(map->Distance(0, 0, 100'000, 0), 364'813);
  EXPECT_EQ(map->Distance(4'650'000, -11'090'000, 4'650'000, -11'090'000), 0);
  EXPECT_EQ(map->Distance(99'999'999, -99'999'999, 0, 0), map->Distance(9'000'000, -18'000'000, 0, 0)) << "off the earth is its edge";
}

TEST_F(StreetMapTest, PinsAndViewAreTheScene) {
  platform::MapScene& scene = *map->Scene();
  int told = 0;
  scene.OnChanged = [&] { ++told; };
  EXPECT_FALSE(scene.View());
  map->AddPin({"7", 1, 2, "Reed", 5730, ""});
  map->AddPin({"8", 3, 4, "Lane", 5730, ""});
  map->AddPin({"7", 5, 6, "Reed", 5730, ""});
  ASSERT_EQ(scene.Pins().size(), 2U) << "one pin for each key";
  EXPECT_EQ(scene.Pins()[0].latitude, 5);
  map->Draw(4'650'000, -11'090'000, 26'400);
  EXPECT_EQ(scene.View()->middle, (platform::MapPoint{4'650'000, -11'090'000}));
  EXPECT_EQ(scene.View()->width, 26'400);
  const auto first = *scene.View();
  map->Draw(4'650'000, -11'090'000, 26'400);
  EXPECT_NE(*scene.View(), first) << "asked for again";
  map->RemovePins();
  EXPECT_TRUE(scene.Pins().empty());
  EXPECT_EQ(told, 6);
  scene.OnChanged = nullptr;
  map->AddPin({"7", 1, 2, "Reed", 5730, ""});
  EXPECT_EQ(scene.Pins().size(), 1U);
}

}  // namespace
