// Long lists on a server: what isn't shown isn't fetched.
#include <algorithm>
#include <fstream>
#include <string>
#include <thread>
#include <utility>

#include "engine/engine.h"
#include "platform/data/data.h"
#include "support/counting_proxy.h"
#include "unit/engine/server/server_test.h"

namespace {

using platform::FieldType;

/// The most memory that this process has had since the last call of ForgetPeak, in MiB.
long Peak() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word != "VmHWM:") continue;
    long kib = 0;
    status >> kib;
    return kib / 1024;
  }
  return 0;
}
void ForgetPeak() { std::ofstream("/proc/self/clear_refs") << 5; }

constexpr std::int64_t kRows = 60'000;

class LongLists : public ServerTest {
 protected:
  LongLists() {
    Create("customer.zdb", {{"People",
                             {Field("ID", FieldType::Counter), TextField("Name", 10)},
                             {{"PrimaryKey", {"ID"}, true, true}, {"ByName", {"Name"}, false, false}}}});
    Other(R"(INSERT INTO orv1_customer."People" ("Name") SELECT 'n' || g % 977 FROM generate_series(1, 60000) AS g; ANALYZE)");
  }
};

// An index leads to all 60,000 rows. Their keys alone, fetched at once, would be more than 100 MiB of rows on their way.
TEST_F(LongLists, KeysThatLeadToManyRowsAreNotFetched) {
  engine::EngineOptions options;
  options.exactRows = 0;
  const auto made = engine::MakeEngine(options);
  const auto people = made->WorkspaceAt(0)->OpenDatabase(Path("customer.zdb"));
  ForgetPeak();
  const long before = Peak();
  const auto rows = people->OpenRecordset("SELECT * FROM People WHERE ID > 0 AND Name Like 'n*' ORDER BY Name");
  EXPECT_EQ(rows->Field("Name"), platform::Value("n0"));
  EXPECT_LT(Peak() - before, 40);
  rows->FindFirst("Name = 'n9'");
  EXPECT_FALSE(rows->NoMatch());
}

// Few of them are all fetched, and put in order here.
TEST_F(LongLists, FewKeysLeadToTheirRows) {
  engine::EngineOptions options;
  options.exactRows = 0;
  const auto made = engine::MakeEngine(options);
  const auto people = made->WorkspaceAt(0)->OpenDatabase(Path("customer.zdb"));
  const auto rows = people->OpenRecordset("SELECT * FROM People WHERE ID > 59990 ORDER BY Name");
  std::string names;
  for (; !rows->Eof(); rows->MoveNext()) names += rows->Field("Name").As<std::string>() + ' ';
  EXPECT_EQ(names, "n394 n395 n396 n397 n398 n399 n400 n401 n402 n403 ");
  EXPECT_EQ(rows->RecordCount(), 10);
}

// A search looks at a few rows behind the one where it begins, and then at all. Names that are missing stand apart from the others in the
// index: a row among the first of these isn't the next one as long as rows before it weren't looked at.
TEST_F(LongLists, SearchesGoOnOverRowsWithoutAName) {
  Other(R"(UPDATE orv1_customer."People" SET "Name" = NULL WHERE "ID" <= 1000;
           UPDATE orv1_customer."People" SET "Name" = 'a' WHERE "ID" = 1500; UPDATE orv1_customer."People" SET "Name" = 'z' WHERE "ID" = 2000;
           ANALYZE)");
  engine::EngineOptions options;
  options.exactRows = 0;
  const auto made = engine::MakeEngine(options);
  const auto people = made->WorkspaceAt(0)->OpenDatabase(Path("customer.zdb"));
  const std::string marked = "[ID] - 10 = 0 OR [ID] - 900 = 0 OR [ID] - 1500 = 0 OR [ID] - 2000 = 0 OR [ID] - 40000 = 0";
  const auto found = [&](const std::string& statement) {
    const auto rows = people->OpenRecordset(statement);
    std::string ids;
    for (rows->FindFirst(marked); !rows->NoMatch(); rows->FindNext(marked)) ids += std::to_string(rows->Field("ID").As<std::int32_t>()) + ' ';
    return ids;
  };
  EXPECT_EQ(found("SELECT * FROM People ORDER BY Name"), "10 900 1500 40000 2000 ");
  EXPECT_EQ(found("SELECT * FROM People ORDER BY Name DESC"), "2000 40000 1500 900 10 ");
}

