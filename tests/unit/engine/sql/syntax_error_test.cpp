#include <gtest/gtest.h>

#include <string>

#include "engine/sql/parser.h"
#include "unit/engine/sql/expect_error.h"

namespace engine::sql {
namespace {

void ExpectStatement(int number, std::string_view text, std::string_view sql) {
  SCOPED_TRACE(sql);
  ExpectError(number, text, [&] { ParseStatement(sql); });
}

void ExpectCriterion(std::string_view message, std::string_view criterion) {
  SCOPED_TRACE(criterion);
  ExpectError(3077, std::string(message) + " in expression.", [&] { ParseCriterion(criterion); });
}

// What a WHERE of this text raises: 3075 with the message and the clause as it was written.
void ExpectWhere(std::string_view message, std::string_view where) {
  SCOPED_TRACE(where);
  const std::string text = std::string(message) + " in query expression '" + std::string(where) + "'.";
  ExpectError(3075, text, [&] { ParseStatement("Select * From T Where " + std::string(where)); });
  ExpectError(3075, text, [&] { ParseStatement("Delete * From T Where " + std::string(where) + " ;"); });
  ExpectError(3075, text, [&] { ParseStatement("Update T Set a = 1 Where " + std::string(where) + ";"); });
}

TEST(SyntaxError, FirstWordIsNoStatement) {
  constexpr std::string_view text = "Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'.";
  for (const char* sql :
       {"", "  ", ";", "Selec * From T", "Create Table T (a Long)", "'x'", "( Select * From T )", "/* */ Select * From T", "-- x"})
    ExpectStatement(3129, text, sql);
}

TEST(SyntaxError, FieldList) {
  constexpr std::string_view text =
      "The SELECT statement includes a reserved word or an argument name that is misspelled or missing, or the punctuation is incorrect.";
  for (const char* sql : {"Select", "Select From T", "Select a, From T", "Select , a From T", "Select a,,b From T", "Select * a From T",
                          "Select T.* x From T", "Select a As From T", "Select a As b c From T", "Select a", "Select Order From T",
                          "Select a Where b=1", "Select a As 'x' From T", "Delete a From T", "Delete *, b From T"})
    ExpectStatement(3141, text, sql);
}

TEST(SyntaxError, BadExpressionInFieldList) {
  ExpectStatement(3075, "Syntax error (missing operator) in query expression 'a b'.", "Select a b, c From T");
  ExpectStatement(3075, "Syntax error (missing operator) in query expression 'b +'.", "Select a, b + From T");
  ExpectStatement(3075, "Missing ), ], or Item in query expression '(a+b'.", "Select (a+b From T");
}

TEST(SyntaxError, From) {
  for (const char* sql :
       {"Select * From", "Select * From ;", "Select * From 'x'", "Select * From A,", "Select * From A B C", "Select * From A As",
        "Select * From (A", "Select * From (A, B)", "Select * From A Group By b", "Select * From A In path", "Select * From A Union B",
        "Delete *", "Delete * From", "Delete * From T x", "Delete * From T Order By a", "Select * From [A", "Select * From 5"})
    ExpectStatement(3131, "Syntax error in FROM clause.", sql);
}

TEST(SyntaxError, Join) {
  for (const char* sql : {"Select * From A Inner Join", "Select * From A Inner B On a=b", "Select * From A Inner Join B",
                          "Select * From A Left Join B Where a=b", "Select * From A Inner Join B On",
                          "Select * From A Inner Join B On Where x=1", "Select * From A Inner Join 'B' On a=b"})
    ExpectStatement(3135, "Syntax error in JOIN operation.", sql);
}

TEST(SyntaxError, BadExpressionInJoin) {
  ExpectStatement(3075, "Syntax error (missing operator) in query expression 'A.x ='.",
                  "Select * From (A Inner Join B On A.x = ) Inner Join C On A.x = C.x");
  ExpectStatement(3075, "Syntax error (missing operator) in query expression 'A.x B.x'.",
                  "Select * From A Inner Join B On A.x B.x Where a=1");
}

TEST(SyntaxError, WhereIsEmpty) {
  for (const char* sql : {"Select * From T Where", "Select * From T Where ;", "Select * From T Where Order By a", "Delete * From T Where",
                          "Update T Set a=1 Where"})
    ExpectStatement(3145, "Syntax error in WHERE clause.", sql);
}

TEST(SyntaxError, OrderBy) {
  for (const char* sql : {"Select * From T Order", "Select * From T Order By", "Select * From T Order a", "Select * From T Order By a,",
                          "Select * From T Order By ,a", "Select * From T Order By a Desc b", "Select * From T Order By Desc",
                          "Select * From T Order By a Where b=1"})
    ExpectStatement(3138, "Syntax error in ORDER BY clause.", sql);
  ExpectStatement(3075, "Syntax error (missing operator) in query expression 'a b'.", "Select * From T Order By a b, c");
}

TEST(SyntaxError, Insert) {
  for (const char* sql :
       {"Insert", "Insert T", "Insert Into", "Insert Into T", "Insert Into T (a", "Insert Into T () Values (1)",
        "Insert Into T (a,) Values (1)", "Insert Into T In path Select * From U", "Insert Into T Values", "Insert Into T Values ()",
        "Insert Into T Values (1,)", "Insert Into T Values (1", "Insert Into T Values (1) x", "Insert Into T Delete * From U"})
    ExpectStatement(3134, "Syntax error in INSERT INTO statement.", sql);
  ExpectStatement(3075, "Syntax error (missing operator) in query expression '1 2'.", "Insert Into T Values (1 2, 3)");
  ExpectStatement(3131, "Syntax error in FROM clause.", "Insert Into T Select * From");
}

TEST(SyntaxError, Update) {
  for (const char* sql : {"Update", "Update 'x' Set a=1", "Update T", "Update T a=1", "Update T Set", "Update T Set a",
                          "Update T Set a=", "Update T Set a=1,", "Update T Set 5=1", "Update T Set a=1, Where b=2"})
    ExpectStatement(3144, "Syntax error in UPDATE statement.", sql);
  ExpectStatement(3075, "Syntax error (missing operator) in query expression '1 2'.", "Update T Set a=1 2, b=3");
}

TEST(SyntaxError, TextBehindTheEnd) {
  for (const char* sql :
       {"Select * From T; x", "Select * From T;;", "Delete * From T; Delete * From T", "Select * From T;'", "Insert Into T Values (1); -"})
    ExpectStatement(3142, "Characters found after end of SQL statement.", sql);
  EXPECT_NO_THROW(ParseStatement("Select * From T; \t\r\n"));
}

TEST(SyntaxError, BadExpressionQuotesItsWholeClause) {
  ExpectWhere("Syntax error (missing operator)", "(AcctNum=)");
  ExpectWhere("Syntax error (missing operator)", "(Transactions.AltInvNo = 12a)");
  ExpectWhere("Syntax error (missing operator)", "a=1 b=2");
  ExpectWhere("Syntax error (missing operator)", "a = 1)");
  ExpectWhere("Syntax error (missing operator)", "And a=1");
  ExpectWhere("Syntax error (missing operator)", "a Is 5");
  ExpectWhere("Syntax error (missing operator)", "a Between 1 Or 2");
  ExpectWhere("Syntax error (missing operator)", "a ? b");
  ExpectWhere("Syntax error (missing operator)", "a = {b}");
  ExpectWhere("Missing ), ], or Item", "(a=1 And (b=2)");
  ExpectWhere("Missing ), ], or Item", "a In ()");
  ExpectWhere("Syntax error (comma)", "a=1, b=2");
  ExpectWhere("Syntax error (comma)", "(a, b) = 1");
  ExpectWhere("Syntax error (comma)", "Left(a,) = 1");
  ExpectWhere("Syntax error (comma)", "Left(,a) = 1");
  ExpectWhere("Syntax error in number", "a = 1.2.3");
  ExpectWhere("Syntax error in date", "a = #__/__/____#");
  ExpectWhere("Syntax error in date", "(a >= #abc#) And b=1");
  ExpectWhere("Syntax error in date", "a = #1999-31-01#");
  ExpectWhere("Syntax error in date", "a = ##");
  ExpectStatement(3075, "Syntax error in date in query expression 'a = ##'.", "Select * From T Where a = ## Order By b");
}

TEST(SyntaxError, ApostropheInAnAddress) {
  ExpectWhere("Syntax error (missing operator)", "(Addr1 = 'O'Brien') AND (Addr2 = '') AND (City = 'X')");
  ExpectStatement(3075, "Syntax error (missing operator) in query expression '(Addr1 = 'It's') AND (City = '')'.",
                  "Select AcctNum From Customers Where (Addr1 = 'It's') AND (City = '');");
}

TEST(SyntaxError, OpenQuote) {
  ExpectStatement(3075, "Syntax error in string in query expression 'a = 'x'.", "Select * From T Where a = 'x");
  ExpectStatement(3075, "Syntax error in string in query expression 'a = 'x) Order By b'.", "Select * From T Where a = 'x) Order By b;");
}

TEST(SyntaxError, QuotedTextEndsAtOrderBy) {
  ExpectStatement(3075, "Syntax error (missing operator) in query expression 'a ='.", "Select * From T Where a =  Order By b;");
}

TEST(SyntaxError, Criterion) {
  ExpectCriterion("Syntax error (missing operator)", "[Type]='O'B'");
  ExpectCriterion("Syntax error (missing operator)", "[AcctNum]=");
  ExpectCriterion("Syntax error (missing operator)", "");
  ExpectCriterion("Syntax error (missing operator)", "[a]=1;");
  ExpectCriterion("Syntax error (missing operator)", "Where [a]=1");
  ExpectCriterion("Syntax error in string", "[Type]='x");
  ExpectCriterion("Syntax error in date", "[D]=#x#");
  ExpectCriterion("Missing ), ], or Item", "([a]=1");
  ExpectCriterion("Missing ), ], or Item", "[a=1");
  ExpectCriterion("Syntax error (comma)", "[a]=1,[b]=2");
}

}  // namespace
}  // namespace engine::sql
