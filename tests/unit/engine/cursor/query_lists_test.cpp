// Long lists that other tables filter: joins that give no output, in whatever way the list is reached, have the rows that loops over
// the tables find, in the list's order; they are counted, searched, shown by pages, edited and marked like any list.
#include <random>
#include <set>
#include <utility>

#include "unit/engine/cursor/query_lists.h"
#include "unit/engine/support/engine_fixture.h"
#include "unit/engine/support/office_files.h"

namespace {

using platform::RecordsetRef;
using platform::Value;
using query_lists::Company;
using query_lists::Customer;
using query_lists::Part;
using query_lists::Parts;
using query_lists::Same;
using query_lists::StatementOf;
using query_lists::Word;

class QueryLists : public EngineFolderTest, public testing::WithParamInterface<std::int64_t> {
 protected:
  QueryLists() {
    company_.Create(Path("customer.zdb"), Path("artrans.zdb"));
    engine::EngineOptions options;
    options.exactRows = GetParam();
    options.readAheadTrust = 0;
    engine_ = office_files::NewEngine(options);
    db_ = engine_->OpenControlDatabase(Path("customer.zdb"));
    platform::TableDef link = db_->CreateTableDef("Transactions");
    link.Connect = ";DATABASE=" + Path("artrans.zdb");
    link.SourceTableName = "Transactions";
    db_->AppendTableDef(link);
  }

  RecordsetRef Open(const std::string& statement) { return db_->OpenRecordset(statement, platform::RecordsetType::Dynaset); }
  static std::int32_t Here(const RecordsetRef& rows) { return rows->Field("AcctNum").As<std::int32_t>(); }
  static std::vector<std::int32_t> AccountsOf(const std::vector<platform::ListRow>& rows) {
    std::vector<std::int32_t> accounts;
    for (const platform::ListRow& row : rows) accounts.push_back(row.cells.at(0).As<std::int32_t>());
    return accounts;
  }
  static std::vector<std::int32_t> Walked(const RecordsetRef& rows) {
    std::vector<std::int32_t> accounts;
    for (; !rows->Eof(); rows->MoveNext()) accounts.push_back(Here(rows));
    return accounts;
  }
  static std::vector<std::int32_t> Cut(const std::vector<std::int32_t>& all, std::size_t from, std::size_t count) {
    from = std::min(from, all.size());
    const auto begin = all.begin() + static_cast<std::ptrdiff_t>(from);
    return {begin, begin + static_cast<std::ptrdiff_t>(std::min(count, all.size() - from))};
  }

  void CheckWindow(const RecordsetRef& rows, const std::vector<std::int32_t>& wanted) {
    platform::RowWindow& window = rows->Window();
    ASSERT_EQ(AccountsOf(window.RowsAt(0, 30)), Cut(wanted, 0, 30));
    for (int round = 0; round < 4; ++round) {
      const std::size_t at = wanted.empty() ? 0 : random_() % wanted.size();
      const auto page = window.RowsAt(static_cast<std::int64_t>(at), 20);
      ASSERT_EQ(AccountsOf(page), Cut(wanted, at, 20)) << at;
      if (page.empty()) continue;
      ASSERT_EQ(AccountsOf(window.RowsAfter(page.front().bookmark, 15)), Cut(wanted, at + 1, 15)) << at;
      const std::size_t before = std::min<std::size_t>(at, 15);
      ASSERT_EQ(AccountsOf(window.RowsBefore(page.front().bookmark, 15)), Cut(wanted, at - before, before)) << at;
      ASSERT_EQ(window.OrdinalOf(page.front().bookmark), static_cast<std::int64_t>(at));
    }
    const std::size_t last = std::min<std::size_t>(wanted.size(), 10);
    ASSERT_EQ(AccountsOf(window.LastRows(10)), Cut(wanted, wanted.size() - last, last));
  }

