#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "unit/engine/sql/corpus.h"
#include "unit/engine/sql/corpus_company.h"

// Each statement of the corpus, and some more, on files and on a server: the same rows in the same order, the same effects, the same
// errors.
namespace {

std::string Outcome(const std::function<std::string()>& act) {
  try {
    return act();
  } catch (const platform::Error& error) {
    return "error " + std::to_string(error.Number()) + ' ' + error.Description();
  }
}

// Each company lies in a folder of its own.
std::string WithoutPaths(std::string text, const std::map<std::string, std::string>& paths) {
  for (const auto& [name, path] : paths)
    for (std::size_t at = text.find(path); at != std::string::npos; at = text.find(path)) text.replace(at, path.size(), '{' + name + '}');
  return text;
}

std::string Joined(const std::vector<std::string>& rows) {
  std::string all;
  for (const std::string& row : rows) all += row + '\n';
  return all;
}

bool IsAction(const std::string& sql) { return sql.starts_with("INSERT") || sql.starts_with("UPDATE") || sql.starts_with("DELETE"); }

class CorpusAlike : public ::testing::TestWithParam<corpus::Case> {};

TEST_P(CorpusAlike, OnFilesAndOnAServer) {
  const corpus::Case& test = GetParam();
  std::vector<std::string> outcomes;
  for (const corpus::Place* place : {&corpus::Files(), &corpus::Server()}) {
    CorpusCompany company({}, *place);
    const std::string sql = corpus::WithPaths(test.sql, company.Paths());
    const std::string outcome = Outcome([&] {
      const platform::DatabaseRef database = company.Open(test.file);
      std::string said;
      if (test.affected || IsAction(sql)) {
        database->Execute(sql);
        said = std::to_string(database->RecordsAffected()) + " rows\n";
      } else {
        return Joined(CorpusCompany::RowsOf(*database->OpenRecordset(sql, platform::RecordsetType::Dynaset)));
      }
      // What the company holds behind it.
      for (const corpus::DataFile& file : corpus::ReadFixture().files) {
        const platform::DatabaseRef there = company.Open(file.name);
        for (const corpus::Table& table : file.tables)
          said += table.definition.name + '\n' +
                  Joined(CorpusCompany::RowsOf(*there->OpenRecordset(table.definition.name, platform::RecordsetType::Dynaset)));
      }
      return said;
    });
    outcomes.push_back(WithoutPaths(outcome, company.Paths()));
  }
  EXPECT_EQ(outcomes[0], outcomes[1]) << test.sql;
}

std::string AlikeName(const ::testing::TestParamInfo<corpus::Case>& info) { return "line_" + std::to_string(info.param.line); }

INSTANTIATE_TEST_SUITE_P(Statements, CorpusAlike, ::testing::ValuesIn(corpus::ReadCases()), AlikeName);

// Expressions over every type, in a cell, in a condition and as an order.
TEST(ExpressionsAlike, OnFilesAndOnAServer) {
  const std::vector<std::string> values{"B",   "S",    "L",   "C",  "D",    "W",    "T",           "ID",    "0",          "1",    "-1",
                                        "2.5", "'12'", "'x'", "''", "Null", "True", "#1/31/1999#", "32767", "2147483647", "1E300"};
  const std::vector<std::string> signs{"+", "-", "*", "/", "\\", "Mod", "^", "&", "=", "<", "<>", "Like", "And", "Or", "Xor", "Eqv", "Imp"};
  const std::vector<std::string> calls{"Abs(%)",
                                       "CBool(%)",
                                       "CByte(%)",
                                       "CInt(%)",
                                       "CLng(%)",
                                       "CDbl(%)",
                                       "CCur(%)",
                                       "CDate(%)",
                                       "CStr(%)",
                                       "Int(%)",
                                       "Fix(%)",
                                       "Sgn(%)",
                                       "Sqr(%)",
                                       "Year(%)",
                                       "Weekday(%)",
                                       "Hour(%)",
                                       "Len(%)",
                                       "Val(%)",
                                       "Trim(%)",
                                       "UCase(%)",
                                       "Left(%,2)",
                                       "Mid(%,2,1)",
                                       "InStr(%,'1')",
                                       "Str(%)",
                                       "Space(%)",
                                       "IsNumeric(%)",
                                       "IsDate(%)",
                                       "IsNull(%)",
                                       "Format(%)",
                                       "Format(%,'#,##0.00')",
                                       "Format(%,'m/d/yy')",
                                       "Format(%,'@@@@')",
                                       "Format(%,'Yes/No')",
                                       "-%",
                                       "Not %",
                                       "IIf(%,1,2)",
                                       "IIf(ID=1,%,Null)",
                                       "% Between 0 And 5",
                                       "% In (1,2,Null)",
                                       "% Is Null",
                                       "DateSerial(1999,%,1)",
                                       "-(-%)",
                                       "% & % & ID",
                                       "(%)+1"};
  std::vector<std::string> expressions;
  for (const std::string& call : calls) {
    for (const std::string& value : values) {
      std::string text = call;
      for (std::size_t at = text.find('%'); at != std::string::npos; at = text.find('%', at + value.size())) text.replace(at, 1, value);
      expressions.push_back(text);
    }
  }
  for (const std::string& sign : signs)
    for (std::size_t i = 0; i < values.size(); ++i)
      for (std::size_t j = 0; j < values.size(); ++j)
        if ((i + 3 * j) % 12 == 0) expressions.push_back(values[i] + ' ' + sign + ' ' + values[j]);
  CorpusCompany files({}, corpus::Files());
  CorpusCompany server({}, corpus::Server());
  int wrong = 0;
  for (const std::string& expression : expressions) {
    for (const std::string& sql :
         {"SELECT ID, " + expression + " AS X FROM Numbers ORDER BY ID",
          "SELECT ID FROM Numbers WHERE (" + expression + ") Is Null ORDER BY ID", "SELECT ID FROM Numbers ORDER BY " + expression,
          "SELECT Count(" + expression + ") AS N, Max(" + expression + ") AS M FROM Numbers",
          "SELECT DISTINCT " + expression + " AS X FROM Numbers"}) {
      const std::string onFiles = Outcome([&] { return Joined(files.Query(sql)); });
      const std::string onServer = Outcome([&] { return Joined(server.Query(sql)); });
      if (onFiles == onServer) continue;
      if (++wrong <= 40) ADD_FAILURE() << sql << "\nfiles: " << onFiles << "server: " << onServer;
    }
  }
  EXPECT_EQ(wrong, 0) << "of " << expressions.size() * 5;
}

}  // namespace
