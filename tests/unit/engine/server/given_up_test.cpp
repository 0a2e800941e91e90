// Statements that nobody reads to their end, and what painting asks in the midst of one.
#include <chrono>

#include "engine/engine.h"
#include "engine/store/postgres/connection.h"
#include "platform/data/row_stream.h"
#include "unit/engine/server/server_test.h"

namespace engine::postgres {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// A row at once, as the second one fills what the server sends together, and the third one much later.
constexpr const char* kSlow = "SELECT n, repeat('x', 20000), CASE WHEN n > 2 THEN pg_sleep(30) END FROM generate_series(1, 3) AS n";
constexpr const char* kLong = "SELECT n, repeat('x', 1000) FROM generate_series(1, 300000) AS n";
constexpr auto kSoon = 10s;  // far less than the slow statement, far more than anything else takes

class GivenUp : public ServerTest {
 protected:
  GivenUp() : store(Patient()), connection((OpenFile(), store.Connected())) {}

  static Patience Patient() { return {.lock = 150, .connect = 5'000, .silence = 60'000}; }
  void OpenFile() {
    Create("x.zdb", {{"t", {Field("id", platform::FieldType::Long)}, {}}});
    file = store.Open(Path("x.zdb"), "x.zdb");
  }
  /// What the server does for this desk.
  std::string Busy() const {
    return Other("SELECT count(*) FROM pg_stat_activity WHERE datname = current_database() AND pid <> pg_backend_pid() AND state = 'active'");
  }
  std::string Told(const std::string& event) const {
    return Other("SELECT count(*) FROM pg_stat_activity WHERE datname = current_database() AND pid <> pg_backend_pid() AND wait_event = '" + event + "'");
  }