  void CheckSearches(const RecordsetRef& rows, const std::vector<std::int32_t>& wanted) {
    const auto name = [&](std::int32_t account) { return company_.Of(account).name; };
    const auto check = [&](const std::string& criterion, const std::function<bool(std::int32_t)>& fits) {
      SCOPED_TRACE(criterion);
      std::vector<std::int32_t> hits;
      std::ranges::copy_if(wanted, std::back_inserter(hits), fits);
      rows->FindFirst(criterion);
      for (std::size_t i = 0; i < std::min<std::size_t>(hits.size(), 5); ++i) {
        ASSERT_FALSE(rows->NoMatch()) << i;
        ASSERT_EQ(Here(rows), hits[i]) << i;
        rows->FindNext(criterion);
      }
      if (hits.size() <= 5) {
        ASSERT_TRUE(rows->NoMatch());
      }
    };
    const auto starts = [&](std::int32_t account, char lower) { return !name(account).empty() && (name(account)[0] | 0x20) == lower; };
    check("LastName Like 'k*'", [&](std::int32_t account) { return starts(account, 'k'); });
    check("[LastName]='ksmith'", [&](std::int32_t account) { return Same(name(account), "ksmith"); });
    check("LastName Like '*77*'", [&](std::int32_t account) { return name(account).find("77") != std::string::npos; });
    check("[Points]=77", [&](std::int32_t account) { return company_.Of(account).points == 77; });
    const std::int32_t there = wanted.empty() ? 1 : wanted[random_() % wanted.size()];
    check("[AcctNum]=" + std::to_string(there), [&](std::int32_t account) { return account == there; });
    check("[AcctNum]=4", [](std::int32_t account) { return account == 4; });
  }

  void Check(const std::vector<Part>& parts, bool descending) {
    const std::string statement = StatementOf(parts, descending);
    SCOPED_TRACE(statement);
    const std::vector<std::int32_t> wanted = company_.Expected(parts, descending);
    nonEmpty_ += wanted.empty() ? 0 : 1;
    ASSERT_EQ(Walked(Open(statement)), wanted);
    const RecordsetRef rows = Open(statement);
    CheckWindow(rows, wanted);
    CheckSearches(rows, wanted);
    while (rows->Window().IdleSlice()) {
    }
    ASSERT_EQ(rows->Window().Count(), static_cast<std::int64_t>(wanted.size()));
    CheckWindow(rows, wanted);
    CheckSearches(rows, wanted);
    const RecordsetRef counted = Open(statement);
    if (wanted.empty()) {
      ASSERT_EQ(counted->RecordCount(), 0);
      return;
    }
    counted->MoveLast();
    ASSERT_EQ(counted->RecordCount(), static_cast<std::int64_t>(wanted.size()));
    ASSERT_EQ(Here(counted), wanted.back());
  }

