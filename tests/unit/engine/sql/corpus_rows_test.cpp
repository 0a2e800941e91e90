#include <gtest/gtest.h>

#include "unit/engine/sql/corpus.h"
#include "unit/engine/sql/corpus_company.h"

// The corpus on real files: rows, finds, effects and errors. Once as it is and once with the strategy for large results.
namespace {

using corpus::Case;

struct Run {
  Case test;
  std::int64_t exactRows = 0;
};

std::ostream& operator<<(std::ostream& stream, const Run& run) { return stream << run.test; }

engine::EngineOptions Options(std::int64_t exactRows) {
  engine::EngineOptions options;
  options.exactRows = exactRows;
  return options;
}

class CorpusRows : public ::testing::TestWithParam<Run> {
 protected:
  CorpusRows() : company_(Options(GetParam().exactRows)) {}

  const Case& Test() const { return GetParam().test; }

  static void ExpectFailure(const corpus::Failure& expected, const platform::Error& error,
                            const std::map<std::string, std::string>& paths) {
    EXPECT_EQ(error.Number(), expected.number) << error.Description();
    if (!expected.text.empty()) {
      EXPECT_EQ(error.Description(), corpus::WithPaths(expected.text, paths));
    }
  }

  void RunSelect(platform::Database& database, const std::string& sql) {
    const platform::RecordsetRef rows = database.OpenRecordset(sql, platform::RecordsetType::Dynaset);
    if (Test().columns) {
      std::vector<std::string> names;
      for (const platform::FieldInfo& field : rows->Fields()) names.push_back(field.name);
      EXPECT_EQ(names, *Test().columns);
    }
    const std::vector<std::string> shown = CorpusCompany::RowsOf(*rows);
    if (Test().rows) {
      EXPECT_EQ(shown, *Test().rows);
    }
    for (const corpus::Find& find : Test().finds) RunFind(*rows, find, shown);
  }

  void RunFind(platform::Recordset& rows, const corpus::Find& find, const std::vector<std::string>& shown) {
    SCOPED_TRACE(find.criterion);
    try {
      rows.FindFirst(find.criterion);
    } catch (const platform::Error& error) {
      ASSERT_TRUE(find.error) << error.Number() << ' ' << error.Description();
      ExpectFailure(*find.error, error, company_.Paths());
      return;
    }
    EXPECT_FALSE(find.error.has_value());
    EXPECT_EQ(rows.NoMatch(), find.place == 0);
    if (find.place == 0 || rows.NoMatch()) return;
    std::vector<platform::Value> cells;
    for (std::size_t i = 0; i < rows.Fields().size(); ++i) cells.push_back(rows.Field(static_cast<int>(i)));
    EXPECT_EQ(corpus::ShowRow(cells), shown.at(static_cast<std::size_t>(find.place - 1)));
  }

  void RunAction(platform::Database& database, const std::string& sql) {
    database.Execute(sql);
    if (Test().affected) {
      EXPECT_EQ(database.RecordsAffected(), *Test().affected);
    }
    if (Test().then.empty()) return;
    const platform::DatabaseRef then = company_.Open(Test().thenFile.empty() ? Test().file : Test().thenFile);
    const platform::RecordsetRef rows = then->OpenRecordset(Test().then, platform::RecordsetType::Dynaset);
    EXPECT_EQ(CorpusCompany::RowsOf(*rows), *Test().rows);
  }

  CorpusCompany company_;
};

TEST_P(CorpusRows, GivesWhatItSays) {
  const Case& test = Test();
  SCOPED_TRACE(test);
  const std::string sql = corpus::WithPaths(test.sql, company_.Paths());
  const platform::DatabaseRef database = company_.Open(test.file);
  try {
    if (test.affected || test.sql.starts_with("INSERT")) {
      RunAction(*database, sql);
    } else {
      RunSelect(*database, sql);
    }
    EXPECT_FALSE(test.error.has_value()) << "no error " << test.error->number;
  } catch (const platform::Error& error) {
    ASSERT_TRUE(test.error) << error.Number() << ' ' << error.Description();
    ExpectFailure(*test.error, error, company_.Paths());
  }
}

std::vector<Run> Runs() {
  std::vector<Run> runs;
  for (const Case& test : corpus::ReadCases()) {
    for (const std::int64_t exactRows : {std::int64_t{20'000}, std::int64_t{0}}) runs.push_back({test, exactRows});
  }
  return runs;
}

std::string RunName(const ::testing::TestParamInfo<Run>& info) {
  std::string name;
  for (const char c : info.param.test.name) name += (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ? c : '_';
  return name + "_" + std::to_string(info.param.test.line) + (info.param.exactRows == 0 ? "_live" : "_exact");
}

INSTANTIATE_TEST_SUITE_P(Statements, CorpusRows, ::testing::ValuesIn(Runs()), RunName);

}  // namespace
