#include "streets/import/census/county_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <shapefil.h>

#include <algorithm>
#include <filesystem>

#include "streets/check/check_file.h"
#include "streets/file/file_error.h"
#include "streets/file/street_file.h"
#include "streets/file/street_files.h"
#include "streets/import/census/house_numbers.h"
#include "streets/import/census/inputs.h"
#include "streets/import/census/source_text.h"
#include "streets/index/file_index.h"
#include "support/temporary_folder.h"

namespace streets {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

const std::string kMeagher = ORCUSSCH_TEST_DIR "/data/streets/meagher/tl_2021_30059_addrfeat.shp";

// A county of our own: one record a call, its line 100 m to the east of the one before.
class CountyFile {
 public:
  explicit CountyFile(const std::string& path)
      : shapes_(SHPCreate(path.c_str(), SHPT_ARC)), table_(DBFCreate(fs::path(path).replace_extension(".dbf").c_str())) {
    for (const char* column : {"TLID", "FULLNAME", "EDGE_MTFCC", "LFROMHN", "LTOHN", "ZIPL", "PARITYL", "RFROMHN", "RTOHN", "ZIPR", "PARITYR"})
      DBFAddField(table_, column, FTString, 30, 0);
  }
  ~CountyFile() {
    SHPClose(shapes_);
    DBFClose(table_);
  }

  struct Record {
    std::string edge;
    std::string name;
    std::vector<std::string> left;   // from, to, ZIP, parity
    std::vector<std::string> right;
    int points = 2;
    double longitude = -110;
  };
  void Add(const Record& record) {
    std::vector<double> east;
    std::vector<double> north;
    for (int i = 0; i < record.points; ++i) {
      east.push_back(record.longitude + 0.001 * count_);
      north.push_back(46 + 0.001 * i);
    }
    SHPObject* line = SHPCreateSimpleObject(record.points > 0 ? SHPT_ARC : SHPT_NULL, record.points, east.data(), north.data(), nullptr);
    SHPWriteObject(shapes_, -1, line);
    SHPDestroyObject(line);
    int column = 0;
    for (const std::string& text : {record.edge, record.name, std::string("S1400")}) DBFWriteStringAttribute(table_, count_, column++, text.c_str());
    for (const auto* side : {&record.left, &record.right})
      for (std::size_t i = 0; i < 4; ++i) DBFWriteStringAttribute(table_, count_, column++, i < side->size() ? (*side)[i].c_str() : "");
    ++count_;
  }

 private:
  SHPHandle shapes_;
  DBFHandle table_;
  int count_ = 0;
};

class CountyTest : public testing::Test {
 protected:
  CountyCounts Import(const std::string& path) {
    told_.clear();
    const auto file = OpenOrMakeStreetFile(folder_ / "s.zds");
    ImportListener listener;
    listener.onRefused = [&](const std::string&, std::int64_t record, const std::string& why) { told_.push_back(std::to_string(record) + ": " + why); };
    return ImportCounty(path, path, file.get(), listener);
  }
  std::string Failure(const std::string& path) {
    try {
      Import(path);
    } catch (const FileError& problem) {
      return problem.what();
    }
    return "";
  }
  std::vector<HouseRange> Ranges(const std::string& key) {
    StreetFiles files({folder_ / "s.zds"});
    FileIndex index(files);
    std::vector<HouseRange> ranges;
    for (const StreetName& name : index.Named(key, {}))
      for (const HouseRange& range : index.Ranges(name.id, {})) ranges.push_back(range);
    return ranges;
  }
  // The three files of the county under another name, with one of them cut or changed.
  std::string Copy(const std::string& stem) {
    for (const char* ending : {".shp", ".shx", ".dbf"})
      folder_.Write(stem + ending, ReadAll(fs::path(kMeagher).replace_extension(ending)));
    return folder_ / (stem + ".shp");
  }

