#include "suite/file_set.h"

#include "platform/services/data_path.h"

namespace suite {

std::string CompanyFolder(const platform::OperatingSystem& system, const std::string& folder, int company) {
  return platform::CompanyFolder(system, folder, company);
}

std::string CompanyFile(const platform::OperatingSystem& system, const std::string& folder, int company, DataFile file) {
  return platform::DataPath(system, folder, company, FileName(file));
}

std::string SettingsFile(const platform::OperatingSystem& system, const std::string& folder, int company) {
  return platform::SettingsPath(system, folder, company);
}

std::string TemporaryFile(const platform::OperatingSystem& system, const std::string& root, int user) {
  return platform::WithSeparator(system, root) + "orvTEMP" + system.Separator() + TemporaryFileName(user);
}

}  // namespace suite
