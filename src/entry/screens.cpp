#include "entry/screens.h"

#include "maintenance/frmCustMain.h"
#include "maintenance/openers.h"
#include "queries/frmCustQueries.h"
#include "session/openers.h"
#include "setup/frmCreditCardSetup.h"
#include "setup/frmMapCode.h"
#include "setup/frmPhoneSetup.h"

namespace orcussch {

void ConnectScreens() {
  gSessionOpeners.showMain = [] { screens::frmCustMain.Show(); };
  gSessionOpeners.giveUpMain = [] { screens::frmCustMain.release(); };
  gSessionOpeners.showQueries = [] { screens::frmCustQueries.Show(); };

  // Each screen that comes fills its own opener here. What stays empty is not there yet: its commands keep their keys and do
  // nothing.
  gMainOpeners = MainOpeners{};
  gMainOpeners.queries = [](frmCustMain&) { screens::frmCustQueries.Show(); };
  gMainOpeners.queryScreen = []() -> platform::Form* { return screens::frmCustQueries.peek(); };
  gMainOpeners.creditCardSetup = [](frmCustMain&) { screens::frmCreditCardSetup.Show(); };
  gMainOpeners.phoneSetup = [](frmCustMain&) { screens::frmPhoneSetup.Show(); };
  gMainOpeners.mapCodes = [](frmCustMain&) { screens::frmMapCode.Show(); };
}

}  // namespace orcussch
