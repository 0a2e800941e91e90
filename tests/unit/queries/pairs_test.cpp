#include <algorithm>
#include <cstddef>
#include <memory>
#include <set>

#include "covering.h"
#include "maintenance/frmCustMain.h"
#include "people.h"
#include "queries/frmCustQueries.h"
#include "question.h"
#include "support/session_test.h"

// Every pair of criteria, with every way of comparing, through the screen: the statement to the letter, and its rows against people
// who were looked at one by one. Once for each strategy of the lists.
namespace {

using orcussch::frmCustMain;
using orcussch::frmCustQueries;
using question::Levels;

constexpr int kPeople = 700;

std::unique_ptr<platform::DataEngine> EngineWith(std::int64_t exactRows) {
  engine::EngineOptions options;
  options.exactRows = exactRows;
  return engine::MakeEngine(options);
}

template <class Box>
void Turn(Box& box, bool on) {
  if ((box.Value() != 0) != on) box.UserClick();
}

void Enter(platform::TextBox& box, const std::string& text) {
  box.UserSelectAll();
  if (text.empty()) {
    box.UserDelete();
  } else {
    box.UserType(text);
  }
}

void Compare(platform::ComboBox& combo, int level) {
  for (const platform::ComboRow& row : combo.Rows())
    if (row.shown == question::kWays[level - 1].shown) combo.UserPick(row);
}

void MarkRows(const frmCustQueries& s, int list, std::initializer_list<int> rows) {
  std::vector<platform::Bookmark> marks;
  for (const int row : rows) marks.push_back(s.Data[list].Window()->RowsAt(row, 1).front().bookmark);
  s.grid[list].UserMark(std::move(marks));
}

void AskTexts(frmCustQueries& s, const Levels& q) {
  s.SSTab1.UserClick(orcussch::criteria::Names);
  for (int i = 0; i < question::kTexts; ++i) {
    const int level = q[static_cast<std::size_t>(i)];
    Turn(s.chkSelectNameAdd[i], level != 0);
    if (level == 0) continue;
    Compare(s.cboSQL[i], level);
    const bool phone = i == orcussch::criteria::kPhone;
    Enter(s.txtNameAdd[i], phone && q[question::kPhoneNumber] == 2 ? "" : question::TextValue(i, level));
    if (phone) Enter(s.txtNameAdd[8], q[question::kPhoneNumber] == 0 ? "" : question::NumberValue(level));
  }
}

void AskMisc(frmCustQueries& s, const Levels& q) {
  s.SSTab1.UserClick(orcussch::criteria::Misc);
  const int at[] = {question::kStatus,  question::kInvoice, question::kCard,  question::kKeyWords, question::kTypes,
                    question::kBilling, question::kCheck,   question::kTaxID, question::kFinance};
  for (int j = 0; j < 9; ++j) Turn(s.chkSelectMisc[j], q[static_cast<std::size_t>(at[j])] != 0);
  if (const int level = q[question::kStatus]; level != 0) s.optStatus[level - 1].UserClick();
  if (const int level = q[question::kInvoice]; level != 0) {
    s.optInvoiceNo[level - 1].UserClick();
    Enter(s.txtInvoiceNo, level == 1 ? question::kStandardInvoice : question::kAlternateInvoice);
  }
  if (const int level = q[question::kCard]; level != 0) {
    Compare(s.cboSQL[8], level);
    Enter(s.txtCreditCard, question::CardValue(level));
  }
  if (q[question::kKeyWords] == 1) MarkRows(s, 0, {0});
  if (q[question::kKeyWords] == 2) MarkRows(s, 0, {2, 0});
  if (q[question::kTypes] == 1) MarkRows(s, 1, {0});
  if (q[question::kTypes] == 2) MarkRows(s, 1, {2, 0});
  if (const int level = q[question::kBilling]; level != 0) s.optBillingStatus[level - 1].UserClick();
  if (q[question::kCheck] != 0) Enter(s.txtCheckNo, question::kCheckNumber);
  if (q[question::kTaxID] != 0) Enter(s.txtTaxID, question::kTaxNumber);
  if (const int level = q[question::kFinance]; level != 0) s.optOmitFinChg[level - 1].UserClick();
}

void AskRanges(frmCustQueries& s, const Levels& q) {
  s.SSTab1.UserClick(orcussch::criteria::Amounts);
  for (int i = 0; i < 12; ++i) {
    const bool on = q[static_cast<std::size_t>(question::kAmounts + i)] != 0;
    Turn(s.chkSelectAmount[i], on);
    if (on && !question::AmountEntry(i).empty()) Enter(s.txtAmount[i], question::AmountEntry(i));
  }
  s.SSTab1.UserClick(orcussch::criteria::Dates);
  for (int i = 0; i < 12; ++i) {
    const bool on = q[static_cast<std::size_t>(question::kDates + i)] != 0;
    Turn(s.chkSelectDate[i], on);
    if (on) Enter(s.txtDate[i], question::DateEntry(i));
  }
}

std::string Told(const Levels& q) {
  std::string text;
  for (const int level : q) text += std::to_string(level);
  return text;
}

class QueryPairs : public SessionTest, public testing::WithParamInterface<std::int64_t> {
 protected:
  QueryPairs() : SessionTest(EngineWith(GetParam())), people(MakePeople(kPeople)) {
    MakeCompany();
    WritePeople(people, folder / "data/orv1/customer.zdb", folder / "data/orv1/artrans.zdb");
  }

