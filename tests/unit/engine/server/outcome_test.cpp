// Saves whose answer was cut: the desk asks what became of them, and tells.
#include "engine/store/postgres/link/outcome.h"

#include <chrono>

#include "support/faulty_proxy.h"
#include "unit/engine/server/server_test.h"

namespace engine::postgres {
namespace {

using Fault = FaultyProxy::Fault;
using platform::FieldType;

class OverALine : public ServerTest {
 protected:
  OverALine() : line(server_.Socket()), store(Patient()) {
    Create("people.zdb", {{"People", {Field("ID", FieldType::Counter), TextField("Name", 40)}, {{"PrimaryKey", {"ID"}, true, true}}},
                          {"Words", {TextField("Word", 20)}, {}}});
    file = store.Open(line.PathOf(database_) + "orv1/people.zdb", "people.zdb");
    Run(store, "INSERT INTO \"orv1_people\".\"People\" (\"Name\") VALUES ('first')");
  }
  static Patience Patient() { return {.lock = 150, .connect = 1'000, .silence = 1'000}; }
  static std::string Rename(const std::string& name, int id = 1) {
    return "UPDATE \"orv1_people\".\"People\" SET \"Name\" = '" + name + "' WHERE \"ID\" = " + std::to_string(id);
  }
  std::int64_t Change(const std::string& sql) {
    Query query(store, std::string_view(sql));
    query.Run();
    return query.Changed();
  }
  std::string Names() const { return Other("SELECT string_agg(\"Name\", ',' ORDER BY \"ID\") FROM orv1_people.\"People\""); }

