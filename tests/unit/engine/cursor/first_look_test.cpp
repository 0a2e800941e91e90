// How the first rows of a long list that another table filters are found: the way is the one with the least work, and chance at the
// list's start doesn't hide what the other table's index tells. What such a walk counts is what it would read.
#include <memory>
#include <string>
#include <vector>

#include "engine/catalogue/database_catalogue.h"
#include "engine/catalogue/stores.h"
#include "engine/lists/first_look.h"
#include "engine/rows/key_walker.h"
#include "engine/store/sqlite/sqlite_store.h"
#include "engine/translate/plan/planning.h"
#include "unit/engine/support/engine_fixture.h"
#include "unit/engine/support/office_files.h"

namespace engine {
namespace {

using platform::FieldType;
using platform::Value;

constexpr std::int32_t customers = 30'000;

class FirstLooks : public EngineFolderTest {
 protected:
  FirstLooks() {
    office_files::Create(
        Path("customer.zdb"),
        {{"Customers",
          {Field("AcctNum", FieldType::Counter), TextField("LastName", 20)},
          {{"ByAcct", {"AcctNum"}, true, true}, {"xLastName", {"LastName"}, false, false}}},
         {"Phones",
          {Field("RecordID", FieldType::Counter), Field("AcctNum", FieldType::Long), TextField("Area", 3)},
          {{"PrimaryKey", {"RecordID"}, true, true}, {"xCustomer", {"AcctNum"}, false, false}, {"xArea", {"Area", "AcctNum"}, false, false}}}});
  }

  // Names lie anywhere among the accounts; the customer whose name is number n has the account AccountOf(n).
  static std::int32_t AccountOf(std::int32_t number) { return static_cast<std::int32_t>(std::int64_t{number} * 7919 % customers) + 1; }
  /// One phone for each customer; `isRare` says of a name's number whether it is in area 901.
  template <class IsRare>
  void Fill(IsRare isRare) {
    std::vector<std::vector<Value>> names, phones;
    for (std::int32_t number = 0; number < customers; ++number) {
      names.push_back({Value(AccountOf(number)), Value("n" + std::to_string(100'000 + number))});
      phones.push_back({Value(AccountOf(number)), Value(isRare(number) ? "901" : "952")});
    }
    office_files::AddRows(Path("customer.zdb"), "Customers", {"AcctNum", "LastName"}, names);
    office_files::AddRows(Path("customer.zdb"), "Phones", {"AcctNum", "Area"}, phones);
  }

  FirstRows::Way WayTo(const std::string& area) {
    Open("SELECT DISTINCTROW Customers.* FROM Customers INNER JOIN Phones ON Customers.AcctNum = Phones.AcctNum WHERE (Phones.Area Like '" +
         area + "*') ORDER BY LastName");
    const std::vector<OrderColumn> order{{source_->Plan().order.front().sql, FieldType::Text}};
    KeyWalker rows(source_->Store(), source_->Shape(), {.order = order, .index = "xLastName", .filter = source_->Plan().rowWhere});
    KeyWalker bounded(source_->Store(), source_->Shape(), {.order = order, .index = "xLastName"});
    return FirstLook(*source_, &rows, &bounded, Direction::Up).Run().way;
  }

  void Open(const std::string& statement) {
    stores_ = std::make_unique<Stores>(
        EngineOptions{}, OneStore(std::make_unique<SqliteStore>(0, [](const std::string&) { return false; }, Clock{})));
    const Stores::Opened opened = stores_->Open(Path("customer.zdb"));
    catalogue_ = std::make_shared<DatabaseCatalogue>(opened.context, opened.file, Path("customer.zdb"));
    const Dialect& dialect = opened.context.OwnDialect();
    source_ = std::make_unique<RowSource>(
        opened.context, catalogue_, std::make_shared<const RowShape>(PlanSelect(statement, *catalogue_, dialect), dialect));
  }

  std::unique_ptr<Stores> stores_;
  std::shared_ptr<DatabaseCatalogue> catalogue_;
  std::unique_ptr<RowSource> source_;
};

// 1,200 of 30,000: by their keys they are there with half the work of a walk to the fiftieth. That four of them are among the first
// dozen says little beside that.
TEST_F(FirstLooks, RowsThatComeTogetherByChanceDontHideHowManyThereAre) {
  Fill([](std::int32_t number) { return number < 4 || number % 25 == 24; });
  EXPECT_EQ(WayTo("901"), FirstRows::Way::Drive);
}

// The index shows the few of the first area before the many of the second.
TEST_F(FirstLooks, ADriverWithSeveralValuesTellsOfTheFirstAlone) {
  Fill([](std::int32_t number) { return number % 25 == 24; });
  EXPECT_EQ(WayTo("9"), FirstRows::Way::Walk);
}

TEST_F(FirstLooks, CommonRowsAreFoundInTheListsOrder) {
  Fill([](std::int32_t number) { return number < 4 || number % 25 == 24; });
  EXPECT_EQ(WayTo("952"), FirstRows::Way::Walk);
}

// Where all of them stand at the start, a short walk shows it.
TEST_F(FirstLooks, RareRowsThatAllStandAtTheStartAreFoundThere) {
  Fill([](std::int32_t number) { return number < 6'000; });
  EXPECT_EQ(WayTo("901"), FirstRows::Way::Walk);
}

TEST_F(FirstLooks, AWalkCountsWhatItWouldRead) {
  std::vector<std::vector<Value>> names;
  for (std::int32_t account = 1; account <= 60; ++account)
    names.push_back({Value(account), account % 5 == 0 ? Value(platform::Null) : Value("n" + std::to_string(account % 7))});
  office_files::AddRows(Path("customer.zdb"), "Customers", {"AcctNum", "LastName"}, names);
  Open("SELECT * FROM Customers ORDER BY LastName");
  KeyWalker walker(source_->Store(), source_->Shape(), {.order = {{source_->Plan().order.front().sql, FieldType::Text}}, .index = "xLastName"});
  for (const Direction direction : {Direction::Up, Direction::Down}) {
    std::vector<OrderPlace> places;
    KeyWalker::Request all;
    all.direction = direction;
    all.limit = 100;
    all.keysOnly = true;
    walker.Read(all, [&](const Query& row) {
      places.push_back(walker.PlaceAt(row, true));
      return true;
    });
    ASSERT_EQ(places.size(), 60U);
    for (std::size_t until = 0; until < places.size(); ++until) {
      EXPECT_EQ(walker.CountUpTo(direction, nullptr, places[until]), static_cast<std::int64_t>(until) + 1) << until;
      for (std::size_t from = 0; from < until; ++from)
        EXPECT_EQ(walker.CountUpTo(direction, &places[from], places[until]), static_cast<std::int64_t>(until - from)) << from << ' ' << until;
    }
  }
}

}  // namespace
}  // namespace engine
