#include "entry/screens.h"

#include "maintenance/frmCustMain.h"
#include "maintenance/openers.h"
#include "queries/frmCustQueries.h"
#include "session/openers.h"

namespace orcussch {

void ConnectScreens() {
  gSessionOpeners.showMain = [] { screens::frmCustMain.Show(); };
  gSessionOpeners.giveUpMain = [] { screens::frmCustMain.release(); };

  // Each screen that comes fills its own opener here. What stays empty is not there yet: its commands keep their keys and do
  // nothing.
  gMainOpeners = MainOpeners{};
  gSessionOpeners.showQueries = [] { screens::frmCustQueries.Show(); };
  gMainOpeners.queries = [](frmCustMain&) { screens::frmCustQueries.Show(); };
  gMainOpeners.queryScreen = []() -> platform::Form* { return screens::frmCustQueries.peek(); };
}

}  // namespace orcussch
