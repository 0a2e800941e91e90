// Long lists on a server: what isn't shown isn't fetched.
#include <fstream>
#include <string>

#include "engine/engine.h"
#include "platform/data/data.h"
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

}  // namespace