  FaultyProxy line;
  PostgresStore store;
  std::shared_ptr<StoreFile> file;
};

TEST_F(OverALine, ASaveThatWasStoredSucceedsThoughItsAnswerWasCut) {
  line.Next(Fault::CutBehind);
  EXPECT_EQ(Change(Rename("second")), 1);
  EXPECT_EQ(Names(), "second\n");
  EXPECT_EQ(Ask(store, "SELECT 1"), std::vector<std::string>{"1"});
}

TEST_F(OverALine, ASaveThatNeverArrivedFailsAndTheNextOneSucceeds) {
  line.Next(Fault::CutBefore);
  EXPECT_EQ(ErrorOf([&] { Change(Rename("second")); }), 3043);
  EXPECT_EQ(Names(), "first\n");
  EXPECT_EQ(Change(Rename("third")), 1);
  EXPECT_EQ(Names(), "third\n");
}

// The server still waits for the word that commits, and holds the row: it is ended before it is asked.
TEST_F(OverALine, ASaveOnAHalfOpenConnectionIsEndedThenFails) {
  line.Next(Fault::HalfOpen);
  EXPECT_EQ(ErrorOf([&] { Change(Rename("second")); }), 3043);
  EXPECT_EQ(Change(Rename("third")), 1);
  EXPECT_EQ(Names(), "third\n");
}

TEST_F(OverALine, WithoutAConnectionTheSaveFailsInTime) {
  const auto start = std::chrono::steady_clock::now();
  line.Refuse(true);
  line.Next(Fault::CutBefore);
  EXPECT_EQ(ErrorOf([&] { Change(Rename("second")); }), 3043);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
  line.Refuse(false);
  EXPECT_EQ(Change(Rename("third")), 1);
}

TEST_F(OverALine, ARowThatGetsItsKeyFromTheServerIsKnownByIt) {
  Run(store, "INSERT INTO \"orv1_people\".\"Words\" (\"Word\") VALUES ('a')");
  line.Next(Fault::CutBehind);
  Query insert(store, std::string_view("INSERT INTO \"orv1_people\".\"Words\" (\"Word\") VALUES ('b RETURNING c') RETURNING \"~key\""));
  insert.Run();
  EXPECT_EQ(insert.AddedRow(), 2);
  EXPECT_EQ(insert.Changed(), 1);
  EXPECT_EQ(Other("SELECT count(*) FROM orv1_people.\"Words\""), "2\n");
}

TEST_F(OverALine, TheRowsOfASaveAreCounted) {
  for (const char* name : {"b", "c"}) Run(store, "INSERT INTO \"orv1_people\".\"People\" (\"Name\") VALUES ('" + std::string(name) + "')");
  line.Next(Fault::CutBehind);
  EXPECT_EQ(Change("UPDATE \"orv1_people\".\"People\" SET \"Name\" = 'x' WHERE \"ID\" > 1"), 2);
  line.Next(Fault::CutBehind);
  EXPECT_EQ(Change(Rename("nobody", 99)), 0) << "others have deleted the row: nothing was written";
  line.Next(Fault::CutBehind);
  EXPECT_EQ(Change("DELETE FROM \"orv1_people\".\"People\" WHERE \"ID\" = 1"), 1);
  EXPECT_EQ(Names(), "x,x\n");
}

TEST_F(OverALine, AUnitIsStoredOrUndoneAsAWhole) {
  const auto both = [&](Fault fault) {
    Transaction unit(store, Transaction::Kind::Write);
    Change(Rename("unit"));
    Run(store, "INSERT INTO \"orv1_people\".\"People\" (\"Name\") VALUES ('added')");
    line.Next(fault);
    unit.Commit();
  };
  EXPECT_EQ(ErrorOf([&] { both(Fault::CutBefore); }), 3043);
  EXPECT_EQ(Names(), "first\n");
  EXPECT_EQ(ErrorOf([&] { both(Fault::CutBehind); }), 0);
  EXPECT_EQ(Names(), "unit,added\n");
  // The server has the word to commit, and may be ended before it comes to it: what is told is what became of it.
  const int told = ErrorOf([&] { both(Fault::HalfOpen); });
  EXPECT_TRUE(told == 0 || told == 3043) << told;
  EXPECT_EQ(Names(), told == 0 ? "unit,added,added\n" : "unit,added\n");
  EXPECT_EQ(Change(Rename("after")), 1);
}

TEST_F(OverALine, AFailedSaveIsNoCut) {
  EXPECT_EQ(ErrorOf([&] { Change("INSERT INTO \"orv1_people\".\"People\" (\"ID\") VALUES (1)"); }), 3022);
  line.Next(Fault::CutBehind);
  EXPECT_EQ(ErrorOf([&] { Change("INSERT INTO \"orv1_people\".\"People\" (\"ID\") VALUES (1)"); }), 3043);
  EXPECT_EQ(Names(), "first\n");
}

TEST_F(OverALine, AScanThatIsCutIsToldOnce) {
  Query rows(store, std::string_view("SELECT n, repeat('x', 1000) FROM generate_series(1, 20000) AS n"));
  line.Next(Fault::CutInAnswer);
  int read = 0;
  EXPECT_EQ(ErrorOf([&] {
              while (rows.Step()) ++read;
            }),
            3043);
  EXPECT_GT(read, 0);
  EXPECT_LT(read, 20'000);
  EXPECT_EQ(Ask(store, "SELECT 1"), std::vector<std::string>{"1"});
}

// A firewall that has forgotten the connection: only the own deadline ends that.
TEST_F(OverALine, ASilentLineIsGivenUpAndTheNextActConnectsAnew) {
  int painted = 0;
  store.OnWait([&] { ++painted; });
  line.Next(Fault::Silence);
  EXPECT_EQ(ErrorOf([&] { Change(Rename("second")); }), 3043);
  EXPECT_GE(painted, 20) << "the windows are painted meanwhile";
  line.Next(Fault::None);
  EXPECT_EQ(Change(Rename("third")), 1);
  EXPECT_EQ(Names(), "third\n");
}

// A host that can't be reached, or that takes a connection and says nothing.
TEST_F(OverALine, ConnectingToNobodyEndsInTime) {
  line.Next(Fault::Silence);
  PostgresStore other(Patient());
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(ErrorOf([&] { other.Open(line.PathOf(database_) + "orv1/people.zdb", "people.zdb"); }), 3043);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(900));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(3'000));
}

// Its last warning has the state of one that tells of a commit which another server hasn't confirmed.
TEST_F(OverALine, ASaveWhoseServerIsStoppedAtOnceBehindItSucceeds) {
  PostgresStore desk({.lock = 150, .connect = 20'000, .silence = 60'000});
  const auto opened = desk.Open(line.PathOf(database_) + "orv1/people.zdb", "people.zdb");
  Run(desk, Rename("before"));
  bool stopped = false;
  desk.OnWait([&] {
    if (stopped || Names() != "second\n") return;
    stopped = true;
    server_.Kill();
    server_.Start();
  });
  line.Next(Fault::AnswerLost);
  EXPECT_EQ(ErrorOf([&] { Run(desk, Rename("second")); }), 0);
  EXPECT_TRUE(stopped);
  EXPECT_EQ(Names(), "second\n");
}

// It was stored, and is no row that was gone: that nothing can be told of it any more is the other one's doing.
TEST_F(OverALine, ASaveWhoseRowAnotherChangesAtOnceSucceeds) {
  for (const std::string then : {"UPDATE orv1_people.\"People\" SET \"Name\" = 'theirs' WHERE \"ID\" = 1", "DELETE FROM orv1_people.\"People\""}) {
    bool done = false;
    store.OnWait([&] {
      if (!done && Names() == "second\n") {
        done = true;
        Other(then);
      }
    });
    line.Next(Fault::AnswerLost);
    EXPECT_EQ(Change(Rename("second")), 1) << then;
    EXPECT_TRUE(done);
    EXPECT_NE(Names(), "second\n");
    line.Next(Fault::None);
  }
}

// Every save is known: what was told as stored is there, what was told as failed isn't.
TEST_F(OverALine, NoneOfAStreamOfSavesIsToldWrongly) {
  std::string stored;
  int failed = 0;
  for (int i = 1; i <= 60; ++i) {
    const auto fault = static_cast<Fault>(i % 4);
    line.Next(fault);
    const std::string name = "n" + std::to_string(i);
    const int error = ErrorOf([&] { Run(store, "INSERT INTO \"orv1_people\".\"People\" (\"ID\", \"Name\") VALUES (" + std::to_string(i + 1) + ", '" + name + "')"); });
    EXPECT_EQ(error, fault == Fault::None || fault == Fault::CutBehind ? 0 : 3043) << i;
    error == 0 ? static_cast<void>(stored += ',' + name) : static_cast<void>(++failed);
  }
  EXPECT_EQ(Names(), "first" + stored + "\n");
  EXPECT_EQ(failed, 30);
}

TEST_F(OverALine, DesksThatAreGoneLeaveNoMarksForGood) {
  Other("INSERT INTO orv1_people.\"~saves\" VALUES ('gone', 1, pg_current_xact_id(), now() - interval '40 days'), ('away', 1, "
        "pg_current_xact_id(), now() - interval '20 days')");
  PostgresStore next(Patient());
  next.Open(Path("people.zdb"), "people.zdb");
  Run(next, Rename("x"));
  EXPECT_EQ(Other("SELECT count(*) FROM orv1_people.\"~saves\" WHERE desk IN ('gone', 'away')"), "1\n");
  EXPECT_EQ(Other("SELECT count(*) FROM orv1_people.\"~saves\""), "3\n");
}

TEST(RowsOfASave, AreAskedForByWhatTheStatementNames) {
  EXPECT_EQ(RowsWrittenBy("UPDATE \"s\".\"t\" SET \"a\" = $1 WHERE \"k\" = $2", "7"), "SELECT 1 FROM \"s\".\"t\" WHERE xmin = '7'::xid8::xid");
  EXPECT_EQ(RowsWrittenBy("INSERT INTO \"s\".\"t \"\" u\" (\"a\") VALUES ($1) RETURNING \"k\"", "7"),
            "SELECT \"k\" FROM \"s\".\"t \"\" u\" WHERE xmin = '7'::xid8::xid");
  EXPECT_EQ(RowsWrittenBy("DELETE FROM \"s\".\"t\"", "7"), "");
  // What a user has typed is never run.
  EXPECT_EQ(RowsWrittenBy("UPDATE \"s\".\"t\" SET \"a\" = ' RETURNING pg_sleep(9)'", "7"), "SELECT 1 FROM \"s\".\"t\" WHERE xmin = '7'::xid8::xid");
  EXPECT_EQ(RowsWrittenBy("UPDATE \"s\".\"t\" SET \"a\" = 'x RETURNING \"b\"'", "7"), "SELECT 1 FROM \"s\".\"t\" WHERE xmin = '7'::xid8::xid");
}

}  // namespace
}  // namespace engine::postgres