  static std::vector<std::int32_t> Listed(const frmCustMain& main) {
    std::vector<std::int32_t> accounts;
    const platform::RecordsetRef rows = main.data[0].Recordset()->Clone();
    if (rows->HasRows())
      for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) accounts.push_back(rows->Field("AcctNum").As<std::int32_t>());
    rows->Close();
    return accounts;
  }

  /// Asks on the query screen, and compares statement, count and rows.
  void Ask(frmCustMain& main, const Levels& q) {
    asked = q;
    main.Toolbar1.Button("tb_Queries").UserClick();
    ASSERT_EQ(orcussch::gQuerySQL, question::Statement(q)) << Told(q);
    const std::vector<std::int32_t> expected = Found(people, q);
    nonEmpty += expected.empty() ? 0 : 1;
    EXPECT_EQ(Listed(main), expected) << Told(q);
    EXPECT_EQ(main.grid[0].Caption(), "Queried Customers");
  }

  void Fill(frmCustQueries& s) {
    AskTexts(s, asked);
    AskMisc(s, asked);
    AskRanges(s, asked);
    s.Toolbar1.Button("tb_RunQuery").UserClick();
    EXPECT_FALSE(s.Visible());
  }

  void Run(const std::function<void(frmCustMain&)>& user) {
    orcussch::CustSearch host(*app);
    host.Let("UserID", 1);
    host.Let("CompanyID", 1);
    frontEnd->serve = [&](platform::Form& form) {
      if (auto* queries = dynamic_cast<frmCustQueries*>(&form)) Fill(*queries);
      if (auto* main = dynamic_cast<frmCustMain*>(&form)) user(*main);
    };
    host.ShowUser();
    frontEnd->serve = nullptr;
    EXPECT_TRUE(Reports().empty());
    EXPECT_TRUE(Boxes().empty());
  }

  std::vector<Person> people;
  Levels asked;
  int nonEmpty = 0;
};

TEST(CoveringArray, HoldsEveryPairOfLevels) {
  const std::vector<int> counts = question::LevelCounts();
  const auto rows = CoverPairs(counts);
  std::size_t pairs = 0;
  for (std::size_t a = 0; a < counts.size(); ++a)
    for (std::size_t b = a + 1; b < counts.size(); ++b) {
      std::set<std::pair<int, int>> seen;
      for (const auto& row : rows) seen.emplace(row[a], row[b]);
      EXPECT_EQ(seen.size(), static_cast<std::size_t>(counts[a] * counts[b])) << a << " with " << b;
      pairs += seen.size();
    }
  EXPECT_GT(pairs, 6000U);
  EXPECT_LT(rows.size(), 100U);
}

TEST_P(QueryPairs, EachQuestionFindsWhomALookAtEveryoneFinds) {
  const auto rows = CoverPairs(question::LevelCounts());
  Run([&](frmCustMain& main) {
    for (const Levels& levels : rows) Ask(main, levels);
  });
  RecordProperty("questions", static_cast<int>(rows.size()));
  RecordProperty("with rows", nonEmpty);
  EXPECT_GT(nonEmpty, static_cast<int>(rows.size()) / 4);
}

/// Alone each criterion finds some and not all, so that a wrong one would be seen.
TEST_P(QueryPairs, EachCriterionAlone) {
  const std::vector<int> counts = question::LevelCounts();
  Run([&](frmCustMain& main) {
    for (std::size_t factor = 0; factor < counts.size(); ++factor)
      for (int level = 1; level < counts[factor]; ++level) {
        Levels levels(counts.size(), 0);
        levels[factor] = level;
        if (factor == question::kPhoneNumber) levels[7] = 3;
        const std::size_t found = Found(people, levels).size();
        EXPECT_TRUE(found > 0 && found < people.size()) << Told(levels) << " tells nothing";
        Ask(main, levels);
      }
  });
}

INSTANTIATE_TEST_SUITE_P(Strategies, QueryPairs, testing::Values(std::int64_t{20'000}, std::int64_t{0}),
                         [](const auto& test) { return test.param == 0 ? "Live" : "Exact"; });

}  // namespace
