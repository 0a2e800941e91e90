// The copy buffer: AddNew, Edit, field writes, Update, and what a failure
// leaves.
#include <limits>

#include "unit/engine/support/office.h"

namespace {

using platform::Currency;
using platform::EditMode;
using platform::Null;
using platform::RecordsetRef;
using platform::Value;

enum class Kind { Table, Held, Paged };

class Editing : public OfficeTest, public testing::WithParamInterface<Kind> {
 protected:
  Editing() : OfficeTest(GetParam() == Kind::Paged ? 0 : 20'000) {}
  RecordsetRef Open(const std::string& table = "People") { return GetParam() == Kind::Table ? Table(table) : Dynaset(table); }
};

TEST_P(Editing, AddNewGivesDefaultsAndTheCounter) {
  auto rows = Open();
  rows->AddNew();
  EXPECT_EQ(rows->Mode(), EditMode::Add);
  EXPECT_EQ(rows->Field("ID"), 1);
  EXPECT_EQ(rows->Field("Age"), std::int16_t{0});
  EXPECT_EQ(rows->Field("Active"), false);
  EXPECT_TRUE(rows->Field("Name").IsNull());
  EXPECT_EQ(rows->RecordCount(), 0);
  rows->SetField("Name", "new");
  EXPECT_EQ(rows->Field("Name"), "new");
  rows->Update();
  EXPECT_EQ(rows->Mode(), EditMode::None);
  rows->SetBookmark(rows->LastModified());
  EXPECT_EQ(rows->Field("ID"), 1);
  EXPECT_EQ(rows->Field("Name"), "new");
}

TEST_P(Editing, ADroppedCounterIsLost) {
  auto rows = Open();
  rows->AddNew();
  rows->CancelUpdate();
  rows->AddNew();
  EXPECT_EQ(rows->Field("ID"), 2);
  rows->AddNew();  // the older buffer goes without a word
  EXPECT_EQ(rows->Field("ID"), 3);
  rows->Update();
  EXPECT_EQ(rows->RecordCount(), 1);
}

TEST_P(Editing, ANumberIsNeverGivenAgain) {
  AddPeople({"a", "b"});
  auto rows = Open();
  rows->MoveLast();
  rows->Delete();
  rows->AddNew();
  EXPECT_EQ(rows->Field("ID"), 3);
  rows->Update();
  db_->Execute("DELETE * FROM People");
  Restart();
  rows = Open();
  rows->AddNew();
  EXPECT_EQ(rows->Field("ID"), 4);
}

TEST_P(Editing, TheRowBeforeAddNewIsCurrentAgain) {
  AddPeople({"a", "b"});
  auto rows = Open();
  rows->MoveNext();
  rows->AddNew();
  rows->SetField("Name", "c");
  rows->Update();
  EXPECT_EQ(rows->Field("Name"), "b");
}

TEST_P(Editing, EditWritesOnlyAtUpdate) {
  AddPeople({"a"});
  auto rows = Open();
  auto others = Open();
  rows->Edit();
  EXPECT_EQ(rows->Mode(), EditMode::Edit);
  rows->SetField("Name", "b");
  EXPECT_EQ(rows->Field("Name"), "b");
  others->Move(0);
  EXPECT_EQ(others->Field("Name"), "a");
  rows->Update();
  EXPECT_EQ(rows->Field("Name"), "b");
  others->Move(0);
  EXPECT_EQ(others->Field("Name"), "b");
  EXPECT_TRUE(rows->LastModified() == rows->Bookmark());
}

TEST_P(Editing, WithoutABufferNothingCanBeWritten) {
  AddPeople({"a"});
  auto rows = Open();
  EXPECT_EQ(ErrorOf([&] { rows->SetField("Name", "b"); }), 3020);
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), 3020);
  EXPECT_EQ(ErrorOf([&] { rows->CancelUpdate(); }), 3020);
  EXPECT_EQ(ErrorOf([&] { rows->LastModified(); }), 3021);
}

TEST_P(Editing, MovesDropTheBuffer) {
  AddPeople({"a", "b"});
  auto rows = Open();
  const auto first = rows->Bookmark();
  const auto acts = std::vector<std::function<void()>>{[&] { rows->MoveFirst(); }, [&] { rows->MoveLast(); }, [&] { rows->MovePrevious(); },
                                                       [&] { rows->Move(0); }, [&] { rows->SetBookmark(first); }};
  for (const auto& act : acts) {
    rows->Edit();
    rows->SetField("Name", "x");
    act();
    EXPECT_EQ(rows->Mode(), EditMode::None);
  }
  EXPECT_THAT(Texts(rows, "Name"), testing::ElementsAre("a", "b"));
}

