#include <gtest/gtest.h>

#include "engine/data_file.h"
#include "engine/engine.h"
#include "support/scenario_run.h"
#include "support/temporary_folder.h"
#include "support/test_screens.h"

/// Commands and expectations on lists and files: each that holds and each that does not, with its message. Run twice, with lists
/// that are read at once and with lists that are read page by page.
namespace {

using test_support::frmFirst;
using test_support::RunScenario;
using test_support::ScenarioOptions;

class Lists : public testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    options_.database = folder_ / "people.zdb";
    options_.makeEngine = [] {
      engine::EngineOptions options;
      options.exactRows = GetParam();
      options.lockWait = 100;
      return engine::MakeEngine(options);
    };
    MakePeople();
  }

  void MakePeople() const {
    platform::TableDefinition people;
    people.name = "People";
    people.fields = {{"Number", platform::FieldType::Counter, 0, platform::Null},
                     {"Name", platform::FieldType::Text, 20, platform::Null},
                     {"Amount", platform::FieldType::Currency, 0, platform::Value(platform::Currency{0})},
                     {"Active", platform::FieldType::Boolean, 0, platform::Value(false)}};
    people.indexes = {{"PrimaryKey", {"Number"}, true, true}, {"Name", {"Name"}, false, false}};
    engine::CreateDataFile(options_.database, std::vector<platform::TableDefinition>{people});
    const std::vector<std::string> fields = {"Number", "Name", "Amount", "Active"};
    const auto rows = engine::OpenBulkWriter(options_.database, "People", fields);
    const auto add = [&](std::int32_t number, const platform::Value& name, std::int64_t amount, bool active) {
      rows->Add(std::vector<platform::Value>{number, name, platform::Currency{amount}, active});
    };
    add(1, "Cole", 125000, true);
    add(2, "Adams", 0, false);
    add(3, "Baker", 10000, false);
    add(4, platform::Null, 0, true);
    rows->Finish();
  }

  std::string InScreen(const std::string& commands) const {
    return RunScenario("host ShowUser\n" + commands + "\nclose\n", options_).output;
  }
  std::string Run(const std::string& commands) const { return RunScenario(commands, options_).output; }

  TemporaryFolder folder_;
  ScenarioOptions options_;
};

TEST_P(Lists, RowsAndFields) {
  EXPECT_EQ(InScreen("expect rows grid(0) 4\nexpect rows data(0) 4\nexpect at data(0) Name Cole\nexpect at grid(0) Amount 12.50\n"
                     "expect at data(0) Active True\nrow grid(0) 2\nexpect at data(0) Name Baker\nrow grid(0) where Name Adams\n"
                     "expect at data(0) Number 2\nrow data(0) where Number 4\nexpect at data(0) Name Null\nexpect source data(0) like "
                     "\"SELECT * FROM People*\"\n"
                     "expect data(0).Recordset.RecordCount like ?"),
            "");
  EXPECT_EQ(InScreen("expect rows grid(0) 3\nexpect at data(0) Name Baker\nexpect at data(0) Nothing 1\nexpect source data(0) x"),
            "t.scn:2: expected rows grid(0) 3, was 4\n"
            "t.scn:3: expected at data(0) Name \"Baker\", was \"Cole\"\n"
            "t.scn:4: expected at data(0) Nothing \"1\", was error 3265 Item not found in this collection.\n"
            "t.scn:5: expected source data(0) \"x\", was \"SELECT * FROM People ORDER BY Number\"\n");
  EXPECT_EQ(InScreen("refused row grid(0) 4\nrefused row grid(0) where Name Zorn"), "");
  EXPECT_EQ(Run("host ShowUser\nrow grid(0) 4\n"), "t.scn:2: expected row grid(0) 4, was no row 4\n");
  EXPECT_EQ(Run("host ShowUser\nrow txtName 4\n"), "t.scn:2: expected row txtName 4, was txtName no list\n");
}

TEST_P(Lists, CellsAndColumns) {
  EXPECT_EQ(
      InScreen("expect cells grid(0) Name Cole Adams Baker \"\"\nexpect cells grid(0) Amount $12.50 $0.00\n"
               "expect cells grid(0) Active True False False True\nexpect columns grid(0) No. Name Amount Active\n"
               "expect grid(0).Columns(2).NumberFormat Currency\nexpect grid(0).Columns(1).Value Cole\nexpect grid(0).Columns.Count 4"),
      "");
  EXPECT_EQ(InScreen("expect cells grid(0) Name Adams\nexpect cells grid(0) Name Cole Adams Baker \"\" Fifth\nexpect columns grid(0) No.\n"
                     "expect cells grid(0) Nothing x"),
            "t.scn:2: expected cells grid(0) \"Name\" \"Adams\", was \"Cole\"\n"
            "t.scn:3: expected cells grid(0) \"Name\" \"Cole\" \"Adams\" \"Baker\" \"\" \"Fifth\", was \"Cole\" \"Adams\" \"Baker\" \"\"\n"
            "t.scn:4: expected columns grid(0) \"No.\", was \"No.\" \"Name\" \"Amount\" \"Active\"\n"
            "t.scn:5: expected cells grid(0) Nothing x, was no column \"Nothing\" of grid(0)\n");
}

