#include <gtest/gtest.h>

#include <string>

#include "engine/functions/store_functions.h"
#include "engine/translate/plan/planning.h"
#include "platform/values/calendar.h"
#include "unit/engine/sql/fake_catalogue.h"

// The parts of a plan that cursors build on.
namespace {

using engine::SearchShape;
using platform::FieldType;
using platform::Value;

class Plans : public ::testing::Test {
 protected:
  engine::SelectPlan Plan(std::string_view sql) { return engine::PlanSelect(sql, catalogue_, dialect_); }
  engine::ActionPlan Action(std::string_view sql) { return engine::PlanAction(sql, catalogue_, dialect_); }
  SearchShape Shape(std::string_view source, std::string_view criterion) {
    return engine::PlanCriterion(criterion, Plan(source), dialect_).shape;
  }
  std::string Where(std::string_view condition) { return Plan("Select AcctNum From Customers Where " + std::string(condition)).where; }

  FakeCatalogue catalogue_;
  const engine::Dialect& dialect_ = engine::SqliteDialect();
};

TEST_F(Plans, BareTable) {
  const engine::SelectPlan plan = Plan("PhoneTypes");
  EXPECT_EQ(plan.from, "\"f1\".\"PhoneTypes\" AS t0");
  EXPECT_EQ(plan.where, "");
  EXPECT_TRUE(plan.order.empty());
  ASSERT_EQ(plan.columns.size(), 2u);
  EXPECT_EQ(plan.columns[1].sql, "t0.\"TypeDescription\"");
  EXPECT_EQ(plan.columns[1].field, 1);
  EXPECT_EQ(plan.columns[1].size, 20);
  EXPECT_TRUE(plan.updatable);
}

TEST_F(Plans, SayWhatTheyReadFrom) {
  EXPECT_TRUE(Plan("PhoneTypes").oneTable);
  EXPECT_TRUE(Plan("Select * From Customers Where City = 'a JOIN b'").oneTable);
  EXPECT_FALSE(Plan("Select * From Customers, Phones").oneTable);
  EXPECT_FALSE(Plan("Select Area From Customers Left Join Phones On Customers.AcctNum = Phones.AcctNum").oneTable);

  const std::string both = " From Customers Inner Join Phones On Customers.AcctNum = Phones.AcctNum";
  EXPECT_FALSE(Plan("Select Area, LastName" + both).asksOtherTables);
  EXPECT_TRUE(Plan("Select DistinctRow LastName" + both).asksOtherTables);
  EXPECT_TRUE(Plan("Select DistinctRow LastName" + both).oneTable);
  EXPECT_FALSE(Plan("Select DistinctRow Area From Customers Left Join Phones On Customers.AcctNum = Phones.AcctNum").oneTable)
      << "rows of customers without a phone";

  // Neither a text nor the clock is a table.
  EXPECT_FALSE(Plan("Select * From Customers Where City = 'SELECT'").asksOtherTables);
  EXPECT_FALSE(Plan("Select * From Customers Where Date() > #1/1/1999#").asksOtherTables);
}

TEST_F(Plans, OrderNamesItsColumn) {
  const engine::SelectPlan plan = Plan("Select LastName From Customers Order By City Desc, AcctNum * 2, City & 'x', 1");
  ASSERT_EQ(plan.order.size(), 4u);
  EXPECT_EQ(plan.order[0].sql, "t0.\"City\"");
  EXPECT_TRUE(plan.order[0].descending);
  EXPECT_EQ(plan.order[0].field, 5);
  EXPECT_FALSE(plan.order[1].descending);
  EXPECT_EQ(plan.order[1].table, -1);
  EXPECT_EQ(plan.order[1].type, FieldType::Long);
  EXPECT_TRUE(plan.order[2].sql.ends_with("COLLATE \"GENERAL\""));
  EXPECT_EQ(plan.order[3].sql, "t0.\"LastName\"");
}

TEST_F(Plans, ConstantsOrderNothing) {
  EXPECT_TRUE(Plan("Select 3 As Three From Customers Order By 1, 'x', 7").order.empty());
  EXPECT_EQ(Plan("Select 3 As Three, City From Customers Order By 1, 2").order.size(), 1u);
}

TEST_F(Plans, ColumnTypes) {
  const engine::SelectPlan plan =
      Plan("Select B + S, S + L, L + C, C + D, C * D, L / 1, C * L, T & M, T, ID, ID = 1, M, W + 1, W - W From Numbers");
  std::vector<FieldType> types;
  for (const engine::PlanColumn& column : plan.columns) types.push_back(column.type);
  using enum FieldType;
  EXPECT_EQ(types, (std::vector<FieldType>{Short, Long, Currency, Currency, Double, Double, Currency, Text, Text, Counter, Boolean, Memo,
                                           Date, Double}));
  EXPECT_EQ(plan.columns[8].size, 20);
}

TEST_F(Plans, RightJoinsBecomeLeftOnesWithoutParentheses) {
  const engine::SelectPlan plan = Plan(
      "SELECT TaxGrid.TaxID FROM TaxEntities RIGHT JOIN (TaxTypes RIGHT JOIN TaxGrid ON TaxTypes.TaxType = TaxGrid.TaxType) ON "
      "TaxEntities.TaxEntity = "
      "TaxGrid.TaxEntity");
  EXPECT_EQ(plan.from,
            "\"f1\".\"TaxGrid\" AS t2 LEFT JOIN \"f1\".\"TaxTypes\" AS t1 ON t1.\"TaxType\" = t2.\"TaxType\" LEFT JOIN "
            "\"f1\".\"TaxEntities\" AS t0 ON "
            "t0.\"TaxEntity\" = t2.\"TaxEntity\"");
  EXPECT_TRUE(plan.tables[0].nullable);
  EXPECT_TRUE(plan.tables[1].nullable);
  EXPECT_FALSE(plan.tables[2].nullable);
  EXPECT_EQ(plan.driving, 2);
}

TEST_F(Plans, TextsCompareInTheTextOrder) {
  EXPECT_EQ(Where("City = State"), "t0.\"City\" = t0.\"State\" COLLATE \"GENERAL\"");
  EXPECT_EQ(Where("City In ('a', 'b')"), "t0.\"City\" COLLATE \"GENERAL\" IN ('a', 'b')");
  EXPECT_EQ(Where("City Between 'b' And 'A'"), "t0.\"City\" BETWEEN 'A' COLLATE \"GENERAL\" AND 'b' COLLATE \"GENERAL\"");
  EXPECT_NE(Plan("Select Max(City) From Customers").columns[0].sql.find("COLLATE"), std::string::npos);
  EXPECT_NE(Plan("Select Area From Phones Inner Join PhoneTypes On Phones.Type = PhoneTypes.Type").from.find("COLLATE"), std::string::npos);
}

TEST_F(Plans, LikeWithAFixedStartIsARangeAndTheWholeTest) {
  const std::string where = Where("LastName Like 'Smi*'");
  EXPECT_TRUE(where.starts_with("t0.\"LastName\" >= '")) << where;
  EXPECT_NE(where.find("' COLLATE \"GENERAL\" AND t0.\"LastName\" < '"), std::string::npos) << where;
  EXPECT_TRUE(where.ends_with(" AND jlike(t0.\"LastName\", 'Smi*')")) << where;
  EXPECT_EQ(Where("LastName Like '*Smi*'"), "jlike(t0.\"LastName\", '*Smi*')");
  EXPECT_EQ(Where("LastName Like City"), "jlike(t0.\"LastName\", t0.\"City\")");
}

TEST_F(Plans, QuotesInTextsAreDoubled) {
  EXPECT_EQ(Where("City = \"O'Brien'; --\""), "t0.\"City\" = 'O''Brien''; --' COLLATE \"GENERAL\"");
}

TEST_F(Plans, AmountsCompareWithScaledConstants) {
  EXPECT_EQ(Where("CurrBalance >= 100.50"), "t0.\"CurrBalance\" >= 1005000");
  EXPECT_EQ(Where("CurrBalance < -3"), "t0.\"CurrBalance\" < -30000");
  EXPECT_EQ(Where("CurrBalance > 0.00005"), "t0.\"CurrBalance\" > 5.0e-1");
}

TEST_F(Plans, DatesCompareAsTheyAreStored) {
  EXPECT_EQ(Where("EntryDate >= #1/31/1999#"), "t0.\"EntryDate\" >= '1999-01-31'");
  EXPECT_EQ(Where("EntryDate = #1/31/1999 1:20:34 PM#"), "t0.\"EntryDate\" = '1999-01-31 13:20:34'");
}

TEST_F(Plans, ConditionsStandAloneOrBesideOthers) {
  EXPECT_EQ(Where("AcctNum = 1 Or AcctNum = 2"), "(t0.\"AcctNum\" = 1 OR t0.\"AcctNum\" = 2)");
  EXPECT_EQ(Where("AcctNum = 1 And NonBillable"), "t0.\"AcctNum\" = 1 AND t0.\"NonBillable\"");
}

// DISTINCTROW -----------------------------------------------------------------------------------------------------------

TEST_F(Plans, DistinctRowAsksForOtherTablesBySubselects) {
  const engine::SelectPlan plan = Plan(
      "Select DISTINCTROW Customers.* FROM (Customers INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum) INNER JOIN Transactions ON "
      "Customers.AcctNum "
      "= Transactions.AcctNum WHERE (Phones.Area = '612') AND (Customers.Status = 0) AND (Transactions.TranType<>'P')");
  ASSERT_EQ(plan.tables.size(), 1u);
  EXPECT_EQ(plan.tables[0].name, "Customers");
  EXPECT_EQ(plan.from, "\"f1\".\"Customers\" AS t0");
  EXPECT_EQ(
      plan.where,
      "t0.\"Status\" = 0 AND t0.\"AcctNum\" IN (SELECT d0.\"AcctNum\" FROM \"f1\".\"Phones\" AS d0 WHERE d0.\"Area\" = '612' COLLATE "
      "\"GENERAL\") AND "
      "t0.\"AcctNum\" IN (SELECT d1.\"AcctNum\" FROM \"f3\".\"Transactions\" AS d1 WHERE d1.\"TranType\" <> 'P' COLLATE \"GENERAL\")");
  EXPECT_TRUE(plan.updatable);
  EXPECT_FALSE(plan.distinct);
}

TEST_F(Plans, DistinctRowAsksForOneRowByTheOthersIndexes) {
  const engine::SelectPlan plan = Plan(
      "Select DISTINCTROW Customers.* FROM Customers INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum WHERE (Phones.Area = '612') "
      "AND "
      "(Customers.Status = 0)");
  EXPECT_TRUE(plan.asksByRow);
  EXPECT_TRUE(plan.rowWhere.starts_with("t0.\"Status\" = 0 AND EXISTS (SELECT 1 FROM \"f1\".\"Phones\" AS d0 INDEXED BY "))
      << plan.rowWhere;
  EXPECT_NE(plan.rowWhere.find("t0.\"AcctNum\" = d0.\"AcctNum\""), std::string::npos) << plan.rowWhere;
  ASSERT_FALSE(plan.drivers.empty());
  EXPECT_TRUE(plan.drivers[0].asks.starts_with("EXISTS (SELECT 1 FROM \"f1\".\"Phones\" AS d0 ")) << plan.drivers[0].asks;
  EXPECT_EQ(plan.drivers[0].keys,
            "SELECT d0.\"AcctNum\" AS k FROM \"f1\".\"Phones\" AS d0 WHERE d0.\"Area\" = '612' COLLATE \"GENERAL\" AND ");
  EXPECT_EQ(plan.drivers[0].pieceKey, "d0.\"RecordID\"") << "no index on the area here";
  EXPECT_EQ(plan.drivers[0].rest, "t0.\"Status\" = 0");
}

TEST_F(Plans, AConditionOfTwoTablesIsAskedAsAWhole) {
  const engine::SelectPlan plan = Plan(
      "Select DISTINCTROW Customers.AcctNum FROM Customers INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum WHERE Phones.Area = '1' "
      "Or Customers.Status = 0");
  EXPECT_TRUE(plan.asksByRow);
  ASSERT_EQ(plan.drivers.size(), 1u);
  EXPECT_EQ(plan.drivers[0].rest, plan.rowWhere);
}

TEST_F(Plans, WithoutAnIndexOfTheOtherTableNoRowIsAskedAlone) {
  EXPECT_FALSE(
      Plan("Select DistinctRow Customers.AcctNum From Customers Left Join Phones On Customers.AcctNum = Phones.AcctNum").asksByRow);
  EXPECT_FALSE(Plan("Select DistinctRow Customers.AcctNum From Customers Inner Join Phones On Customers.City = Phones.Comment").asksByRow);
}

TEST_F(Plans, DistinctRowTiedInSeveralWaysAsksByKeys) {
  const engine::SelectPlan plan = Plan(
      "Select DISTINCTROW Customers.AcctNum FROM Customers INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum WHERE Phones.Area = '1' "
      "Or Customers.Status = 0");
  ASSERT_EQ(plan.tables.size(), 1u);
  EXPECT_EQ(plan.from, "\"f1\".\"Customers\" AS t0");
  EXPECT_TRUE(plan.where.starts_with("t0.\"AcctNum\" IN (SELECT k0.\"AcctNum\" FROM ")) << plan.where;
}

TEST_F(Plans, DistinctRowIsIgnoredWhereAllTablesGiveOutput) {
  const engine::SelectPlan plan =
      Plan("Select DISTINCTROW Customers.City, Phones.Area FROM Customers INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum");
  EXPECT_EQ(plan.tables.size(), 2u);
}

TEST_F(Plans, DrivingTableIsTheManySide) {
  EXPECT_EQ(Plan("Select Area From PhoneTypes Inner Join Phones On PhoneTypes.Type = Phones.Type").driving, 1);
  EXPECT_EQ(Plan("Select Dept From CustLaborRates Inner Join Departments On CustLaborRates.Dept = Departments.DeptNumber").driving, 0);
  EXPECT_EQ(Plan("Select Area From Customers, Phones Where Customers.AcctNum = Phones.AcctNum").driving, 1);
  EXPECT_EQ(Plan("Select Area From Phones Left Join PhoneTypes On Phones.Type = PhoneTypes.Type").driving, 0);
}

TEST_F(Plans, ReadOnlyOnes) {
  EXPECT_FALSE(Plan("Select Distinct City From Customers").updatable);
  const engine::SelectPlan aggregate = Plan("Select Max(City) As M From Customers");
  EXPECT_FALSE(aggregate.updatable);
  EXPECT_TRUE(aggregate.aggregate);
  EXPECT_EQ(engine::PlanCriterion("[M] Is Null", aggregate, dialect_).where, "(c0) IS NULL");
}

// Criteria --------------------------------------------------------------------------------------------------------------

TEST_F(Plans, EqualityOnAColumnIsASearch) {
  const SearchShape shape = Shape("Customers", "([AcctNum]=5)");
  EXPECT_EQ(shape.kind, SearchShape::Kind::Equals);
  EXPECT_EQ(shape.table, 0);
  EXPECT_EQ(shape.field, 0);
  EXPECT_TRUE(shape.value == Value(std::int32_t{5}));
  EXPECT_TRUE(Shape("Customers", "-5 = AcctNum").value == Value(std::int32_t{-5}));
  EXPECT_TRUE(Shape("Customers", "[LastName]='O''Brien'").value == Value("O'Brien"));
  EXPECT_TRUE(Shape("Customers", "[CurrBalance]=100.5").value == Value(platform::Currency{1'005'000}));
  EXPECT_TRUE(Shape("Customers", "[SalesRatePer]=2").value == Value(2.0));
  EXPECT_TRUE(Shape("Customers", "[NonBillable]=True").value == Value(true));
  EXPECT_TRUE(Shape("Customers", "[EntryDate]=#1/1/1999#").value == Value(*platform::DateSerial(1999, 1, 1)));
  EXPECT_TRUE(Shape("Customers", "[Status]=1.0").value == Value(std::int32_t{1}));
}

TEST_F(Plans, LikeWithAFixedStartIsASearch) {
  const SearchShape shape = Shape("Customers", "([LastName] Like 'Smi*')");
  EXPECT_EQ(shape.kind, SearchShape::Kind::Prefix);
  EXPECT_EQ(shape.field, 1);
  EXPECT_TRUE(shape.value == Value("Smi"));
  EXPECT_TRUE(Shape("Customers", "[LastName] Like 'Smith'").value == Value("Smith"));
}

TEST_F(Plans, EverythingElseIsAScan) {
  for (const char* criterion :
       {"[AcctNum]>=5", "[AcctNum]=5 And [City]='x'", "[LastName] Like '*x'", "[LastName] Not Like 'x*'", "[AcctNum]=5.5", "[AcctNum]=Null",
        "[AcctNum]+1=5", "[CurrBalance]=0.00001", "[Status]=[AcctNum]", "[AcctNum] Like '5*'", "Not [AcctNum]=5", "[AcctNum]=3000000000"})
    EXPECT_EQ(Shape("Customers", criterion).kind, SearchShape::Kind::Scan) << criterion;
  EXPECT_EQ(Shape("Select AcctNum*2 As A From Customers", "[A]=4").kind, SearchShape::Kind::Scan);
}

TEST_F(Plans, SearchNamesThePlansTable) {
  const SearchShape shape = Shape("Select Area From PhoneTypes Inner Join Phones On PhoneTypes.Type = Phones.Type", "[Area]='612'");
  EXPECT_EQ(shape.table, 1);
  EXPECT_EQ(shape.field, 2);
}

// Actions ---------------------------------------------------------------------------------------------------------------

TEST_F(Plans, InsertOfFittingValuesIsDirect) {
  const engine::ActionPlan plan = Action(
      "INSERT INTO CU_AssignDataCodes ( Instance, Assign, Code, Description ) IN 'temp.zdb' SELECT 3 As Instance, False AS Assign, Code, "
      "Description FROM DataCodes;");
  EXPECT_TRUE(plan.direct);
  EXPECT_FALSE(plan.needsCounter);
  EXPECT_EQ(plan.sql,
            "INSERT INTO \"f4\".\"CU_AssignDataCodes\" (\"Instance\", \"Assign\", \"Code\", \"Description\") SELECT 3, 0, t0.\"Code\", "
            "t0.\"Description\" FROM "
            "\"f1\".\"DataCodes\" AS t0");
  EXPECT_TRUE(plan.lenientSql.starts_with("INSERT OR IGNORE INTO \"f4\""));
}

TEST_F(Plans, InsertConvertsWhatAlwaysFits) {
  EXPECT_NE(Action("INSERT INTO Numbers (C, D, B, S) VALUES (2, True, 7, -8)").sql.find("SELECT 20000, -1, 7, -8"), std::string::npos);
  EXPECT_NE(Action("INSERT INTO Numbers (C, D) SELECT S, C FROM Numbers").sql.find("t0.\"S\" * 10000, t0.\"C\" / 10000.0"),
            std::string::npos);
}

TEST_F(Plans, InsertThatMayFailIsNotDirect) {
  for (const char* sql : {"INSERT INTO Narrow IN 'temp.zdb' SELECT Keyword AS Word FROM Keywords", "INSERT INTO Numbers (B) VALUES (300)",
                          "INSERT INTO Numbers (S) SELECT L FROM Numbers", "INSERT INTO Numbers (L) VALUES ('5')",
                          "INSERT INTO Numbers (C) VALUES (2.5)", "INSERT INTO Numbers (W) VALUES ('1/1/1999')",
                          "INSERT INTO Numbers (T) SELECT M FROM Numbers", "INSERT INTO Numbers (T) VALUES (5)"}) {
    const engine::ActionPlan plan = Action(sql);
    EXPECT_FALSE(plan.direct) << sql;
    EXPECT_EQ(plan.sql, "") << sql;
    EXPECT_NE(plan.source, "") << sql;
  }
  EXPECT_TRUE(Action("INSERT INTO Numbers (T) VALUES ('12345678901234567890')").direct);
  EXPECT_FALSE(Action("INSERT INTO Numbers (T) VALUES ('123456789012345678901')").direct);
}

TEST_F(Plans, InsertKnowsWhetherACounterIsWanted) {
  EXPECT_TRUE(Action("INSERT INTO Numbers (L) VALUES (1)").needsCounter);
  EXPECT_FALSE(Action("INSERT INTO Numbers (ID, L) VALUES (1, 1)").needsCounter);
}

TEST_F(Plans, InsertKeepsTheOrderOnlyWhereItShows) {
  EXPECT_NE(Action("INSERT INTO Keywords SELECT Keyword FROM Keywords ORDER BY Keyword").sql.find("ORDER BY"), std::string::npos);
  EXPECT_EQ(Action("INSERT INTO Customers SELECT * FROM Customers ORDER BY LastName").sql.find("ORDER BY"), std::string::npos);
}

TEST_F(Plans, DeleteAndUpdate) {
  EXPECT_EQ(Action("Delete * From DataCodes Where Code = 1").sql, "DELETE FROM \"f1\".\"DataCodes\" AS t0 WHERE t0.\"Code\" = 1");
  EXPECT_EQ(Action("Update DataCodes Set Description = 'x' Where Code = 1").sql,
            "UPDATE \"f1\".\"DataCodes\" AS t0 SET \"Description\" = 'x' WHERE t0.\"Code\" = 1");
  const engine::ActionPlan join =
      Action("Update Phones Inner Join PhoneTypes On Phones.Type = PhoneTypes.Type Set Comment = TypeDescription Where Area = '612'");
  EXPECT_FALSE(join.direct);
  EXPECT_TRUE(join.source.starts_with("SELECT t0.\"RecordID\", t1.\"TypeDescription\" FROM ")) << join.source;
}

TEST_F(Plans, HelpersHaveNamesAndCalls) {
  for (const engine::StoreFunction& function : engine::StoreFunctions()) {
    EXPECT_FALSE(function.name.empty());
    EXPECT_NE(function.call, nullptr);
  }
}

TEST_F(Plans, ManyTablesAreRefused) {
  std::string sql = "Select 1 From Keywords As k0";
  for (int i = 1; i < 40; ++i) sql += ", Keywords As k" + std::to_string(i);
  try {
    Plan(sql);
    ADD_FAILURE();
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.Number(), 3360);
  }
}

}  // namespace