TEST_P(Editing, CancelUpdateLeavesTheRow) {
  AddPeople({"a"});
  auto rows = Open();
  rows->Edit();
  rows->SetField("Name", "x");
  rows->CancelUpdate();
  EXPECT_EQ(rows->Field("Name"), "a");
  EXPECT_EQ(rows->Mode(), EditMode::None);
}

TEST_P(Editing, AFailedUpdateKeepsTheBuffer) {
  auto rows = Open("Kinds");
  for (const char* kind : {"A", "B"}) {
    rows->AddNew();
    rows->SetField("Kind", kind);
    rows->Update();
  }
  rows->AddNew();
  rows->SetField("Kind", "a");  // equal in the text order
  rows->SetField("Title", "double");
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), 3022);
  EXPECT_EQ(rows->Mode(), EditMode::Add);
  EXPECT_EQ(rows->Field("Title"), "double");
  rows->SetField("Kind", "C");
  rows->Update();
  EXPECT_EQ(rows->RecordCount(), 3);
}

TEST_P(Editing, NullInThePrimaryKey) {
  auto rows = Open("Kinds");
  rows->AddNew();
  rows->SetField("Title", "none");
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), 3058);
  EXPECT_EQ(rows->RecordCount(), 0);
}

TEST_P(Editing, EqualKeyOnEdit) {
  auto rows = Open("Kinds");
  for (const char* kind : {"A", "B"}) {
    rows->AddNew();
    rows->SetField("Kind", kind);
    rows->Update();
  }
  rows->MoveLast();
  rows->Edit();
  rows->SetField("Kind", "A");
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), 3022);
  EXPECT_EQ(rows->Mode(), EditMode::Edit);
  rows->CancelUpdate();
  EXPECT_EQ(rows->Field("Kind"), "B");
}

TEST_P(Editing, TheRowStaysCurrentWhenItsKeyChanges) {
  AddPeople({"a", "b", "c"});
  auto rows = GetParam() == Kind::Table ? Table("People") : Dynaset("SELECT * FROM People ORDER BY Name");
  if (GetParam() == Kind::Table) rows->SetIndex("ByName");
  rows->Edit();
  rows->SetField("Name", "z");
  rows->Update();
  EXPECT_EQ(rows->Field("Name"), "z");
  rows->SetBookmark(rows->LastModified());
  EXPECT_EQ(rows->Field("Name"), "z");
}

TEST_P(Editing, TwoUsersKeepTheirOwnFields) {
  AddPeople({"a"});
  auto rows = Open();
  auto elsewhere = NewEngine();
  auto other = elsewhere->OpenControlDatabase(Path("office.zdb"))->OpenRecordset("People", platform::RecordsetType::Table);
  rows->Edit();
  other->Edit();
  rows->SetField("Name", "mine");
  other->SetField("City", "theirs");
  rows->Update();
  other->Update();
  rows->Move(0);
  EXPECT_EQ(rows->Field("Name"), "mine");
  EXPECT_EQ(rows->Field("City"), "theirs");
}

TEST_P(Editing, EditFetchesTheRowAnew) {
  AddPeople({"a"});
  auto rows = Open();
  EXPECT_TRUE(rows->Field("City").IsNull());
  auto elsewhere = NewEngine();
  auto other = elsewhere->OpenControlDatabase(Path("office.zdb"))->OpenRecordset("People", platform::RecordsetType::Table);
  other->Edit();
  other->SetField("City", "there");
  other->Update();
  EXPECT_TRUE(rows->Field("City").IsNull());
  rows->Edit();
  EXPECT_EQ(rows->Field("City"), "there");
}

TEST_P(Editing, TwoUsersNeverGetOneNumber) {
  auto rows = Open();
  auto elsewhere = NewEngine();
  auto other = elsewhere->OpenControlDatabase(Path("office.zdb"))->OpenRecordset("People", platform::RecordsetType::Table);
  rows->AddNew();
  other->AddNew();
  EXPECT_EQ(rows->Field("ID"), 1);
  EXPECT_EQ(other->Field("ID"), 2);
  other->Update();
  rows->Update();
  EXPECT_THAT(Texts(Open(), "ID"), testing::ElementsAre("1", "2"));
}

TEST_P(Editing, ARowThatOthersDeletedStaysReadable) {
  AddPeople({"a", "b"});
  auto rows = Open();
  const auto bookmark = rows->Bookmark();
  auto elsewhere = NewEngine();
  elsewhere->OpenControlDatabase(Path("office.zdb"))->OpenRecordset("People", platform::RecordsetType::Table)->Delete();
  EXPECT_EQ(rows->Field("Name"), "a");
  EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), 3167);
  EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), 3167);
  EXPECT_EQ(ErrorOf([&] { rows->Move(0); }), 3167);
  EXPECT_EQ(ErrorOf([&] { rows->SetBookmark(bookmark); }), 3167);
  EXPECT_EQ(rows->Field("Name"), "a");
  rows->MoveNext();
  EXPECT_EQ(rows->Field("Name"), "b");
  rows->MovePrevious();
  EXPECT_TRUE(rows->Bof());
}

