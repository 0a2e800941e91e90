#include "library/default_application.h"

#include "library/map.h"
#include "library/reports.h"
#include "library/windows.h"
#include "setup/accounts/accounts_picker.h"
#include "suite/error_log.h"

namespace library {

namespace {

class CalledAccounts final : public platform::AccountsLookup {
 public:
  explicit CalledAccounts(AccountsCall call) : call_(std::move(call)) {}
  platform::ChosenAccount Run(const platform::AccountsLookupInput& input) override { return call_(input); }

 private:
  AccountsCall call_;
};

}  // namespace

std::unique_ptr<platform::AccountsLookup> MakeAccounts(const DefaultApplicationOptions& options) {
  if (options.accounts) return std::make_unique<CalledAccounts>(options.accounts);
  return orcussch::MakeAccountsPicker();
}

std::unique_ptr<platform::Application> MakeDefaultApplication(const DefaultApplicationOptions& options) {
  Places places = FindPlaces(options.places);
  const auto made = std::make_shared<platform::Application*>(nullptr);
  const ReportPlaces reports{[made] { return *made; }, places.libraryFolder, places.dataFolder};
  platform::ApplicationParts parts;
  parts.frontEnd = MakeWindows(options.settingsFolder, false);
  parts.engine = MakeEngine(*places.system);
  parts.system = std::move(places.system);
  parts.errorLog = suite::MakeErrorLog(options.errorLog);
  if (!options.supportLog.empty()) parts.diagnosticLog = suite::MakeDiagnosticLog(options.supportLog);
  parts.accounts = MakeAccounts(options);
  parts.reports = MakeReports(reports);
  parts.listExport = MakeListExport();
  parts.map = MakeMap([made] { return *made; }, places.dataFolder);
  parts.path = places.libraryFolder;
  parts.title = options.title;
  auto application = std::make_unique<platform::Application>(std::move(parts));
  *made = application.get();
  return application;
}

}  // namespace library
