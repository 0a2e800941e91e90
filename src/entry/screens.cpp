#include "entry/screens.h"

#include "maintenance/frmCustMain.h"
#include "maintenance/openers.h"
#include "mapping/frmMap.h"
#include "queries/frmCustQueries.h"
#include "relationships/frmChildParentCustomers.h"
#include "reports/frmCustReports.h"
#include "reports/frmCustStats.h"
#include "reports/report_print.h"
#include "reports/report_run.h"
#include "session/ModCustSch.h"
#include "session/openers.h"
#include "setup/frmCreditCardSetup.h"
#include "setup/frmMapCode.h"
#include "setup/frmPhoneSetup.h"
#include "setup/frmUserStartup.h"
#include "setup/tax/frmTaxSetup.h"

namespace orcussch {

namespace {

/// Shows a screen modally; one that has only hidden itself goes.
template <class Screen>
void ShowAndUnload(platform::ScreenRef<Screen>& screen) {
  screen.Show();
  if (Screen* left = screen.peek(); left != nullptr && IsFormLoaded(left)) App().Unload(*left);
}

}  // namespace

void ConnectScreens() {
  gSessionOpeners.showMain = [] { screens::frmCustMain.Show(); };
  gSessionOpeners.giveUpMain = [] { screens::frmCustMain.release(); };
  gSessionOpeners.showQueries = [] { screens::frmCustQueries.Show(); };

  gMainOpeners = MainOpeners{};
  gMainOpeners.print = [](frmCustMain& main) { ReportPrint(main, destination::Printer); };
  gMainOpeners.preview = [](frmCustMain& main) { ReportPrint(main, destination::Preview); };
  gMainOpeners.reports = [](frmCustMain&) { screens::frmCustReports.Show(); };
  gMainOpeners.statistics = [](frmCustMain&) { screens::frmCustStats.Show(); };
  gMainOpeners.queries = [](frmCustMain&) { screens::frmCustQueries.Show(); };
  gMainOpeners.queryScreen = []() -> platform::Form* { return screens::frmCustQueries.peek(); };
  gMainOpeners.mapCustomer = [](frmCustMain&) { MapCustomer("One"); };
  gMainOpeners.mapAll = [](frmCustMain&) { MapCustomer("All"); };
  gMainOpeners.relationships = [](frmCustMain&) { screens::frmChildParentCustomers.Show(); };
  gMainOpeners.taxSetup = [](frmCustMain&) { screens::frmTaxSetup.Show(); };
  gMainOpeners.creditCardSetup = [](frmCustMain&) { screens::frmCreditCardSetup.Show(); };
  gMainOpeners.phoneSetup = [](frmCustMain&) { screens::frmPhoneSetup.Show(); };
  gMainOpeners.mapCodes = [](frmCustMain&) { screens::frmMapCode.Show(); };
  gMainOpeners.userOptions = [](frmCustMain&) { ShowAndUnload(screens::frmUserStartup); };
}

}  // namespace orcussch
