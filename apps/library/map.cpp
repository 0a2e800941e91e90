#include "library/map.h"

#include <dlfcn.h>

#include <filesystem>
#include <utility>
#include <vector>

#include "platform/services/data_path.h"
#include "session/ModCustSch.h"
#include "streets/entry/street_map.h"

namespace library {
namespace {

namespace fs = std::filesystem;

constexpr const char* kStreets = "streets.zds";

/// The folder of the library, or of the program, in which this code is.
fs::path OwnFolder() {
  Dl_info own{};
  std::error_code problem;
  if (::dladdr(reinterpret_cast<const void*>(&MakeMap), &own) != 0 && own.dli_fname != nullptr) {
    const std::string file = own.dli_fname;
    // A program's name is as it was called, perhaps without a folder.
    if (file.find(".so") != std::string::npos) {
      const fs::path found = fs::canonical(file, problem);
      if (!problem) return found.parent_path();
    }
  }
  return fs::read_symlink("/proc/self/exe", problem).parent_path();
}

/// Where it lies beside a library or a program: as installed, and as built.
std::string BaseMap() {
  const fs::path own = OwnFolder();
  std::string first;
  std::error_code ignored;
  for (const char* place : {"../share/orcussch/map.zds", "../../share/orcussch/map.zds"}) {
    const std::string file = (own / place).lexically_normal().string();
    if (fs::is_regular_file(file, ignored)) return file;
    if (first.empty()) first = file;
  }
  return first;
}

std::vector<std::string> MapFiles(const platform::Application* app, const std::string& hostFolder) {
  std::vector<std::string> files{BaseMap(), (fs::path(hostFolder) / kStreets).string()};
  if (app == nullptr) return files;
  const std::string company = app->System().ToHostPath(orcussch::GetDataPath(orcussch::gCompanyID, kStreets));
  std::error_code told;
  const bool isOther = fs::is_regular_file(company, told) && !fs::equivalent(company, files.back(), told);
  if (isOther) files.push_back(company);
  return files;
}

}  // namespace

std::unique_ptr<platform::MapEngine> MakeMap(std::function<platform::Application*()> app, const std::string& hostFolder) {
  return streets::MakeStreetMap([app = std::move(app), hostFolder] { return MapFiles(app(), hostFolder); });
}

}  // namespace library
