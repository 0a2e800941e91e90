#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "maintenance/frmCustMain.h"
#include "queries/frmCustQueries.h"
#include "support/main_screen_test.h"

// The query screen at work, interrupted at each of its yields by each thing that a user or the program can do there: nothing is told
// that nobody took, nothing stays behind, and the next one begins afresh.
namespace {

using orcussch::frmCustMain;
using orcussch::frmCustQueries;

struct Interruption {
  const char* name;
  void (*act)(frmCustQueries& screen);
};

template <class Box>
void Turn(Box& box) {
  if (box.OpenToUser()) box.UserClick();
}

const Interruption kInterruptions[] = {
    {"all customers", [](frmCustQueries& s) { Turn(s.chkSelectAll); }},
    {"another criterion", [](frmCustQueries& s) { Turn(s.chkSelectMisc[orcussch::criteria::CustomerTypes]); }},
    {"a criterion goes", [](frmCustQueries& s) { Turn(s.chkSelectMisc[orcussch::criteria::KeyWords]); }},
    {"marks go", [](frmCustQueries& s) { s.grid[0].UserMark({}); }},
    {"another row", [](frmCustQueries& s) { s.grid[0].UserLast(); }},
    {"another tab", [](frmCustQueries& s) { s.SSTab1.UserClick(orcussch::criteria::Dates); }},
    {"a text", [](frmCustQueries& s) { s.txtSearch[0].UserType("P\r"); }},
    {"closed by its frame", [](frmCustQueries& s) { s.UserClose(); }},
    {"taken away", [](frmCustQueries& s) { s.App().Unload(s); }},
    {"the main screen is closed",
     [](frmCustQueries&) {
       if (frmCustMain* main = orcussch::screens::frmCustMain.peek()) main->UserClose();
     }},
    {"the main screen is taken away",
     [](frmCustQueries& s) {
       if (frmCustMain* main = orcussch::screens::frmCustMain.peek()) s.App().Unload(*main);
     }},
};

/// How the screen comes up.
enum class Way { FromMain, First };

class QueryInterruptions : public SessionTest {
 protected:
  QueryInterruptions() {
    MakeCompany();
    std::filesystem::copy(folder / "orvTEMP/orvTemp1.zdb", folder / "orvTEMP/orvTemp2.zdb");
    const auto add = [this](const char* table, const std::vector<std::string>& fields,
                            const std::vector<std::vector<platform::Value>>& rows) {
      const auto writer = engine::OpenBulkWriter(folder / "data/orv1/customer.zdb", table, fields);
      for (const auto& row : rows) writer->Add(row);
      writer->Finish();
    };
    add("Customers", {"AcctNum", "LastName"}, {{11, "Hale"}, {12, "Ives"}});
    add("Keywords", {"Keyword"}, {{"Boiler"}, {"Pump"}});
    add("DataCodes", {"Code", "Description"}, {{std::int16_t{3}, "Builder"}});
    add("Lookups", {"AcctNum", "Text"}, {{11, "Boiler"}, {12, "Pump"}});
    add("UserStartup", {"UserNum", "StartGrid", "QueryTab", "QueryField", "AddPhone"},
        {{2, false, std::int16_t{1}, std::int16_t{3}, true}});
  }

  /// Asks for a key word and runs; at the yield with that number `interrupt` comes in. Returns the number of yields.
  int Run(Way way, int yield, void (*interrupt)(frmCustQueries&)) {
    log->records.clear();
    frontEnd->boxes.clear();
    unhandled = 0;
    int yields = 0;
    app->OnUnhandled = [this](const platform::Error&) { ++unhandled; };
    orcussch::CustSearch host(*app);
    host.Let("UserID", way == Way::First ? 2 : 1);
    host.Let("CompanyID", 1);
    frontEnd->serve = [&](platform::Form& form) {
      if (auto* queries = dynamic_cast<frmCustQueries*>(&form)) yields = AskAndRun(*queries, yield, interrupt);
      if (auto* main = dynamic_cast<frmCustMain*>(&form)) {
        if (way == Way::FromMain && !asked) main->Toolbar1.Button("tb_Queries").UserClick();
        EXPECT_TRUE(!main->Loaded() || main->Toolbar1.Enabled());
      }
    };
    asked = false;
    host.ShowUser();
    frontEnd->serve = nullptr;
    frontEnd->onYield = nullptr;
    return yields;
  }

  int AskAndRun(frmCustQueries& s, int yield, void (*interrupt)(frmCustQueries&)) {
    asked = true;
    s.SSTab1.UserClick(orcussch::criteria::Misc);
    if (s.chkSelectMisc[orcussch::criteria::KeyWords].Value() == 0) s.chkSelectMisc[orcussch::criteria::KeyWords].UserClick();
    s.grid[0].UserMark({s.Data[0].Recordset()->Bookmark()});
    int yields = 0;
    frontEnd->onYield = [&] {
      if (++yields == yield && interrupt) interrupt(s);
    };
    s.Toolbar1.Button("tb_RunQuery").UserClick();
    frontEnd->onYield = nullptr;
    EXPECT_TRUE(!s.Loaded() || s.Toolbar1.Enabled());
    return yields;
  }

  void NothingStays(const std::string& when) {
    EXPECT_EQ(app->FormCount(), 0) << when;
    EXPECT_EQ(app->ActiveForm(), nullptr) << when;
    EXPECT_EQ(orcussch::screens::frmCustMain.peek(), nullptr) << when;
    EXPECT_EQ(orcussch::screens::frmCustQueries.peek(), nullptr) << when;
    EXPECT_EQ(app->MousePointer(), platform::pointer::Default) << when;
    EXPECT_EQ(unhandled, 0) << when;
    EXPECT_THAT(Reports(), testing::IsEmpty()) << when;
  }

  bool asked = false;
  int unhandled = 0;
};

TEST_F(QueryInterruptions, AtEachYieldOfARun) {
  for (const Way way : {Way::FromMain, Way::First}) {
    const int yields = Run(way, 0, nullptr);
    EXPECT_GT(yields, 8);
    NothingStays("undisturbed");
    for (const Interruption& one : kInterruptions)
      for (int yield = 1; yield <= yields; ++yield) {
        Run(way, yield, one.act);
        NothingStays(std::string(one.name) + " at yield " + std::to_string(yield) +
                     (way == Way::First ? ", first" : ", from the main screen"));
        // Each begins with all customers.
        orcussch::gQuerySQL.clear();
      }
  }
}

}  // namespace