TEST_P(Lists, MarkedRows) {
  EXPECT_EQ(InScreen("mark grid(0) 2 0\nexpect marked grid(0) 0 2\nexpect lblInfo \"Marked 2\"\nexpect grid(0).SelBookmarks.Count 2\n"
                     "expect at data(0) Name Cole\nunmark grid(0)\nexpect marked grid(0)\nexpect lblInfo \"Marked 0\""),
            "");
  EXPECT_EQ(InScreen("mark grid(0) 1\nexpect marked grid(0) 2\nexpect marked grid(0)"),
            "t.scn:3: expected marked grid(0) 2, was 1\n"
            "t.scn:4: expected marked grid(0) nothing, was 1\n");
}

TEST_P(Lists, HeadingsOrderAndReload) {
  EXPECT_EQ(InScreen("head grid(0) Name\nexpect cells grid(0) Name \"\" Adams Baker Cole\nexpect reloaded data(0) 1\n"
                     "column grid(0) Name to 0\nexpect reloaded grid(0) 0"),
            "");
  EXPECT_EQ(InScreen("head grid(0) Name\nexpect reloaded data(0) 2"), "t.scn:3: expected reloaded data(0) \"2\", was 1\n");
  EXPECT_EQ(Run("host ShowUser\nhead grid(0) name\n"), "t.scn:2: expected head grid(0) name, was no column \"name\" of grid(0)\n");
  EXPECT_EQ(Run("host ShowUser\ncolumn grid(0) Name at 3\n"), "t.scn:2: expected column grid(0) Name at 3, was no CAPTION to N\n");
}

TEST_P(Lists, KeysInAList) {
  EXPECT_EQ(
      InScreen(
          "key grid(0) Down\nexpect at data(0) Name Adams\nkey grid(0) End\nexpect at data(0) Number 4\nkey grid(0) Up\n"
          "expect at data(0) Name Baker\nkey grid(0) Home\nexpect at data(0) Name Cole\nkey grid(0) PageDown\nexpect at data(0) Number 4"),
      "");
}

TEST_P(Lists, ScrollingSideways) {
  EXPECT_EQ(InScreen("scroll grid(0) 1 Amount\nexpect grid(0).Splits(1).LeftCol 2\nexpect grid(0).Splits(0).LeftCol 0\nscroll grid(0) 1 3\n"
                     "expect grid(0).Splits(1).LeftCol 3"),
            "");
  EXPECT_EQ(Run("host ShowUser\nscroll grid(0) 2 Amount\n"), "t.scn:2: expected scroll grid(0) 2 Amount, was no split 2\n");
}

TEST_P(Lists, CellsAreEditedAndWrittenWhenTheRowIsLeft) {
  EXPECT_EQ(
      InScreen("cell grid(0) Name Cohen\nexpect grid(0).DataChanged True\nexpect cells grid(0) Name Cohen\n"
               "expect value people.zdb \"SELECT Name FROM People WHERE Number=1\" Cole\nleave grid(0)\nexpect grid(0).DataChanged False\n"
               "expect value people.zdb \"SELECT Name FROM People WHERE Number=1\" Cohen\n"
               "cell grid(0) Active False\nrow grid(0) 1\n"
               "expect value people.zdb \"SELECT Active FROM People WHERE Number=1\" False"),
      "");
  EXPECT_EQ(InScreen("refused cell grid(0) Amount 5\nrefused cell grid(0) Name \"\"\nexpect grid(0).OpenText Cohen\nkey grid(0) Escape\n"
                     "expect grid(0).OpenText Null\ncell grid(0) Name \"\"\nexpect grid(0).DataChanged False\nkey grid(0) Escape"),
            "");
  EXPECT_EQ(Run("host ShowUser\ncell grid(0) Amount 5\n"), "t.scn:2: expected cell grid(0) Amount 5, was the column Amount closed\n");
}

TEST_P(Lists, ScreensThatAreClosedAtTheEndSaveNothing) {
  EXPECT_EQ(Run("host ShowUser\ncell grid(0) Name Cohen\n"), "t.scn:2: expected no screen at the end, was frmFirst\n");
  EXPECT_EQ(Run("expect value people.zdb \"SELECT Name FROM People WHERE Number=1\" Cole\n"), "");
  EXPECT_EQ(Run("host ShowUser\ncell grid(0) Name Cohen\nclose\n"), "");
  EXPECT_EQ(Run("expect value people.zdb \"SELECT Name FROM People WHERE Number=1\" Cohen\n"), "") << "closed by its frame it does";
}