TEST_P(Editing, UpdateOfARowDeletedMeanwhile) {
  AddPeople({"a", "b"});
  auto rows = Open();
  rows->Edit();
  rows->SetField("Name", "x");
  auto elsewhere = NewEngine();
  elsewhere->OpenControlDatabase(Path("office.zdb"))->OpenRecordset("People", platform::RecordsetType::Table)->Delete();
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), 3167);
}

TEST_P(Editing, ALockedFileRefusesTheWriteAfterAWait) {
  AddPeople({"a"});
  auto rows = Open();
  auto elsewhere = NewEngine();
  auto workspace = elsewhere->CreateWorkspace("w", "Admin", "", 2);
  auto other = workspace->OpenDatabase(Path("office.zdb"));
  workspace->BeginTrans();
  other->Execute("UPDATE People SET City = 'x'");
  int painted = 0;
  engine_->OnWait([&] { ++painted; });
  rows->Edit();
  rows->SetField("Name", "b");
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), 3218);
  EXPECT_GT(painted, 2);
  EXPECT_EQ(rows->Mode(), EditMode::Edit);
  workspace->Rollback();
  rows->Update();
  EXPECT_EQ(rows->Field("Name"), "b");
  EXPECT_TRUE(rows->Field("City").IsNull());
}

/// Another program that keeps the file locked until it is told to let go.
struct Locker {
  explicit Locker(std::unique_ptr<platform::DataEngine> other, const std::string& path) : engine(std::move(other)) {
    workspace = engine->CreateWorkspace("w", "Admin", "", 2);
    database = workspace->OpenDatabase(path);
    held = office_files::Hold(path);
    if (held != nullptr) return;
    workspace->BeginTrans();
    database->Execute("UPDATE People SET City = 'x'");
  }
  void LetGo() {
    if (held == nullptr) workspace->CommitTrans();
    held.reset();
  }
  std::unique_ptr<platform::DataEngine> engine;
  platform::WorkspaceRef workspace;
  platform::DatabaseRef database;
  std::shared_ptr<void> held;
};

TEST_P(Editing, ANewRowTakesItsNumberByACommitOfItsOwn) {
  AddPeople({"a"});
  auto rows = Open();
  rows->AddNew();
  ASSERT_EQ(rows->Field("ID"), 2);
  auto elsewhere = NewEngine();
  auto others = elsewhere->OpenControlDatabase(Path("office.zdb"))->OpenRecordset("People", platform::RecordsetType::Table);
  others->AddNew();
  EXPECT_EQ(others->Field("ID"), 3) << "a number that was lent is never given out again";
}

TEST_P(Editing, ANewRowOfALockedFileDoesNotBegin) {
  AddPeople({"a"});
  auto rows = Open();
  Locker other(NewEngine(), Path("office.zdb"));
  int painted = 0;
  engine_->OnWait([&] { ++painted; });
  EXPECT_EQ(ErrorOf([&] { rows->AddNew(); }), 3218);
  EXPECT_GT(painted, 2) << "the lock is waited for";
  EXPECT_EQ(rows->Mode(), EditMode::None);
  EXPECT_EQ(ErrorOf([&] { rows->SetField("Name", "b"); }), 3020);
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), 3020);
  EXPECT_EQ(rows->Field("Name"), "a") << "the current row stays current";
  other.LetGo();
  rows->AddNew();
  EXPECT_EQ(rows->Field("ID"), 2);
  rows->SetField("Name", "b");
  rows->Update();
  EXPECT_EQ(Texts(Table("People"), "Name"), (std::vector<std::string>{"a", "b"}));
}

TEST_P(Editing, ARowThatCouldNotBeStoredKeepsItsNumberFromOthers) {
  AddPeople({"a"});
  auto rows = Open();
  rows->AddNew();
  ASSERT_EQ(rows->Field("ID"), 2);
  rows->SetField("Name", "late");
  {
    Locker other(NewEngine(), Path("office.zdb"));
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }), 3218);
    EXPECT_EQ(rows->Mode(), EditMode::Add);
    other.LetGo();
    auto others = other.database->OpenRecordset("People", platform::RecordsetType::Table);
    others->AddNew();
    EXPECT_EQ(others->Field("ID"), 3);
    others->SetField("Name", "first");
    others->Update();
  }
  rows->Update();
  EXPECT_EQ(Texts(Table("People"), "ID"), (std::vector<std::string>{"1", "2", "3"}));
}

INSTANTIATE_TEST_SUITE_P(Kinds, Editing, testing::Values(Kind::Table, Kind::Held, Kind::Paged), [](const auto& kind) {
  return kind.param == Kind::Table ? "Table" : kind.param == Kind::Held ? "Held" : "Paged";
});

}  // namespace
