#include <gtest/gtest.h>

#include <string>

#include "engine/translate/plan/planning.h"
#include "unit/engine/sql/expect_error.h"
#include "unit/engine/sql/fake_catalogue.h"

// What names in a statement and in a criterion stand for, and the errors of those that stand for nothing.
namespace {

class Names : public ::testing::Test {
 protected:
  engine::SelectPlan Plan(std::string_view sql) { return engine::PlanSelect(sql, catalogue_, dialect_); }

  std::vector<std::string> Columns(std::string_view sql) {
    std::vector<std::string> names;
    for (const engine::PlanColumn& column : Plan(sql).columns) names.push_back(column.name);
    return names;
  }

  void Fails(int number, std::string_view text, std::string_view sql) {
    SCOPED_TRACE(sql);
    ExpectError(number, text, [&] { Plan(sql); });
  }

  void ActionFails(int number, std::string_view text, std::string_view sql) {
    SCOPED_TRACE(sql);
    ExpectError(number, text, [&] { engine::PlanAction(sql, catalogue_, dialect_); });
  }

  void FindFails(int number, std::string_view text, std::string_view sql, std::string_view criterion) {
    SCOPED_TRACE(criterion);
    const engine::SelectPlan plan = Plan(sql);
    ExpectError(number, text, [&] { engine::PlanCriterion(criterion, plan, dialect_); });
  }