/// A desk behind a line, and another one.
class BehindALine : public LongLists {
 protected:
  static engine::EngineOptions Paged() {
    engine::EngineOptions options;
    options.exactRows = 0;
    return options;
  }

  CountingProxy proxy{server_.Socket()};
  std::unique_ptr<platform::DataEngine> other = engine::MakeEngine(Paged());
  platform::DatabaseRef others = other->WorkspaceAt(0)->OpenDatabase(Path("customer.zdb"));
  std::unique_ptr<platform::DataEngine> made = engine::MakeEngine(Paged());
  platform::DatabaseRef people = made->WorkspaceAt(0)->OpenDatabase(proxy.PathOf(database_) + "orv1/customer.zdb");
};

// As long as one desk of many writes, the others' windows would do nothing else than collect numbers.
TEST_F(BehindALine, NumbersThatTookLongToCollectAreNotCollectedForEachWrite) {
  auto rows = people->OpenRecordset("SELECT * FROM People ORDER BY Name");
  const auto tripsOfIdleWork = [&] {
    const std::uint64_t before = proxy.Trips();
    while (rows->Window().IdleSlice()) {
    }
    return proxy.Trips() - before;
  };
  proxy.Delay(std::chrono::milliseconds(10));
  // How far the row keys reach; the count; the numbers of 8,192 rows, eight times.
  EXPECT_EQ(tripsOfIdleWork(), 10);
  proxy.Delay(std::chrono::milliseconds(0));
  EXPECT_EQ(rows->Window().Count(), kRows);

  others->Execute("UPDATE People SET Name = 'n8' WHERE ID = 7", platform::dbFailOnError);
  rows->Move(0);  // tells of it at the latest
  EXPECT_EQ(tripsOfIdleWork(), 2);
  EXPECT_TRUE(rows->Window().CountIsExact());
  // The same list opened anew goes on from there.
  rows = people->OpenRecordset("SELECT * FROM People ORDER BY Name");
  EXPECT_EQ(tripsOfIdleWork(), 0);
  rows->MoveLast();
  EXPECT_EQ(rows->Window().OrdinalOf(rows->Bookmark()), kRows - 1);
}

// Painting may find that somebody has written while a page is on its way. What then comes is as old as its question.
TEST_F(BehindALine, APageIsNotTakenForNewerThanItIs) {
  const auto rows = people->OpenRecordset("SELECT * FROM People ORDER BY Name");
  const auto firstThree = [&] {
    std::string ids;
    for (const platform::ListRow& row : rows->Window().RowsAt(0, 3)) ids += std::to_string(row.cells.at(0).As<std::int32_t>()) + ' ';
    return ids;
  };
  people->Execute("UPDATE People SET Name = 'n8' WHERE ID = 8", platform::dbFailOnError);  // the first page is to be read anew
  proxy.Delay(std::chrono::milliseconds(20));
  bool painted = false;
  made->OnWait([&] {
    if (std::exchange(painted, true)) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(30));  // the question is there
    others->Execute("UPDATE People SET Name = 'n0x' WHERE ID = 977", platform::dbFailOnError);
    firstThree();
    firstThree();  // knows of it from the one before
  });
  EXPECT_EQ(firstThree(), "977 1954 2931 ");
  EXPECT_TRUE(painted);
  EXPECT_EQ(firstThree(), "1954 2931 3908 ");
}

