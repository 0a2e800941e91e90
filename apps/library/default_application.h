#pragma once

#include <memory>
#include <string>

#include "platform/application.h"

namespace orcussch {

/// How a real host's application is put together. Folders are host paths; empty ones take their default.
struct DefaultApplicationOptions {
  std::string libraryFolder;   ///< dat.zdb, orv<n>.ini
  std::string localFolder;     ///< below it orvTEMP lies; default: the user's state folder
  std::string settingsFolder;  ///< default: the user's state folder
  bool keepSettings = true;
  std::string title;    ///< default: "ORCusSch"
  std::string logFile;  ///< default: in the user's state folder
};

/// The default wiring: SQLite engine, native paths, log files, windows. Raises platform::Error when there is no display or
/// the caller is not on the main thread.
std::unique_ptr<platform::Application> MakeDefaultApplication(const DefaultApplicationOptions& options);

}  // namespace orcussch
