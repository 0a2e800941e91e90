// Where a cursor stands: flags, moves, counts. Every rule for table recordsets
// and for both kinds of dynaset.
#include "unit/engine/support/office.h"

namespace {

using platform::RecordsetRef;
using platform::RecordsetType;
using testing::ElementsAre;

enum class Kind { Table, Held, Paged };

class Moving : public OfficeTest, public testing::WithParamInterface<Kind> {
 protected:
  Moving() : OfficeTest(GetParam() == Kind::Paged ? 0 : 20'000) {}
  RecordsetRef Open() { return GetParam() == Kind::Table ? Table("People") : Dynaset("People"); }
};

TEST_P(Moving, OpensOnTheFirstRow) {
  AddPeople({"a", "b", "c"});
  auto rows = Open();
  EXPECT_FALSE(rows->Bof());
  EXPECT_FALSE(rows->Eof());
  EXPECT_FALSE(rows->NoMatch());
  EXPECT_EQ(rows->Field("Name"), "a");
  EXPECT_GE(rows->RecordCount(), 1);
}

TEST_P(Moving, WithoutRowsBothFlagsAreSetAndMovesFail) {
  auto rows = Open();
  EXPECT_TRUE(rows->Bof());
  EXPECT_TRUE(rows->Eof());
  EXPECT_EQ(rows->RecordCount(), 0);
  EXPECT_EQ(ErrorOf([&] { rows->MoveFirst(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rows->MoveLast(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rows->MoveNext(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rows->MovePrevious(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rows->Move(0); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rows->Field("Name"); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rows->Bookmark(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), 3021);
}

TEST_P(Moving, BehindTheLastRow) {
  AddPeople({"a", "b"});
  auto rows = Open();
  rows->MoveNext();
  EXPECT_EQ(rows->Field("Name"), "b");
  EXPECT_FALSE(rows->Eof());
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
  EXPECT_FALSE(rows->Bof());
  EXPECT_EQ(ErrorOf([&] { rows->Field("Name"); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rows->MoveNext(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rows->Move(0); }), 3021);
  rows->MovePrevious();
  EXPECT_FALSE(rows->Eof());
  EXPECT_EQ(rows->Field("Name"), "b");
}

TEST_P(Moving, BeforeTheFirstRow) {
  AddPeople({"a", "b"});
  auto rows = Open();
  rows->MovePrevious();
  EXPECT_TRUE(rows->Bof());
  EXPECT_FALSE(rows->Eof());
  EXPECT_EQ(ErrorOf([&] { rows->MovePrevious(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rows->Move(-3); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rows->Move(0); }), 3021);
  rows->MoveNext();
  EXPECT_FALSE(rows->Bof());
  EXPECT_EQ(rows->Field("Name"), "a");
}

TEST_P(Moving, BySeveralRows) {
  AddPeople({"a", "b", "c", "d", "e"});
  auto rows = Open();
  rows->Move(3);
  EXPECT_EQ(rows->Field("Name"), "d");
  rows->Move(-2);
  EXPECT_EQ(rows->Field("Name"), "b");
  rows->Move(9);
  EXPECT_TRUE(rows->Eof());
  rows->Move(-1);
  EXPECT_EQ(rows->Field("Name"), "e");
}

TEST_P(Moving, CountIsFinalAfterTheLastRow) {
  AddPeople({"a", "b", "c"});
  auto rows = Open();
  rows->MoveLast();
  EXPECT_EQ(rows->Field("Name"), "c");
  EXPECT_EQ(rows->RecordCount(), 3);
}

TEST_P(Moving, AlongManyPagesAndBack) {
  std::vector<std::string> names;
  for (int i = 0; i < 700; ++i) names.push_back("n" + std::to_string(1000 + i));
  AddPeople(names);
  auto rows = Open();
  EXPECT_EQ(Texts(rows, "Name"), names);
  for (std::size_t i = names.size(); i-- > 0;) {
    rows->MovePrevious();
    ASSERT_EQ(rows->Field("Name"), names[i]);
  }
  rows->MovePrevious();
  EXPECT_TRUE(rows->Bof());
}

TEST_P(Moving, DeletingEveryRowInALoop) {
  AddPeople({"a", "b", "c"});
  auto rows = Open();
  int deleted = 0;
  for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
    rows->Delete();
    ++deleted;
    EXPECT_FALSE(rows->Bof());
    EXPECT_FALSE(rows->Eof());
  }
  EXPECT_EQ(deleted, 3);
  EXPECT_EQ(rows->RecordCount(), 0);
  EXPECT_TRUE(rows->Eof());
  EXPECT_FALSE(rows->Bof());
  rows->MoveFirst();  // nothing left: both flags, and only the next such move
                      // fails
  EXPECT_TRUE(rows->Bof());
  EXPECT_TRUE(rows->Eof());
  EXPECT_EQ(ErrorOf([&] { rows->MoveFirst(); }), 3021);
}

TEST_P(Moving, ADeletedRowIsDeadButKeepsThePlace) {
  AddPeople({"a", "b", "c"});
  auto rows = Open();
  rows->MoveNext();
  const auto bookmark = rows->Bookmark();
  rows->Delete();
  EXPECT_EQ(ErrorOf([&] { rows->Field("Name"); }), 3167);
  EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), 3167);
  EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), 3167);
  EXPECT_EQ(ErrorOf([&] { rows->Move(0); }), 3167);
  EXPECT_EQ(ErrorOf([&] { rows->SetBookmark(bookmark); }), 3167);
  rows->MovePrevious();
  EXPECT_EQ(rows->Field("Name"), "a");
  rows->MoveNext();
  EXPECT_EQ(rows->Field("Name"), "c");
}

TEST_P(Moving, OwnDeleteAndAddCountAtOnce) {
  AddPeople({"a", "b", "c"});
  auto rows = Open();
  rows->MoveLast();
  rows->Delete();
  EXPECT_EQ(rows->RecordCount(), 2);
  rows->AddNew();
  rows->Update();
  EXPECT_EQ(rows->RecordCount(), 3);
}

TEST_P(Moving, TheFirstRowOfAllIsNotCurrent) {
  auto rows = Open();
  rows->AddNew();
  rows->SetField("Name", "a");
  rows->Update();
  EXPECT_FALSE(rows->Bof());
  EXPECT_TRUE(rows->Eof());
  EXPECT_EQ(rows->RecordCount(), 1);
  EXPECT_EQ(ErrorOf([&] { rows->Field("Name"); }), 3021);
  rows->MoveFirst();
  EXPECT_EQ(rows->Field("Name"), "a");
}

TEST_P(Moving, BookmarksLeadBack) {
  AddPeople({"a", "b", "c"});
  auto rows = Open();
  rows->MoveNext();
  const auto second = rows->Bookmark();
  rows->MoveLast();
  EXPECT_FALSE(rows->Bookmark() == second);
  rows->SetBookmark(second);
  EXPECT_EQ(rows->Field("Name"), "b");
  EXPECT_TRUE(rows->Bookmark() == second);
  rows->MovePrevious();
  EXPECT_EQ(rows->Field("Name"), "a");
}

TEST_P(Moving, ForeignBookmarksAreRefused) {
  AddPeople({"a"});
  auto rows = Open();
  auto others = Open();
  EXPECT_EQ(ErrorOf([&] { rows->SetBookmark(others->Bookmark()); }), 3159);
  EXPECT_EQ(ErrorOf([&] { rows->SetBookmark({rows->Bookmark().set, "x"}); }), 3159);
  EXPECT_EQ(rows->Field("Name"), "a");
}

TEST_P(Moving, BookmarkSetsFlagsFalse) {
  AddPeople({"a", "b"});
  auto rows = Open();
  const auto first = rows->Bookmark();
  rows->MoveLast();
  rows->MoveNext();
  ASSERT_TRUE(rows->Eof());
  rows->SetBookmark(first);
  EXPECT_FALSE(rows->Eof());
  EXPECT_EQ(rows->Field("Name"), "a");
}

TEST_P(Moving, ACloneStandsNowhereAndSharesBookmarks) {
  AddPeople({"a", "b", "c"});
  auto rows = Open();
  rows->MoveNext();
  auto clone = rows->Clone();
  EXPECT_EQ(ErrorOf([&] { clone->Field("Name"); }), 3021);
  EXPECT_FALSE(clone->Bof());
  EXPECT_FALSE(clone->Eof());
  clone->SetBookmark(rows->Bookmark());
  EXPECT_EQ(clone->Field("Name"), "b");
  clone->MoveNext();
  EXPECT_EQ(clone->Field("Name"), "c");
  EXPECT_EQ(rows->Field("Name"), "b");
  rows->SetBookmark(clone->Bookmark());
  EXPECT_EQ(rows->Field("Name"), "c");
}

TEST_P(Moving, CloneAndOriginalSeeEachOthersRows) {
  AddPeople({"a", "b"});
  auto rows = Open();
  auto clone = rows->Clone();
  rows->Delete();
  rows->AddNew();
  rows->SetField("Name", "z");
  rows->Update();
  EXPECT_THAT(Texts(clone, "Name"), ElementsAre("b", "z"));
  clone->SetBookmark(rows->LastModified());
  EXPECT_EQ(clone->Field("Name"), "z");
}

TEST_P(Moving, ClosingOneLeavesTheOtherOpen) {
  AddPeople({"a", "b"});
  auto rows = Open();
  auto clone = rows->Clone();
  rows->Close();
  EXPECT_EQ(ErrorOf([&] { rows->MoveFirst(); }), 3420);
  EXPECT_EQ(ErrorOf([&] { rows->Close(); }), 3420);
  clone->MoveFirst();
  EXPECT_EQ(clone->Field("Name"), "a");
}

TEST_P(Moving, TheSameSourceTwiceIsIndependent) {
  AddPeople({"a", "b"});
  auto one = Open();
  auto two = Open();
  one->MoveNext();
  EXPECT_EQ(two->Field("Name"), "a");
  EXPECT_EQ(one->Field("Name"), "b");
}

TEST_P(Moving, FieldsByNameAndNumber) {
  AddPeople({"a"});
  auto rows = Open();
  EXPECT_EQ(rows->Fields().size(), 8u);
  EXPECT_EQ(rows->Fields()[1].name, "Name");
  EXPECT_EQ(rows->Fields()[1].size, 10);
  EXPECT_EQ(rows->Fields()[1].sourceTable, "People");
  EXPECT_TRUE(rows->Fields()[1].updatable);
  EXPECT_FALSE(rows->Fields()[0].updatable);
  EXPECT_EQ(rows->FieldIndex("nAmE"), 1);
  EXPECT_EQ(ErrorOf([&] { rows->Field("Nope"); }), 3265);
  EXPECT_EQ(ErrorOf([&] { rows->SetField("Nope", 1); }), 3265);
}

INSTANTIATE_TEST_SUITE_P(Kinds, Moving, testing::Values(Kind::Table, Kind::Held, Kind::Paged), [](const auto& kind) {
  return kind.param == Kind::Table ? "Table" : kind.param == Kind::Held ? "Held" : "Paged";
});

}  // namespace
