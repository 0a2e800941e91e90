// Computed columns: a cell that can't be computed is empty and hinders nothing else.
#include "platform/values/convert.h"
#include "unit/engine/support/office.h"

namespace {

using platform::RecordsetRef;
using platform::Value;
using testing::ElementsAre;

constexpr const char* raisedRates =
    "SELECT Rates.Dept, Rates.Adjustment, People.Balance, [Balance]+([Balance]*[Adjustment]/100) AS [Raised] FROM People INNER JOIN Rates "
    "ON "
    "People.ID = Rates.ID";

class ComputedCells : public DynasetRules {
 protected:
  ComputedCells() {
    AddPerson("a", "x", 20);
    db_->Execute("UPDATE People SET Balance = 50");
    AddRows("Rates", {"ID", "Dept", "Adjustment"},
            {{Value(1), Value("1"), Value(10.0)},
             {Value(1), Value("2"), Value(1e300)},
             {Value(1), Value("3"), Value(-10.0)},
             {Value(1), Value("4"), Value(1.8446744073709e15)}});
  }
  static std::vector<std::string> Cells(const RecordsetRef& rows, const std::string& field) {
    std::vector<std::string> cells;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext())
      cells.push_back(rows->Field(field).IsNull() ? "Null" : platform::CStr(rows->Field(field)));
    return cells;
  }
};

TEST_P(ComputedCells, OneThatFailsIsEmptyByItself) {
  auto rows = Dynaset(raisedRates);
  EXPECT_THAT(Cells(rows, "Raised"), ElementsAre("55", "Null", "45", "Null"));
  EXPECT_THAT(Cells(rows, "Dept"), ElementsAre("1", "2", "3", "4"));
  EXPECT_EQ(rows->RecordCount(), 4);
  EXPECT_EQ(rows->Window().RowsAt(0, 10).size(), 4u);
  EXPECT_EQ(rows->Window().Count(), 4);
}

TEST_P(ComputedCells, OneThatFailsStandsWithNullInTheOrder) {
  auto rows = Dynaset(std::string(raisedRates) + " ORDER BY [Balance]+([Balance]*[Adjustment]/100);");
  EXPECT_THAT(Texts(rows, "Dept"), ElementsAre("2", "4", "3", "1"));
  rows = Dynaset(std::string(raisedRates) + " ORDER BY [Balance]+([Balance]*[Adjustment]/100) DESC;");
  EXPECT_THAT(Texts(rows, "Dept"), ElementsAre("1", "3", "4", "2"));
}

TEST_P(ComputedCells, OneThatFailsIsNoHitAndHindersNone) {
  auto rows = Dynaset(raisedRates);
  rows->FindFirst("[Raised]<50");
  ASSERT_FALSE(rows->NoMatch());
  EXPECT_EQ(rows->Field("Dept"), "3");
  rows->FindFirst("[Raised] Is Null");
  EXPECT_EQ(rows->Field("Dept"), "2");
  rows->FindNext("[Raised] Is Null");
  EXPECT_EQ(rows->Field("Dept"), "4");
  rows->FindFirst("[Raised]>100");
  EXPECT_TRUE(rows->NoMatch());
}

TEST_P(ComputedCells, OfEachKind) {
  auto rows = Dynaset(
      "SELECT Dept, 1/([Adjustment]-10) AS Parts, 'x' & 1/([Adjustment]-10) AS Shown, [Adjustment]*1E300 AS Far, CLng([Adjustment]) AS "
      "Whole, "
      "IIf(1/([Adjustment]-10)>0,'up','down') AS Way, 5 AS Five, 1/0 AS Nothing, [Dept] Like '[' & [Dept] AS Fits FROM Rates ORDER BY "
      "1/([Adjustment]-10), Dept");
  EXPECT_THAT(Texts(rows, "Dept"), ElementsAre("1", "3", "2", "4"));
  rows->MoveFirst();
  for (const char* field : {"Parts", "Shown", "Way", "Nothing", "Fits"}) EXPECT_TRUE(rows->Field(field).IsNull()) << field;
  EXPECT_EQ(TextOf(rows->Field("Whole")), "10");
  rows->MoveNext();
  EXPECT_EQ(TextOf(rows->Field("Shown")), "x-0.05");
  EXPECT_EQ(TextOf(rows->Field("Way")), "down");
  rows->MoveNext();
  for (const char* field : {"Far", "Whole"}) EXPECT_TRUE(rows->Field(field).IsNull()) << field;
  EXPECT_EQ(TextOf(rows->Field("Five")), "5");
}

TEST_P(ComputedCells, WhatIsWrittenStillFails) {
  EXPECT_EQ(ErrorOf([&] { db_->Execute("INSERT INTO Words (ID, Word) SELECT 1/0, 'x' FROM Rates", platform::dbFailOnError); }), 11);
  EXPECT_EQ(ErrorOf([&] { Dynaset("SELECT Dept FROM Rates WHERE 1/([Adjustment]-10)>0"); }), 11) << "a condition is no cell";
}

INSTANTIATE_TEST_SUITE_P(Strategies, ComputedCells, testing::Values(20'000, 0),
                         [](const auto& rows) { return rows.param == 0 ? "Paged" : "Held"; });

}  // namespace