// Two walks lead to the page; between them another desk moves a row from the first one's stretch into the second one's.
TEST_F(BehindALine, ARowThatMovesOnWhileAQueryIsOpenedComesOnce) {
  // A list that holds its keys: one that doesn't reads what is out of date once more.
  made = engine::MakeEngine();
  people = made->WorkspaceAt(0)->OpenDatabase(proxy.PathOf(database_) + "orv1/customer.zdb");
  const auto firstOf = [](platform::Database& of, const std::string& apart) {
    std::vector<std::int32_t> ids;
    const auto rows = of.OpenRecordset("SELECT * FROM People WHERE ID Mod " + apart + " = 0 ORDER BY Name");
    for (const platform::ListRow& row : rows->Window().RowsAt(0, 50)) ids.push_back(row.cells.at(0).As<std::int32_t>());
    return ids;
  };
  firstOf(*people, "12");  // knows the table now
  proxy.Delay(std::chrono::milliseconds(20));
  int waited = 0;
  made->OnWait([&] {
    if (waited++ > 0) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(30));  // the first walk is at the server
    others->Execute("UPDATE People SET Name = 'n126' WHERE ID = 39080", platform::dbFailOnError);
  });
  const std::vector<std::int32_t> found = firstOf(*people, "40");
  made->OnWait({});
  EXPECT_GT(waited, 1);
  EXPECT_EQ(found, firstOf(*others, "40"));
  EXPECT_EQ(std::ranges::count(found, 39080), 1);
  EXPECT_NE(found.front(), 39080);
}

// Painting may want rows of a list whose keys are on their way: each comes once.
TEST_F(LongLists, PaintingWhileKeysAreOnTheirWay) {
  for (const char* const order : {" ORDER BY Name", ""}) {
    SCOPED_TRACE(order);
    CountingProxy proxy(server_.Socket());
    const auto made = engine::MakeEngine();
    const auto people = made->WorkspaceAt(0)->OpenDatabase(proxy.PathOf(database_) + "orv1/customer.zdb");
    proxy.Delay(std::chrono::milliseconds(10));
    const auto rows = people->OpenRecordset("SELECT * FROM People WHERE ID <= 1500" + std::string(order));
    const auto ids = [&](std::int64_t from, int count) {
      std::vector<std::int32_t> shown;
      for (const platform::ListRow& row : rows->Window().RowsAt(from, count)) shown.push_back(row.cells.at(0).As<std::int32_t>());
      return shown;
    };
    std::int64_t next = 0;
    int painted = 0;
    made->OnWait([&] {
      ++painted;
      try {
        ids(next += 90, 80);
      } catch (const platform::Error& error) {
        EXPECT_EQ(error.Number(), 3045);
      }
    });
    while (rows->Window().IdleSlice()) {
    }
    made->OnWait({});
    EXPECT_GT(painted, 0);
    EXPECT_EQ(rows->Window().Count(), 1500);
    std::vector<std::int32_t> all = ids(0, 2000);
    std::ranges::sort(all);
    EXPECT_EQ(all.size(), 1500U);
    EXPECT_EQ(std::ranges::adjacent_find(all), all.end());
  }
}

/// Looks at the whole table, by the rows of it and of its indexes that the server has counted once all connections of ours are gone.
class LooksAtAll : public LongLists {
 protected:
  LooksAtAll() { options_.exactRows = 0; }

  /// The account numbers of a list's first rows, in order.
  std::string First(const std::string& statement, int rows) {
    const auto made = engine::MakeEngine(options_);
    const auto list = made->WorkspaceAt(0)->OpenDatabase(Path("customer.zdb"))->OpenRecordset(statement);
    std::string ids;
    for (int i = 0; i < rows && !list->Eof(); ++i, list->MoveNext()) ids += std::to_string(list->Field("ID").As<std::int32_t>()) + ' ';
    return ids;
  }
  std::int64_t RowsLookedAt() {
    for (int i = 0; i < 200 && Other("SELECT count(*) FROM pg_stat_activity WHERE application_name LIKE 'ORCusSch%'") != "0\n"; ++i)
      Other("SELECT pg_sleep(0.02)");
    return std::stoll(Other("SELECT seq_tup_read + (SELECT sum(idx_tup_read) FROM pg_stat_user_indexes WHERE relname = 'People') "
                            "FROM pg_stat_user_tables WHERE relname = 'People'"));
  }

