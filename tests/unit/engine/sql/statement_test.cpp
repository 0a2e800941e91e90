#include <gtest/gtest.h>

#include <string>

#include "engine/sql/parser.h"
#include "engine/sql/print.h"

namespace engine::sql {
namespace {

std::string Canonical(std::string_view text) {
  const Statement tree = ParseStatement(text);
  const std::string printed = Print(tree);
  EXPECT_TRUE(ParseStatement(printed) == tree) << printed;
  return printed;
}

TEST(Statement, Select) {
  EXPECT_EQ(Canonical("SELECT * FROM Customers WHERE (NonBillable = False) ORDER BY LastName;"),
            "SELECT * FROM Customers WHERE NonBillable = False ORDER BY LastName");
  EXPECT_EQ(Canonical("select all a,b as [two words] from T order by a asc,b desc"),
            "SELECT a, b AS [two words] FROM T ORDER BY a, b DESC");
  EXPECT_EQ(Canonical("Select All, b From T"), "SELECT All, b FROM T");
  EXPECT_EQ(Canonical("Select DISTINCT a From T"), "SELECT DISTINCT a FROM T");
  EXPECT_EQ(Canonical("Select Distinctrow T.* , U.x From T,U"), "SELECT DISTINCTROW T.*, U.x FROM T, U");
  EXPECT_EQ(Canonical("Select * From T In 'c:\\x y.zdb' Where a=1"), "SELECT * FROM T IN 'c:\\x y.zdb' WHERE a = 1");
  EXPECT_EQ(Canonical("Select * From [Order Details] As d, T x"), "SELECT * FROM [Order Details] AS d, T AS x");
  EXPECT_EQ(Canonical("\r\n Select\t*\nFrom T ; "), "SELECT * FROM T");
}

TEST(Statement, Joins) {
  EXPECT_EQ(Canonical("Select * From A Left Outer Join B On A.x=B.x Right Join C On B.y=C.y"),
            "SELECT * FROM A LEFT JOIN B ON A.x = B.x RIGHT JOIN C ON B.y = C.y");
  EXPECT_EQ(Canonical("Select * From TaxTypes RIGHT JOIN (TaxEntities RIGHT JOIN TaxGrid ON TaxEntities.TaxEntity = TaxGrid.TaxEntity) ON "
                      "TaxTypes.TaxType = TaxGrid.TaxType"),
            "SELECT * FROM TaxTypes RIGHT JOIN (TaxEntities RIGHT JOIN TaxGrid ON TaxEntities.TaxEntity = TaxGrid.TaxEntity) ON "
            "TaxTypes.TaxType = TaxGrid.TaxType");
  EXPECT_EQ(Canonical("Select * From ((A INNER JOIN B ON A.x=B.x) INNER JOIN C ON A.x=C.x)"),
            "SELECT * FROM ((A INNER JOIN B ON A.x = B.x) INNER JOIN C ON A.x = C.x)");
  EXPECT_EQ(Canonical("Select * From (A)"), "SELECT * FROM A");
}

TEST(Statement, TablesOfOtherFiles) {
  EXPECT_EQ(Canonical("Select * From \"c:\\it's.zdb\" . T As x Left Join ('d'.[U V] Inner Join W On V.a=W.a) On x.a=W.a"),
            "SELECT * FROM 'c:\\it''s.zdb'.T AS x LEFT JOIN ('d'.[U V] INNER JOIN W ON V.a = W.a) ON x.a = W.a");
  EXPECT_EQ(Canonical("Select * From T, 'd'.U In 'e'"), "SELECT * FROM T, 'd'.U IN 'e'");
}

TEST(Statement, JoinWordsAreNamesElsewhere) {
  EXPECT_EQ(Canonical("Select Left, Right From Left Left Join Right On Left.a=Right.a"),
            "SELECT Left, Right FROM Left LEFT JOIN Right ON Left.a = Right.a");
}

TEST(Statement, Insert) {
  EXPECT_EQ(Canonical("INSERT INTO CU_AssignTaxes ( Instance, TaxID ) IN 'c:\\t.zdb' SELECT 3 As Instance, TaxGrid.TaxID FROM TaxGrid;"),
            "INSERT INTO CU_AssignTaxes (Instance, TaxID) IN 'c:\\t.zdb' SELECT 3 AS Instance, TaxGrid.TaxID FROM TaxGrid");
  EXPECT_EQ(Canonical("INSERT INTO Customers IN 'p'Select DISTINCTROW Customers.* FROM Customers ORDER BY LastName;"),
            "INSERT INTO Customers IN 'p' SELECT DISTINCTROW Customers.* FROM Customers ORDER BY LastName");
  EXPECT_EQ(Canonical("insert into T values(1,-2,'x',Null)"), "INSERT INTO T VALUES (1, -2, 'x', Null)");
  EXPECT_EQ(Canonical("insert into T (a) values(1)"), "INSERT INTO T (a) VALUES (1)");
}

TEST(Statement, DeleteAndUpdate) {
  EXPECT_EQ(Canonical("Delete * From T Where (Instance = 4);"), "DELETE * FROM T WHERE Instance = 4");
  EXPECT_EQ(Canonical("Delete From T"), "DELETE * FROM T");
  EXPECT_EQ(Canonical("Delete T.* From T In 'x'"), "DELETE T.* FROM T IN 'x'");
  EXPECT_EQ(Canonical("Update T Set a=1,T.b=a+1 Where c Is Null"), "UPDATE T SET a = 1, T.b = a + 1 WHERE c IS NULL");
  EXPECT_EQ(Canonical("Update A Inner Join B On A.x=B.x Set A.y=B.y"), "UPDATE A INNER JOIN B ON A.x = B.x SET A.y = B.y");
}

TEST(Statement, DifferentTreesDiffer) {
  EXPECT_FALSE(ParseStatement("Select a From T") == ParseStatement("Select a From T Where b=1"));
  EXPECT_FALSE(ParseStatement("Select a From T") == ParseStatement("Select a As b From T"));
  EXPECT_FALSE(ParseStatement("Select a From T Order By a") == ParseStatement("Select a From T Order By a Desc"));
}

}  // namespace
}  // namespace engine::sql