  TemporaryFolder folder_;
  std::vector<std::string> told_;
};

TEST_F(CountyTest, AWholeCountyIsTaken) {
  const CountyCounts counts = Import(kMeagher);
  EXPECT_EQ(counts.records, 677);
  EXPECT_EQ(counts.refused, 0);
  EXPECT_EQ(counts.edges, 593);
  EXPECT_EQ(counts.ranges, 878);
  EXPECT_THAT(told_, IsEmpty());
  const auto file = OpenStreetFile(folder_ / "s.zds");
  EXPECT_EQ(file->Ask("SELECT count(*) FROM Streets"), 227);
  EXPECT_EQ(file->Ask("SELECT count(*) FROM Ranges WHERE last < first"), 435);
  EXPECT_EQ(file->Ask("SELECT count(*) FROM (SELECT edge FROM EdgeNames GROUP BY edge HAVING count(*) > 1)"),
            file->Ask("SELECT count(*) FROM (SELECT edge FROM Ranges GROUP BY edge HAVING count(DISTINCT street) > 1)"));
  EXPECT_EQ(file->Ask("SELECT count(DISTINCT zip) FROM Ranges WHERE zip <> 0"), 6);
  EXPECT_THAT(CheckStreetFile(folder_ / "s.zds"), IsEmpty());
}

TEST_F(CountyTest, ALaterYearReplacesTheCounty) {
  Import(kMeagher);
  Import(Copy("tl_2022_30059_addrfeat"));
  const auto file = OpenStreetFile(folder_ / "s.zds");
  EXPECT_EQ(file->Ask("SELECT count(*) FROM Sources"), 1);
  EXPECT_EQ(file->Ask("SELECT count(*) FROM Ranges"), 878);
  EXPECT_EQ(file->Ask("SELECT count(*) FROM Edges"), 593);
  EXPECT_THAT(CheckStreetFile(folder_ / "s.zds"), IsEmpty());
}

TEST_F(CountyTest, NamesOfOnePieceAreNamesOfOnePiece) {
  const std::string path = folder_ / "county.shp";
  {
    CountyFile county(path);
    county.Add({"7", "Hwy 360", {"1", "99", "59645", "O"}, {}});
    county.Add({"7", "State Hwy 360", {"1", "99", "59645", "O"}, {}});
  }
  const CountyCounts counts = Import(path);
  EXPECT_EQ(counts.edges, 1);
  EXPECT_EQ(counts.ranges, 2);
  const auto file = OpenStreetFile(folder_ / "s.zds");
  EXPECT_EQ(file->Ask("SELECT count(*) FROM Edges"), 1);
  EXPECT_EQ(file->Ask("SELECT count(*) FROM StreetBoxes"), 1);
}

TEST_F(CountyTest, SidesOfEveryKind) {
  const std::string path = folder_ / "county.shp";
  {
    CountyFile county(path);
    county.Add({"1", "Onesided St", {}, {"100", "198", "59645", "E"}});
    county.Add({"2", "Single St", {"37", "37", "59645", "B"}, {"", "40", "59645", ""}});
    county.Add({"3", "Downward St", {"199", "101", "59645", "O"}, {"198", "100", "59645", "E"}});
    county.Add({"4", "Queens St", {"243-01", "243-99", "11428", "O"}, {"243-02", "243-98", "11429", "E"}});
    county.Add({"5", "Grid St", {"N6W23001", "N6W23099", "53188", "O"}, {}});
    county.Add({"6", "Both St", {"1", "10", "59645", "B"}, {"2", "9", "59645", ""}});
    county.Add({"7", "Belied St", {"100", "198", "59645", "O"}, {}});
    county.Add({"8", "Empty St", {}, {}});
  }
  EXPECT_EQ(Import(path).refused, 0);
  EXPECT_THAT(told_, IsEmpty());
  const auto texts = [&](const std::string& key) {
    std::vector<std::string> all;
    for (const HouseRange& range : Ranges(key)) {
      all.push_back((range.right ? "R " : "L ") + range.prefix + std::to_string(range.from) + " " + std::to_string(range.to) + " " +
                    "OEB"[static_cast<int>(range.parity)] + " " + range.zip);
    }
    std::ranges::sort(all);
    return all;
  };
  EXPECT_THAT(texts("ONESIDED"), ElementsAre("R 100 198 E 59645"));
  EXPECT_THAT(texts("SINGLE"), ElementsAre("L 37 37 O 59645", "R 40 40 E 59645"));
  EXPECT_THAT(texts("DOWNWARD"), ElementsAre("L 199 101 O 59645", "R 198 100 E 59645"));
  EXPECT_THAT(texts("QUEENS"), ElementsAre("L 243-1 99 O 11428", "R 243-2 98 E 11429"));
  EXPECT_THAT(texts("GRID"), ElementsAre("L N6W23001 23099 O 53188"));
  EXPECT_THAT(texts("BOTH"), ElementsAre("L 1 10 B 59645", "R 2 9 B 59645"));
  EXPECT_THAT(texts("BELIED"), ElementsAre("L 100 198 E 59645"));
  EXPECT_THAT(texts("EMPTY"), IsEmpty());
}

TEST_F(CountyTest, RecordsThatCantBeTakenAreToldAndTheOthersAreTaken) {
  const std::string path = folder_ / "county.shp";
  {
    CountyFile county(path);
    county.Add({"1", "Good St", {"1", "9", "59645", "O"}, {}});
    county.Add({"2", "Null St", {"1", "9", "59645", "O"}, {}, 0});
    county.Add({"3", "Far St", {"1", "9", "59645", "O"}, {}, 2, 400});
    county.Add({"4", "", {"1", "9", "59645", "O"}, {}});
    county.Add({"", "Nameless St", {"1", "9", "59645", "O"}, {}});
    county.Add({"99999999999999999999", "Numberless St", {"1", "9", "59645", "O"}, {}});
    county.Add({"7", "Huge St", {"1", "99999999999999999999", "59645", "O"}, {"2", "8", "59645", "E"}});
    county.Add({"8", "Mixed St", {"1", "243-9", "59645", "O"}, {"none", "", "59645", "E"}});
  }
  EXPECT_EQ(Import(path).refused, 5);
  EXPECT_THAT(told_, ElementsAre("2: it has no line", "3: its line leaves the earth", "4: it has no street name",
                                 "5: it has no number of its piece of street (TLID)", "6: it has no number of its piece of street (TLID)",
                                 "7: its left side: \"99999999999999999999\" is no house number", "8: its left side: \"1\" and \"243-9\" begin differently",
                                 "8: its right side: \"none\" is no house number"));
  EXPECT_THAT(Ranges("GOOD"), SizeIs(1));
  EXPECT_THAT(Ranges("HUGE"), SizeIs(1));
  EXPECT_THAT(CheckStreetFile(folder_ / "s.zds"), IsEmpty());
}

TEST_F(CountyTest, DamagedFilesAreToldAndNothingOfThemComes) {
  for (const char* ending : {".shp", ".shx", ".dbf"}) {
    const std::string path = Copy("county");
    const std::string victim = fs::path(path).replace_extension(ending).string();
    const std::string content = ReadAll(victim);
    const std::string name = std::string("county") + ending;
    folder_.Write(name, content.substr(0, content.size() / 2));
    EXPECT_THAT(Failure(path), HasSubstr("cut short")) << ending;
    folder_.Write(name, "");
    EXPECT_THAT(Failure(path), HasSubstr("is empty")) << ending;
    folder_.Write(name, std::string(content.size(), 'x'));
    EXPECT_THAT(Failure(path), testing::AnyOf(HasSubstr("is no shapefile"), HasSubstr("is no table"))) << ending;
    fs::remove(victim);
    EXPECT_NE(Failure(path), "") << ending;
  }
  // A record in the middle whose length is nonsense.
  const std::string path = Copy("county");
  std::string shapes = ReadAll(path);
  for (std::size_t at = 80'000; at < 81'000; ++at) shapes[at] = '\x7f';
  folder_.Write("county.shp", shapes);
  EXPECT_THAT(Failure(path), HasSubstr(", record "));
  const auto file = OpenStreetFile(folder_ / "s.zds");
  EXPECT_EQ(file->Ask("SELECT count(*) FROM Sources"), 0);
  EXPECT_EQ(file->Ask("SELECT count(*) FROM Edges"), 0);
}

TEST_F(CountyTest, AShapefileOfSomethingElseIsTold) {
  const std::string path = folder_ / "roads.shp";
  SHPClose(SHPCreate(path.c_str(), SHPT_ARC));
  const DBFHandle table = DBFCreate((folder_ / "roads.dbf").c_str());
  DBFAddField(table, "NAME", FTString, 10, 0);
  DBFClose(table);
  EXPECT_THAT(Failure(path), HasSubstr("holds no address ranges"));
}

TEST_F(CountyTest, NamesInOlderWritingAreRead) {
  const std::string path = folder_ / "county.shp";
  {
    CountyFile county(path);
    county.Add({"1", "Ca\xf1on Rd\x01", {"1", "9", "59645", "O"}, {}});
  }
  Import(path);
  const auto file = OpenStreetFile(folder_ / "s.zds");
  Statement name(*file, "SELECT name FROM Edges");
  ASSERT_TRUE(name.Step());
  EXPECT_EQ(name.Text(0), "Ca\xc3\xb1on Rd");
}

TEST(SourceTextTest, ControlCharactersGo) {
  EXPECT_EQ(SourceText(" Elm\x1b[31m\n St\x7f "), "Elm[31m St");
  // Those of eight bits, which some terminals obey as well, in either writing.
  EXPECT_EQ(SourceText("O\x92""Brien\x9b Ca\xf1on"), "OBrien Ca\xc3\xb1on");
  EXPECT_EQ(SourceText("Ca\xc3\xb1on\xc2\x9b St\xc2\xa0"), "Ca\xc3\xb1on St\xc2\xa0");
}

TEST(InputsTest, WordsMeanFilesFoldersAndArchives) {
  const TemporaryFolder folder;
  folder.Write("b.shp", "x");
  folder.Write("a.zip", "x");
  folder.Write("a.dbf", "x");
  EXPECT_THAT(FindInputs({folder.Path()}), ElementsAre(folder / "a.zip", folder / "b.shp"));
  EXPECT_THAT(FindInputs({folder / "b.shp"}), ElementsAre(folder / "b.shp"));
  EXPECT_THROW(FindInputs({folder / "a.dbf"}), FileError);
  EXPECT_THROW(FindInputs({folder / "none"}), FileError);
  EXPECT_THROW(EachShapeFile(folder / "a.zip", [](const std::string&, const std::string&) {}), FileError);
}

TEST(HouseNumbersTest, PrefixNumberAndSuffix) {
  EXPECT_EQ(SourceHouseNumber("123"), (HouseNumber{"", 123, ""}));
  EXPECT_EQ(SourceHouseNumber("243-20"), (HouseNumber{"243-", 20, ""}));
  EXPECT_EQ(SourceHouseNumber("n6w23001"), (HouseNumber{"N6W", 23001, ""}));
  EXPECT_EQ(SourceHouseNumber("12 B"), (HouseNumber{"", 12, "B"}));
  EXPECT_EQ(SourceHouseNumber("0012"), (HouseNumber{"", 12, ""}));
  EXPECT_FALSE(SourceHouseNumber(""));
  EXPECT_FALSE(SourceHouseNumber("B"));
  EXPECT_FALSE(SourceHouseNumber("12345678901234567890"));
}

}  // namespace
}  // namespace streets
