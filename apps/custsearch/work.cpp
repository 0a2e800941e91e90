#include <iostream>

#include "custsearch/answer.h"
#include "custsearch/tasks.h"
#include "custsearch/windows.h"
#include "custsearch/wiring.h"
#include "platform/convert.h"
#include "session/CustSearch.h"
#include "suite/accounts_lookup.h"
#include "suite/error_log.h"
#include "suite/operating_system.h"

namespace custsearch {
namespace {

platform::ApplicationParts Parts(const Options& options, Places& places) {
  const std::string state = suite::UserStateFolder();
  platform::ApplicationParts parts;
  parts.frontEnd = MakeWindows(state, std::to_string(options.user), false);
  parts.engine = MakeEngine(options, *places.system);
  parts.errorLog = suite::MakeErrorLog(state + "errors.log");
  parts.diagnosticLog = suite::MakeDiagnosticLog(state + "diagnostic.log");
  parts.accounts = suite::MakeMissingAccountsLookup();
  parts.path = places.libraryFolder;
  parts.title = "Customer Search";
  parts.system = std::move(places.system);
  return parts;
}

}  // namespace

int Work(const Options& options) {
  Places places = FindPlaces(options);
  platform::Application app(Parts(options, places));
  MakeTemporaryFile(app.System(), options.user);

  orcussch::CustSearch host(app);
  host.UserID(options.user);
  host.CompanyID(options.company);
  if (options.customer) host.Customer(*options.customer);
  if (!options.billing.empty()) host.BillingStatus(options.billing);
  if (options.maintenanceOnly) host.NonSelection(true);
  host.ShowUser();

  options.json ? PrintAnswerAsJson(host, std::cout) : PrintAnswer(host, std::cout);
  return platform::CLng(host.Customer()) != 0 ? kDone : kNoneSelected;
}

}  // namespace custsearch
