#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "engine/data_file.h"
#include "engine/engine.h"
#include "unit/engine/support/engine_fixture.h"

namespace engine {
namespace {

using platform::FieldType;
using platform::TableDefinition;
using platform::Value;
using testing::ElementsAre;
using testing::IsEmpty;

TableDefinition OldPeople() {
  return {"People", {Field("ID", FieldType::Counter), TextField("Name", 10)}, {{"PrimaryKey", {"ID"}, true, true}}};
}
TableDefinition NewPeople() {
  TableDefinition table = OldPeople();
  table.fields.push_back(TextField("Nick", 10));
  table.fields.push_back(Field("Visits", FieldType::Long, Value(std::int32_t{7})));
  table.indexes.push_back({"ByNick", {"Nick"}, false, false});
  return table;
}
TableDefinition Codes() { return {"Codes", {TextField("Code", 1)}, {{"PrimaryKey", {"Code"}, true, true}}}; }

class UpgradeTest : public EngineFolderTest {
 protected:
  const std::vector<TableDefinition> now_{NewPeople(), Codes()};

  /// A file of an older version with some people.
  std::string Old(int people = 2) {
    const std::vector<TableDefinition> tables{OldPeople()};
    CreateDataFile(Path("a.zdb"), tables);
    const std::vector<std::string> fields{"Name"};
    const auto writer = OpenBulkWriter(Path("a.zdb"), "People", fields);
    for (int i = 0; i < people; ++i) writer->Add(std::vector<Value>{Value("Reed" + std::to_string(i))});
    writer->Finish();
    return Path("a.zdb");
  }
  /// A second program.
  platform::DatabaseRef OpenHere(const std::string& file) { return other_->OpenControlDatabase(file); }
  void TearDown() override { other_.reset(); }

  std::unique_ptr<platform::DataEngine> other_ = MakeEngine();
};

TEST_F(UpgradeTest, GivesWhatIsLackingAndKeepsWhatIsThere) {
  const std::string file = Old();
  EXPECT_THAT(UpgradeDataFile(file, now_, Path("a.before")),
              ElementsAre("Table People has got the field Nick.", "Table People has got the field Visits.",
                          "Table People has got the index ByNick.", "Table Codes was made."));
  EXPECT_THAT(CheckDataFile(file, now_), IsEmpty());

  const auto database = OpenHere(file);
  const auto rows = database->OpenRecordset("SELECT Name, Nick, Visits FROM People ORDER BY ID");
  EXPECT_EQ(rows->Field("Name"), Value("Reed0"));
  EXPECT_TRUE(rows->Field("Nick").IsNull());
  EXPECT_EQ(rows->Field("Visits"), Value(std::int32_t{7}));
}

TEST_F(UpgradeTest, TheCopyIsTheFileAsItWas) {
  const std::string file = Old();
  UpgradeDataFile(file, now_, Path("a.before"));
  EXPECT_THAT(CheckDataFile(Path("a.before"), std::vector<TableDefinition>{OldPeople()}), IsEmpty());
}

TEST_F(UpgradeTest, ASecondTimeThereIsNothingToDo) {
  const std::string file = Old();
  UpgradeDataFile(file, now_, Path("a.before"));
  EXPECT_THAT(UpgradeDataFile(file, now_, Path("b.before")), IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(Path("b.before")));
}

TEST_F(UpgradeTest, AFileThatSomebodyHasOpenIsLeft) {
  const std::string file = Old();
  const auto database = OpenHere(file);
  EXPECT_EQ(ErrorOf([&] { UpgradeDataFile(file, now_, Path("a.before")); }), 3045);
  EXPECT_FALSE(std::filesystem::exists(Path("a.before")));
  EXPECT_THAT(CheckDataFile(file, std::vector<TableDefinition>{OldPeople()}), IsEmpty());
}

TEST_F(UpgradeTest, ACopyIsNeverWrittenOverAnotherFile) {
  const std::string file = Old();
  EXPECT_EQ(ErrorOf([&] { UpgradeDataFile(file, now_, file); }), 3204);
  EXPECT_THAT(CheckDataFile(file, std::vector<TableDefinition>{OldPeople()}), IsEmpty());
}

TEST_F(UpgradeTest, WhatAKilledRunLeftOfACopyIsWrittenAnew) {
  const std::string file = Old();
  std::ofstream(Path("a.before.unfinished")) << "half a file";
  EXPECT_FALSE(UpgradeDataFile(file, now_, Path("a.before")).empty());
  EXPECT_THAT(CheckDataFile(Path("a.before"), std::vector<TableDefinition>{OldPeople()}), IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(Path("a.before.unfinished")));
}

TEST_F(UpgradeTest, AKeyThatIsLackingIsRefusedBeforeAnythingChanges) {
  const std::string file = Old();
  std::vector<TableDefinition> tables = now_;
  tables[0].fields.push_back(TextField("Code", 3));
  tables[0].indexes[0].fields.push_back("Code");
  EXPECT_EQ(ErrorOf([&] { UpgradeDataFile(file, tables, Path("a.before")); }), 3057);
  EXPECT_FALSE(std::filesystem::exists(Path("a.before")));
  EXPECT_THAT(CheckDataFile(file, std::vector<TableDefinition>{OldPeople()}), IsEmpty());
}

TEST_F(UpgradeTest, KeysThatAreNotUniqueLeaveTheFileAsItWas) {
  const std::string file = Old();
  std::vector<TableDefinition> tables = now_;
  tables[0].indexes.push_back({"OneVisit", {"Visits"}, true, false});
  EXPECT_EQ(ErrorOf([&] { UpgradeDataFile(file, tables, Path("a.before")); }), 3022);
  EXPECT_THAT(CheckDataFile(file, std::vector<TableDefinition>{OldPeople()}), IsEmpty());
}

TEST_F(UpgradeTest, KilledHalfWayTheFileIsTheOldOneOrTheNewOne) {
  int unfinished = 0;
  for (int round = 0; round < 12; ++round) {
    std::filesystem::remove(Path("a.zdb"));
    const std::string file = Old(5'000);
    const pid_t child = ::fork();
    if (child == 0) {
      try {
        UpgradeDataFile(file, now_, Path("copy" + std::to_string(round)));
      } catch (...) {
        ::_exit(2);
      }
      ::_exit(0);
    }
    ::usleep(static_cast<useconds_t>(500 * round));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);

    // What bears the copy's name is the whole file.
    const std::string copy = Path("copy" + std::to_string(round));
    if (std::filesystem::exists(copy)) {
      ASSERT_THAT(CheckDataFile(copy, std::vector<TableDefinition>{OldPeople()}), IsEmpty()) << "round " << round;
    }
    const bool isNew = CheckDataFile(file, now_).empty();
    const bool isOld = CheckDataFile(file, std::vector<TableDefinition>{OldPeople()}).empty();
    ASSERT_NE(isNew, isOld) << "round " << round;
    unfinished += isOld ? 1 : 0;
    UpgradeDataFile(file, now_, Path("again" + std::to_string(round)));
    ASSERT_THAT(CheckDataFile(file, now_), IsEmpty()) << "round " << round;
  }
  EXPECT_GT(unfinished, 0) << "no child was killed in time";
}

}  // namespace
}  // namespace engine
