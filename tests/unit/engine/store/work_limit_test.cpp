// Statements whose work is bounded: what counts is the work of this run.
#include "engine/store/query.h"
#include "engine/store/sqlite/sqlite_store.h"
#include "unit/engine/store/data_file_fixture.h"

namespace engine {
namespace {

class WorkLimits : public DataFileTest {
 protected:
  // Counts up to `rows`; whether that was done with the work of `allowed` rows.
  bool Counts(int rows, int allowed) {
    int counted = 0;
    const bool done = store.ReadsCheaply(allowed, [&] {
      Query query(store, std::string_view("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT ?1) SELECT i FROM n"));
      query.Bind(1, std::int64_t{rows});
      while (query.Step()) ++counted;
    });
    EXPECT_EQ(done, counted == rows);
    return done;
  }
  SqliteStore store{0, noNetwork, Clock{}};
};

TEST_F(WorkLimits, EndAStatementThatNeedsMore) {
  EXPECT_TRUE(Counts(100, 1000));
  EXPECT_FALSE(Counts(100'000, 1000));
  EXPECT_TRUE(Counts(100, 1000));
}

TEST_F(WorkLimits, AStatementThatRunsOftenHasAllOfItEachTime) {
  for (int run = 0; run < 100; ++run) EXPECT_TRUE(Counts(300, 300)) << run;
}

}  // namespace
}  // namespace engine
