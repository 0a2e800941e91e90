#include <gtest/gtest.h>

#include <sstream>

#include "robot/commands/commands.h"
#include "robot/commands/row_kinds.h"
#include "robot/language/script.h"

namespace robot {
namespace {

/// What is wrong with the line; "" when it can be run.
std::string Mistake(const std::string& line) {
  std::istringstream input(line);
  const ScriptReading reading = ReadScript(input, "t.scn", Commands());
  return reading.errors.empty() ? "" : reading.errors.front().message;
}

/// The statement behind "add" and these words.
std::string Statement(const std::string& line) {
  std::string mistake;
  const Arguments words(SplitLine(line, mistake));
  std::size_t taken = 0;
  const RowKind* kind = FindRowKind(words, taken);
  return kind == nullptr ? "no kind" : RowWords(*kind, Arguments(words.From(taken))).Statement();
}

TEST(AddCommand, ValuesByTheirPlaceAndByTheFieldsName) {
  EXPECT_EQ(Statement("customer 14 Anderson Mary City Duluth"),
            "INSERT INTO Customers ([AcctNum], [LastName], [FirstName], [City]) VALUES (14, 'Anderson', 'Mary', 'Duluth')");
  EXPECT_EQ(Statement("rate 14 100 -5.5"), "INSERT INTO CustLaborRates ([AcctNum], [Dept], [Adjustment]) VALUES (14, '100', -5.5)");
  EXPECT_EQ(Statement("PHONE 14 H comment van"), "INSERT INTO Phones ([AcctNum], [Type], [Comment]) VALUES (14, 'H', 'van')");
  EXPECT_EQ(Statement("assigned keyword 14 pool"), "INSERT INTO Lookups ([AcctNum], [Text]) VALUES (14, 'pool')");
}

TEST(AddCommand, ARowWithoutItsNumberIsNumberedByTheFile) {
  EXPECT_EQ(Statement("customer Reed Anna"), "INSERT INTO Customers ([LastName], [FirstName]) VALUES ('Reed', 'Anna')");
  EXPECT_EQ(Statement("customer \"14\""), "INSERT INTO Customers ([LastName]) VALUES ('14')") << "a name that is a number stands in quotes";
}

TEST(AddCommand, AFieldsNameInQuotesIsAValue) {
  EXPECT_EQ(Statement("customer \"City\" \"Title\" State MN"),
            "INSERT INTO Customers ([LastName], [FirstName], [State]) VALUES ('City', 'Title', 'MN')");
}

TEST(AddCommand, ValuesAsTheirFieldsHoldThem) {
  EXPECT_EQ(Statement("customer O'Brien Title Null EMail \"Null\" CreditHold True ExemptExpireDate 12/31/2026"),
            "INSERT INTO Customers ([LastName], [Title], [EMail], [CreditHold], [ExemptExpireDate]) "
            "VALUES ('O''Brien', Null, 'Null', True, #12/31/2026#)");
}

TEST(AddCommand, MistakesAreToldWhenTheScenarioIsRead) {
  EXPECT_EQ(Mistake("add\n"), "add takes 2 or more words, not 0");
  EXPECT_EQ(Mistake("add tree 1\n").substr(0, 45), "add is followed by one of: customer, complete");
  EXPECT_EQ(Mistake("add customer 14\n"), "add customer wants its LastName");
  EXPECT_EQ(Mistake("add assigned type 14\n"), "add assigned type wants its CustCodes");
  EXPECT_EQ(Mistake("add customer Reed Anna Colour red\n"), "add customer has no field \"Colour\"");
  EXPECT_EQ(Mistake("add customer Reed City\n"), "add customer takes a value behind City");
  EXPECT_EQ(Mistake("add customer Reed City Ely City Duluth\n"), "add customer is given City twice");
  EXPECT_EQ(Mistake("add customer Reed Terms soon\n"), "add customer takes a number or Null for Terms, not \"soon\"");
  EXPECT_EQ(Mistake("at yield 1 add phone 1 H Area\n"), "add phone takes a value behind Area");
  EXPECT_EQ(Mistake("add customer Reed NonBillable 1\n"), "add customer takes True or False or Null for NonBillable, not \"1\"");
  EXPECT_EQ(Mistake("add customer Reed EntryDate today\n"), "add customer takes a date or Null for EntryDate, not \"today\"");
  EXPECT_EQ(Mistake("add customer Reed Terms \"{value customer.zdb Select 1}\"\n"), "") << "what stands in braces comes when it runs";
}

}  // namespace
}  // namespace robot
