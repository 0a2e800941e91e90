// What the main screen's acts cost on a slow line to a server: round trips, which are exact.
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "maintenance/frmCustMain.h"
#include "support/controls.h"
#include "support/counting_proxy.h"
#include "support/session_test.h"
#include "support/test_server.h"
#include "unit/apps/suitefiles/program_runner.h"

namespace {

using orcussch::frmCustMain;
namespace tab = orcussch::tab;

/// Company 1 with 2,000 customers on a server behind a line that counts.
class OnASlowLine : public SessionTest {
 protected:
  OnASlowLine() : server_(TestServer::Shared()), proxy_(server_.Socket()) {
    ::setenv("PGUSER", "office", 1);
    static const bool made = MakeDemo(server_);
    EXPECT_TRUE(made);
    server_.CreateDatabase(kDatabase, kPattern);
    const std::string place = proxy_.PathOf(kDatabase) + "orv1/";
    std::ofstream(folder / "orv1.ini") << "[Databases]\ndat.zdb Path=" << place << "dat.zdb\nDefault Path=" << place << "\n";
    std::filesystem::create_directories(folder / "orvTEMP");
    engine::CreateDataFile((folder / "orvTEMP/orvTemp1.zdb"), suite::TablesOf(suite::DataFile::Temporary), true);
  }
  ~OnASlowLine() override { server_.DropDatabase(kDatabase); }

  static bool MakeDemo(TestServer& server) {
    server.CreateDatabase(kPattern);
    const auto made = RunSuitefiles({"demo", server.PathOf(kPattern) + "orv1/", "--company", "1", "--customers", "2000"});
    EXPECT_EQ(made.status, 0) << made.err;
    return made.status == 0;
  }

  std::uint64_t TripsOf(const std::function<void()>& act) const {
    const std::uint64_t before = proxy_.Trips();
    act();
    return proxy_.Trips() - before;
  }
  /// Shows the main screen to its first rows, and to the user.
  void Serve(const std::function<void(frmCustMain&)>& user) {
    orcussch::CustSearch host(*app);
    host.Let("UserID", 1);
    host.Let("CompanyID", 1);
    frontEnd->serve = [&](platform::Form& form) {
      auto* screen = dynamic_cast<frmCustMain*>(&form);
      if (screen == nullptr) return;
      EXPECT_EQ(Page(*screen).size(), 49);
      user(*screen);
    };
    host.ShowUser();
    frontEnd->serve = nullptr;
  }
  static std::vector<platform::ListRow> Page(frmCustMain& screen) {
    return screen.data[tab::Customers].Window()->RowsAfter(screen.data[tab::Customers].Recordset()->Bookmark(), 49);
  }

  static constexpr const char* kPattern = "pattern";
  static constexpr const char* kDatabase = "office";
  TestServer& server_;
  CountingProxy proxy_;
};

/// What it takes today: it must not grow. The first start of all makes the company's links, too.
TEST_F(OnASlowLine, FromStartToTheList) {
  std::uint64_t opening = 0;
  const auto start = [&] {
    const std::uint64_t before = proxy_.Trips();
    Serve([&](frmCustMain&) { opening = proxy_.Trips() - before; });
    return opening;
  };
  EXPECT_LE(start(), 28);
  EXPECT_LE(start(), 22);
  EXPECT_GT(opening, 0);
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

TEST_F(OnASlowLine, TheListStandsUntouchedForNothing) {
  Serve([&](frmCustMain& screen) {
    EXPECT_EQ(TripsOf([&] {
                for (int painted = 0; painted < 10; ++painted) Page(screen);
              }),
              0);
  });
}

// Where a save takes longer than a tenth of a second, the customer may be read again: the quickest of some tells.
TEST_F(OnASlowLine, ACardIsOpenedAndSaved) {
  std::uint64_t least = 100;
  std::uint64_t most = 0;
  Serve([&](frmCustMain& screen) {
    for (const char* text : {"Suite 1", "Suite 2", "Suite 3", "Suite 4", "Suite 5"}) {
      EXPECT_LE(TripsOf([&] { screen.miEditRec.UserClick(); }), 6);
      EditOf(screen, "txtAddr2").Text(text);
      const std::uint64_t trips = TripsOf([&] { screen.miSaveRec.UserClick(); });
      least = std::min(least, trips);
      most = std::max(most, trips);
      EXPECT_EQ(TripsOf([&] { EXPECT_EQ(Page(screen).size(), 49); }), 0);
      EXPECT_EQ(server_.Run(kDatabase, "SELECT count(*) FROM orv1_customer.\"Customers\" WHERE \"Addr2\" = '" + std::string(text) + "'"),
                "1\n");
    }
  });
  EXPECT_LE(least, 4);
  EXPECT_LE(most, 8);
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

}  // namespace
