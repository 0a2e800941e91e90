// Statements, units and failures over the connection to a server.
#include "engine/store/postgres/connection.h"

#include <chrono>
#include <optional>
#include <utility>

#include "engine/errors.h"
#include "unit/engine/server/server_test.h"

namespace engine::postgres {
namespace {

using platform::FieldType;
using platform::Value;

class Connected : public ServerTest {
 protected:
  Connected() : connection(TargetOf("x.zdb"), Short()) {
    Other("CREATE SCHEMA orv1_x; CREATE TABLE orv1_x.t (id int PRIMARY KEY, name varchar(5))");
    connection.NameSchema("orv1_x", "x.zdb");
  }
  std::string Insert(int id, const std::string& name) const {
    return "INSERT INTO \"orv1_x\".\"t\" VALUES (" + std::to_string(id) + ", '" + name + "')";
  }
  std::string Names() const { return Other("SELECT string_agg(name, ',' ORDER BY id) FROM orv1_x.t"); }
  ServerConnection connection;
};

TEST_F(Connected, BindsEveryKindOfValueAndReadsIt) {
  Query query(connection, std::string_view("SELECT $1, $2 + 1, $3 * 2, $5, $4 IS NULL"));
  query.Bind(1, std::string_view("it's \"so\" \\ \u00E9"));
  query.Bind(2, std::int64_t{9'000'000'000});
  query.Bind(3, 0.1);
  query.BindNull(4);
  query.Bind(5, Value(platform::Currency{12'345}));
  ASSERT_TRUE(query.Step());
  EXPECT_EQ(query.Text(0), "it's \"so\" \\ \u00E9");
  EXPECT_EQ(query.Int(1), 9'000'000'001);
  EXPECT_EQ(query.Read(2, FieldType::Double), Value(0.2));
  EXPECT_EQ(query.Read(3, FieldType::Currency), Value(platform::Currency{12'345}));
  EXPECT_EQ(query.Int(4), -1);
  EXPECT_FALSE(query.Step());
}

// As an administrator's tool or a pooler may do it.
TEST_F(Connected, StatementsThatTheServerHasDroppedAreGivenToItAgain) {
  for (const Planning planning : {Planning::ForValues, Planning::Once, Planning::Along}) {
    SqlText text(std::string("SELECT $1::bigint + 1"));
    for (const std::int64_t number : {1, 2}) {
      {
        Query query(connection, text);
        if (planning == Planning::Once) query.PlanOnce();
        if (planning == Planning::Along) query.PlanAlong();
        query.Bind(1, number);
        ASSERT_TRUE(query.Step());
        EXPECT_EQ(query.Int(0), number + 1);
      }
      Run(connection, "DEALLOCATE ALL");
    }
  }
}

// A write with all that goes along with it, whether the server has ever had it or not.
TEST_F(Connected, WritesAreDoneOnceWhereTheServerHasDroppedStatements) {
  Run(connection, Insert(1, ""));
  for (const char* letter : {"a", "b"}) {
    SqlText text("UPDATE \"orv1_x\".\"t\" SET name = name || '" + std::string(letter) + "' WHERE id = $1");
    for (int i = 0; i < 2; ++i) {
      {
        Query query(connection, text);
        query.PlanOnce();
        query.Bind(1, std::int64_t{1});
        query.Run();
        EXPECT_EQ(query.Changed(), 1);
      }
      Run(connection, "DEALLOCATE ALL");
    }
  }
  EXPECT_EQ(Names(), "aabb\n");
}

TEST_F(Connected, OthersAreAskedForWhereTheServerHasDroppedTheQuestion) {
  ServerConnection asking(TargetOf("x.zdb"), Asking());
  asking.NameSchema("orv1_x", "x.zdb");
  const std::int64_t before = asking.OthersVersion();
  Run(asking, "DEALLOCATE ALL");
  Other("INSERT INTO orv1_x.t VALUES (9, 'Nine')");
  EXPECT_GT(asking.OthersVersion(), before);
}

TEST_F(Connected, AStatementRunsAgainWithOtherKindsOfValues) {
  SqlText text("SELECT $1::text");
  const auto ask = [&](auto bind) {
    Query query(connection, text);
    bind(query);
    query.Step();
    return std::string(query.TextOrNull(0).value_or("Null"));
  };
  EXPECT_EQ(ask([](Query& query) { query.Bind(1, std::int64_t{7}); }), "7");
  EXPECT_EQ(ask([](Query& query) { query.BindNull(1); }), "Null");
  EXPECT_EQ(ask([](Query& query) { query.Bind(1, std::string_view("x")); }), "x");
  EXPECT_EQ(ask([](Query& query) { query.Bind(1, 1.5); }), "1.5");
  EXPECT_EQ(ask([](Query& query) { query.Bind(1, std::int64_t{8}); }), "8");
}

TEST_F(Connected, ANullNeedsNoType) {
  Query query(connection, std::string_view("SELECT $1 IS NULL, $2 IS NULL"));
  query.BindNull(1);
  query.Bind(2, std::int64_t{1});
  query.Step();
  EXPECT_EQ(query.Int(0), -1);
  EXPECT_EQ(query.Int(1), 0);
}

TEST_F(Connected, NumbersOfParametersMayBeLeftOut) {
  Query query(connection, std::string_view("SELECT $2 + $4"));
  query.Bind(2, std::int64_t{1});
  query.Bind(4, std::int64_t{2});
  query.Step();
  EXPECT_EQ(query.Int(0), 3);
}

TEST_F(Connected, ATextWithAZeroByteIsRefused) {
  Query query(connection, std::string_view("SELECT $1"));
  query.Bind(1, std::string_view("a\0b", 3));
  EXPECT_EQ(ErrorOf([&] { query.Step(); }), 3421);
  Query broken(connection, std::string_view("SELECT $1"));
  broken.Bind(1, std::string_view("a\xFF"));
  EXPECT_EQ(ErrorOf([&] { broken.Step(); }), 3421);
}

TEST_F(Connected, AStatementWithItsFirstRunIsOneTrip) {
  Ask(connection, "SELECT 1");
  const std::uint64_t before = connection.Trips();
  EXPECT_EQ(Ask(connection, "SELECT 2"), std::vector<std::string>{"2"});
  EXPECT_EQ(connection.Trips() - before, 1);
  EXPECT_EQ(Ask(connection, "SELECT 2"), std::vector<std::string>{"2"});
  EXPECT_EQ(connection.Trips() - before, 2);
}

TEST_F(Connected, AUnitOfReadsCostsNoTripToBegin) {
  Ask(connection, "SELECT 1");
  const std::uint64_t before = connection.Trips();
  {
    Transaction unit(connection, Transaction::Kind::Read);
    Ask(connection, "SELECT 1");
    Ask(connection, "SELECT 1");
  }
  EXPECT_EQ(connection.Trips() - before, 3);
  { Transaction nothing(connection, Transaction::Kind::Write); }
  EXPECT_EQ(connection.Trips() - before, 3);
}

TEST_F(Connected, OfALongResultOnlyAFewRowsAreHere) {
  Query rows(connection, std::string_view("SELECT n, repeat('x', 1000) FROM generate_series(1, 200000) AS n"));
  for (int i = 1; i <= 10; ++i) {
    ASSERT_TRUE(rows.Step());
    EXPECT_EQ(rows.Int(0), i);
  }
}

TEST_F(Connected, StatementsMayBeReadByTurns) {
  Query outer(connection, std::string_view("SELECT n FROM generate_series(1, 3000) AS n"));
  std::int64_t sum = 0;
  for (int i = 1; outer.Step(); ++i) {
    ASSERT_EQ(outer.Int(0), i);
    Query inner(connection, std::string_view("SELECT $1 * 2"));
    inner.Bind(1, outer.Int(0));
    inner.Step();
    sum += inner.Int(0);
  }
  EXPECT_EQ(sum, 3000 * 3001);
}

TEST_F(Connected, WhatIsLeftUnreadDoesNoHarm) {
  for (int round = 0; round < 5; ++round) {
    Query rows(connection, std::string_view("SELECT n, repeat('x', 1000) FROM generate_series(1, 200000) AS n"));
    rows.Step();
  }
  EXPECT_EQ(Ask(connection, "SELECT 1"), std::vector<std::string>{"1"});
  Transaction unit(connection, Transaction::Kind::Write);
  Run(connection, Insert(1, "a"));
  {
    Query rows(connection, std::string_view("SELECT n, repeat('x', 1000) FROM generate_series(1, 200000) AS n"));
    rows.Step();
  }
  Run(connection, Insert(2, "b"));
  unit.Commit();
  EXPECT_EQ(Names(), "a,b\n");
}

TEST_F(Connected, TellsHowManyRowsWereWritten) {
  Query insert(connection, std::string_view("INSERT INTO \"orv1_x\".\"t\" SELECT n, 'x' FROM generate_series(1, 7) AS n"));
  insert.Run();
  EXPECT_EQ(insert.Changed(), 7);
  Query update(connection, std::string_view("UPDATE \"orv1_x\".\"t\" SET name = 'y' WHERE id > 5 RETURNING id"));
  int rows = 0;
  while (update.Step()) ++rows;
  EXPECT_EQ(rows, 2);
  EXPECT_EQ(update.Changed(), 2);
}

TEST_F(Connected, FailuresHaveTheEnginesNumbers) {
  Run(connection, Insert(1, "a"));
  EXPECT_EQ(ErrorOf([&] { Run(connection, Insert(1, "b")); }), 3022);
  EXPECT_EQ(ErrorOf([&] { Run(connection, "INSERT INTO \"orv1_x\".\"t\" VALUES (NULL, 'x')"); }), 3058);
  EXPECT_EQ(ErrorOf([&] { Run(connection, Insert(2, "too long")); }), 3163);
  EXPECT_EQ(ErrorOf([&] { Run(connection, "SELECT 1 / 0"); }), 11);
  EXPECT_EQ(ErrorOf([&] { Run(connection, "SELECT 2000000000::integer + 2000000000::integer"); }), 3349);
  EXPECT_EQ(ErrorOf([&] { Run(connection, "SELECT 1 FROM \"orv1_x\".\"none\""); }), 3078);
  EXPECT_EQ(DescriptionOf([&] { Run(connection, "SELECT 1 FROM \"orv1_x\".\"none\""); }), DescriptionOf([] { throw errors::UnknownTable("none"); }));
  EXPECT_EQ(Ask(connection, "SELECT 1"), std::vector<std::string>{"1"});
}

// It is told by the number of a statement whose tables have changed, which is prepared anew.
TEST_F(Connected, WhatTheServerDoesNotKnowHowToDoIsRefusedOnce) {
  const std::uint64_t before = connection.Trips();
  EXPECT_NE(ErrorOf([&] { Run(connection, "SELECT DISTINCT id FROM \"orv1_x\".\"t\" FOR UPDATE"); }), 0);
  EXPECT_LE(connection.Trips() - before, 2U);
  EXPECT_EQ(Ask(connection, "SELECT 1"), std::vector<std::string>{"1"});
}

TEST_F(Connected, AFailureInTheMiddleOfARowsComesWithItsRow) {
  Query rows(connection, std::string_view("SELECT 10 / (5 - n) FROM generate_series(1, 9) AS n"));
  for (int i = 1; i < 5; ++i) EXPECT_TRUE(rows.Step()) << i;
  EXPECT_EQ(ErrorOf([&] { rows.Step(); }), 11);
}

TEST_F(Connected, AFailedStatementLeavesItsUnitWhole) {
  Transaction unit(connection, Transaction::Kind::Write);
  Run(connection, Insert(1, "a"));
  EXPECT_EQ(ErrorOf([&] { Run(connection, Insert(1, "b")); }), 3022);
  EXPECT_EQ(ErrorOf([&] { Run(connection, "SELECT 1 / 0"); }), 11);
  Run(connection, Insert(2, "c"));
  EXPECT_EQ(Names(), "\n");
  unit.Commit();
  EXPECT_EQ(Names(), "a,c\n");
}

TEST_F(Connected, UnitsInsideOthersAreUndoneByThemselves) {
  Transaction outer(connection, Transaction::Kind::Write);
  Run(connection, Insert(1, "a"));
  {
    Transaction inner(connection, Transaction::Kind::Write);
    Run(connection, Insert(2, "b"));
  }
  {
    Transaction inner(connection, Transaction::Kind::Write);
    Run(connection, Insert(3, "c"));
    inner.Commit();
  }
  { Transaction empty(connection, Transaction::Kind::Write); }
  outer.Commit();
  EXPECT_EQ(Names(), "a,c\n");
}

TEST_F(Connected, AnUncommittedUnitLeavesNothing) {
  {
    Transaction unit(connection, Transaction::Kind::Write);
    Run(connection, Insert(1, "a"));
  }
  EXPECT_EQ(Names(), "\n");
}

TEST_F(Connected, AUnitOfReadsSeesOneState) {
  Transaction unit(connection, Transaction::Kind::Read);
  EXPECT_EQ(Ask(connection, "SELECT count(*) FROM \"orv1_x\".\"t\""), std::vector<std::string>{"0"});
  Other("INSERT INTO orv1_x.t VALUES (1, 'a')");
  EXPECT_EQ(Ask(connection, "SELECT count(*) FROM \"orv1_x\".\"t\""), std::vector<std::string>{"0"});
}

TEST_F(Connected, TellsOthersWritesAndItsOwnApart) {
  ServerConnection asking(TargetOf("x.zdb"), {.lock = 150, .asks = true});
  std::int64_t others = asking.OthersVersion();
  const auto changed = [&] { return std::exchange(others, asking.OthersVersion()) != others; };
  EXPECT_FALSE(changed());
  const std::uint64_t own = asking.Writes("orv1_x");
  Run(asking, Insert(1, "a"));
  EXPECT_NE(asking.Writes("orv1_x"), own);
  EXPECT_FALSE(changed());
  Other("UPDATE orv1_x.t SET name = 'b'");
  EXPECT_TRUE(changed());
  EXPECT_FALSE(changed());
  Other("SELECT count(*) FROM orv1_x.t");
  EXPECT_FALSE(changed());
  {
    Transaction unit(asking, Transaction::Kind::Write);
    Run(asking, Insert(2, "c"));
    unit.Commit();
  }
  asking.OthersVersion();  // savepoints have numbers that nobody can tell from others' for sure
  EXPECT_FALSE((others = asking.OthersVersion(), changed()));
}

// Holds a lock from another connection, until it goes.
class LockedByOthers : public Connected {
 protected:
  LockedByOthers() : other(TargetOf("x.zdb"), Short()), unit(std::in_place, other, Transaction::Kind::Write) {
    Run(other, "LOCK TABLE \"orv1_x\".\"t\" IN ACCESS EXCLUSIVE MODE");
  }
  ServerConnection other;
  std::optional<Transaction> unit;
};

TEST_F(LockedByOthers, WritesWaitThenFail) {
  int painted = 0;
  connection.OnWait([&] { ++painted; });
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(ErrorOf([&] { Run(connection, Insert(1, "a")); }), 3218);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(150));
  EXPECT_GE(painted, 3);
}

TEST_F(LockedByOthers, ReadsWaitThenFail) {
  EXPECT_EQ(ErrorOf([&] { Run(connection, "SELECT * FROM \"orv1_x\".\"t\""); }), 3045);
  EXPECT_EQ(Ask(connection, "SELECT 1"), std::vector<std::string>{"1"});
}

TEST_F(LockedByOthers, GoOnWhenTheLockGoes) {
  connection.OnWait([&] { unit.reset(); });
  Run(connection, Insert(1, "a"));
  EXPECT_EQ(Names(), "a\n");
}

TEST_F(LockedByOthers, WhoIsServedMeanwhileMayAskOnTheSameConnection) {
  int asked = 0;
  connection.OnWait([&] {
    if (++asked != 3) return;
    EXPECT_EQ(ErrorOf([&] { Ask(connection, "SELECT 1"); }), 0);
  });
  EXPECT_EQ(ErrorOf([&] { Run(connection, Insert(1, "a")); }), 3218);
  EXPECT_GE(asked, 3);
}

TEST_F(Connected, ALostConnectionIsToldOnceThenMadeAnew) {
  Ask(connection, "SELECT 1");
  Other("SELECT pg_terminate_backend(pid, 2000) FROM pg_stat_activity WHERE datname = current_database() AND pid <> pg_backend_pid()");
  EXPECT_EQ(ErrorOf([&] { Ask(connection, "SELECT 1"); }), 3043);
  EXPECT_EQ(Ask(connection, "SELECT 1"), std::vector<std::string>{"1"});
}

TEST_F(Connected, ALostConnectionEndsItsUnit) {
  {
    Transaction unit(connection, Transaction::Kind::Write);
    Run(connection, Insert(1, "a"));
    Other("SELECT pg_terminate_backend(pid, 2000) FROM pg_stat_activity WHERE datname = current_database() AND pid <> pg_backend_pid()");
    EXPECT_EQ(ErrorOf([&] { Run(connection, Insert(2, "b")); }), 3043);
    EXPECT_EQ(ErrorOf([&] { Run(connection, Insert(3, "c")); }), 3043);
    EXPECT_EQ(ErrorOf([&] { unit.Commit(); }), 3043);
  }
  Run(connection, Insert(4, "d"));
  EXPECT_EQ(Names(), "d\n");
}

TEST_F(Connected, ASilentServerIsGivenUp) {
  ServerConnection impatient(TargetOf("x.zdb"), {.lock = 150, .connect = 5'000, .silence = 300});
  EXPECT_EQ(ErrorOf([&] { Run(impatient, "SELECT pg_sleep(20)"); }), 3043);
}

TEST_F(Connected, ATableThatOthersChangedIsReadAnew) {
  Run(connection, Insert(1, "a"));
  const std::string sql = "SELECT * FROM \"orv1_x\".\"t\"";
  EXPECT_EQ(Ask(connection, sql).size(), 1);
  Other("ALTER TABLE orv1_x.t ADD COLUMN more int");
  EXPECT_EQ(Ask(connection, sql).size(), 1);
}

TEST(Connecting, FailuresHaveTheEnginesNumbers) {
  TestServer& server = TestServer::Shared();
  const auto number = [&](const std::string& path) {
    ServerConnection connection(ParseTarget(path), {.lock = 150, .connect = 3'000, .silence = 3'000});
    return ErrorOf([&] { Query(connection, std::string_view("SELECT 1")).Run(); });
  };
  ::setenv("PGUSER", "office", 1);
  EXPECT_EQ(number(server.PathOf("nowhere") + "x.zdb"), 3044);
  EXPECT_EQ(number("postgresql://%2Fnowhere%2Fsocket/postgres/x.zdb"), 3043);
  EXPECT_EQ(number("postgresql://127.0.0.1:1/postgres/x.zdb"), 3043);
  ::setenv("PGUSER", "stranger", 1);
  EXPECT_EQ(number(server.PathOf("postgres") + "x.zdb"), 3051);
  ::setenv("PGUSER", "office", 1);
  // A host that isn't there is passed over.
  const std::string two = server.PathOf("postgres");
  const std::string path = "postgresql://127.0.0.1:1," + two.substr(two.find("//") + 2) + "x.zdb";
  EXPECT_EQ(number(path), 0);
}

}  // namespace
}  // namespace engine::postgres
