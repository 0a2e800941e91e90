#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "streets/address/street_name.h"
#include "streets/check/check_file.h"
#include "streets/file/street_file.h"
#include "streets/file/street_files.h"
#include "streets/ground/file_ground.h"
#include "streets/import/source_writer.h"
#include "streets/index/file_index.h"
#include "support/temporary_folder.h"

namespace streets {
namespace {

using platform::MapLine;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// A street of one piece, ten numbers on its right side, in a ZIP.
void AddStreet(SourceWriter& to, std::int64_t edge, const std::string& name, const std::string& zip, std::int64_t from = 1) {
  const auto place = static_cast<std::int32_t>(edge);
  to.Edge(edge, MapLine::Street, name, {{-110'000'000 + place * 1'000, 46'000'000}, {-110'000'000 + place * 1'000, 46'001'000}});
  const std::int64_t street = to.Street(NormalStreet(name));
  to.Name(edge, street, zip);
  to.Range({edge, street, true, "", from, from + 8, Parity::Odd, zip});
}

class StreetIndexTest : public testing::Test {
 protected:
  std::string Make(const std::string& name) const {
    OpenOrMakeStreetFile(folder_ / name);
    return folder_ / name;
  }

  void Fill(const std::string& path, const std::string& county, const std::function<void(SourceWriter&)>& fill, bool commit = true) const {
    const auto file = OpenOrMakeStreetFile(path);
    SourceWriter writer(*file, {county, county, county + " gives notice"});
    fill(writer);
    if (commit) writer.Commit(1, 0);
  }

  static std::vector<std::string> Shown(const std::vector<StreetName>& names) {
    std::vector<std::string> shown;
    for (const StreetName& name : names) shown.push_back(name.shown);
    return shown;
  }

