// Which file a path names, which errors the server's states are, and who wrote.
#include "engine/store/postgres/link/target.h"

#include <gtest/gtest.h>

#include "engine/store/postgres/link/failure.h"
#include "engine/store/postgres/link/snapshot_watch.h"
#include "unit/engine/support/engine_fixture.h"

namespace engine::postgres {
namespace {

TEST(Target, NamesServerDatabaseCompanyAndFile) {
  const Target target = ParseTarget("postgresql://db.office:5433/suite/orv1/Customer.zdb");
  EXPECT_EQ(target.hosts, "db.office");
  EXPECT_EQ(target.ports, "5433");
  EXPECT_EQ(target.database, "suite");
  EXPECT_EQ(target.schema, "orv1_customer");
}

TEST(Target, NeedsNoCompanyAndNoPort) {
  const Target target = ParseTarget("PostgreSQL://db/suite/dat.zdb");
  EXPECT_EQ(target.ports, "");
  EXPECT_EQ(target.schema, "dat");
}

TEST(Target, MayNameSeveralHostsSocketsAndAddresses) {
  const Target two = ParseTarget("postgresql://one:5433,two/suite/orv2/GL.zdb");
  EXPECT_EQ(two.hosts, "one,two");
  EXPECT_EQ(two.ports, "5433,");
  EXPECT_EQ(two.schema, "orv2_gl");
  EXPECT_EQ(ParseTarget("postgresql://%2Frun%2Fpostgresql/suite/dat.zdb").hosts, "/run/postgresql");
  const Target address = ParseTarget("postgresql://[::1]:5433/suite/dat.zdb");
  EXPECT_EQ(address.hosts, "::1");
  EXPECT_EQ(address.ports, "5433");
}

TEST(Target, IsNoPathWithoutItsPieces) {
  for (const char* path : {"postgresql://", "postgresql://db", "postgresql://db/suite", "postgresql:///suite/dat.zdb", "postgresql://db//dat.zdb",
                           "postgresql://db/suite/", "postgresql://db/suite/orv1/", "postgresql://db/suite/a/b/c.zdb", "postgresql://db:x/suite/dat.zdb",
                           "postgresql://db:/suite/dat.zdb", "postgresql://db,/suite/dat.zdb", "postgresql://[::1/suite/dat.zdb",
                           "postgresql://db%2/suite/dat.zdb", "postgresql://db%00/suite/dat.zdb", "postgresql://db/suite/pg_catalog.zdb",
                           "postgresql://db/suite/information_schema.zdb", "postgresql://db/suite/.zdb", "C:\\data\\dat.zdb"}) {
    EXPECT_EQ(ErrorOf([&] { ParseTarget(path); }), 3044) << path;
  }
  EXPECT_EQ(ErrorOf([] { ParseTarget("postgresql://db/suite/" + std::string(64, 'x') + ".zdb"); }), 3044);
}

TEST(Target, RefusesUsersPasswordsAndOptionsWithoutRepeatingThem) {
  for (const char* path : {"postgresql://office:secret@db/suite/dat.zdb", "postgresql://db/suite/dat.zdb?password=secret",
                           "postgresql://db/suite?sslmode=secret/dat.zdb", "postgresql://db/suite/dat.zdb#secret",
                           // cut by the settings file before its end, or written with escapes
                           "postgresql://office:secret", "postgresql://office:secret/suite/dat.zdb", "postgresql://office:secret%40db/suite/dat.zdb",
                           "postgresql://office%3Asecret%40db/suite/dat.zdb", "postgresql://one,office:secret/suite/dat.zdb"}) {
    const auto act = [&] { ParseTarget(path); };
    EXPECT_EQ(ErrorOf(act), 3044) << path;
    EXPECT_EQ(DescriptionOf(act).find("secret"), std::string::npos) << DescriptionOf(act);
  }
}

TEST(Target, OfOneDatabaseShareAConnection) {
  const Target one = ParseTarget("postgresql://db/suite/orv1/customer.zdb");
  EXPECT_TRUE(one.SameDatabase(ParseTarget("postgresql://db/suite/dat.zdb")));
  EXPECT_FALSE(one.SameDatabase(ParseTarget("postgresql://db/other/dat.zdb")));
  EXPECT_FALSE(one.SameDatabase(ParseTarget("postgresql://db:5433/suite/dat.zdb")));
}

int NumberOf(const std::string& state, Doing doing) { return StatementError({state, "", "", false}, doing, "x").Number(); }

TEST(Failure, HasTheEnginesNumber) {
  struct Row {
    const char* state;
    int reading;
    int writing;
  };
  for (const Row& row : {Row{"23505", 3022, 3022}, Row{"23502", 3058, 3058}, Row{"22001", 3163, 3163}, Row{"54000", 3163, 3163},
                         Row{"22003", 3349, 3349}, Row{"22012", 11, 11}, Row{"22021", 3421, 3421}, Row{"55P03", 3045, 3218},
                         Row{"40P01", 3045, 3218}, Row{"25006", 3051, 3027}, Row{"42501", 3051, 3027}, Row{"53100", 3043, 3043},
                         Row{"53200", 3035, 3035}, Row{"53400", 3035, 3035}, Row{"57P01", 3043, 3043}, Row{"57P02", 3043, 3043},
                         Row{"57P03", 3043, 3043}, Row{"08006", 3043, 3043}, Row{"42P01", 3078, 3078}, Row{"3F000", 3011, 3011},
                         Row{"XX000", 3000, 3000}}) {
    EXPECT_EQ(NumberOf(row.state, Doing::Reading), row.reading) << row.state;
    EXPECT_EQ(NumberOf(row.state, Doing::Writing), row.writing) << row.state;
  }
  EXPECT_EQ(StatementError({"", "", "", true}, Doing::Reading, "x").Number(), 3043);
}

TEST(Failure, OfConnectingHasItsOwnNumbers) {
  const auto number = [](const char* state) { return ConnectError({state, "", "", true}, "x").Number(); };
  EXPECT_EQ(number("28P01"), 3051);
  EXPECT_EQ(number("28000"), 3051);
  EXPECT_EQ(number("3D000"), 3044);
  EXPECT_EQ(number("53300"), 3045);
  EXPECT_EQ(number("57P03"), 3043);
  EXPECT_EQ(number(""), 3043);
}

// Two of the server's warnings share a state: one tells of a commit, the other of a server that is stopped at once.
TEST(Failure, AServerThatIsStoppedAtOnceTellsNothingOfACommit) {
  EXPECT_TRUE(MeansStoredHereAlone({"01000", "", "", false, "SyncRepWaitForLSN"}));
  EXPECT_TRUE(MeansStoredHereAlone({"57P01", "", "", false, "SyncRepWaitForLSN"}));
  EXPECT_FALSE(MeansStoredHereAlone({"57P01", "", "", false, "quickdie"}));
  EXPECT_FALSE(MeansStoredHereAlone({"57P01", "", "", false, "ProcessInterrupts"}));
}

TEST(Failure, StateIsFoundInAnyLanguage) {
  EXPECT_EQ(StateInMessage("connection to server at \"db\" (::1), port 5432 failed: FATAL:  28P01\n"), "28P01");
  EXPECT_EQ(StateInMessage("connection to server on socket \"x\" failed: \u0412\u0410\u0416\u041D\u041E:  3D000"), "3D000");
  EXPECT_EQ(StateInMessage("connection failed: Connection refused\n\tIs the server running?"), "");
  EXPECT_EQ(StateInMessage(""), "");
}

TEST(SnapshotWatch, TellsOthersWritesFromOwn) {
  SnapshotWatch watch;
  EXPECT_TRUE(watch.Others("100:100:"));
  EXPECT_FALSE(watch.Others("100:100:"));
  watch.Own("100");
  EXPECT_FALSE(watch.Others("101:101:"));
  EXPECT_TRUE(watch.Others("102:102:"));
}

TEST(SnapshotWatch, WaitsForTheEndOfWhatRuns) {
  SnapshotWatch watch;
  watch.Others("100:100:");
  EXPECT_FALSE(watch.Others("100:101:100"));  // somebody has begun
  watch.Own("101");
  EXPECT_FALSE(watch.Others("100:102:100"));  // our own one has ended meanwhile
  EXPECT_TRUE(watch.Others("102:102:"));
  EXPECT_FALSE(watch.Others("102:102:"));
}

TEST(SnapshotWatch, KnowsNothingOnANewConnection) {
  SnapshotWatch watch;
  watch.Others("100:100:");
  watch.Forget();
  EXPECT_TRUE(watch.Others("100:100:"));
}

}  // namespace
}  // namespace engine::postgres
