#pragma once

#include <memory>
#include <string>

#include "platform/services/operating_system.h"
#include "suite/drive_map.h"

namespace suite {

/// Paths as the host writes them. `localRoot` (a host folder) replaces the user's state folder when it is not empty.
std::unique_ptr<platform::OperatingSystem> MakeNativeSystem(const std::string& localRoot = {});

/// Paths with drive letters and backslashes. The local root is the first three characters of `systemFolder`; a path
/// without a drive lies on that drive.
std::unique_ptr<platform::OperatingSystem> MakeWindowsStyleSystem(DriveMap drives, const std::string& systemFolder = "C:\\WINDOWS");

/// The folder for this user's own state: "$XDG_STATE_HOME/orcussch/", else ".local/state/orcussch/" in the home folder.
std::string UserStateFolder();

}  // namespace suite