  std::mt19937 random_{20250911};
  Company company_{random_};
  std::unique_ptr<platform::DataEngine> engine_;
  platform::DatabaseRef db_;
  int nonEmpty_ = 0;
};

TEST_P(QueryLists, EachConditionAlone) {
  for (const Part& part : Parts()) Check({part}, random_() % 2 == 0);
  EXPECT_GT(nonEmpty_, 12);
}

TEST_P(QueryLists, ConditionsTogether) {
  const std::vector<Part> parts = Parts();
  for (int round = 0; round < 20; ++round) {
    std::set<std::size_t> chosen;
    while (chosen.size() < 2 + random_() % 3) chosen.insert(random_() % parts.size());
    std::vector<Part> together;
    for (const std::size_t i : chosen) together.push_back(parts[i]);
    Check(together, random_() % 3 == 0);
  }
  EXPECT_GT(nonEmpty_, 8);
}

// Where a page seems near and isn't, the walk goes on all the same.
TEST_P(QueryLists, SomeRowsCloseTogetherAndTheOthersFarBehind) {
  const auto fits = [](const Customer& one) {
    return one.name.size() > 2 && ((one.name[0] | 0x20) == 'a' || ((one.name[0] | 0x20) == 'z' && one.name.substr(1, 2) == "x8"));
  };
  Check({{.table = "", .condition = "(Customers.LastName Like 'zx8*' Or Customers.LastName Like 'a*')", .own = fits}}, true);
}

TEST_P(QueryLists, TwoConditionsOnOneTableMustHoldOnOneRow) {
  const std::string both =
      "Select DISTINCTROW Customers.* FROM Customers INNER JOIN Transactions ON Customers.AcctNum = Transactions.AcctNum WHERE "
      "(Transactions.TranType<>'P') And (Transactions.InvChkCredNo = '1000') AND (Transactions.TranType='P') And "
      "(Transactions.InvChkCredNo = '1077') ORDER BY LastName";
  const auto rows = Open(both);
  EXPECT_TRUE(rows->Eof());
  EXPECT_EQ(rows->RecordCount(), 0);
}

TEST_P(QueryLists, AnOrderWithoutAnIndex) {
  for (const char* condition : {"(Lookups.Text = 'boiler')", "(Lookups.Text = 'VIP')"}) {
    const auto rows =
        Open(std::string("Select DISTINCTROW Customers.* FROM Customers INNER JOIN Lookups ON Customers.AcctNum = Lookups.AcctNum WHERE ") +
             condition + " ORDER BY Points");
    std::vector<std::pair<std::int32_t, std::int32_t>> wanted;
    for (const Customer& one : company_.Customers())
      if (std::ranges::any_of(company_.Words(), [&](const Word& word) {
            return word.account == one.account &&
                   Same(word.text, std::string(condition).find("VIP") != std::string::npos ? "VIP" : "Boiler");
          }))
        wanted.emplace_back(one.points, one.account);
    std::ranges::sort(wanted);
    std::vector<std::int32_t> accounts;
    for (const auto& [points, account] : wanted) accounts.push_back(account);
    EXPECT_EQ(Walked(rows), accounts);
  }
}

// A row that is edited stays where it stands, whether or not it still fits; a new opening shows it where it belongs.
TEST_P(QueryLists, EditingInTheList) {
  for (const Part& part : Parts()) {
    if (part.table.empty()) continue;
    const std::string statement = StatementOf({part}, false);
    SCOPED_TRACE(statement);
    std::vector<std::int32_t> wanted = company_.Expected({part}, false);
    if (wanted.size() < 3) continue;
    const RecordsetRef rows = Open(statement);
    const std::int32_t account = wanted[wanted.size() / 2];
    rows->FindFirst("[AcctNum]=" + std::to_string(account));
    ASSERT_FALSE(rows->NoMatch());
    const platform::Bookmark mark = rows->Bookmark();
    rows->Edit();
    rows->SetField("LastName", "zzz");
    rows->Update();
    EXPECT_EQ(Here(rows), account);
    rows->MoveFirst();
    EXPECT_EQ(Walked(rows), wanted);
    rows->SetBookmark(mark);
    EXPECT_EQ(rows->Field("LastName"), Value("zzz"));
    company_.Of(account).name = "zzz";
    EXPECT_EQ(Walked(Open(statement)), company_.Expected({part}, false));
  }
}

TEST_P(QueryLists, DeletingInTheList) {
  const Part part = Parts()[10];
  const std::string statement = StatementOf({part}, false);
  std::vector<std::int32_t> wanted = company_.Expected({part}, false);
  const RecordsetRef rows = Open(statement);
  rows->FindFirst("[AcctNum]=" + std::to_string(wanted[7]));
  rows->Delete();
  rows->MoveFirst();
  wanted.erase(wanted.begin() + 7);
  EXPECT_EQ(Walked(rows), wanted);
  EXPECT_EQ(rows->RecordCount(), static_cast<std::int64_t>(wanted.size()));
  EXPECT_EQ(Walked(Open(statement)), wanted);
}

// Others write between the first page and the rest.
TEST_P(QueryLists, OthersWriteWhileTheListIsRead) {
  const Part part = Parts()[10];
  const std::string statement = StatementOf({part}, false);
  const std::vector<std::int32_t> wanted = company_.Expected({part}, false);
  const RecordsetRef rows = Open(statement);
  const auto elsewhere = office_files::NewEngine({});
  const auto other = elsewhere->OpenControlDatabase(Path("customer.zdb"));
  // A row of the first page moves to the end; one behind it goes.
  other->Execute("UPDATE Customers SET LastName = 'zzzz' WHERE AcctNum = " + std::to_string(wanted[3]), platform::dbFailOnError);
  other->Execute("DELETE FROM Customers WHERE AcctNum = " + std::to_string(wanted[wanted.size() - 5]), platform::dbFailOnError);
  std::vector<std::int32_t> seen = Walked(rows);
  std::ranges::sort(seen);
  EXPECT_EQ(std::ranges::adjacent_find(seen), seen.end()) << "a row came twice";
  EXPECT_FALSE(std::ranges::binary_search(seen, wanted[wanted.size() - 5]));
  EXPECT_GE(seen.size(), wanted.size() - 2);
}

TEST_P(QueryLists, TheWindowsPaintWhileOtherTablesAreAsked) {
  int painted = 0;
  engine_->OnWait([&] { ++painted; });
  const auto rows = Open(
      "Select DISTINCTROW Customers.* FROM Customers INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum WHERE (Phones.Area Like "
      "'*99') ORDER BY LastName");
  EXPECT_TRUE(rows->Eof());
  EXPECT_GT(painted, 0);
}

INSTANTIATE_TEST_SUITE_P(BothStrategies, QueryLists, testing::Values(20'000, 0));

}  // namespace
