#include <gtest/gtest.h>

#include "engine/sql/parser.h"
#include "engine/sql/print.h"
#include "engine/translate/plan/planning.h"
#include "unit/engine/sql/corpus.h"
#include "unit/engine/sql/fake_catalogue.h"

// The corpus without a store: every statement parses, prints and is planned, or raises its error.
namespace {

using corpus::Case;

class CorpusPlan : public ::testing::TestWithParam<Case> {
 protected:
  static std::map<std::string, std::string> Paths() {
    std::map<std::string, std::string> paths{{"none.zdb", "none.zdb"}};
    for (const corpus::DataFile& file : corpus::ReadFixture().files) paths[file.name] = file.name;
    return paths;
  }

  static bool IsAction(const engine::sql::Statement& statement) { return !std::holds_alternative<engine::sql::Select>(statement); }

  std::string Sql() const { return corpus::WithPaths(GetParam().sql, Paths()); }
};

// Errors that only rows can show.
bool NeedsRows(int number) { return number == 11; }

TEST_P(CorpusPlan, PrintsAndParsesAgain) {
  const Case& test = GetParam();
  SCOPED_TRACE(test.line);
  if (test.sql.find(' ') == std::string::npos) return;  // a bare name
  engine::sql::Statement tree;
  try {
    tree = engine::sql::ParseStatement(Sql());
  } catch (const platform::Error& error) {
    ASSERT_TRUE(test.error) << error.Description();
    EXPECT_EQ(error.Number(), test.error->number);
    return;
  }
  const std::string printed = engine::sql::Print(tree);
  if (!test.print.empty()) {
    EXPECT_EQ(printed, corpus::WithPaths(test.print, Paths()));
  }
  EXPECT_TRUE(engine::sql::ParseStatement(printed) == tree) << printed;
}

TEST_P(CorpusPlan, IsPlanned) {
  const Case& test = GetParam();
  SCOPED_TRACE(test.line);
  FakeCatalogue catalogue;
  const engine::Dialect& dialect = engine::SqliteDialect();
  if (!test.file.empty()) catalogue.OpenFile(test.file);
  std::optional<engine::SelectPlan> plan;
  try {
    const bool select = test.sql.find(' ') == std::string::npos || !test.affected;
    if (select && !test.sql.starts_with("INSERT")) {
      plan = engine::PlanSelect(Sql(), catalogue, dialect);
    } else {
      engine::PlanAction(Sql(), catalogue, dialect);
    }
    EXPECT_TRUE(!test.error || NeedsRows(test.error->number)) << "no error " << test.error->number;
  } catch (const platform::Error& error) {
    ASSERT_TRUE(test.error) << error.Number() << ' ' << error.Description();
    EXPECT_EQ(error.Number(), test.error->number) << error.Description();
    if (!test.error->text.empty()) {
      EXPECT_EQ(error.Description(), test.error->text);
    }
    return;
  }
  if (!plan) return;
  if (test.columns) {
    std::vector<std::string> names;
    for (const engine::PlanColumn& column : plan->columns) names.push_back(column.name);
    EXPECT_EQ(names, *test.columns);
  }
  for (const corpus::Find& find : test.finds) {
    SCOPED_TRACE(find.criterion);
    try {
      engine::PlanCriterion(find.criterion, *plan, dialect);
      EXPECT_FALSE(find.error.has_value());
    } catch (const platform::Error& error) {
      ASSERT_TRUE(find.error) << error.Description();
      EXPECT_EQ(error.Number(), find.error->number) << error.Description();
      if (!find.error->text.empty()) {
        EXPECT_EQ(error.Description(), find.error->text);
      }
    }
  }
}

std::string CaseName(const ::testing::TestParamInfo<Case>& info) {
  std::string name;
  for (const char c : info.param.name) name += (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ? c : '_';
  return name + "_" + std::to_string(info.param.line);
}

INSTANTIATE_TEST_SUITE_P(Statements, CorpusPlan, ::testing::ValuesIn(corpus::ReadCases()), CaseName);

}  // namespace