TEST_P(Lists, AListWithoutData) {
  ScenarioOptions none;
  EXPECT_EQ(RunScenario("host ShowUser\nexpect rows grid(0) 0\nexpect marked grid(0)\nrefused row grid(0) 0\nclose\n", none).output, "");
  EXPECT_EQ(RunScenario("host ShowUser\nexpect rows grid(0) 1\nexpect marked grid(0) 0\nexpect cells grid(0) Name x\n"
                        "expect at data(0) Name x\nclose\n",
                        none)
                .output,
            "t.scn:2: expected rows grid(0) 1, was 0\n"
            "t.scn:3: expected marked grid(0) 0, was nothing\n"
            "t.scn:4: expected cells grid(0) \"Name\" \"x\", was nothing\n"
            "t.scn:5: expected at data(0) Name \"x\", was error 91 Object variable or With block variable not set\n");
}

TEST_P(Lists, OtherUsers) {
  EXPECT_EQ(Run("other people.zdb \"UPDATE People SET Name='Zorn' WHERE Number=1\"\n"
                "expect value people.zdb \"SELECT Name FROM People WHERE Number=1\" Zorn\n"
                "other temp \"DELETE * FROM People WHERE Number=2\"\nother people.zdb \"SELECT * FROM People\"\n"
                "expect value people.zdb \"SELECT Name FROM People WHERE Number=2\" none\n"
                "host Name \"{value people.zdb SELECT Name FROM People WHERE Number=3}\"\nexpect host Name Baker\n"
                "host Name \"{value people.zdb SELECT Name FROM People WHERE Name='x'}\"\nexpect host Name none\n"),
            "");
  EXPECT_EQ(Run("expect value people.zdb \"SELECT Name FROM People WHERE Number=3\" Cole\n"
                "expect value people.zdb \"SELECT Name FROM People WHERE Number=99\" Cole\n"),
            "t.scn:1: expected value people.zdb \"SELECT Name FROM People WHERE Number=3\" \"Cole\", was \"Baker\"\n"
            "t.scn:2: expected value people.zdb \"SELECT Name FROM People WHERE Number=99\" \"Cole\", was none\n");
  const std::string unknown = Run("expect value people.zdb \"SELECT Name FROM Nothing\" Cole\n");
  EXPECT_TRUE(unknown.starts_with("t.scn:1: expected value people.zdb \"SELECT Name FROM Nothing\" \"Cole\", was error 3078 ")) << unknown;
  EXPECT_EQ(RunScenario("other people.zdb \"INSERT INTO People (Number) VALUES (3)\"\nclose\n", options_).status, 1);
  EXPECT_EQ(Run("other people.zdb maybe x\n"),
            "t.scn:1: expected other people.zdb maybe x, was no STATEMENT, hold STATEMENT, drop TABLE, release or undo\n");
  EXPECT_EQ(Run("other people.zdb drop Nothing\n"), "t.scn:1: expected other people.zdb drop Nothing, was error 3011 no table Nothing\n");
}

TEST_P(Lists, HeldTransactionsLockTheFile) {
  EXPECT_EQ(Run("other people.zdb hold \"UPDATE People SET Name='Zorn' WHERE Number=1\"\n"
                "expect value people.zdb \"SELECT Name FROM People WHERE Number=1\" Cole\nother undo\n"
                "expect value people.zdb \"SELECT Name FROM People WHERE Number=1\" Cole\n"
                "other people.zdb hold \"UPDATE People SET Name='Zorn' WHERE Number=1\"\nother release\n"
                "expect value people.zdb \"SELECT Name FROM People WHERE Number=1\" Zorn\n"),
            "");
  const auto locked = RunScenario(
      "other people.zdb hold \"UPDATE People SET Name='Zorn' WHERE Number=1\"\n"
      "other people.zdb \"UPDATE People SET Name='Zimt' WHERE Number=2\"\n",
      options_);
  EXPECT_EQ(locked.status, 1);
  EXPECT_NE(locked.output.find("error 3218"), std::string::npos) << locked.output;
  EXPECT_EQ(Run("other release\n"), "t.scn:1: expected other release, was nothing held\n");
  EXPECT_EQ(Run("expect value people.zdb \"SELECT Name FROM People WHERE Number=1\" Zorn\n"), "")
      << "what is still held at the end is undone";
}

INSTANTIATE_TEST_SUITE_P(AtOnceAndByPage, Lists, testing::Values(20000, 0));

}  // namespace
