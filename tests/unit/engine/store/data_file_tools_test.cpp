#include <algorithm>

#include "unit/engine/store/data_file_fixture.h"

// Filling, checking and copying files.
namespace engine {
namespace {

using platform::Currency;
using platform::FieldType;
using platform::Null;
using platform::TableDefinition;
using platform::Value;

TEST_F(DataFileTest, BulkRowsKeepTheirValues) {
  const std::string path = Make();
  const std::vector<std::string> fields{"ID", "Name", "Notes", "Limit", "Active", "Since", "Rate", "Age", "Kind", "Boss"};
  {
    auto writer = OpenBulkWriter(path, "people", fields);
    writer->Add(
        std::vector<Value>{7, "Ann", "long", Currency{-5}, false, platform::Date{36191.5}, 1.25, std::int16_t{-3}, std::uint8_t{200}, 9});
    writer->Add(std::vector<Value>{Null, Null, Null, Null, Null, Null, Null, Null, Null, Null});
    writer->Finish();
  }
  Connection connection(100);
  DataFiles files(connection, noNetwork);
  const auto file = files.Open(path);
  Query query(connection, "SELECT * FROM " + file->Qualifier() + ".People ORDER BY ID");
  const TableDefinition table = People();
  const std::vector<Value> expected{
      7, "Ann", "long", Currency{-5}, false, platform::Date{36191.5}, 1.25, std::int16_t{-3}, std::uint8_t{200}, 9};
  ASSERT_TRUE(query.Step());
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(query.Read(static_cast<int>(i), table.fields[i].type), expected[i]);
  ASSERT_TRUE(query.Step());
  EXPECT_EQ(query.Int(0), 8);
  for (int i = 1; i < 10; ++i) EXPECT_TRUE(query.IsNull(i));
  EXPECT_EQ(AskNumber(connection, "SELECT count(*) FROM pragma_index_list('People', '" + file->Qualifier() + "')"), 3);
}

TEST_F(DataFileTest, BulkRowsNeedFinish) {
  const std::string path = Make();
  const std::vector<std::string> fields{"Code"};
  {
    auto writer = OpenBulkWriter(path, "Codes", fields);
    writer->Add(std::vector<Value>{"A"});
  }
  {
    auto writer = OpenBulkWriter(path, "Codes", fields);
    writer->Add(std::vector<Value>{"B"});
    writer->Add(std::vector<Value>{"b"});
    EXPECT_EQ(ErrorOf([&] { writer->Finish(); }), 3022);
  }
  Connection connection(100);
  DataFiles files(connection, noNetwork);
  EXPECT_EQ(AskNumber(connection, "SELECT count(*) FROM " + files.Open(path)->Qualifier() + ".Codes"), 0);
}

TEST_F(DataFileTest, BulkWriterNamesWhatItDoesNotKnow) {
  const std::string path = Make();
  const std::vector<std::string> unknown{"Nope"};
  EXPECT_EQ(ErrorOf([&] { OpenBulkWriter(path, "Nobody", unknown); }), 3011);
  EXPECT_EQ(ErrorOf([&] { OpenBulkWriter(path, "Codes", unknown); }), 3265);
  const std::vector<std::string> code{"Code"};
  auto writer = OpenBulkWriter(path, "Codes", code);
  EXPECT_EQ(ErrorOf([&] { writer->Add(std::vector<Value>{"AB"}); }), 3163);
}

TEST_F(DataFileTest, CheckTellsWhatDiffers) {
  const std::string path = Make();
  std::vector<TableDefinition> expected{People(), Codes()};
  EXPECT_THAT(CheckDataFile(path, expected), testing::IsEmpty());

  expected[0].fields[1].size = 12;
  expected[0].fields.push_back(TextField("More", 3));
  expected[1].indexes.push_back({"ByText", {"Text"}, false, false});
  expected.push_back({"Extra", {TextField("A", 1)}, {}});
  EXPECT_THAT(CheckDataFile(path, expected),
              testing::ElementsAre("Field Name of table People is TEXT(10) instead of TEXT(12).", "Table People has no field More.",
                                   "Table Codes has no index ByText.", "Table Extra is missing."));
  EXPECT_THAT(CheckDataFile(Path("none.zdb"), expected), testing::ElementsAre("Couldn't find file '" + Path("none.zdb") + "'."));
}

TEST_F(DataFileTest, BackupOfAnOpenFileIsWhole) {
  const std::string path = Make();
  Connection connection(100);
  DataFiles files(connection, noNetwork);
  const auto file = files.Open(path);
  connection.Execute("INSERT INTO \"" + file->Qualifier() + "\".Codes (Code) VALUES ('Z')");
  int calls = 0;
  int last = -1;
  int all = -2;
  BackupDataFile(path, Path("copy.zdb"), [&](int done, int total) {
    ++calls;
    last = done;
    all = total;
  });
  EXPECT_GE(calls, 1);
  EXPECT_EQ(last, all);
  const auto copy = files.Open(Path("copy.zdb"));
  EXPECT_EQ(connection.AskText("SELECT Code FROM " + copy->Qualifier() + ".Codes"), "Z");
  EXPECT_EQ(ErrorOf([&] { BackupDataFile(path, Path("copy.zdb")); }), 3204);
  EXPECT_EQ(ErrorOf([&] { BackupDataFile(Path("none.zdb"), Path("other.zdb")); }), 3024);
  EXPECT_FALSE(std::filesystem::exists(Path("other.zdb")));
}

}  // namespace
}  // namespace engine
