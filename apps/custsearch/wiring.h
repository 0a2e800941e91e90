#pragma once

#include <memory>
#include <string>

#include "custsearch/options.h"
#include "platform/application.h"
#include "platform/data.h"
#include "platform/operating_system.h"

namespace custsearch {

/// Where a run's files are: the system that names them, and the library's folder in its style.
struct Places {
  std::unique_ptr<platform::OperatingSystem> system;
  std::string libraryFolder;  ///< as the program writes it
  std::string dataFolder;     ///< the same as a folder of the host, absolute
  std::string localFolder;    ///< the local root as a folder of the host, without a separator at its end
};

/// Finds the folders. Raises UsageError for one that is not there or that no drive letter reaches.
Places FindPlaces(const Options& options);

/// An engine on its own, as another program of the suite would have it. `system` must outlive it.
std::unique_ptr<platform::DataEngine> MakeEngine(const Options& options, const platform::OperatingSystem& system);

/// The program's path of a user's temporary file.
std::string TemporaryFile(const platform::OperatingSystem& system, std::int32_t user);
/// Makes it with its empty tables when it is missing. Raises platform::Error, or UsageError for a folder that can't be made.
void MakeTemporaryFile(const platform::OperatingSystem& system, std::int32_t user);

}  // namespace custsearch
