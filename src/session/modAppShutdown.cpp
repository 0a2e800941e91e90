#include "session/modAppShutdown.h"

#include "platform/values/convert.h"
#include "session/ModCustSch.h"
#include "session/failures.h"

namespace orcussch {

namespace {

void CloseRecordsets(platform::Database& database) {
  while (database.RecordsetCount() > 0) {
    database.RecordsetAt(0)->Close();
    App().DoEvents();
    database.RefreshRecordsets();
  }
}

void CloseDatabases(platform::Workspace& workspace) {
  while (workspace.DatabaseCount() > 0) {
    const platform::DatabaseRef database = workspace.DatabaseAt(0);
    CloseRecordsets(*database);
    database->Close();
    App().DoEvents();
    workspace.RefreshDatabases();
  }
}

}  // namespace

bool SafeAppUnloadAllForms(const std::optional<std::string>& FormName) {
  return Trap("SafeAppUnloadAllForms", [&] {
    const auto spared = [&](const platform::Form& form) {
      return FormName && platform::UCase(platform::Trim(form.Name())) == platform::UCase(platform::Trim(*FormName));
    };
    int count = App().FormCount();
    while (count > 1) {
      App().Unload(App().FormAt(spared(App().FormAt(0)) ? 1 : 0));
      App().DoEvents();
      const int left = App().FormCount();
      if (left >= count) break;  // a form that is on its way out already would be asked for ever
      count = left;
    }
    if (!FormName && App().FormCount() > 0) App().Unload(App().FormAt(0));
    App().DoEvents();
  });
}

bool SafeAppShutdown(const std::optional<std::string>& WorkspaceName) {
  return Trap("SafeAppShutdown", [&] {
    platform::DataEngine& engine = App().Engine();
    for (int i = engine.WorkspaceCount() - 1; i >= 0; --i) {
      const platform::WorkspaceRef workspace = engine.WorkspaceAt(i);
      if (WorkspaceName && platform::Trim(*WorkspaceName) != platform::Trim(workspace->Name())) continue;
      CloseDatabases(*workspace);
      App().DoEvents();
      workspace->Close();
      engine.RefreshWorkspaces();
    }
    App().DoEvents();
  });
}

}  // namespace orcussch
