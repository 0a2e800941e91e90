#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

class OperatingSystem;

/// How the path of a file on a database server begins: "postgresql://HOST[:PORT][,HOST...]/DATABASE/[COMPANY/]FILE". It is the same
/// text for the program and for the host.
inline constexpr std::string_view kServerScheme = "postgresql://";
bool IsServerPath(std::string_view path);

/// Where a company's file lies, for the screens and for every tool: by its own key in the company's settings file, else by the default
/// path there, else "dat.zdb" in the library's folder and any other file in the company's folder. `libraryFolder` and the answer are
/// paths of the system's style. Raises what reading the settings file raises.
std::string DataPath(const OperatingSystem& system, const std::string& libraryFolder, std::int32_t company, const std::string& fileName);

/// The company's settings file, "orv<company>.ini" in the library's folder.
std::string SettingsPath(const OperatingSystem& system, const std::string& libraryFolder, std::int32_t company);

/// The folder of a company that has no settings, without a separator at its end.
std::string CompanyFolder(const OperatingSystem& system, const std::string& libraryFolder, std::int32_t company);

}  // namespace platform
