#include "printing/run/kept_rows.h"

#include <gtest/gtest.h>

#include "unit/printing/support/made_up_report.h"

namespace printing_test {
namespace {

using platform::Value;

std::vector<std::vector<Value>> All(printing::RowSource& rows) {
  std::vector<std::vector<Value>> all;
  while (rows.Next()) all.push_back(rows.Row());
  return all;
}

TEST(KeptRows, GiveTheSameRowsAgainAsOftenAsAsked) {
  const std::vector<std::vector<Value>> cells = {{platform::Null, "one"}, {platform::Currency{-5}, std::string(70'000, 'x')}, {2.5, ""}};
  printing::KeptRows rows(std::make_unique<MadeUpRows>(std::vector<std::string>{"A", "B"}, cells));
  EXPECT_EQ(All(rows), cells);
  EXPECT_FALSE(rows.Next()) << "behind the last";
  EXPECT_EQ(All(*rows.Again()), cells);
  EXPECT_EQ(All(*rows.Again()), cells);
  EXPECT_EQ(rows.Again()->Count(), 3);
}

TEST(KeptRows, WithoutRowsThereAreNoneAgain) {
  printing::KeptRows rows(std::make_unique<MadeUpRows>(std::vector<std::string>{"A"}, std::vector<std::vector<Value>>{}));
  EXPECT_TRUE(All(rows).empty());
  EXPECT_TRUE(All(*rows.Again()).empty());
}

}  // namespace
}  // namespace printing_test
