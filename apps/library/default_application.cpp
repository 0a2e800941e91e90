#include "library/default_application.h"

#include "library/windows.h"
#include "suite/accounts_lookup.h"
#include "suite/error_log.h"

namespace library {

std::unique_ptr<platform::Application> MakeDefaultApplication(const DefaultApplicationOptions& options) {
  Places places = FindPlaces(options.places);
  platform::ApplicationParts parts;
  parts.frontEnd = MakeWindows(options.settingsFolder, false);
  parts.engine = MakeEngine(*places.system);
  parts.system = std::move(places.system);
  parts.errorLog = suite::MakeErrorLog(options.errorLog);
  if (!options.supportLog.empty()) parts.diagnosticLog = suite::MakeDiagnosticLog(options.supportLog);
  parts.accounts = suite::MakeMissingAccountsLookup();
  parts.path = places.libraryFolder;
  parts.title = options.title;
  return std::make_unique<platform::Application>(std::move(parts));
}

}  // namespace library
