// Action statements over many rows: the windows paint meanwhile, and nothing that happens there reaches the statement.
#include "unit/engine/support/office.h"

namespace {

constexpr int people = 30'000;

class LongActions : public OfficeTest {
 protected:
  LongActions() {
    std::vector<std::vector<platform::Value>> rows;
    for (int id = 1; id <= people; ++id)
      rows.push_back({platform::Value("n" + std::to_string(id)), platform::Value(std::to_string(id % 1'000))});
    AddRows("People", {"Name", "City"}, rows);
  }

  /// How often painting was served meanwhile.
  int PaintedIn(const std::string& sql) {
    int painted = 0;
    engine_->OnWait([&] { ++painted; });
    db_->Execute(sql, platform::dbFailOnError);
    engine_->OnWait({});
    return painted;
  }
};

// Every sixteen milliseconds, however slow the machine is: so every thousand rows at the least.
TEST_F(LongActions, LetTheWindowsPaint) {
  EXPECT_GT(PaintedIn("INSERT INTO Words ( ID, Word ) SELECT ID, Name AS Word FROM People"), people / 1'000);
  EXPECT_EQ(db_->RecordsAffected(), people);
  EXPECT_GT(PaintedIn("UPDATE People SET Name = 'x'"), people / 1'000);
  EXPECT_EQ(db_->RecordsAffected(), people);
  EXPECT_GT(PaintedIn("DELETE FROM People WHERE ID > 100"), people / 1'000);
  EXPECT_EQ(db_->RecordsAffected(), people - 100);
}

TEST_F(LongActions, LetTheWindowsPaintWhileValuesAreConverted) {
  EXPECT_GT(PaintedIn("UPDATE People SET Age = City"), people / 1'000);
  EXPECT_EQ(db_->RecordsAffected(), people);
  EXPECT_GT(PaintedIn("INSERT INTO Words ( ID, Word ) SELECT City AS ID, Age AS Word FROM People"), people / 1'000);
  EXPECT_EQ(db_->RecordsAffected(), people);
}

// A statement that stands in the midst of its writing gives nothing away of what it has half done.
TEST_F(LongActions, RefuseWhatPaintingAsksMeanwhile) {
  auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  std::vector<int> errors;
  engine_->OnWait([&] {
    if (!errors.empty()) return;
    errors.push_back(ErrorOf([&] { rows->Window().RowsAt(20'000, 50); }));
    errors.push_back(ErrorOf([&] { db_->OpenRecordset("SELECT * FROM Words"); }));
    errors.push_back(ErrorOf([&] { db_->Execute("DELETE FROM People"); }));
    errors.push_back(ErrorOf([&] { engine_->OpenControlDatabase(Path("ledger.zdb")); }));
  });
  db_->Execute("UPDATE People SET City = 'x'", platform::dbFailOnError);
  engine_->OnWait({});
  EXPECT_THAT(errors, testing::ElementsAre(3045, 3045, 3045, 3045));
  EXPECT_EQ(db_->RecordsAffected(), people);
  EXPECT_EQ(rows->Window().RowsAt(20'000, 1).front().cells[2], "x");
  EXPECT_EQ(Dynaset("SELECT * FROM People WHERE City <> 'x'")->RecordCount(), 0);
}

TEST_F(LongActions, AreNotEndedByPaintingThatFails) {
  engine_->OnWait([] { throw platform::error::Overflow(); });
  db_->Execute("UPDATE People SET City = 'x'", platform::dbFailOnError);
  engine_->OnWait({});
  EXPECT_EQ(db_->RecordsAffected(), people);
}

// One that fails at its last row leaves nothing, although the windows were served between the rows.
TEST_F(LongActions, StayAllOrNothing) {
  int painted = 0;
  engine_->OnWait([&] { ++painted; });
  const std::string same = std::to_string(people);
  db_->Execute("INSERT INTO Rates (ID, Dept) VALUES (" + same + ", 'a')", platform::dbFailOnError);
  EXPECT_EQ(ErrorOf([&] { db_->Execute("INSERT INTO Rates ( ID, Dept ) SELECT ID, 'A' AS Dept FROM People", platform::dbFailOnError); }), 3022);
  engine_->OnWait({});
  EXPECT_GT(painted, 0);
  EXPECT_EQ(Table("Rates")->RecordCount(), 1);
}

TEST_F(LongActions, StayPartOfAnOpenTransaction) {
  auto workspace = engine_->CreateWorkspace("w", "Admin", "", 2);
  engine_->AppendWorkspace(workspace);
  auto office = workspace->OpenDatabase(Path("office.zdb"));
  int painted = 0;
  engine_->OnWait([&] { ++painted; });
  workspace->BeginTrans();
  office->Execute("UPDATE People SET City = 'x'", platform::dbFailOnError);
  workspace->Rollback();
  engine_->OnWait({});
  EXPECT_GT(painted, people / 1'000);
  EXPECT_EQ(Dynaset("SELECT * FROM People WHERE City = 'x'")->RecordCount(), 0);
}

// A table that is emptied is emptied at once, in a time that no one can see, and still by one statement.
TEST_F(LongActions, EmptyATable) {
  db_->Execute("DELETE * FROM People", platform::dbFailOnError);
  EXPECT_EQ(db_->RecordsAffected(), people);
  EXPECT_EQ(Table("People")->RecordCount(), 0);
}

}  // namespace
