// Lists that several other tables filter, each of which leads to many rows, and both to few.
#include "unit/engine/support/engine_fixture.h"
#include "unit/engine/support/office_files.h"

namespace {

using platform::FieldType;
using platform::Value;

constexpr std::int32_t kCustomers = 9'000;
constexpr std::int32_t kFirstLate = 5'950;
constexpr std::int32_t kLastEarly = 6'000;

class ManyKeys : public EngineFolderTest, public testing::WithParamInterface<std::int64_t> {
 protected:
  ManyKeys() {
    office_files::Create(
        Path("customer.zdb"),
        {{"Customers",
          {Field("AcctNum", FieldType::Counter), TextField("LastName", 20)},
          {{"ByAcct", {"AcctNum"}, true, true}, {"xLastName", {"LastName"}, false, false}}},
         {"Phones",
          {Field("RecordID", FieldType::Counter), Field("AcctNum", FieldType::Long), TextField("Area", 3)},
          {{"PrimaryKey", {"RecordID"}, true, true}, {"xCustomer", {"AcctNum"}, false, false}, {"xArea", {"Area"}, false, false}}},
         {"Lookups",
          {Field("AcctNum", FieldType::Long), TextField("Text", 20)},
          {{"ByAcct", {"AcctNum", "Text"}, true, false}, {"xWord", {"Text"}, false, false}}}});
    std::vector<std::vector<Value>> customers, phones, words;
    for (std::int32_t account = 1; account <= kCustomers; ++account) {
      customers.push_back({Value(account), Value("name " + std::to_string(account * 7919 % 10'007))});
      // Two phones each: a customer is reached twice.
      for (int i = 0; i < 2; ++i) phones.push_back({Value(account), Value(account <= kLastEarly ? "612" : "701")});
      words.push_back({Value(account), Value(account >= kFirstLate ? "late" : "early")});
    }
    // Against the order of the accounts.
    for (std::int32_t account = 6'400; account >= 5'990; --account) words.push_back({Value(account), Value("back")});
    for (std::int32_t account = 7'900; account <= 8'100; ++account) words.push_back({Value(account), Value("some")});
    // The first ones lie far apart, most behind them.
    for (std::int32_t account = 1; account <= 8'001; account += 1'000) phones.push_back({Value(account), Value("303")});
    for (std::int32_t account = 8'002; account <= kCustomers; ++account)
      for (int i = 0; i < 3; ++i) phones.push_back({Value(account), Value("303")});
    office_files::AddRows(Path("customer.zdb"), "Customers", {"AcctNum", "LastName"}, customers);
    office_files::AddRows(Path("customer.zdb"), "Phones", {"AcctNum", "Area"}, phones);
    office_files::AddRows(Path("customer.zdb"), "Lookups", {"AcctNum", "Text"}, words);
    engine::EngineOptions options;
    options.exactRows = GetParam();
    engine_ = office_files::NewEngine(options);
    db_ = engine_->OpenControlDatabase(Path("customer.zdb"));
  }

  std::vector<std::int32_t> Walked(const std::string& word, const std::string& order, const std::string& area = "612") {
    const auto rows = db_->OpenRecordset(
        "Select DISTINCTROW Customers.* FROM (Customers INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum) INNER JOIN Lookups ON "
        "Customers.AcctNum = Lookups.AcctNum WHERE (Phones.Area Like '" +
            area + "*') AND (Lookups.Text = '" + word + "') ORDER BY " + order,
        platform::RecordsetType::Dynaset);
    std::vector<std::int32_t> accounts;
    for (; !rows->Eof(); rows->MoveNext()) accounts.push_back(rows->Field("AcctNum").As<std::int32_t>());
    return accounts;
  }

  // Of a stretch of accounts, in the order of the names, which are all different.
  static std::vector<std::int32_t> ByName(std::int32_t first, std::int32_t last) {
    std::vector<std::pair<std::string, std::int32_t>> names;
    for (std::int32_t account = first; account <= last; ++account)
      names.emplace_back("name " + std::to_string(account * 7919 % 10'007), account);
    std::ranges::sort(names);
    std::vector<std::int32_t> accounts;
    for (const auto& [name, account] : names) accounts.push_back(account);
    return accounts;
  }

  std::unique_ptr<platform::DataEngine> engine_;
  platform::DatabaseRef db_;
};

TEST_P(ManyKeys, BothTogetherLeaveFew) {
  std::vector<std::int32_t> wanted = ByName(kFirstLate, kLastEarly);
  EXPECT_EQ(Walked("late", "LastName"), wanted);
  std::ranges::reverse(wanted);
  EXPECT_EQ(Walked("late", "LastName DESC"), wanted);
}

TEST_P(ManyKeys, BothTogetherLeaveMany) { EXPECT_EQ(Walked("early", "LastName"), ByName(1, kFirstLate - 1)); }

TEST_P(ManyKeys, ThoseOfOneComeInNoOrder) {
  EXPECT_EQ(Walked("back", "LastName"), ByName(5'990, kLastEarly));
  EXPECT_EQ(Walked("back", "LastName", "701"), ByName(kLastEarly + 1, 6'400));
}

TEST_P(ManyKeys, ThoseOfOneAreFarMoreThanTheFirstOnesTell) {
  EXPECT_EQ(Walked("some", "LastName", "303"), ByName(8'001, 8'100));
  EXPECT_EQ(Walked("some", "Customers.AcctNum DESC", "303").front(), 8'100);
}

TEST_P(ManyKeys, OneOrNoRowHasBoth) {
  EXPECT_TRUE(Walked("some", "LastName").empty());
  EXPECT_EQ(Walked("back", "LastName", "303"), ByName(6'001, 6'001));
}

TEST_P(ManyKeys, NoneIsThere) { EXPECT_TRUE(Walked("never", "LastName").empty()); }

INSTANTIATE_TEST_SUITE_P(BothStrategies, ManyKeys, testing::Values(20'000, 0));

}  // namespace
