// Several databases that are open on one file, or one after the other: what one has found out about a statement holds for the others,
// and no longer than the file's tables stay as they are.
#include "unit/engine/support/office.h"

namespace {

using testing::ElementsAre;

class FileMeanings : public OfficeTest, public testing::WithParamInterface<int> {
 protected:
  FileMeanings() : OfficeTest(GetParam()) { AddPeople({"Cole", "Ames", "Bell"}); }

  platform::DatabaseRef Another() { return engine_->OpenControlDatabase(Path("office.zdb")); }
  static std::vector<std::string> NamesIn(platform::DatabaseRef& database) { return Texts(database->OpenRecordset(kPeople), "Name"); }

  static constexpr const char* kPeople = "SELECT * FROM People ORDER BY Name";
  static constexpr const char* kRates = "SELECT * FROM Rates";
};

INSTANTIATE_TEST_SUITE_P(Thresholds, FileMeanings, testing::Values(0, 20'000));

TEST_P(FileMeanings, AStatementOutlivesTheDatabaseThatOpenedItFirst) {
  auto first = Another();
  EXPECT_THAT(NamesIn(first), ElementsAre("Ames", "Bell", "Cole"));
  auto second = Another();
  const auto rows = second->OpenRecordset(kPeople);
  first->Close();
  db_->Close();
  EXPECT_THAT(Texts(rows, "Name"), ElementsAre("Ames", "Bell", "Cole"));
  rows->FindFirst("Name = 'Bell'");
  rows->Edit();
  rows->SetField("Name", "Dorn");
  rows->Update();
  second->Close();
  EXPECT_EQ(ErrorOf([&] { rows->MoveFirst(); }), 3420);
  auto third = Another();
  EXPECT_THAT(NamesIn(third), ElementsAre("Ames", "Cole", "Dorn"));
}

TEST_P(FileMeanings, RowsThatOneWritesAreInTheOthersNextList) {
  auto first = Another();
  const auto held = first->OpenRecordset(kPeople);
  auto second = Another();
  second->Execute("INSERT INTO People (Name) VALUES ('Abel')");
  EXPECT_THAT(NamesIn(second), ElementsAre("Abel", "Ames", "Bell", "Cole"));
  EXPECT_THAT(NamesIn(first), ElementsAre("Abel", "Ames", "Bell", "Cole"));
}

TEST_P(FileMeanings, ATableThatBecomesALinkIsReadAsOne) {
  db_->Execute("INSERT INTO Rates (ID, Dept) VALUES (1, '001')");
  auto first = Another();
  EXPECT_EQ(TextOf(first->OpenRecordset(kRates)->Field("Dept")), "001");
  engine::DropTable(Path("office.zdb"), "Rates");
  auto second = Another();
  EXPECT_NE(ErrorOf([&] { second->OpenRecordset(kRates); }), 0);
  platform::TableDef link = second->CreateTableDef("Rates");
  link.Connect = ";DATABASE=" + Path("ledger.zdb");
  link.SourceTableName = "Departments";
  second->AppendTableDef(link);
  second->Execute("INSERT INTO Rates (DeptNumber) VALUES ('002')");
  for (auto* database : {&first, &second, &db_}) EXPECT_EQ(TextOf((*database)->OpenRecordset(kRates)->Field("DeptNumber")), "002");
  EXPECT_EQ(TextOf(Another()->OpenRecordset(kRates)->Field("DeptNumber")), "002");
}

TEST_P(FileMeanings, WhatATransactionUndoesIsInNoListBehindIt) {
  auto workspace = engine_->CreateWorkspace("w", "Admin", "", 2);
  engine_->AppendWorkspace(workspace);
  auto inside = workspace->OpenDatabase(Path("office.zdb"));
  EXPECT_EQ(NamesIn(inside).size(), 3U);
  workspace->BeginTrans();
  inside->Execute("DELETE * FROM People WHERE Name = 'Bell'");
  EXPECT_THAT(NamesIn(inside), ElementsAre("Ames", "Cole"));
  workspace->Rollback();
  EXPECT_THAT(NamesIn(inside), ElementsAre("Ames", "Bell", "Cole"));
  EXPECT_THAT(NamesIn(db_), ElementsAre("Ames", "Bell", "Cole"));
}

}  // namespace
