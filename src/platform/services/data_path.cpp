#include "platform/services/data_path.h"

#include "platform/services/operating_system.h"
#include "platform/values/convert.h"
#include "platform/values/text.h"

namespace platform {

namespace {

/// The size that the settings file is read with, its end mark included: a longer path is cut behind 126 characters.
constexpr int kIniSize = 127;

}  // namespace

bool IsServerPath(std::string_view path) {
  return path.size() >= kServerScheme.size() && EqualsNoCase(path.substr(0, kServerScheme.size()), kServerScheme);
}

std::string SettingsPath(const OperatingSystem& system, const std::string& libraryFolder, std::int32_t company) {
  return WithSeparator(system, libraryFolder) + "orv" + std::to_string(company) + ".ini";
}

std::string CompanyFolder(const OperatingSystem& system, const std::string& libraryFolder, std::int32_t company) {
  return WithSeparator(system, libraryFolder) + "data" + system.Separator() + "orv" + std::to_string(company);
}

std::string DataPath(const OperatingSystem& system, const std::string& libraryFolder, std::int32_t company, const std::string& fileName) {
  const std::string settings = SettingsPath(system, libraryFolder, company);
  // The folder alone (no file's name) has the key "Path": a key's outer blanks don't count.
  const std::string key = fileName.empty() ? "Path" : fileName + " Path";
  if (auto own = system.ReadIniValue("Databases", key, "", settings, kIniSize); !own.empty()) return own;
  if (auto folder = system.ReadIniValue("Databases", "Default Path", "", settings, kIniSize); !folder.empty()) return folder + fileName;
  if (UCase(fileName) == "DAT.ZDB") return WithSeparator(system, libraryFolder) + fileName;
  return CompanyFolder(system, libraryFolder, company) + system.Separator() + fileName;
}

}  // namespace platform
