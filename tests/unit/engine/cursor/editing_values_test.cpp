// What a field takes of the value that is written into it.
#include <limits>

#include "unit/engine/support/office.h"

namespace {

using platform::Currency;
using platform::EditMode;
using platform::Null;
using platform::RecordsetRef;
using platform::Value;

enum class Kind { Table, Held, Paged };

class EditedValues : public OfficeTest, public testing::WithParamInterface<Kind> {
 protected:
  EditedValues() : OfficeTest(GetParam() == Kind::Paged ? 0 : 20'000) {}
  RecordsetRef Open(const std::string& table = "People") { return GetParam() == Kind::Table ? Table(table) : Dynaset(table); }
};


TEST_P(EditedValues, NumbersOutOfAFieldsRangeAreRefusedAtTheAssignment) {
  AddPeople({"a"});
  auto rows = Open();
  rows->Edit();
  rows->SetField("Balance", 5);
  EXPECT_EQ(ErrorOf([&] { rows->SetField("Balance", 1e15); }), 3421);
  EXPECT_EQ(ErrorOf([&] { rows->SetField("Balance", "99999999999999999999"); }), 3421);
  EXPECT_EQ(ErrorOf([&] { rows->SetField("Age", 32768); }), 3421);
  EXPECT_EQ(rows->Field("Balance"), Currency{50000});
  rows->Update();
  EXPECT_EQ(rows->Field("Balance"), Currency{50000});
  AddRows("Rates", {"ID", "Dept", "Adjustment"}, {{Value(1), Value("1"), Value(5.0)}});
  auto rates = Open("Rates");
  rates->Edit();
  EXPECT_EQ(ErrorOf([&] { rates->SetField("Adjustment", std::numeric_limits<double>::infinity()); }), 3421);
  EXPECT_EQ(ErrorOf([&] { rates->SetField("Adjustment", std::numeric_limits<double>::quiet_NaN()); }), 3421);
  EXPECT_EQ(rates->Field("Adjustment"), 5.0);
}

TEST_P(EditedValues, ValuesBecomeTheFieldsType) {
  auto rows = Open();
  rows->AddNew();
  rows->SetField("Age", "41");
  EXPECT_EQ(rows->Field("Age"), std::int16_t{41});
  rows->SetField("Age", 2.5);
  EXPECT_EQ(rows->Field("Age"), std::int16_t{2});
  rows->SetField("Age", true);
  EXPECT_EQ(rows->Field("Age"), std::int16_t{-1});
  rows->SetField("Balance", "($1,234.50)");
  EXPECT_EQ(rows->Field("Balance"), Currency{-12345000});
  rows->SetField("Balance", 0.00005);
  EXPECT_EQ(rows->Field("Balance"), Currency{0});
  rows->SetField("Born", "1/31/1999");
  EXPECT_EQ(rows->Field("Born"), platform::Date{36191});
  rows->SetField("Name", platform::Date{36191});
  EXPECT_EQ(rows->Field("Name"), "1/31/1999");
  rows->SetField("Active", 7);
  EXPECT_EQ(rows->Field("Active"), true);
  rows->SetField("Note", 12);
  EXPECT_EQ(rows->Field("Note"), "12");
  rows->Update();
  rows->SetBookmark(rows->LastModified());
  EXPECT_EQ(rows->Field("Age"), std::int16_t{-1});
  EXPECT_EQ(rows->Field("Born"), platform::Date{36191});
  EXPECT_EQ(rows->Field("Active"), true);
  EXPECT_EQ(rows->Field("Note"), "12");
}

TEST_P(EditedValues, NullStaysNullInEveryField) {
  auto rows = Open();
  rows->AddNew();
  for (const char* field : {"Name", "City", "Age", "Balance", "Born", "Active", "Note"}) rows->SetField(field, Null);
  rows->Update();
  rows->SetBookmark(rows->LastModified());
  for (const char* field : {"Name", "City", "Age", "Balance", "Born", "Active", "Note"}) EXPECT_TRUE(rows->Field(field).IsNull()) << field;
}

TEST_P(EditedValues, AFailedAssignmentKeepsTheFormerValue) {
  auto rows = Open();
  rows->AddNew();
  rows->SetField("Name", "former");
  EXPECT_EQ(ErrorOf([&] { rows->SetField("Name", "eleven char"); }), 3163);
  EXPECT_EQ(rows->Field("Name"), "former");
  rows->SetField("Age", 5);
  for (const Value& bad : {Value("abc"), Value(""), Value(40000), Value("40000")})
    EXPECT_EQ(ErrorOf([&] { rows->SetField("Age", bad); }), 3421);
  EXPECT_EQ(rows->Field("Age"), std::int16_t{5});
  for (const char* field : {"Balance", "Born", "Active"}) EXPECT_EQ(ErrorOf([&] { rows->SetField(field, ""); }), 3421) << field;
  EXPECT_EQ(ErrorOf([&] { rows->SetField("Born", "none"); }), 3421);
  EXPECT_EQ(rows->Mode(), EditMode::Add);
  rows->SetField("Note", "");
  EXPECT_EQ(rows->Field("Note"), "");
}

TEST_P(EditedValues, WidthsCountCharacters) {
  auto rows = Open();
  rows->AddNew();
  rows->SetField("Name", "éééééééééé");
  EXPECT_EQ(ErrorOf([&] { rows->SetField("Name", "ééééééééééx"); }), 3163);
  rows->SetField("Name", "ten       ");
  rows->Update();
  rows->SetBookmark(rows->LastModified());
  EXPECT_EQ(rows->Field("Name"), "ten       ");
}

TEST_P(EditedValues, TheCounterIsNeverWritten) {
  AddPeople({"a"});
  auto rows = Open();
  rows->Edit();
  EXPECT_EQ(ErrorOf([&] { rows->SetField("ID", 9); }), 3164);
  rows->AddNew();
  EXPECT_EQ(ErrorOf([&] { rows->SetField("ID", 9); }), 3164);
}

TEST_P(EditedValues, BadBytesAreRefused) {
  auto rows = Open();
  rows->AddNew();
  EXPECT_EQ(ErrorOf([&] { rows->SetField("Name", std::string("a\0b", 3)); }), 3421);
  EXPECT_EQ(ErrorOf([&] { rows->SetField("Name", "\xFF"); }), 3421);
}

INSTANTIATE_TEST_SUITE_P(Kinds, EditedValues, testing::Values(Kind::Table, Kind::Held, Kind::Paged), [](const auto& kind) {
  return kind.param == Kind::Table ? "Table" : kind.param == Kind::Held ? "Held" : "Paged";
});

}  // namespace