  PostgresStore store;
  std::shared_ptr<StoreFile> file;
  ServerConnection& connection;
};

TEST_F(GivenUp, AStatementThatNobodyReadsOnIsEndedByTheNextOne) {
  const auto start = Clock::now();
  {
    Query slow(store, std::string_view(kSlow));
    ASSERT_TRUE(slow.Step());
  }
  EXPECT_EQ(Ask(store, "SELECT 1"), std::vector<std::string>{"1"});
  EXPECT_LT(Clock::now() - start, kSoon);
}

TEST_F(GivenUp, InsideAUnitTheUnitGoesOn) {
  const auto start = Clock::now();
  Transaction unit(store, Transaction::Kind::Write);
  Run(store, "INSERT INTO \"orv1_x\".\"t\" (\"id\") VALUES (1)");
  {
    Query slow(store, std::string_view(kSlow));
    ASSERT_TRUE(slow.Step());
  }
  Run(store, "INSERT INTO \"orv1_x\".\"t\" (\"id\") VALUES (2)");
  unit.Commit();
  EXPECT_LT(Clock::now() - start, kSoon);
  EXPECT_EQ(Other("SELECT string_agg(id::text, ',' ORDER BY id) FROM orv1_x.t"), "1,2\n");
}

// An idle desk only looks whether others have written.
TEST_F(GivenUp, AnIdleDeskHasItEnded) {
  {
    Query slow(store, std::string_view(kSlow));
    ASSERT_TRUE(slow.Step());
  }
  const auto end = Clock::now() + kSoon;
  while (Busy() != "0\n" && Clock::now() < end) connection.OthersVersion();
  EXPECT_EQ(Busy(), "0\n");
}

TEST_F(GivenUp, ADeskThatGoesHasItEnded) {
  {
    ServerConnection going(TargetOf("x.zdb"), Patient());
    Query slow(going, std::string_view(kSlow));
    ASSERT_TRUE(slow.Step());
  }
  const auto end = Clock::now() + kSoon;
  while (Busy() != "0\n" && Clock::now() < end) {
  }
  EXPECT_EQ(Busy(), "0\n");
}

TEST_F(GivenUp, AWriteIsDoneToItsEnd) {
  Run(store, "INSERT INTO \"orv1_x\".\"t\" (\"id\") SELECT n FROM generate_series(1, 100000) AS n");
  {
    Query update(store, std::string_view("UPDATE \"orv1_x\".\"t\" SET \"id\" = 0 RETURNING repeat('x', 100)"));
    ASSERT_TRUE(update.Step());
  }
  Ask(store, "SELECT 1");
  EXPECT_EQ(Other("SELECT count(*) FROM orv1_x.t WHERE id = 0"), "100000\n");
}

TEST_F(GivenUp, AReaderWhoIsToldToStopStopsAtOnce) {
  const auto start = Clock::now();
  int asked = 0;
  {
    Query slow(store, std::string_view("SELECT pg_sleep(30)"));
    EXPECT_FALSE(store.ReadsToItsEnd([&] { return ++asked < 5; }, [&] { slow.Step(); }));
  }
  EXPECT_EQ(asked, 5);
  EXPECT_EQ(Ask(store, "SELECT 1"), std::vector<std::string>{"1"});
  EXPECT_LT(Clock::now() - start, kSoon);
  EXPECT_EQ(Busy(), "0\n");
}

TEST_F(GivenUp, AReaderIsAskedWhileRowsCome) {
  int asked = 0;
  int rows = 0;
  Query all(store, std::string_view(kLong));
  const auto read = [&] {
    while (all.Step()) ++rows;
  };
  EXPECT_FALSE(store.ReadsToItsEnd([&] { return ++asked < 5; }, read));
  EXPECT_EQ(asked, 5);
  EXPECT_LT(rows, 300'000);
  // Whoever goes on all the same has lost nothing.
  EXPECT_TRUE(store.ReadsToItsEnd([] { return true; }, read));
  EXPECT_EQ(rows, 300'000);
}

// A report's rows: whoever stops while they are waited for needn't wait, and the reader goes on to serve.
TEST_F(GivenUp, AReportThatIsStoppedDoesNotWait) {
  std::unique_ptr<platform::SnapshotReader> reader = MakeSnapshotReader({});
  EXPECT_EQ(reader->FindTable(Path("x.zdb"), "t")->name, "t");
  ServerConnection other(TargetOf("x.zdb"), Patient());
  Transaction unit(other, Transaction::Kind::Write);
  Run(other, "LOCK TABLE \"orv1_x\".\"t\" IN ACCESS EXCLUSIVE MODE");
  int asked = 0;
  reader->OnWait([&] { return ++asked < 3; });
  const auto start = Clock::now();
  EXPECT_EQ(ErrorOf([&] { reader->OpenRows(Path("x.zdb"), "SELECT id FROM t ORDER BY id")->Next(); }), platform::kReadingStopped);
  EXPECT_LT(Clock::now() - start, 1s);
  reader->OnWait({});
  EXPECT_EQ(ErrorOf([&] { reader->OpenRows(Path("x.zdb"), "SELECT id FROM t")->Next(); }), 3045);
}

// The statement that was given up had not even been prepared; it runs again.
TEST_F(GivenUp, AStatementThatWasStoppedBeforeItBeganRunsAgain) {
  SqlText text("SELECT 7");
  Query(store, text).Run();
  {
    Query query(store, text);
    EXPECT_FALSE(store.ReadsToItsEnd([] { return false; }, [&] { query.Step(); }));
  }
  {
    Query fresh(store, std::string_view("SELECT 8"));
    EXPECT_FALSE(store.ReadsToItsEnd([] { return false; }, [&] { fresh.Step(); }));
  }
  EXPECT_EQ(Ask(store, "SELECT 8"), std::vector<std::string>{"8"});
  Query query(store, text);
  ASSERT_TRUE(query.Step());
  EXPECT_EQ(query.Int(0), 7);
}

// As in files: what painting asks in the midst of a statement is refused where that is a long one.
TEST_F(GivenUp, PaintingDoesNotBringALongResultHere) {
  int painted = 0;
  store.OnWait([&] {
    ++painted;
    EXPECT_EQ(ErrorOf([&] { Ask(store, "SELECT 1"); }), 3045);
  });
  Query all(store, std::string_view(kLong));
  int rows = 0;
  for (; all.Step(); ++rows) {
    ASSERT_EQ(all.Int(0), rows + 1);
    if (rows % 100'000 != 1'000) continue;
    store.ServePainting();
    // The server holds what is left.
    EXPECT_EQ(Told("ClientWrite"), "1\n");
  }
  EXPECT_EQ(rows, 300'000);
  EXPECT_GE(painted, 3);
  store.OnWait({});
  EXPECT_EQ(Ask(store, "SELECT 1"), std::vector<std::string>{"1"});
}

TEST_F(GivenUp, PaintingGoesOnWhileALongStatementGivesNothing) {
  int painted = 0;
  int refused = 0;
  store.OnWait([&] {
    ++painted;
    if (ErrorOf([&] { Ask(store, "SELECT 1"); }) == 3045) ++refused;
  });
  Ask(store, "SELECT pg_sleep(2)");
  EXPECT_GT(painted, 10);
  EXPECT_EQ(refused, painted);
}

}  // namespace
}  // namespace engine::postgres
