// Table recordsets: the current index orders them, Seek enters it.
#include "unit/engine/support/office.h"

namespace {

using platform::Null;
using platform::Value;
using testing::ElementsAre;

class TableRecordsets : public OfficeTest {
 protected:
  void AddRate(int id, const std::string& dept) {
    auto rates = Table("Rates");
    rates->AddNew();
    rates->SetField("ID", id);
    rates->SetField("Dept", dept);
    rates->Update();
  }
};

TEST_F(TableRecordsets, WithoutIndexInRowKeyOrder) {
  AddPeople({"c", "a", "b"});
  EXPECT_THAT(Texts(Table("People"), "Name"), ElementsAre("c", "a", "b"));
}

TEST_F(TableRecordsets, IndexOrdersAndStandsOnTheFirst) {
  AddPeople({"c", "a", "b", "A "});
  auto rows = Table("People");
  rows->MoveLast();
  rows->SetIndex("byname");
  EXPECT_EQ(rows->Index(), "ByName");
  EXPECT_EQ(rows->Field("ID"), 2);
  EXPECT_THAT(Texts(rows, "ID"), ElementsAre("2", "4", "3", "1"));
  EXPECT_EQ(ErrorOf([&] { rows->SetIndex("Nope"); }), 3015);
}

TEST_F(TableRecordsets, AnotherIndexIsAnotherWindow) {
  AddPeople({"c", "a", "b"});
  auto rows = Table("People");
  EXPECT_EQ(TextOf(rows->Window().RowsAt(0, 1).at(0).cells.at(1)), "c");
  rows->SetIndex("ByName");
  EXPECT_EQ(TextOf(rows->Window().RowsAt(0, 1).at(0).cells.at(1)), "a");
}

TEST_F(TableRecordsets, NullsStandFirst) {
  AddPeople({"b", "a"});
  auto rows = Table("People");
  rows->AddNew();
  rows->Update();
  rows->SetIndex("ByName");
  EXPECT_THAT(Texts(rows, "Name"), ElementsAre("Null", "a", "b"));
  rows->MoveLast();
  rows->MovePrevious();
  rows->MovePrevious();
  EXPECT_TRUE(rows->Field("Name").IsNull());
  rows->MovePrevious();
  EXPECT_TRUE(rows->Bof());
}

TEST_F(TableRecordsets, SeekNeedsAnIndex) {
  auto rows = Table("People");
  EXPECT_EQ(ErrorOf([&] { rows->Seek("=", {1}); }), 3019);
}

TEST_F(TableRecordsets, SeekEqual) {
  AddPeople({"b", "a", "B", "c"});
  auto rows = Table("People");
  rows->SetIndex("ByName");
  rows->Seek("=", {"B  "});
  EXPECT_FALSE(rows->NoMatch());
  EXPECT_EQ(rows->Field("ID"), 1);  // the first of equal ones
  rows->MoveNext();
  EXPECT_EQ(rows->Field("ID"), 3);
  rows->Seek("=", {"bb"});
  EXPECT_TRUE(rows->NoMatch());
  EXPECT_EQ(ErrorOf([&] { rows->Field("ID"); }), 3021);
  rows->Seek("=", {"a text that is longer than the field"});
  EXPECT_TRUE(rows->NoMatch());
}

TEST_F(TableRecordsets, SeekOnTheCounter) {
  AddPeople({"a", "b", "c"});
  auto rows = Table("People");
  rows->SetIndex("PrimaryKey");
  rows->Seek("=", {2});
  EXPECT_EQ(rows->Field("Name"), "b");
  rows->Seek("=", {"3"});
  EXPECT_EQ(rows->Field("Name"), "c");
  rows->Seek("=", {99});
  EXPECT_TRUE(rows->NoMatch());
  EXPECT_EQ(ErrorOf([&] { rows->Seek("=", {"x"}); }), 3421);
  rows->Seek(">=", {2});
  EXPECT_EQ(rows->Field("Name"), "b");
  rows->Seek(">", {2});
  EXPECT_EQ(rows->Field("Name"), "c");
  rows->Seek("<", {2});
  EXPECT_EQ(rows->Field("Name"), "a");
  rows->Seek("<=", {9});
  EXPECT_EQ(rows->Field("Name"), "c");
  rows->Seek(">", {3});
  EXPECT_TRUE(rows->NoMatch());
}

TEST_F(TableRecordsets, SeekWithOrder) {
  AddPeople({"d", "b", "b", "f"});
  auto rows = Table("People");
  rows->SetIndex("ByName");
  const auto found = [&](const char* comparison, const char* key) {
    rows->Seek(comparison, {key});
    return rows->NoMatch() ? 0 : rows->Field("ID").As<std::int32_t>();
  };
  EXPECT_EQ(found(">=", "b"), 2);
  EXPECT_EQ(found(">=", "c"), 1);
  EXPECT_EQ(found(">", "b"), 1);
  EXPECT_EQ(found(">", "f"), 0);
  EXPECT_EQ(found("<=", "b"), 3);  // from the high end
  EXPECT_EQ(found("<=", "c"), 3);
  EXPECT_EQ(found("<", "d"), 3);
  EXPECT_EQ(found("<", "b"), 0);
  EXPECT_EQ(found("<=", "z"), 4);
}

TEST_F(TableRecordsets, SeekOnSeveralColumns) {
  AddRate(1, "B");
  AddRate(1, "A");
  AddRate(2, "A");
  auto rows = Table("Rates");
  rows->SetIndex("PrimaryKey");
  rows->Seek("=", {1, "a"});
  EXPECT_FALSE(rows->NoMatch());
  EXPECT_EQ(rows->Field("Dept"), "A");
  rows->Seek("=", {1});  // the missing key counts as Null
  EXPECT_TRUE(rows->NoMatch());
  rows->Seek(">=", {1});
  EXPECT_EQ(rows->Field("Dept"), "A");
  rows->Seek(">", {1, "B"});
  EXPECT_EQ(rows->Field("ID"), 2);
  rows->MovePrevious();
  EXPECT_EQ(rows->Field("Dept"), "B");
  rows->MovePrevious();
  EXPECT_EQ(rows->Field("Dept"), "A");
  rows->Seek("<", {2, "A"});
  EXPECT_EQ(rows->Field("Dept"), "B");
}

TEST_F(TableRecordsets, MovesAfterAFailedSeekHaveNoStart) {
  AddPeople({"a"});
  auto rows = Table("People");
  rows->SetIndex("ByName");
  rows->Seek("=", {"zz"});
  EXPECT_EQ(ErrorOf([&] { rows->MoveNext(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), 3021);
  rows->MoveFirst();
  EXPECT_EQ(rows->Field("Name"), "a");
  EXPECT_TRUE(rows->NoMatch());  // moves leave it
}

TEST_F(TableRecordsets, NewRowsStandAtTheirPlace) {
  AddPeople({"a", "c"});
  auto rows = Table("People");
  rows->SetIndex("ByName");
  rows->AddNew();
  rows->SetField("Name", "b");
  rows->Update();
  EXPECT_EQ(rows->Field("Name"), "a");
  rows->MoveNext();
  EXPECT_EQ(rows->Field("Name"), "b");
}

TEST_F(TableRecordsets, OthersRowsShowAtOnce) {
  AddPeople({"a", "c"});
  auto rows = Table("People");
  rows->SetIndex("ByName");
  auto elsewhere = NewEngine();
  elsewhere->OpenControlDatabase(Path("office.zdb"))->Execute("INSERT INTO People (Name) VALUES ('b')");
  EXPECT_EQ(rows->RecordCount(), 3);
  rows->MoveNext();
  EXPECT_EQ(rows->Field("Name"), "b");
}

TEST_F(TableRecordsets, FindIsForDynasets) {
  AddPeople({"a"});
  auto rows = Table("People");
  EXPECT_EQ(ErrorOf([&] { rows->FindFirst("[ID]=1"); }), 3251);
  auto dynaset = Dynaset("People");
  EXPECT_EQ(ErrorOf([&] { dynaset->SetIndex("ByName"); }), 3251);
  EXPECT_EQ(ErrorOf([&] { dynaset->Index(); }), 3251);
  EXPECT_EQ(ErrorOf([&] { dynaset->Seek("=", {1}); }), 3251);
}

TEST_F(TableRecordsets, ACloneHasNoIndex) {
  AddPeople({"b", "a"});
  auto rows = Table("People");
  rows->SetIndex("ByName");
  auto clone = rows->Clone();
  EXPECT_EQ(clone->Index(), "");
  EXPECT_EQ(ErrorOf([&] { clone->Seek("=", {"a"}); }), 3019);
}

}  // namespace
