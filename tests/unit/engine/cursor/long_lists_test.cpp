// Lists of tables that are too long to be looked at in one go: orders without an index, filters that few rows pass, searches
// one after the other.
#include <cstdint>
#include <utility>

#include "unit/engine/support/office.h"

namespace {

using platform::RecordsetRef;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t people = 30'011;

class LongLists : public DynasetRules {
 protected:
  LongLists() {
    std::vector<std::vector<platform::Value>> rows;
    for (std::int32_t id = 1; id <= people; ++id)
      rows.push_back({platform::Value("n" + std::to_string(id)), CityOf(id), platform::Value(static_cast<std::int16_t>(id % 10'000))});
    AddRows("People", {"Name", "City", "Age"}, rows);
  }

  // Some have none, many begin alike in their first eight letters or are the same, the rest is scattered.
  static platform::Value CityOf(std::int32_t id) {
    const std::int64_t scattered = std::int64_t{id} * 7919 % people;
    if (id % 7 == 0) return platform::Null;
    if (id % 7 == 1) return "springfie" + std::to_string(scattered % 90 + 10);
    if (id % 7 == 2) return "ayr";
    return "c" + std::to_string(10'000 + scattered % 3'000);
  }

  // No value first, then by the value; equal ones by their numbers.
  static std::vector<std::int32_t> IdsByCity(bool descending) {
    std::vector<std::pair<std::string, std::int32_t>> order;
    for (std::int32_t id = 1; id <= people; ++id) order.emplace_back(CityOf(id).IsNull() ? "" : CityOf(id).As<std::string>(), id);
    std::ranges::sort(order);
    if (descending) std::ranges::reverse(order);
    std::vector<std::int32_t> ids;
    for (const auto& [city, id] : order) ids.push_back(id);
    return ids;
  }
  static std::vector<std::int32_t> Ids(const RecordsetRef& rows) {
    std::vector<std::int32_t> ids;
    for (; !rows->Eof(); rows->MoveNext()) ids.push_back(rows->Field("ID").As<std::int32_t>());
    return ids;
  }
};

TEST_P(LongLists, AllRowsInTheOrderOfAFieldWithoutIndex) {
  EXPECT_EQ(Ids(Dynaset("SELECT * FROM People ORDER BY City")), IdsByCity(false));
  EXPECT_EQ(Ids(Dynaset("SELECT * FROM People ORDER BY City DESC")), IdsByCity(true));
}

TEST_P(LongLists, AFieldWhoseValuesAreAllTheSameOrdersByNumber) {
  db_->Execute("UPDATE People SET City = 'springfield1'", platform::dbFailOnError);
  std::vector<std::int32_t> ids;
  for (std::int32_t id = 1; id <= people; ++id) ids.push_back(id);
  EXPECT_EQ(Ids(Dynaset("SELECT * FROM People ORDER BY City")), ids);
}

TEST_P(LongLists, AFilterThatFewRowsPassLetsTheWindowsPaint) {
  int painted = 0;
  engine_->OnWait([&] { ++painted; });
  const auto rows = Dynaset("SELECT * FROM People WHERE Age = 77 ORDER BY City DESC");
  EXPECT_GT(painted, 0);
  EXPECT_THAT(Ids(rows), ElementsAre(20'077, 10'077, 77));
}

TEST_P(LongLists, AFilterOnTheOrderOfAnIndexLetsTheWindowsPaint) {
  int painted = 0;
  engine_->OnWait([&] { ++painted; });
  const auto rows = Dynaset("SELECT * FROM People WHERE Age = 5 OR Age = 20 ORDER BY Name");
  EXPECT_GT(painted, 0);
  EXPECT_THAT(Ids(rows), ElementsAre(10'005, 10'020, 20, 20'005, 20'020, 30'005, 5));
}

TEST_P(LongLists, AFilterSeesEveryRowOfATableWithWideGaps) {
  db_->Execute("DELETE FROM People WHERE ID > 2 AND ID < 30000", platform::dbFailOnError);
  db_->Execute("INSERT INTO People (ID, Name, Age) VALUES (1900000000, 'far', 1)", platform::dbFailOnError);
  EXPECT_THAT(Ids(Dynaset("SELECT * FROM People WHERE Age = 1 ORDER BY City, ID")), ElementsAre(1'900'000'000, 30'001, 1));
  EXPECT_THAT(Ids(Dynaset("SELECT * FROM People WHERE Age = 1 ORDER BY City")), ElementsAre(1'900'000'000, 30'001, 1));
}

TEST_P(LongLists, SearchesForStartsOneAfterTheOther) {
  const auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  const auto found = [&](const char* criterion) {
    rows->FindFirst(criterion);
    return rows->NoMatch() ? std::string("none") : TextOf(rows->Field("Name"));
  };
  EXPECT_EQ(found("Name Like 'n2*'"), "n2");
  EXPECT_EQ(found("Name Like 'n2*7'"), "n20007");
  EXPECT_EQ(found("Name Like 'n2?'"), "n20");
  EXPECT_EQ(found("Name Like 'N2[!0-8]*'"), "n29");
  EXPECT_EQ(found("Name Like 'n4#### '"), "none");
  EXPECT_EQ(found("Name Like 'n2*'"), "n2");
  rows->FindNext("Name Like 'n2*7'");
  EXPECT_EQ(TextOf(rows->Field("Name")), "n20007");
  rows->FindNext("Name Like 'n2*7'");
  EXPECT_EQ(TextOf(rows->Field("Name")), "n20017");
}

TEST_P(LongLists, AWindowBehindAFoundRowThatOthersChangeMeanwhile) {
  const auto rows = Dynaset("SELECT * FROM People ORDER BY Name");
  rows->FindFirst("Name = 'n20000'");
  const auto mark = rows->Bookmark();
  const auto next = [&] {
    const auto page = rows->Window().RowsAfter(mark, 1);
    return page.empty() ? std::string("none") : TextOf(page[0].cells.at(1));
  };
  EXPECT_EQ(next(), "n20001");
  const auto elsewhere = NewEngine();
  const auto other = elsewhere->OpenControlDatabase(Path("office.zdb"));
  other->Execute("DELETE FROM People WHERE Name = 'n20001'", platform::dbFailOnError);
  EXPECT_EQ(next(), "n20002");
  other->Execute("DELETE FROM People WHERE Name = 'n20000'", platform::dbFailOnError);
  EXPECT_EQ(next(), "none");
}

INSTANTIATE_TEST_SUITE_P(BothStrategies, LongLists, testing::Values(20'000, 0));

}  // namespace