  TemporaryFolder folder_;
};

TEST_F(StreetIndexTest, StreetsAreFoundByNameZipLetterAndSound) {
  const std::string path = Make("s.zds");
  Fill(path, "a", [](SourceWriter& to) {
    AddStreet(to, 1, "Smith St", "59645");
    AddStreet(to, 2, "N Smith St", "59642");
    AddStreet(to, 3, "Smyth Ave", "59645");
    AddStreet(to, 4, "Main St", "59645");
  });
  StreetFiles files({path});
  FileIndex index(files);
  const std::vector<std::string> here{"59645"};
  const std::vector<std::string> both{"59645", "59642", "59645"};
  const std::vector<std::string> wrong{"no ZIP"};
  EXPECT_THAT(Shown(index.Named("SMITH", here)), ElementsAre("Smith St"));
  EXPECT_THAT(Shown(index.Named("SMITH", both)), ElementsAre("Smith St", "N Smith St"));
  EXPECT_THAT(Shown(index.Named("SMITH", {})), ElementsAre("Smith St", "N Smith St"));
  EXPECT_THAT(index.Named("SMITH", wrong), IsEmpty());
  EXPECT_THAT(Shown(index.Beginning('S', here)), ElementsAre("Smith St", "Smyth Ave"));
  EXPECT_THAT(Shown(index.Sounding(Soundex("SMITTE"))), ElementsAre("Smith St", "N Smith St", "Smyth Ave"));
}

TEST_F(StreetIndexTest, RangesEdgesAndShapesBelongToTheStreet) {
  const std::string path = Make("s.zds");
  Fill(path, "a", [](SourceWriter& to) {
    AddStreet(to, 7, "Main St", "59645", 101);
    AddStreet(to, 5, "Main St", "59642", 1);
    AddStreet(to, 6, "Main St", "", 201);
  });
  StreetFiles files({path});
  FileIndex index(files);
  const auto names = index.Named("MAIN", {});
  ASSERT_THAT(names, SizeIs(1));
  const std::vector<std::string> here{"59645"};
  const auto ranges = index.Ranges(names[0].id, here);
  ASSERT_THAT(ranges, SizeIs(1));
  EXPECT_EQ(ranges[0].from, 101);
  EXPECT_EQ(ranges[0].to, 109);
  EXPECT_TRUE(ranges[0].right);
  EXPECT_EQ(ranges[0].parity, Parity::Odd);
  EXPECT_EQ(ranges[0].zip, "59645");
  EXPECT_EQ(index.Shape(ranges[0].edge), (Line{{-109'993'000, 46'000'000}, {-109'993'000, 46'001'000}}));
  EXPECT_THAT(index.Ranges(names[0].id, {}), SizeIs(3));
  EXPECT_THAT(index.Edges(names[0].id, here), ElementsAre(ranges[0].edge));
  EXPECT_THAT(index.Edges(names[0].id, {}), SizeIs(3));
  EXPECT_THAT(index.Shape(12'345), IsEmpty());
  EXPECT_THAT(index.Ranges(-1, {}), IsEmpty());
}

TEST_F(StreetIndexTest, AnswersAreTheSameInWhateverOrderFilesAreFilled) {
  const auto first = [](SourceWriter& to) { AddStreet(to, 1, "Oak St", "59645"), AddStreet(to, 2, "Ash St", "59645"); };
  const auto second = [](SourceWriter& to) { AddStreet(to, 4, "Oak Ave", "59645"), AddStreet(to, 3, "Oak St", "59645"); };
  const std::string one = Make("one.zds");
  Fill(one, "a", first);
  Fill(one, "b", second);
  const std::string other = Make("other.zds");
  Fill(other, "b", second);
  Fill(other, "a", first);
  const std::vector<std::string> here{"59645"};
  std::vector<std::vector<std::string>> answers;
  for (const std::string& path : {one, other}) {
    StreetFiles files({path});
    FileIndex index(files);
    std::vector<std::string> answer = Shown(index.Beginning('O', here));
    for (const StreetName& name : index.Beginning('O', here))
      for (const HouseRange& range : index.Ranges(name.id, here)) answer.push_back(std::to_string(range.edge));
    answers.push_back(answer);
  }
  EXPECT_EQ(answers[0], answers[1]);
  EXPECT_THAT(answers[0], ElementsAre("Oak Ave", "Oak St", "4", "1", "3"));
}

TEST_F(StreetIndexTest, SeveralFilesAreOne) {
  const std::string one = Make("one.zds");
  Fill(one, "a", [](SourceWriter& to) { AddStreet(to, 1, "Main St", "59645", 1); });
  const std::string other = Make("other.zds");
  Fill(other, "b", [](SourceWriter& to) { AddStreet(to, 1, "Main St", "59645", 101); });
  StreetFiles files({one, other});
  FileIndex index(files);
  const auto names = index.Named("MAIN", {});
  ASSERT_THAT(names, SizeIs(2));
  EXPECT_EQ(index.Ranges(names[0].id, {})[0].from, 1);
  EXPECT_EQ(index.Ranges(names[1].id, {})[0].from, 101);
  EXPECT_EQ(index.Ranges(names[1].id, {})[0].street, names[1].id);
}

TEST_F(StreetIndexTest, ASecondImportReplacesTheFirst) {
  const std::string path = Make("s.zds");
  Fill(path, "a", [](SourceWriter& to) { AddStreet(to, 1, "Old St", "59645"), AddStreet(to, 2, "Main St", "59645"); });
  Fill(path, "b", [](SourceWriter& to) { AddStreet(to, 3, "Main St", "59642"); });
  Fill(path, "a", [](SourceWriter& to) { AddStreet(to, 4, "New St", "59645"); });
  StreetFiles files({path});
  FileIndex index(files);
  const std::vector<std::string> here{"59645"};
  EXPECT_THAT(index.Named("OLD", {}), IsEmpty());
  EXPECT_THAT(index.Named("MAIN", here), IsEmpty());
  EXPECT_THAT(index.Named("MAIN", {}), SizeIs(1));
  EXPECT_THAT(index.Named("NEW", here), SizeIs(1));
  EXPECT_THAT(CheckStreetFile(path), IsEmpty());
}

TEST_F(StreetIndexTest, WhatIsNotCommittedWasNeverThere) {
  const std::string path = Make("s.zds");
  Fill(path, "a", [](SourceWriter& to) { AddStreet(to, 1, "Old St", "59645"); });
  Fill(path, "a", [](SourceWriter& to) { AddStreet(to, 2, "New St", "59645"); }, false);
  StreetFiles files({path});
  FileIndex index(files);
  EXPECT_THAT(index.Named("OLD", {}), SizeIs(1));
  EXPECT_THAT(index.Named("NEW", {}), IsEmpty());
  EXPECT_THAT(CheckStreetFile(path), IsEmpty());
}

TEST_F(StreetIndexTest, APieceOnTheBorderStaysWithTheOtherCounty) {
  const std::string path = Make("s.zds");
  Fill(path, "a", [](SourceWriter& to) { AddStreet(to, 1, "Border Rd", "59645"); });
  Fill(path, "b", [](SourceWriter& to) { AddStreet(to, 1, "Border Rd", "59645"); });
  {
    StreetFiles files({path});
    FileIndex index(files);
    EXPECT_THAT(index.Ranges(index.Named("BORDER", {})[0].id, {}), SizeIs(1));
  }
  Fill(path, "b", [](SourceWriter&) {});
  StreetFiles files({path});
  FileIndex index(files);
  EXPECT_THAT(index.Named("BORDER", {}), SizeIs(1));
  EXPECT_THAT(CheckStreetFile(path), IsEmpty());
}

TEST_F(StreetIndexTest, PointsComeWithTheirNumbersAndGoWithTheirSource) {
  const std::string path = Make("s.zds");
  Fill(path, "a", [](SourceWriter& to) {
    const std::int64_t street = to.Street(NormalStreet("217th St"));
    to.Point({street, {"93-", 2, "A"}, {-73'700'000, 40'700'000}, "11428"});
  });
  {
    StreetFiles files({path});
    FileIndex index(files);
    const std::vector<std::string> here{"11428"};
    const auto names = index.Named(NormalStreet("217th St").key, here);
    ASSERT_THAT(names, SizeIs(1));
    const auto points = index.Points(names[0].id, here);
    ASSERT_THAT(points, SizeIs(1));
    EXPECT_EQ(points[0].number, (HouseNumber{"93-", 2, "A"}));
    EXPECT_EQ(points[0].at, (Position{-73'700'000, 40'700'000}));
    EXPECT_EQ(points[0].zip, "11428");
  }
  Fill(path, "a", [](SourceWriter&) {});
  StreetFiles files({path});
  FileIndex index(files);
  EXPECT_THAT(index.Named(NormalStreet("217th St").key, {}), IsEmpty());
  EXPECT_THAT(CheckStreetFile(path), IsEmpty());
}

TEST_F(StreetIndexTest, AFileThatFailsIsToldAndTheOthersAnswer) {
  const std::string good = Make("good.zds");
  Fill(good, "a", [](SourceWriter& to) { AddStreet(to, 1, "Main St", "59645"); });
  const std::string bad = Make("bad.zds");
  {
    const auto file = OpenOrMakeStreetFile(bad);
    file->Execute("DROP TABLE ZipNames");
  }
  StreetFiles files({bad, good});
  FileIndex index(files);
  EXPECT_THAT(index.Named("MAIN", {}), SizeIs(1));
  EXPECT_THAT(files.Complaint(), testing::StartsWith(bad));
}

struct Drawn {
  std::vector<std::string> names;
  std::vector<std::size_t> points;
};

Drawn Draw(platform::MapGround& ground, MapLine kind, const platform::MapBox& box, double unitsPerPixel) {
  Drawn drawn;
  ground.Lines(kind, box, unitsPerPixel, [&](MapLine, std::span<const platform::MapPoint> points, const std::string& name) {
    drawn.names.push_back(name);
    drawn.points.push_back(points.size());
  });
  return drawn;
}

TEST_F(StreetIndexTest, TheGroundDrawsWhatMeetsTheBoxOnce) {
  const std::string path = Make("s.zds");
  Fill(path, "a", [](SourceWriter& to) {
    AddStreet(to, 1, "Main St", "59645");
    to.Name(1, to.Street(NormalStreet("State Hwy 360")), "59645");
    to.Edge(2, MapLine::Highway, "I- 90", {{-111'000'000, 46'000'000}, {-110'500'000, 46'000'500}, {-109'000'000, 46'000'000}});
    to.Edge(3, MapLine::Street, "Far St", {{-100'000'000, 46'000'000}, {-100'000'000, 46'001'000}});
  });
  StreetFiles files({path});
  FileGround ground(files);
  const platform::MapBox near{4'599'000, -11'010'000, 4'601'000, -10'990'000};
  EXPECT_THAT(Draw(ground, MapLine::Street, near, 1).names, ElementsAre("Main St"));
  EXPECT_THAT(Draw(ground, MapLine::Street, near, 100).names, IsEmpty());
  EXPECT_THAT(Draw(ground, MapLine::Highway, near, 1).points, ElementsAre(3u));
  EXPECT_THAT(Draw(ground, MapLine::Highway, near, 1'000).points, ElementsAre(2u));
  EXPECT_THAT(Draw(ground, MapLine::State, near, 1).names, IsEmpty());
  EXPECT_THAT(ground.Notices(), ElementsAre("a gives notice"));
  EXPECT_EQ(ground.Complaint(), "");
}

}  // namespace
}  // namespace streets