  FakeCatalogue catalogue_;
  const engine::Dialect& dialect_ = engine::SqliteDialect();
};

using Strings = std::vector<std::string>;

TEST_F(Names, UnknownNamesAreCountedOnceEach) {
  Fails(3061, "Too few parameters. Expected 1.", "Select AcctNum From Customers Where x = 1 Or X = 2 Or [x] = 3");
  Fails(3061, "Too few parameters. Expected 3.", "Select a, AcctNum From Customers Where b = 1 Order By c");
  Fails(3061, "Too few parameters. Expected 2.", "Select AcctNum From Customers Where Nope.AcctNum = 1 And Customers.Nope = 2");
  Fails(3061, "Too few parameters. Expected 1.", "Select C.AcctNum From Customers As C Where Customers.AcctNum = 1");
  Fails(3061, "Too few parameters. Expected 1.", "Select Phones.Area From Phones Inner Join PhoneTypes On Phones.Type = PhoneTypes.Nope");
  ActionFails(3061, "Too few parameters. Expected 1.", "Delete * From Customers Where Nope = 1");
  ActionFails(3061, "Too few parameters. Expected 2.", "Update Customers Set Nope = 1, City = x");
  ActionFails(3061, "Too few parameters. Expected 1.", "Insert Into DataCodes Values (a, 'x')");
  ActionFails(3061, "Too few parameters. Expected 1.", "Insert Into DataCodes (Code, Description) Select Nope, Keyword From Keywords");
}

TEST_F(Names, AliasesOfColumnsAreUnknownInTheirOwnStatement) {
  Fails(3061, "Too few parameters. Expected 1.", "Select AcctNum + 1 As More From Customers Where More > 1");
  Fails(3061, "Too few parameters. Expected 1.", "Select AcctNum + 1 As More From Customers Order By More");
  EXPECT_NO_THROW(Plan("Select City As State From Customers Order By State"));
}

TEST_F(Names, UnknownTables) {
  constexpr std::string_view text =
      "The Microsoft Jet database engine cannot find the input table or query 'Nope'.  Make sure it exists and that its name is spelled "
      "correctly.";
  Fails(3078, text, "Select * From Nope");
  Fails(3078, text, "Select * From Customers Inner Join Nope On 1 = 1");
  Fails(3078, text, "Select Nope.* From Customers");
  ActionFails(3078, text, "Delete * From Nope");
  ActionFails(3078, text, "Delete Nope.* From Customers");
  ActionFails(3078, text, "Update Nope Set a = 1");
  ActionFails(3078, text, "Insert Into Nope Values (1)");
  ActionFails(3078, text, "Insert Into Nope In 'temp.zdb' Select * From Keywords");
  ActionFails(3078, text, "Insert Into Keywords Select * From Nope");
  Fails(3078, "", "Select Customers.* From Customers As C");
}

TEST_F(Names, BareNames) {
  Fails(3011, "", "Nope");
  Fails(3011, "", " [Nope] ");
  EXPECT_EQ(Plan("customers").tables.at(0).name, "Customers");
  EXPECT_EQ(Plan(" [Customers] ").tables.at(0).name, "Customers");
  EXPECT_EQ(Columns("phonetypes"), (Strings{"Type", "TypeDescription"}));
  Fails(3129, "", "Customers Phones");
  Fails(3129, "", "");
  Fails(3219, "Invalid operation.", "Delete * From Customers");
}

TEST_F(Names, SelectIsNoAction) { ActionFails(3065, "Can't execute a select query.", "Select * From Customers"); }

TEST_F(Names, AmbiguousNames) {
  Fails(3079, "The specified field 'AcctNum' could refer to more than one table listed in the FROM clause of your SQL statement.",
        "Select Area From Customers Inner Join Phones On Customers.AcctNum = Phones.AcctNum Where AcctNum = 1");
  Fails(3079, "", "Select * From Customers, Phones Order By acctnum");
  EXPECT_NO_THROW(Plan("Select Area, LastName From Customers, Phones"));
}

TEST_F(Names, UnknownFunctions) {
  Fails(3085, "Undefined function 'Nope' in expression.", "Select Nope(1) From Customers");
  Fails(3085, "", "Select AcctNum From Customers Where Nope() = 1");
  FindFails(3085, "Undefined function 'Nope' in expression.", "Customers", "Nope([AcctNum]) = 1");
  Fails(3075, "Wrong number of arguments used with function in query expression 'Left(City)'.", "Select Left(City) From Customers");
  FindFails(3077, "Wrong number of arguments used with function in expression.", "Customers", "Left([City]) = 'x'");
}

TEST_F(Names, OutputNames) {
  EXPECT_EQ(Columns("Select type, [TypeDescription] From PhoneTypes"), (Strings{"Type", "TypeDescription"}));
  EXPECT_EQ(Columns("Select Type As [Two Words], 1, Type & 'x' From PhoneTypes"), (Strings{"Two Words", "Expr1000", "Expr1001"}));
  EXPECT_EQ(Columns("Select * From PhoneTypes, Keywords"), (Strings{"Type", "TypeDescription", "Keyword"}));
  EXPECT_EQ(Columns("Select p.Type, t.Type From Phones p, PhoneTypes t"), (Strings{"p.Type", "t.Type"}));
  EXPECT_EQ(Columns("Select PhoneTypes.*, Phones.Type From Phones, PhoneTypes"),
            (Strings{"PhoneTypes.Type", "TypeDescription", "Phones.Type"}));
  EXPECT_EQ(Columns("Select Phones.Type As Type, PhoneTypes.Type From Phones, PhoneTypes"), (Strings{"Type", "PhoneTypes.Type"}));
}

TEST_F(Names, CriterionSeesTheColumns) {
  constexpr std::string_view sql = "Select AcctNum As Number, AcctNum * 2 As [Twice As Much], City From Customers";
  const engine::SelectPlan plan = Plan(sql);
  for (const char* criterion : {"[Number] = 1", "[Twice As Much] > 3", "city = 'x'", "Customers.City = 'x'", "Customers.AcctNum = 1"})
    EXPECT_NO_THROW(engine::PlanCriterion(criterion, plan, dialect_)) << criterion;
  constexpr std::string_view unknown = "The Microsoft Jet database engine does not recognize '";
  FindFails(3070, std::string(unknown) + "AcctNum' as a valid field name or expression.", sql, "[AcctNum] = 1");
  FindFails(3070, std::string(unknown) + "Customers.State' as a valid field name or expression.", sql, "Customers.State = 'x'");
  FindFails(3070, "", sql, "Phones.City = 'x'");
}

TEST_F(Names, CriterionTypes) {
  FindFails(3464, "Data type mismatch in criteria expression.", "DataCodes", "[Code]>='5'");
  FindFails(3464, "", "Customers", "[LastName]=5");
  FindFails(3464, "", "Customers", "[EntryDate]='1/1/1999'");
  FindFails(93, "Invalid pattern string", "Customers", "([LastName] Like '[*')");
}

TEST_F(Names, OrderAndDistinct) {
  Fails(3093, "ORDER BY clause (State) conflicts with DISTINCT.", "Select Distinct City From Customers Order By State");
  Fails(3093, "ORDER BY clause (City & State) conflicts with DISTINCT.",
        "Select DistinctRow City From Customers Order By City, City & State");
  EXPECT_NO_THROW(Plan("Select Distinct City From Customers Order By Customers.City"));
  EXPECT_NO_THROW(Plan("Select Distinct City & 'x' As C From Customers Order By City & 'x'"));
  EXPECT_NO_THROW(Plan("Select DistinctRow Customers.* From Customers Order By State"));
  EXPECT_NO_THROW(Plan("Select City From Customers Order By State"));
}

TEST_F(Names, Memo) {
  Fails(3117, "Can't sort on Memo or OLE Object (Customers.Comments).",
        "Select * From Customers Order By LastName, Customers.Comments Desc");
  Fails(3118, "Can't join on Memo or OLE Object (Customers.Comments).",
        "Select * From Customers Inner Join Keywords On Keyword = Customers.Comments");
}

TEST_F(Names, Joins) {
  Fails(3135, "Syntax error in JOIN operation.",
        "Select * From (Customers Inner Join Phones On Customers.AcctNum = CustCodes.AcctNum) Inner Join CustCodes On Customers.AcctNum = "
        "CustCodes.AcctNum");
  Fails(3258, "",
        "Select * From (Customers Inner Join Phones On Customers.AcctNum = Phones.AcctNum) Right Join CustCodes On Customers.AcctNum = "
        "CustCodes.AcctNum");
  Fails(3258, "",
        "Select * From CustCodes Left Join (Customers Inner Join Phones On Customers.AcctNum = Phones.AcctNum) On Customers.AcctNum = "
        "CustCodes.AcctNum");
  EXPECT_NO_THROW(
      Plan("Select Area From Customers Inner Join (Phones Left Join PhoneTypes On Phones.Type = PhoneTypes.Type) On Customers.AcctNum = "
           "Phones.AcctNum"));
  EXPECT_NO_THROW(
      Plan("Select TaxID From TaxTypes Left Join (TaxGrid Left Join TaxEntities On TaxGrid.TaxEntity = TaxEntities.TaxEntity) On "
           "TaxTypes.TaxType = TaxGrid.TaxType"));
  Fails(3464, "", "Select Area From Customers Inner Join Phones On Customers.AcctNum = Phones.Area");
}

TEST_F(Names, Aggregates) {
  Fails(3096, "Can't have aggregate function in WHERE clause (Max(Code) > 1).", "Select Code From DataCodes Where Max(Code) > 1");
  Fails(3097, "Can't have aggregate function in ORDER BY clause (Max(Code)).", "Select Code From DataCodes Order By Max(Code)");
  Fails(3122, "You tried to execute a query that doesn't include the specified expression 'Description' as part of an aggregate function.",
        "Select Max(Code), Description From DataCodes");
  Fails(3095, "", "Select Max(Min(Code)) From DataCodes");
  FindFails(3095, "", "DataCodes", "Max(Code) = 1");
}

TEST_F(Names, InsertFields) {
  ActionFails(3127, "", "Insert Into DataCodes (Nope) Values (1)");
  ActionFails(3127, "", "Insert Into Keywords Select Keyword As Word From Keywords");
  ActionFails(3063, "Duplicate output destination 'code'.", "Insert Into DataCodes (Code, code) Values (1, 2)");
  ActionFails(3346, "Number of query values and destination fields aren't the same.", "Insert Into DataCodes Values (1, 'x', 2)");
  ActionFails(3346, "", "Insert Into DataCodes (Code, Description) Select Keyword From Keywords");
}

TEST_F(Names, UpdateTargets) {
  ActionFails(3073, "Operation must use an updatable query.",
              "Update Phones Inner Join PhoneTypes On Phones.Type = PhoneTypes.Type Set Phones.Comment = 'a', TypeDescription = 'b'");
  ActionFails(3113, "Can't update 'AcctNum'; field not updatable.", "Update Customers Set AcctNum = 5");
}

TEST_F(Names, FilesOfAnInClause) {
  Fails(3024, "Couldn't find file 'nope.zdb'.", "Select * From Keywords In 'nope.zdb'");
  EXPECT_NO_THROW(Plan("Select * From CU_AssignTaxes In 'temp.zdb'"));
  Fails(3078, "", "Select * From CU_AssignTaxes");
}

}  // namespace
