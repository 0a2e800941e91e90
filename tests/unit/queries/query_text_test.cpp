#include "queries/query_text.h"

#include <gtest/gtest.h>

namespace {

using orcussch::SQLOperator;
using orcussch::TestWhere;

std::string Compared(const std::string& code) {
  std::string where = "(Customers.City ";
  SQLOperator(where, "Elm", code);
  return where;
}

TEST(QueryText, EachWayOfComparing) {
  EXPECT_EQ(Compared("c"), "(Customers.City Like '*Elm*')");
  EXPECT_EQ(Compared("x"), "(Customers.City Like 'Elm')");
  EXPECT_EQ(Compared("s"), "(Customers.City Like 'Elm*')");
  EXPECT_EQ(Compared("e"), "(Customers.City Like '*Elm')");
}

TEST(QueryText, TheCodesFirstLetterCountsWithoutCase) {
  EXPECT_EQ(Compared("Contains"), "(Customers.City Like '*Elm*')");
  EXPECT_EQ(Compared("X"), "(Customers.City Like 'Elm')");
  EXPECT_EQ(Compared("ends"), "(Customers.City Like '*Elm')");
}

TEST(QueryText, AnyOtherCodeBeginsTheText) {
  EXPECT_EQ(Compared(""), "(Customers.City Like 'Elm*')");
  EXPECT_EQ(Compared("q"), "(Customers.City Like 'Elm*')");
}

TEST(QueryText, TheFirstConditionComesAfterWhereTheOthersAfterAnd) {
  std::string where;
  TestWhere(where);
  EXPECT_EQ(where, " WHERE ");
  where += "(a)";
  TestWhere(where);
  EXPECT_EQ(where, " WHERE (a) AND ");
}

}  // namespace
