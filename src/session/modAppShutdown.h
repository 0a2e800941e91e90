#pragma once

#include <optional>
#include <string>

namespace orcussch {

/// Unloads every loaded screen, but for the one of that name. True unless a failure was reported.
bool SafeAppUnloadAllForms(const std::optional<std::string>& FormName = {});

/// Closes recordsets, databases and workspaces as the engine reports them, all or those of one workspace name. True unless
/// a failure was reported.
bool SafeAppShutdown(const std::optional<std::string>& WorkspaceName = {});

}  // namespace orcussch
