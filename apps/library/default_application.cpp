#include "library/default_application.h"

#include "desktop/desktop.h"
#include "engine/engine.h"
#include "suite/accounts_lookup.h"
#include "suite/error_log.h"
#include "suite/operating_system.h"

namespace orcussch {

std::unique_ptr<platform::Application> MakeDefaultApplication(const DefaultApplicationOptions& options) {
  const std::string state = suite::UserStateFolder();

  desktop::DesktopOptions windows;
  if (options.keepSettings) windows.settingsFolder = options.settingsFolder.empty() ? state : options.settingsFolder;

  platform::ApplicationParts parts;
  parts.frontEnd = desktop::MakeFrontEnd(windows);
  parts.system = suite::MakeNativeSystem(options.localFolder);
  engine::EngineOptions engineOptions;
  engineOptions.hostPath = [system = parts.system.get()](std::string_view path) { return system->ToHostPath(path); };
  parts.engine = engine::MakeEngine(engineOptions);
  parts.errorLog = suite::MakeErrorLog(options.logFile.empty() ? state + "orcussch-errors.log" : options.logFile);
  parts.diagnosticLog = suite::MakeDiagnosticLog(state + "orcussch-support.log");
  parts.accounts = suite::MakeMissingAccountsLookup();
  parts.path = options.libraryFolder;
  parts.title = options.title.empty() ? "ORCusSch" : options.title;
  return std::make_unique<platform::Application>(std::move(parts));
}

}  // namespace orcussch