  engine::EngineOptions options_;
};

// One row in twelve fits: the page is full long before the second stretch ends. No index serves the filter.
TEST_F(LooksAtAll, AreNotTakenForRowsNearTheBeginning) {
  const std::int64_t before = RowsLookedAt();
  // The first ones are called n0: every 977th row, of which every twelfth fits.
  EXPECT_EQ(First("SELECT * FROM People WHERE ID Mod 12 = 0 ORDER BY Name", 3), "11724 23448 35172 ");
  EXPECT_LT(RowsLookedAt() - before, kRows / 2);
}

// The same from the other end.
TEST_F(LooksAtAll, AreNotTakenForRowsNearTheEnd) {
  const std::int64_t before = RowsLookedAt();
  // The last ones are called n99: the 99th row and every 977th behind it.
  EXPECT_EQ(First("SELECT * FROM People WHERE ID Mod 12 = 0 ORDER BY Name DESC", 2), "55788 44064 ");
  EXPECT_LT(RowsLookedAt() - before, kRows / 2);
}

// One row in forty: the walk goes on from the last one found, and gives each row once.
TEST_F(LooksAtAll, AreNotTakenForRowsThatLieALittleThinner) {
  std::vector<std::pair<std::string, int>> fitting;
  for (int id = 40; id <= kRows; id += 40) fitting.emplace_back('n' + std::to_string(id % 977), id);
  std::ranges::sort(fitting);
  constexpr std::size_t kShown = 60;
  std::string up;
  std::string down;
  for (std::size_t i = 0; i < kShown; ++i) {
    up += std::to_string(fitting[i].second) + ' ';
    down += std::to_string(fitting[fitting.size() - 1 - i].second) + ' ';
  }
  const std::int64_t before = RowsLookedAt();
  EXPECT_EQ(First("SELECT * FROM People WHERE ID Mod 40 = 0 ORDER BY Name", kShown), up);
  EXPECT_EQ(First("SELECT * FROM People WHERE ID Mod 40 = 0 ORDER BY Name DESC", kShown), down);
  EXPECT_LT(RowsLookedAt() - before, kRows / 2);
}

// Those between bounds of the names, which the server takes for fewer than they are.
TEST_F(LooksAtAll, AreNotTakenForRowsBetweenBounds) {
  Other(
      "ALTER TABLE orv1_customer.\"People\" ALTER COLUMN \"~k.Name\" SET STATISTICS 0; "
      "DELETE FROM pg_statistic WHERE starelid = 'orv1_customer.\"People\"'::regclass");
  std::vector<std::pair<std::string, int>> fitting;
  for (int id = 1; id <= kRows; ++id)
    if ((id % 977) / 10 == 9 || (id % 977) / 100 == 9 || id % 977 == 9) fitting.emplace_back('n' + std::to_string(id % 977), id);
  std::ranges::sort(fitting);
  const std::int64_t before = RowsLookedAt();
  EXPECT_EQ(First("SELECT * FROM People WHERE Name Like 'n9*' AND ID <> 5 ORDER BY Name", 3),
            std::to_string(fitting[0].second) + ' ' + std::to_string(fitting[1].second) + ' ' + std::to_string(fitting[2].second) + ' ');
  EXPECT_LT(RowsLookedAt() - before, 1'000);
}

// Hardly any row fits: that is found out by one look.
TEST_F(LooksAtAll, FindWhatIsRare) {
  const std::int64_t before = RowsLookedAt();
  EXPECT_EQ(First("SELECT * FROM People WHERE ID Mod 20000 = 7 ORDER BY Name", 4), "20007 7 40007 ");
  EXPECT_GE(RowsLookedAt() - before, kRows);
}

}  // namespace
