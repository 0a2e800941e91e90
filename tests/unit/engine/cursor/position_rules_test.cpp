// The whole table of positions and moves, and what each call asks of the kind of recordset: every state with every call.
#include "unit/engine/support/office.h"

namespace {

using platform::EditMode;
using platform::RecordsetRef;
using platform::RecordsetType;
using testing::ElementsAre;

enum class Kind { Table, Held, Paged };

class Positions : public OfficeTest, public testing::WithParamInterface<Kind> {
 protected:
  Positions() : OfficeTest(GetParam() == Kind::Paged ? 0 : 20'000) {}
  RecordsetRef Open() { return GetParam() == Kind::Table ? Table("People") : Dynaset("SELECT * FROM People"); }

  /// "b" before the first row, "e" behind the last, "be" both, "" on a row.
  static std::string State(const RecordsetRef& rows) { return std::string(rows->Bof() ? "b" : "") + (rows->Eof() ? "e" : ""); }

  RecordsetRef On() { return Open(); }
  RecordsetRef Before() {
    auto rows = Open();
    rows->MovePrevious();
    return rows;
  }
  RecordsetRef Behind() {
    auto rows = Open();
    rows->MoveLast();
    rows->MoveNext();
    return rows;
  }
};

TEST_P(Positions, EachMoveInEachState) {
  AddPeople({"a", "b", "c"});
  const auto fails = [](const RecordsetRef& rows, auto&& move) { return ErrorOf([&] { move(rows); }); };
  const auto first = [](const RecordsetRef& r) { r->MoveFirst(); };
  const auto last = [](const RecordsetRef& r) { r->MoveLast(); };
  const auto next = [](const RecordsetRef& r) { r->MoveNext(); };
  const auto previous = [](const RecordsetRef& r) { r->MovePrevious(); };
  const auto by = [](int count) { return [count](const RecordsetRef& r) { r->Move(count); }; };

  for (const auto& [move, name] : std::vector<std::pair<std::function<void(const RecordsetRef&)>, std::string>>{
           {first, "a"}, {last, "c"}, {next, "b"}, {by(0), "a"}, {by(1), "b"}, {by(2), "c"}}) {
    auto rows = On();
    EXPECT_EQ(fails(rows, move), 0);
    EXPECT_EQ(rows->Field("Name"), name);
    EXPECT_EQ(State(rows), "");
  }

  auto before = Before();
  EXPECT_EQ(State(before), "b");
  EXPECT_EQ(ErrorOf([&] { before->Field("Name"); }), 3021);
  EXPECT_EQ(fails(before, previous), 3021);
  EXPECT_EQ(fails(before, by(-1)), 3021);
  EXPECT_EQ(fails(before, by(0)), 3021);
  EXPECT_EQ(State(before), "b");
  EXPECT_EQ(fails(before, next), 0);
  EXPECT_EQ(State(before), "");
  EXPECT_EQ(before->Field("Name"), "a");
  EXPECT_EQ(fails(before = Before(), by(2)), 0);
  EXPECT_EQ(before->Field("Name"), "b");
  EXPECT_EQ(fails(before = Before(), first), 0);
  EXPECT_EQ(fails(before = Before(), last), 0);
  EXPECT_EQ(before->Field("Name"), "c");

  auto behind = Behind();
  EXPECT_EQ(State(behind), "e");
  EXPECT_EQ(ErrorOf([&] { behind->Bookmark(); }), 3021);
  EXPECT_EQ(fails(behind, next), 3021);
  EXPECT_EQ(fails(behind, by(1)), 3021);
  EXPECT_EQ(fails(behind, by(0)), 3021);
  EXPECT_EQ(fails(behind, previous), 0);
  EXPECT_EQ(behind->Field("Name"), "c");
  EXPECT_EQ(fails(behind = Behind(), by(-2)), 0);
  EXPECT_EQ(behind->Field("Name"), "b");
  EXPECT_EQ(fails(behind = Behind(), first), 0);
  EXPECT_EQ(behind->Field("Name"), "a");
}

TEST_P(Positions, AnEmptyListRefusesEveryMove) {
  auto rows = Open();
  EXPECT_EQ(State(rows), "be");
  EXPECT_EQ(rows->RecordCount(), 0);
  EXPECT_FALSE(rows->NoMatch());
  for (const auto& move : std::vector<std::function<void()>>{
           [&] { rows->MoveFirst(); }, [&] { rows->MoveLast(); }, [&] { rows->MoveNext(); }, [&] { rows->MovePrevious(); },
           [&] { rows->Move(0); }, [&] { rows->Move(1); }, [&] { rows->Move(-1); }, [&] { rows->Edit(); }, [&] { rows->Delete(); }})
    EXPECT_EQ(ErrorOf(move), 3021);
  EXPECT_EQ(State(rows), "be");
}

TEST_P(Positions, TheOnlyRowDeleted) {
  AddPeople({"a"});
  auto rows = Open();
  rows->Delete();
  EXPECT_EQ(State(rows), "") << "a Delete changes no flag";
  EXPECT_EQ(rows->RecordCount(), 0);
  EXPECT_EQ(ErrorOf([&] { rows->Field("Name"); }), 3167);
  EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), 3167);
  EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), 3167);
  rows->MoveFirst();
  EXPECT_EQ(State(rows), "be");
  EXPECT_EQ(ErrorOf([&] { rows->MoveFirst(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rows->MoveLast(); }), 3021);
}

