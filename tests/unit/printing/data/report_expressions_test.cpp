#include "printing/data/report_expressions.h"

#include "printing/expressions/parser.h"
#include "unit/printing/data/rows_fixture.h"

namespace {

using platform::Null;
using platform::Value;
using printing::ReportExpressions;

class ReportExpressionsTest : public testing::Test {
 protected:
  ReportExpressionsTest()
      : report_(printing::ReadReportFile("report 1\ntitle \"List\"\ntable C file \"c\"\nformula Who text Trim({C.Name})\n"
                                         "total All count {C.Name}\ntotal Last greatest {C.Name}\ntotal Wrong sum {C.Nothing}\n"
                                         "band detail height 1\n",
                                         [](const std::string&) { return std::string(); })),
        expressions_(report_, {{0, "Name", printing::ValueType::Text}, {0, "Amount", printing::ValueType::Number}}, EngineTextRules(),
                     {"some", "?", platform::Date{36191}}) {}

  Value Of(const std::string& text, const std::vector<Value>* row, const std::vector<Value>* totals) {
    parsed_.push_back(std::make_unique<printing::Expression>(printing::ParseExpression(text)));
    return expressions_.Evaluate(expressions_.Bind(*parsed_.back()), row, totals, 4, 2);
  }
  int NumberOf(const std::string& text) {
    try {
      Of(text, nullptr, nullptr);
    } catch (const printing::ReportFailure& failure) {
      return failure.Number();
    }
    return 0;
  }

  printing::ReportDefinition report_;
  ReportExpressions expressions_;
  std::vector<std::unique_ptr<printing::Expression>> parsed_;
};

TEST_F(ReportExpressionsTest, TakesRowTotalsAndWhatTheRunKnows) {
  const std::vector<Value> row{" Smith ", platform::Currency{15'000}};
  const std::vector<Value> totals{7.0, "Zoe", Null};
  EXPECT_EQ(Of("{@Who} & ' ' & {c.amount} & ' ' & {#all} & ' ' & {#Last}", &row, &totals), Value("Smith 1.5 7 Zoe"));
  EXPECT_EQ(Of("ReportTitle & Selection & RecordNumber & PageNumber & PageCount & Today", nullptr, nullptr), Value("Listsome42?1/31/1999"));
}

TEST_F(ReportExpressionsTest, WithoutARowAllIsNull) {
  EXPECT_EQ(Of("{C.Amount}", nullptr, nullptr), Value(Null));
  EXPECT_EQ(Of("{#All}", nullptr, nullptr), Value(Null));
  EXPECT_EQ(Of("IsNull({C.Name}) And IsNull({#Last})", nullptr, nullptr), Value(true));
}

TEST_F(ReportExpressionsTest, RefusesWhatDoesNotFit) {
  EXPECT_EQ(NumberOf("{C.Name} = 1"), 106);
  EXPECT_EQ(NumberOf("{C.Nothing}"), 106);
  EXPECT_EQ(NumberOf("{#Nothing}"), 106);
  EXPECT_EQ(NumberOf("{#Last} + 1"), 106);
}

TEST_F(ReportExpressionsTest, ComparesAsRowsCome) {
  EXPECT_EQ(expressions_.Compare(Null, Null), 0);
  EXPECT_LT(expressions_.Compare(Null, ""), 0);
  EXPECT_GT(expressions_.Compare("a", Null), 0);
  EXPECT_EQ(expressions_.Compare("SMITH ", "smith"), 0);
  EXPECT_LT(expressions_.Compare(true, false), 0);
  EXPECT_LT(expressions_.Compare(std::int32_t{1}, 1.5), 0);
}

}  // namespace
