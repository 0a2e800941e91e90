// A selection takes the same rows whether the store is asked or each row: over random rows with Nulls and random expressions.
#include <random>

#include "platform/values/calendar.h"
#include "printing/data/conditions.h"
#include "printing/expressions/expression_error.h"
#include "printing/expressions/parser.h"
#include "unit/printing/data/rows_fixture.h"

namespace {

using platform::Currency;
using platform::FieldType;
using platform::Null;
using platform::Value;

class Random {
 public:
  explicit Random(unsigned seed) : engine_(seed) {}
  int Below(int end) { return static_cast<int>(engine_() % static_cast<unsigned>(end)); }
  bool OneIn(int many) { return Below(many) == 0; }
  template <class T>
  const T& Of(const std::vector<T>& all) {
    return all[static_cast<std::size_t>(Below(static_cast<int>(all.size())))];
  }

 private:
  std::mt19937 engine_;
};

const std::vector<std::string> kTexts{"",       "a",  "A",    "ab",  "a b", "a ",  "\u00e1", "\u00e4b",
                                      "\u00df", "ss", "it's", "a-b", "z*",  "[x]", "#1",     "5"};
const std::vector<double> kNumbers{0, 1, -1, 2, 2.5, -2.5, 12.34, 0.0001, 0.00005, 127, 100'000, 1e15, 1e300, 0.1};
const std::vector<double> kDays{36191, 36191.5, 36192, 2, -1, -1.25, -600'000};

class SelectionProperty : public ReportRowsTest {
 protected:
  static constexpr int kRows = 120;

  void MakeFile(Random& random) {
    const auto field = [](const char* name, FieldType type, int size = 0) { return platform::FieldDefinition{name, type, size, Null}; };
    const std::vector<platform::FieldDefinition> fields{
        field("Id", FieldType::Counter), field("T", FieldType::Text, 20), field("U", FieldType::Text, 20), field("M", FieldType::Memo),
        field("S", FieldType::Short),    field("L", FieldType::Long),     field("C", FieldType::Currency), field("D", FieldType::Double),
        field("E", FieldType::Double),   field("W", FieldType::Date),     field("B", FieldType::Boolean)};
    engine::CreateDataFile(folder_ / "random.zdb", std::vector<platform::TableDefinition>{
                                                       {"Rows", fields, {{"PrimaryKey", {"Id"}, true, true}, {"T", {"T"}, false, false}}},
                                                       {"More", {field("L", FieldType::Long), field("T", FieldType::Text, 20)}, {}}});
    std::vector<std::vector<Value>> rows;
    const auto orNull = [&](Value value) { return random.OneIn(4) ? Value(Null) : std::move(value); };
    for (int i = 0; i < kRows; ++i)
      rows.push_back({orNull(random.Of(kTexts)), orNull(random.Of(kTexts)), orNull(random.Of(kTexts)),
                      orNull(static_cast<std::int16_t>(random.Below(5) - 2)), orNull(random.Below(5) - 2),
                      orNull(Currency{random.Of(std::vector<std::int64_t>{0, 10'000, -25'000, 123'400, 1})}), orNull(random.Of(kNumbers)),
                      orNull(random.Of(kNumbers)), orNull(platform::Date{random.Of(kDays)}), orNull(random.OneIn(2))});
    Add("random.zdb", "Rows", {"T", "U", "M", "S", "L", "C", "D", "E", "W", "B"}, rows);
    Add("random.zdb", "More", {"L", "T"}, {{1, "a"}, {1, Null}, {-1, "ab"}, {Null, "x"}});
  }

  static std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) quoted += c == '"' ? "\"\"" : std::string(1, c);
    return quoted + '"';
  }
  static std::string NumberText(double number) {
    std::string digits(400, '\0');
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
    digits.resize(static_cast<std::size_t>(end.ptr - digits.data()));
    return digits;
  }
  static std::string DayText(double serial) {
    const platform::CalendarDay day = platform::CalendarOf(platform::Date{serial});
    return "Date(" + std::to_string(day.year) + ", " + std::to_string(day.month) + ", " + std::to_string(day.day) + ")";
  }
  static std::string Text(Random& random) {
    if (random.OneIn(3)) return Quoted(random.Of(kTexts));
    return random.Of(std::vector<std::string>{"{R.T}", "{R.U}", "{R.M}", "{More.T}", "Trim({R.T})", "{@Ab}", "{@Same}"});
  }
  static std::string Number(Random& random) {
    if (random.OneIn(3)) return NumberText(random.Of(kNumbers));
    return random.Of(std::vector<std::string>{"{R.S}", "{R.L}", "{R.C}", "{R.D}", "{R.E}", "{More.L}", "{R.L} + 1", "Length({R.T})",
                                              "{@Two}", "{R.Id} / 0"});
  }
  static std::string Day(Random& random) {
    if (random.OneIn(3)) return DayText(random.Of(kDays));
    return random.Of(std::vector<std::string>{"{R.W}", "{R.W}", "Today", "{R.W} + 1"});
  }
  static std::string Some(Random& random, int kind) { return kind == 0 ? Text(random) : (kind == 1 ? Number(random) : Day(random)); }

  static std::string Condition(Random& random, int depth) {
    if (depth > 0 && !random.OneIn(3)) {
      switch (random.Below(3)) {
        case 0:
          return "Not (" + Condition(random, depth - 1) + ")";
        case 1:
          return "(" + Condition(random, depth - 1) + " And " + Condition(random, depth - 1) + ")";
        default:
          return "(" + Condition(random, depth - 1) + " Or " + Condition(random, depth - 1) + ")";
      }
    }
    const int kind = random.Below(3);
    switch (random.Below(8)) {
      case 0:
        return "{R.B}";
      case 1:
        return "{R.B} = " + std::string(random.OneIn(2) ? "True" : "False");
      case 2:
        return "IsNull(" + Some(random, kind) + ")";
      case 3:
        return Some(random, kind) + " In [" + Some(random, kind) + ", " + Some(random, kind) + "]";
      case 4:
        return Some(random, kind) + " In " + Some(random, kind) + " To " + Some(random, kind);
      case 5:
        return Text(random) + (random.OneIn(2) ? " Like " : " StartsWith ") + Quoted(random.Of(kTexts) + (random.OneIn(2) ? "*" : "?"));
      default:
        break;
    }
    const std::string sign = random.Of(std::vector<std::string>{"=", "<>", "<", "<=", ">", ">="});
    return Some(random, kind) + ' ' + sign + ' ' + Some(random, kind);
  }

  std::string RowsBy(const std::string& selection, bool askRowByRow) {
    request_.selection = selection;
    request_.askRowByRow = askRowByRow;
    return RowsOf(
               "table Rows as R file \"random.zdb\"\ntable More file \"random.zdb\" left join {More.L} = {R.L}\n"
               "formula Ab text \"ab\"\nformula Two number 2\nformula Same text {R.T}\n"
               "sort {R.Id}\nband detail height 1\nfield {R.Id} & {More.T} at 0 0 size 1 1\n")
        .append(";");
  }
};

/// The rows' own part: what follows the two columns belongs to the conditions that were asked row by row.
std::string Ids(const std::string& rows) {
  std::string ids;
  for (std::size_t at = 0; at < rows.size(); at = rows.find(';', at) + 2) {
    ids += rows.substr(at, rows.find('|', at) - at) + ' ';
    if (rows.find(';', at) == std::string::npos) break;
  }
  return ids;
}

TEST_F(SelectionProperty, BothWaysTakeTheSameRows) {
  int some = 0;
  int all = 0;
  for (unsigned seed = 1; seed <= 4; ++seed) {
    Random random(seed);
    std::filesystem::remove(folder_ / "random.zdb");
    MakeFile(random);
    for (int i = 0; i < 100; ++i) {
      const std::string selection = Condition(random, 3);
      SCOPED_TRACE(std::to_string(seed) + ": " + selection);
      const std::string byStore = Ids(RowsBy(selection, false));
      const std::string byRow = Ids(RowsBy(selection, true));
      ASSERT_EQ(byStore, byRow);
      some += byRow.size() > 2 ? 1 : 0;
      all += byRow.size() > 3 * kRows ? 1 : 0;
    }
  }
  // The expressions tell rows apart.
  EXPECT_GT(some, 200);
  EXPECT_LT(all, 350);
}

// Most of them are indeed the store's.
TEST_F(SelectionProperty, ConditionsAreTheStoresWhereTheyCanBe) {
  Random random(9);
  MakeFile(random);
  const auto report = Report("table Rows as R file \"random.zdb\"\nformula Two number 2\nformula Who text {R.T}\nband detail height 1\n");
  const auto reader = services_.openReader();
  const printing::DataTables tables(report, {}, services_, *reader);
  const printing::Conditions conditions(report, tables, services_.today);
  const auto textOf = [&](const std::string& selection) {
    return conditions.ConditionOf(printing::ParseExpression(selection)).value_or("none");
  };
  EXPECT_EQ(textOf("{r.t} = \"it's\""), "([R].[T] = 'it''s')");
  EXPECT_EQ(textOf("Not ({R.T} = 'a')"), "([R].[T] <> 'a' Or [R].[T] Is Null)");
  EXPECT_EQ(textOf("Not ({R.L} < {R.S} And {R.B})"),
            "(([R].[L] >= [R].[S] Or [R].[L] Is Null Or [R].[S] Is Null) Or ([R].[B] = False Or [R].[B] Is Null))");
  EXPECT_EQ(textOf("{R.T} StartsWith 'a*#'"), "([R].[T] Like 'a[*][#]*')");
  EXPECT_EQ(textOf("{R.W} >= Today"), "([R].[W] >= #1999-02-01#)");
  EXPECT_EQ(textOf("{R.C} In -1 To {@Two}"), "([R].[C] >= -1 And [R].[C] <= 2)");
  EXPECT_EQ(textOf("{@Who} In ['a', 'b']"), "([R].[T] = 'a' Or [R].[T] = 'b')");
  EXPECT_EQ(textOf("IsNull({R.M})"), "([R].[M] Is Null)");
  EXPECT_EQ(textOf("{R.C} = 0.00005"), "none");  // no amount is that
  EXPECT_EQ(textOf("{R.C} = {R.D}"), "none");
  EXPECT_EQ(textOf("Trim({R.T}) = 'a'"), "none");
  EXPECT_EQ(textOf("{R.T} = 'a' Or Trim({R.T}) = 'b'"), "none");
}

}  // namespace