TEST_P(Positions, MovesFromADeletedRow) {
  AddPeople({"a", "b", "c"});
  auto rows = Open();
  rows->MoveNext();
  const auto dead = rows->Bookmark();
  rows->Delete();
  rows->MovePrevious();
  EXPECT_EQ(rows->Field("Name"), "a");
  EXPECT_EQ(ErrorOf([&] { rows->SetBookmark(dead); }), 3167);
  rows->MoveNext();
  EXPECT_EQ(rows->Field("Name"), "c") << "the dead row is never current again";
  rows->Delete();
  rows->MoveNext();
  EXPECT_EQ(State(rows), "e");
}

TEST_P(Positions, MovesLeaveTheLastSearchAlone) {
  AddPeople({"a", "b"});
  auto rows = Open();
  if (GetParam() == Kind::Table) {
    rows->SetIndex("ByName");
    rows->Seek("=", {"x"});
  } else {
    rows->FindFirst("[Name]='x'");
  }
  EXPECT_TRUE(rows->NoMatch());
  rows->MoveFirst();
  rows->MoveNext();
  EXPECT_TRUE(rows->NoMatch());
}

TEST_P(Positions, WhatOnlyOtherKindsCanDo) {
  AddPeople({"a"});
  auto rows = Open();
  if (GetParam() == Kind::Table) {
    EXPECT_EQ(ErrorOf([&] { rows->FindFirst("[Name]='a'"); }), 3251);
    EXPECT_EQ(ErrorOf([&] { rows->FindNext("[Name]='a'"); }), 3251);
    EXPECT_EQ(ErrorOf([&] { rows->Seek("=", {"a"}); }), 3019);
    EXPECT_EQ(ErrorOf([&] { rows->SetIndex("Nope"); }), 3015);
  } else {
    EXPECT_EQ(ErrorOf([&] { rows->SetIndex("ByName"); }), 3251);
    EXPECT_EQ(ErrorOf([&] { rows->Seek("=", {"a"}); }), 3251);
  }
  auto snapshot = db_->OpenRecordset("SELECT * FROM People", RecordsetType::Snapshot);
  EXPECT_EQ(ErrorOf([&] { snapshot->AddNew(); }), 3251);
  EXPECT_EQ(ErrorOf([&] { snapshot->Edit(); }), 3251);
  EXPECT_EQ(ErrorOf([&] { snapshot->Delete(); }), 3251);
}

TEST_P(Positions, ASecondEditDropsTheFirstWithoutAWord) {
  AddPeople({"a", "b"});
  auto rows = Open();
  rows->Edit();
  rows->SetField("Name", "x");
  rows->Edit();
  EXPECT_EQ(rows->Field("Name"), "a");
  rows->SetField("Name", "y");
  rows->AddNew();
  EXPECT_EQ(rows->Mode(), EditMode::Add);
  EXPECT_TRUE(rows->Field("Name").IsNull());
  rows->CancelUpdate();
  EXPECT_EQ(rows->Mode(), EditMode::None);
  EXPECT_EQ(ErrorOf([&] { rows->CancelUpdate(); }), 3020);
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), 3020);
  EXPECT_EQ(ErrorOf([&] { rows->SetField("Name", "z"); }), 3020);
  EXPECT_THAT(Texts(Open(), "Name"), ElementsAre("a", "b"));
}

TEST_P(Positions, NothingWasChangedYet) {
  AddPeople({"a"});
  auto rows = Open();
  EXPECT_EQ(ErrorOf([&] { rows->LastModified(); }), 3021);
  rows->Edit();
  rows->SetField("Name", "b");
  EXPECT_EQ(ErrorOf([&] { rows->LastModified(); }), 3021);
  rows->Update();
  EXPECT_EQ(rows->LastModified(), rows->Bookmark());
  rows->AddNew();
  rows->SetField("Name", "c");
  rows->Update();
  EXPECT_EQ(rows->Field("Name"), "b") << "the row that was current before";
  rows->SetBookmark(rows->LastModified());
  EXPECT_EQ(rows->Field("Name"), "c");
}

TEST_P(Positions, AClosedOneIsGone) {
  AddPeople({"a"});
  auto rows = Open();
  auto clone = rows->Clone();
  rows->Edit();
  rows->Close();
  EXPECT_EQ(ErrorOf([&] { rows->Close(); }), 3420);
  EXPECT_EQ(ErrorOf([&] { rows->MoveFirst(); }), 3420);
  EXPECT_EQ(ErrorOf([&] { rows->Field("Name"); }), 3420);
  EXPECT_EQ(ErrorOf([&] { clone->Field("Name"); }), 3021) << "a clone stands nowhere";
  clone->MoveFirst();
  EXPECT_EQ(clone->Field("name"), "a");
  EXPECT_EQ(ErrorOf([&] { clone->Field("Nope"); }), 3265);
}

INSTANTIATE_TEST_SUITE_P(Kinds, Positions, testing::Values(Kind::Table, Kind::Held, Kind::Paged), [](const auto& kind) {
  return kind.param == Kind::Table ? "Table" : (kind.param == Kind::Held ? "Held" : "Paged");
});

}  // namespace
