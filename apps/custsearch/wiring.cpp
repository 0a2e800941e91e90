#include "custsearch/wiring.h"

#include <filesystem>

#include "engine/data_file.h"
#include "engine/engine.h"
#include "suite/company_schema.h"
#include "suite/file_set.h"
#include "suite/operating_system.h"

namespace custsearch {
namespace {

namespace fs = std::filesystem;

std::string WithoutSeparator(std::string path) {
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

/// The folder's absolute name; it must be there.
std::string Folder(const std::string& folder) {
  std::error_code problem;
  const fs::path path = fs::canonical(folder, problem);
  if (problem || !fs::is_directory(path)) throw UsageError("there is no folder " + folder);
  return path.string();
}

std::unique_ptr<platform::OperatingSystem> WindowsSystem(const Options& options) {
  suite::DriveMap drives;
  for (const std::string& text : options.drives) {
    const auto drive = suite::ParseDriveOption(text);
    if (!drive) throw UsageError("option --drive is a letter and a folder, C=DIR, not \"" + text + "\"");
    drives.Add(drive->letter, Folder(drive->folder));
  }
  return suite::MakeWindowsStyleSystem(std::move(drives));
}

/// Scenarios keep their temporary files beside the data, so that they leave nothing behind elsewhere. They make no folder
/// either: one that is missing is a missing temporary folder.
std::unique_ptr<platform::OperatingSystem> NativeSystem(const Options& options, const std::string& dataFolder) {
  const bool scenario = options.task == Task::Scenario;
  if (!options.local) return suite::MakeNativeSystem(scenario ? dataFolder : std::string());
  std::error_code ignored;
  if (scenario) return suite::MakeNativeSystem(fs::absolute(*options.local, ignored).lexically_normal().string());
  fs::create_directories(*options.local, ignored);
  return suite::MakeNativeSystem(Folder(*options.local));
}

}  // namespace

Places FindPlaces(const Options& options) {
  Places places;
  places.dataFolder = Folder(options.data);
  places.system = options.windowsPaths ? WindowsSystem(options) : NativeSystem(options, places.dataFolder);
  places.libraryFolder = places.system->FromHostPath(places.dataFolder);
  if (places.libraryFolder.empty()) throw UsageError("no drive letter reaches the folder " + places.dataFolder);
  places.localFolder = WithoutSeparator(places.system->ToHostPath(places.system->LocalRoot()));
  return places;
}

std::unique_ptr<platform::DataEngine> MakeEngine(const Options& options, const platform::OperatingSystem& system) {
  engine::EngineOptions engineOptions;
  if (options.threshold) engineOptions.exactRows = *options.threshold;
  engineOptions.now = [&system] { return system.Now(); };
  engineOptions.hostPath = [&system](std::string_view path) { return system.ToHostPath(path); };
  return engine::MakeEngine(engineOptions);
}

std::string TemporaryFile(const platform::OperatingSystem& system, std::int32_t user) {
  return suite::TemporaryFile(system, system.LocalRoot(), user);
}

void MakeTemporaryFile(const platform::OperatingSystem& system, std::int32_t user) {
  const fs::path file = system.ToHostPath(TemporaryFile(system, user));
  if (fs::exists(file)) return;
  std::error_code problem;
  fs::create_directories(file.parent_path(), problem);
  if (problem) throw UsageError("the folder " + file.parent_path().string() + " can't be made: " + problem.message());
  engine::CreateDataFile(file.string(), suite::TablesOf(suite::DataFile::Temporary), true);
}

}  // namespace custsearch
