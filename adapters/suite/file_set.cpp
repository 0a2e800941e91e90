#include "suite/file_set.h"

namespace suite {

namespace {

/// The buffer size that the library gives for a path in a settings file.
constexpr int kPathSize = 127;

}  // namespace

std::string CompanyFolder(const platform::OperatingSystem& system, const std::string& folder, int company) {
  return platform::WithSeparator(system, folder) + "data" + system.Separator() + "orv" + std::to_string(company);
}

std::string CompanyFile(const platform::OperatingSystem& system, const std::string& folder, int company, DataFile file) {
  const std::string root = platform::WithSeparator(system, folder);
  const std::string ini = root + "orv" + std::to_string(company) + ".ini";
  const std::string name = FileName(file);
  if (auto path = system.ReadIniValue("Databases", name + " Path", "", ini, kPathSize); !path.empty()) return path;
  if (auto path = system.ReadIniValue("Databases", "Default Path", "", ini, kPathSize); !path.empty()) return path + name;
  if (file == DataFile::Dat) return root + name;
  return CompanyFolder(system, folder, company) + system.Separator() + name;
}

std::string TemporaryFile(const platform::OperatingSystem& system, const std::string& root, int user) {
  return platform::WithSeparator(system, root) + "orvTEMP" + system.Separator() + TemporaryFileName(user);
}

}  // namespace suite
