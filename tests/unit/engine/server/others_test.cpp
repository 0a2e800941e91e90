// How a desk learns of others' writes without asking for them.
#include <chrono>
#include <thread>

#include "engine/store/postgres/connection.h"
#include "engine/store/postgres/link/snapshot_watch.h"
#include "support/counting_proxy.h"
#include "unit/engine/server/server_test.h"

namespace engine::postgres {
namespace {

using std::chrono::milliseconds;

/// A desk that looks at rows, behind a line that counts, and another one that writes.
class OtherDesks : public ServerTest {
 protected:
  OtherDesks() : proxy(server_.Socket()), desk(ParseTarget(proxy.PathOf(database_) + "orv1/x.zdb"), Short()), writer(TargetOf("x.zdb"), Short()) {
    ServerTest::Other("CREATE SCHEMA orv1_x; CREATE TABLE orv1_x.t (id int PRIMARY KEY, name varchar(5))");
    Run(writer, Insert(1));
    Run(desk, "SELECT 1");
    LetMessagesPass();
    seen = desk.OthersVersion();
  }
  static std::string Insert(int id) { return "INSERT INTO \"orv1_x\".\"t\" VALUES (" + std::to_string(id) + ", 'a')"; }
  bool Changed() { return std::exchange(seen, desk.OthersVersion()) != seen; }
  /// A message takes a moment; nobody sends anything meanwhile.
  bool ChangesSoon() {
    for (const auto end = std::chrono::steady_clock::now() + milliseconds(5'000); std::chrono::steady_clock::now() < end;) {
      if (Changed()) return true;
      std::this_thread::sleep_for(milliseconds(1));
    }
    return false;
  }
  static void LetMessagesPass() { std::this_thread::sleep_for(milliseconds(150)); }

  CountingProxy proxy;
  ServerConnection desk;
  ServerConnection writer;
  std::int64_t seen = 0;
};

TEST_F(OtherDesks, AreHeardWithoutATrip) {
  const std::uint64_t before = proxy.Trips();
  Run(writer, Insert(2));
  EXPECT_TRUE(ChangesSoon());
  LetMessagesPass();
  EXPECT_FALSE(Changed());
  EXPECT_EQ(proxy.Trips(), before);
  // What was heard is no news in the next snapshot.
  Run(desk, "SELECT 1");
  EXPECT_FALSE(Changed());
}

TEST_F(OtherDesks, AreAskedForNothingWhileNobodyWrites) {
  const std::uint64_t before = proxy.Trips();
  for (int i = 0; i < 100; ++i) EXPECT_FALSE(Changed());
  EXPECT_EQ(proxy.Trips(), before);
}

TEST_F(OtherDesks, ThatTellNothingAreSeenWithTheNextTrip) {
  ServerTest::Other("UPDATE orv1_x.t SET name = 'b'");
  LetMessagesPass();
  EXPECT_FALSE(Changed());
  Run(desk, "SELECT 1");
  EXPECT_TRUE(Changed());
  EXPECT_FALSE(Changed());
}

TEST_F(OtherDesks, AreHeardWhenTheirUnitHasEnded) {
  LetMessagesPass();
  {
    Transaction unit(writer, Transaction::Kind::Write);
    Run(writer, Insert(2));
    LetMessagesPass();
    EXPECT_FALSE(Changed());
    unit.Commit();
  }
  EXPECT_TRUE(ChangesSoon());
}

// The server keeps messages back until the unit ends. What is read in it is of the state that it began with: who took it for newer would
// never read it again.
TEST_F(OtherDesks, AreHeardBehindAUnitOfReads) {
  LetMessagesPass();
  {
    Transaction unit(desk, Transaction::Kind::Read);
    Run(desk, "SELECT 1");
    Run(writer, Insert(2));
    LetMessagesPass();
    EXPECT_FALSE(Changed());
    Run(desk, "SELECT 1");
    EXPECT_FALSE(Changed());
    unit.Commit();
  }
  EXPECT_TRUE(ChangesSoon());
}

TEST_F(OtherDesks, WhoWriteOftenTellOnceInATenthOfASecond) {
  LetMessagesPass();
  for (int i = 2; i < 12; ++i) Run(writer, Insert(i));
  EXPECT_TRUE(ChangesSoon());
  LetMessagesPass();
  Changed();
  // What was left over is told with the writer's next trip, whatever that does, or when it looks at rows that are there.
  Run(writer, "SELECT 1");
  EXPECT_TRUE(ChangesSoon());
  LetMessagesPass();
  Run(writer, Insert(12));
  Run(writer, Insert(13));
  LetMessagesPass();
  Changed();
  writer.OthersVersion();
  EXPECT_TRUE(ChangesSoon());
}

TEST_F(OtherDesks, WhatIsOwedIsToldAtTheEndOfTheProgram) {
  auto brief = std::make_unique<ServerConnection>(TargetOf("x.zdb"), Short());
  Run(*brief, Insert(2));
  Run(*brief, Insert(3));
  EXPECT_TRUE(ChangesSoon());
  brief.reset();
  EXPECT_TRUE(ChangesSoon());
}

TEST_F(OtherDesks, WhoChangeDefinitionsTellThatAllIsToBeAskedAgain) {
  const std::int64_t strangers = desk.StrangersVersion();
  const std::uint64_t trips = proxy.Trips();
  const std::vector<std::string> change{"ALTER TABLE orv1_x.t ADD COLUMN more int"};
  writer.ExecuteAll(change, "orv1_x");
  EXPECT_TRUE(ChangesSoon());
  EXPECT_NE(desk.StrangersVersion(), strangers);
  EXPECT_EQ(proxy.Trips(), trips);
}

TEST_F(OtherDesks, WhoChangeDefinitionsBesideRowsTellThatTooBehindTheirCommit) {
  const std::int64_t strangers = desk.StrangersVersion();
  const std::vector<std::string> change{"ALTER TABLE orv1_x.t ADD COLUMN more int"};
  Transaction unit(writer, Transaction::Kind::Write);
  Run(writer, Insert(2));
  writer.ExecuteAll(change, "orv1_x");
  LetMessagesPass();
  EXPECT_FALSE(Changed());
  unit.Commit();
  EXPECT_TRUE(ChangesSoon());
  EXPECT_NE(desk.StrangersVersion(), strangers);
}

TEST_F(OtherDesks, RowsTheyWroteAreNoChangeOfDefinitions) {
  const std::int64_t before = desk.StrangersVersion();
  Run(writer, Insert(2));
  EXPECT_TRUE(ChangesSoon());
  Run(desk, "SELECT 1");
  EXPECT_EQ(desk.StrangersVersion(), before);
  LetMessagesPass();
  Run(writer, "ALTER TABLE \"orv1_x\".\"t\" ADD COLUMN more int");
  Run(desk, "SELECT 1");
  EXPECT_NE(desk.StrangersVersion(), before);
}

TEST_F(OtherDesks, WritesOfItsOwnAreNone) {
  Run(desk, Insert(2));
  LetMessagesPass();
  Run(desk, Insert(3));
  LetMessagesPass();
  Run(desk, "SELECT 1");
  EXPECT_FALSE(Changed());
}

TEST_F(OtherDesks, AreAskedAboutWhereNobodyCanListen) {
  ServerConnection asking(ParseTarget(proxy.PathOf(database_) + "orv1/x.zdb"), {.lock = 150, .asks = true});
  const std::int64_t before = asking.OthersVersion();
  ServerTest::Other("UPDATE orv1_x.t SET name = 'b'");
  EXPECT_NE(asking.OthersVersion(), before);
}

TEST_F(OtherDesks, ALostConnectionIsMadeAnewAndEverythingIsNews) {
  ServerTest::Other("SELECT pg_terminate_backend(pid, 2000) FROM pg_stat_activity WHERE datname = current_database() AND pid <> pg_backend_pid()");
  EXPECT_TRUE(ChangesSoon());
  Run(desk, "SELECT 1");
}

TEST(SnapshotsOfOthers, AreNoNewsWhereSomebodyTold) {
  SnapshotWatch watch;
  EXPECT_TRUE(watch.Others("10:12:10"));
  EXPECT_FALSE(watch.Told("11"));  // ended before that snapshot
  EXPECT_TRUE(watch.Told("10"));
  EXPECT_FALSE(watch.Told("10"));
  EXPECT_TRUE(watch.Told("12"));
  EXPECT_FALSE(watch.Others("13:13:"));
  EXPECT_TRUE(watch.Others("14:14:"));
}

}  // namespace
}  // namespace engine::postgres
