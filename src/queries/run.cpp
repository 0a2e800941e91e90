#include "maintenance/frmCustMain.h"
#include "queries/frmCustQueries.h"
#include "queries/query_builder.h"
#include "session/ModCustSch.h"
#include "session/customers_title.h"
#include "session/failures.h"

// The toolbar: running the query, and leaving the screen, which only hides.
namespace orcussch {

namespace {

void EntitleList(const std::string& Which) { screens::frmCustMain->grid[tab::Customers].Caption(TitleOfCustomers(Which)); }

/// The query of before, which comes back unless it was replaced: a statement that stops half-way would list customers that nobody
/// asked for.
class QueryInForce {
 public:
  QueryInForce() : mSQL(gQuerySQL) {}
  ~QueryInForce() {
    if (!mReplaced) gQuerySQL.swap(mSQL);
  }
  QueryInForce(const QueryInForce&) = delete;
  QueryInForce& operator=(const QueryInForce&) = delete;
  void Replace(const std::string& words) {
    gQueryText = words;
    mReplaced = true;
  }

 private:
  std::string mSQL;
  bool mReplaced = false;
};

}  // namespace

void frmCustQueries::Toolbar1_ButtonClick(const std::string& Key) {
  Toolbar1.Enabled(false);
  if (Key == "tb_RunQuery") RunQuery();
  if (Visible()) App().Hide(*this);
  Toolbar1.Enabled(true);
}

/// In a yield the main screen may go, and takes this one along: nothing is asked of either then, so that neither comes back.
void frmCustQueries::RunQuery() {
  App().MousePointer(platform::pointer::Hourglass);
  App().DoEvents();
  if (Loaded()) BuildSQL();
  if (Loaded()) screens::frmCustMain->SQLData(tab::Customers);
  Toolbar1.Enabled(true);
  App().MousePointer(platform::pointer::Default);
  App().DoEvents();
}

void frmCustQueries::BuildSQL() {
  Trap("frmCustQueries.BuildSQL", [this] {
    App().DoEvents();
    if (!Loaded()) return;
    gFirstActivate = true;
    Toolbar1.Button("tb_RunQuery").Enabled(false);
    if (chkSelectAll.Value() == 1) {
      gQuerySQL.clear();
      gQueryText.clear();
      EntitleList("All");
      return;
    }
    QueryInForce query;
    QueryBuilder builder(*this);
    builder.Build(gQuerySQL);
    if (!Loaded()) return;
    query.Replace(builder.Words());
    EntitleList("Queried");
    App().DoEvents();
  });
}

}  // namespace orcussch
