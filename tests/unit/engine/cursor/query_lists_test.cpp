// Long lists that other tables filter: joins that give no output, in whatever way the list is reached, have the rows that loops over
// the tables find, in the list's order; they are counted, searched, shown by pages, edited and marked like any list.
#include <random>
#include <set>
#include <utility>

#include "engine/text/text_order.h"
#include "unit/engine/support/engine_fixture.h"
#include "unit/engine/support/office_files.h"

namespace {

using platform::FieldType;
using platform::RecordsetRef;
using platform::Value;

struct Customer {
  std::int32_t account = 0;
  std::string name;
  std::string state;
  std::int32_t points = 0;
};
struct Phone {
  std::int32_t account = 0;
  std::string area;
};
struct Word {
  std::int32_t account = 0;
  std::string text;
};
struct Sale {
  std::int32_t account = 0;
  std::string type;
  std::string number;
};

constexpr std::int32_t kCustomers = 5'003;

class QueryLists : public EngineFolderTest, public testing::WithParamInterface<std::int64_t> {
 protected:
  QueryLists() {
    Invent();
    office_files::Create(Path("customer.zdb"),
                         {{"Customers",
                           {Field("AcctNum", FieldType::Counter), TextField("LastName", 20), TextField("State", 2), Field("Points", FieldType::Long)},
                           {{"ByAcct", {"AcctNum"}, true, true}, {"xLastName", {"LastName"}, false, false}, {"xState", {"State", "LastName"}, false, false}}},
                          {"Phones",
                           {Field("RecordID", FieldType::Counter), Field("AcctNum", FieldType::Long), TextField("Area", 3)},
                           {{"PrimaryKey", {"RecordID"}, true, true}, {"xCustomer", {"AcctNum"}, false, false}, {"xArea", {"Area", "AcctNum"}, false, false}}},
                          {"Lookups",
                           {Field("AcctNum", FieldType::Long), TextField("Text", 20)},
                           {{"ByAcct", {"AcctNum", "Text"}, true, false}, {"xWord", {"Text", "AcctNum"}, false, false}}}});
    office_files::Create(Path("artrans.zdb"),
                         {{"Transactions",
                           {Field("AcctNum", FieldType::Long), TextField("TranType", 1), TextField("InvChkCredNo", 15)},
                           {{"xCustomer", {"AcctNum"}, false, false}, {"xNumber", {"InvChkCredNo"}, false, false}}}});
    std::vector<std::vector<Value>> rows;
    for (const Customer& one : customers_)
      rows.push_back({Value(one.account), one.name.empty() ? Value(platform::Null) : Value(one.name), Value(one.state), Value(one.points)});
    office_files::AddRows(Path("customer.zdb"), "Customers", {"AcctNum", "LastName", "State", "Points"}, rows);
    rows.clear();
    for (const Phone& one : phones_) rows.push_back({Value(one.account), Value(one.area)});
    office_files::AddRows(Path("customer.zdb"), "Phones", {"AcctNum", "Area"}, rows);
    rows.clear();
    for (const Word& one : words_) rows.push_back({Value(one.account), Value(one.text)});
    office_files::AddRows(Path("customer.zdb"), "Lookups", {"AcctNum", "Text"}, rows);
    rows.clear();
    for (const Sale& one : sales_) rows.push_back({Value(one.account), Value(one.type), Value(one.number)});
    office_files::AddRows(Path("artrans.zdb"), "Transactions", {"AcctNum", "TranType", "InvChkCredNo"}, rows);
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

  // Common and rare of everything, names that many share, rows without a customer and several that fit alike.
  void Invent() {
    const auto below = [this](int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); };
    for (std::int32_t account = 1; account <= kCustomers; ++account) {
      Customer one{account, "", below(3) == 0 ? "MN" : below(40) == 0 ? "ND" : "WI", below(1'000)};
      const int kind = below(12);
      if (kind > 0) one.name = std::string(1, static_cast<char>((kind % 2 == 0 ? 'a' : 'A') + below(26))) + (kind < 4 ? "smith" : kind < 6 ? "SMITHE" : "x" + std::to_string(below(900)));
      customers_.push_back(one);
      for (int i = below(3); i > 0; --i) phones_.push_back({account, below(10) == 0 ? "612" : below(200) == 0 ? "701" : "651"});
      for (const char* word : {"Boiler", "Pool", "VIP"})
        if (below(word[0] == 'B' ? 3 : word[0] == 'P' ? 40 : 900) == 0) words_.push_back({account, word});
      for (int i = below(4); i > 0; --i) sales_.push_back({account, i == 2 ? "P" : "I", std::to_string(1000 + below(i == 3 ? 3 : 4'000))});
    }
    phones_.push_back({kCustomers + 5, "612"});
    phones_.insert(phones_.begin(), {0, "701"});
    sales_.push_back({kCustomers + 6, "I", "1000"});
  }

  struct Part {
    std::string table;      // "" for the customers
    std::string condition;
    std::function<bool(const Customer&)> own{};
    std::function<bool(const Phone&)> phone{};
    std::function<bool(const Word&)> word{};
    std::function<bool(const Sale&)> sale{};
  };

  static bool Same(const std::string& left, const std::string& right) { return engine::CompareText(left, right) == 0; }

  // Conditions as the query screen writes them.
  static std::vector<Part> Parts() {
    return {
        {.table = "", .condition = "(Customers.LastName Like 'S*')", .own = [](const Customer& one) { return !one.name.empty() && (one.name[0] == 's' || one.name[0] == 'S'); }},
        {.table = "", .condition = "(Customers.LastName Like '*smith*')",
         .own = [](const Customer& one) { return one.name.find("smith") != std::string::npos || one.name.find("SMITH") != std::string::npos; }},
        {.table = "", .condition = "(Customers.State = 'mn')", .own = [](const Customer& one) { return one.state == "MN"; }},
        {.table = "", .condition = "(Customers.State Like 'N*')", .own = [](const Customer& one) { return one.state == "ND"; }},
        {.table = "", .condition = "(Customers.Points>=500)", .own = [](const Customer& one) { return one.points >= 500; }},
        {.table = "", .condition = "(Customers.Points=7)", .own = [](const Customer& one) { return one.points == 7; }},
        {.table = "", .condition = "(Customers.Points<0)", .own = [](const Customer& one) { return one.points < 0; }},
        {.table = "Phones", .condition = "(Phones.Area Like '6*')", .phone = [](const Phone& one) { return one.area[0] == '6'; }},
        {.table = "Phones", .condition = "(Phones.Area Like '612*')", .phone = [](const Phone& one) { return one.area == "612"; }},
        {.table = "Phones", .condition = "(Phones.Area Like '*01')", .phone = [](const Phone& one) { return one.area == "701"; }},
        {.table = "Lookups", .condition = "(Lookups.Text = 'boiler')", .word = [](const Word& one) { return one.text == "Boiler"; }},
        {.table = "Lookups", .condition = "(Lookups.Text = 'VIP')", .word = [](const Word& one) { return one.text == "VIP"; }},
        {.table = "Lookups", .condition = "(Lookups.Text = 'VIP' OR Lookups.Text = 'Pool')",
         .word = [](const Word& one) { return one.text == "VIP" || one.text == "Pool"; }},
        {.table = "Transactions", .condition = "(Transactions.TranType<>'P') And (Transactions.InvChkCredNo = '1000')",
         .sale = [](const Sale& one) { return one.type != "P" && one.number == "1000"; }},
        {.table = "Transactions", .condition = "(Transactions.TranType='P') And (Transactions.InvChkCredNo = '1077')",
         .sale = [](const Sale& one) { return one.type == "P" && one.number == "1077"; }},
        {.table = "Transactions", .condition = "(Transactions.TranType<>'P')", .sale = [](const Sale& one) { return one.type != "P"; }},
    };
  }

  // The joined row must meet every condition on its table at once.
  bool Fits(const Customer& one, const std::vector<Part>& parts) const {
    const auto any = [&](const std::string& table, const auto& rows, auto member) {
      std::vector<const Part*> of;
      for (const Part& part : parts)
        if (part.table == table) of.push_back(&part);
      if (of.empty()) return true;
      auto row = std::ranges::partition_point(rows, [&](const auto& each) { return each.account < one.account; });
      for (; row != rows.end() && row->account == one.account; ++row)
        if (std::ranges::all_of(of, [&](const Part* part) { return ((*part).*member)(*row); })) return true;
      return false;
    };
    for (const Part& part : parts)
      if (part.table.empty() && !part.own(one)) return false;
    return any("Phones", phones_, &Part::phone) && any("Lookups", words_, &Part::word) && any("Transactions", sales_, &Part::sale);
  }

  static std::string StatementOf(const std::vector<Part>& parts, bool descending) {
    std::vector<std::string> tables;
    std::string where;
    for (const Part& part : parts) {
      where += (where.empty() ? " WHERE " : " AND ") + part.condition;
      if (!part.table.empty() && std::ranges::find(tables, part.table) == tables.end()) tables.push_back(part.table);
    }
    std::string from = "Customers";
    for (std::size_t i = 0; i < tables.size(); ++i)
      from = (i == 0 ? from : '(' + from + ')') + " INNER JOIN " + tables[i] + " ON Customers.AcctNum = " + tables[i] + ".AcctNum";
    return "Select DISTINCTROW Customers.* FROM " + from + where + " ORDER BY LastName" + (descending ? " DESC;" : ";");
  }

  std::vector<std::int32_t> Expected(const std::vector<Part>& parts, bool descending) const {
    std::vector<const Customer*> fits;
    for (const Customer& one : customers_)
      if (Fits(one, parts)) fits.push_back(&one);
    std::ranges::sort(fits, [](const Customer* left, const Customer* right) {
      const int order = engine::CompareText(left->name, right->name);
      if (left->name.empty() != right->name.empty()) return left->name.empty();
      return order != 0 ? order < 0 : left->account < right->account;
    });
    if (descending) std::ranges::reverse(fits);
    std::vector<std::int32_t> accounts;
    for (const Customer* one : fits) accounts.push_back(one->account);
    return accounts;
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
    const auto name = [&](std::int32_t account) { return customers_[static_cast<std::size_t>(account) - 1].name; };
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
    check("[Points]=77", [&](std::int32_t account) { return customers_[static_cast<std::size_t>(account) - 1].points == 77; });
    const std::int32_t there = wanted.empty() ? 1 : wanted[random_() % wanted.size()];
    check("[AcctNum]=" + std::to_string(there), [&](std::int32_t account) { return account == there; });
    check("[AcctNum]=4", [](std::int32_t account) { return account == 4; });
  }

  void Check(const std::vector<Part>& parts, bool descending) {
    const std::string statement = StatementOf(parts, descending);
    SCOPED_TRACE(statement);
    const std::vector<std::int32_t> wanted = Expected(parts, descending);
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
  std::vector<Customer> customers_;
  std::vector<Phone> phones_;
  std::vector<Word> words_;
  std::vector<Sale> sales_;
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
    const auto rows = Open(std::string("Select DISTINCTROW Customers.* FROM Customers INNER JOIN Lookups ON Customers.AcctNum = Lookups.AcctNum WHERE ") +
                           condition + " ORDER BY Points");
    std::vector<std::pair<std::int32_t, std::int32_t>> wanted;
    for (const Customer& one : customers_)
      if (std::ranges::any_of(words_, [&](const Word& word) {
            return word.account == one.account && Same(word.text, std::string(condition).find("VIP") != std::string::npos ? "VIP" : "Boiler");
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
    std::vector<std::int32_t> wanted = Expected({part}, false);
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
    customers_[static_cast<std::size_t>(account) - 1].name = "zzz";
    EXPECT_EQ(Walked(Open(statement)), Expected({part}, false));
  }
}

TEST_P(QueryLists, DeletingInTheList) {
  const Part part = Parts()[10];
  const std::string statement = StatementOf({part}, false);
  std::vector<std::int32_t> wanted = Expected({part}, false);
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
  const std::vector<std::int32_t> wanted = Expected({part}, false);
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
      "Select DISTINCTROW Customers.* FROM Customers INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum WHERE (Phones.Area Like '*99') ORDER BY LastName");
  EXPECT_TRUE(rows->Eof());
  EXPECT_GT(painted, 0);
}

INSTANTIATE_TEST_SUITE_P(BothStrategies, QueryLists, testing::Values(20'000, 0));

}  // namespace
