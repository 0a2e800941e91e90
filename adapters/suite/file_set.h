#pragma once

#include <string>

#include "platform/services/operating_system.h"
#include "suite/company_schema.h"

namespace suite {

/// Where a file of a company lies, for tools that work on a whole data folder: by the one look-up that the screens use too. Folder and
/// answer are paths of the system's style.
std::string CompanyFile(const platform::OperatingSystem& system, const std::string& folder, int company, DataFile file);

/// The folder of a company's files in the default layout, without a separator at its end.
std::string CompanyFolder(const platform::OperatingSystem& system, const std::string& folder, int company);

/// The company's settings file in a data folder.
std::string SettingsFile(const platform::OperatingSystem& system, const std::string& folder, int company);

/// "orvTEMP/orvTemp<user>.zdb" below a root.
std::string TemporaryFile(const platform::OperatingSystem& system, const std::string& root, int user);

}  // namespace suite
