#include "desktop/list/sort_hint.h"

#include <gtest/gtest.h>

namespace {

using desktop::SortHintOf;

void ExpectHint(const char* statement, const char* field, bool descending) {
  const auto hint = SortHintOf(statement);
  ASSERT_TRUE(hint) << statement;
  EXPECT_EQ(hint->field, field) << statement;
  EXPECT_EQ(hint->descending, descending) << statement;
}

TEST(SortHint, FirstTermOfTheOrder) {
  ExpectHint("SELECT * FROM Customers ORDER BY LastName;", "LastName", false);
  ExpectHint("SELECT * FROM Customers WHERE (NonBillable = False) ORDER BY Customers.AcctNum DESC;", "AcctNum", true);
  ExpectHint("select * from T order by [First Name] desc", "First Name", true);
  ExpectHint("SELECT * FROM CU_AssignTaxes ORDER BY Assign, Description", "Assign", false);
  ExpectHint("SELECT * FROM T ORDER BY A, B DESC", "A", false);
}

TEST(SortHint, NothingForExpressionsAndPlainStatements) {
  EXPECT_FALSE(SortHintOf("SELECT * FROM T"));
  EXPECT_FALSE(SortHintOf("Terms"));
  EXPECT_FALSE(SortHintOf("SELECT * FROM T ORDER BY [Rate]+([Rate]*[Adjustment]/100);"));
}

}  // namespace
