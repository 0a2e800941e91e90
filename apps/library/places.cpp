#include "library/places.h"

#include <filesystem>

#include "engine/data_file.h"
#include "engine/engine.h"
#include "platform/values/error.h"
#include "suite/company_schema.h"
#include "suite/file_set.h"
#include "suite/operating_system.h"

namespace library {
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
  if (problem || !fs::is_directory(path, problem)) throw FolderError("there is no folder " + folder);
  return path.string();
}

std::unique_ptr<platform::OperatingSystem> DriveSystem(const PlaceOptions& options) {
  suite::DriveMap drives;
  for (const std::string& text : options.drives) {
    const auto drive = suite::ParseDriveOption(text);
    if (!drive) throw OptionError("a drive is a letter and a folder, C=DIR, not \"" + text + "\"");
    drives.Add(drive->letter, Folder(drive->folder));
  }
  return suite::MakeWindowsStyleSystem(std::move(drives));
}

std::unique_ptr<platform::OperatingSystem> NativeSystem(const PlaceOptions& options) {
  if (!options.localFolder) return suite::MakeNativeSystem();
  if (options.missingLocal == MissingLocal::Leave) return suite::MakeNativeSystem(AbsoluteName(*options.localFolder));
  std::error_code told;
  if (options.missingLocal == MissingLocal::Make) fs::create_directories(*options.localFolder, told);
  return suite::MakeNativeSystem(Folder(*options.localFolder));
}

}  // namespace

std::string AbsoluteName(const std::string& file) { return fs::absolute(file).lexically_normal().string(); }

Places FindPlaces(const PlaceOptions& options) {
  Places places;
  places.dataFolder = Folder(options.libraryFolder);
  places.system = options.drives.empty() ? NativeSystem(options) : DriveSystem(options);
  places.libraryFolder = places.system->FromHostPath(places.dataFolder);
  if (places.libraryFolder.empty()) throw OptionError("no drive letter reaches the folder " + places.dataFolder);
  places.localFolder = WithoutSeparator(places.system->ToHostPath(places.system->LocalRoot()));
  return places;
}

std::unique_ptr<platform::DataEngine> MakeEngine(const platform::OperatingSystem& system, std::optional<std::int64_t> exactRows, Locks locks,
                                                 Others others) {
  engine::EngineOptions options;
  if (exactRows) options.exactRows = *exactRows;
  options.lockWholeFiles = locks == Locks::WholeFiles;
  options.askOthers = others == Others::AreAsked;
  options.codeTables = suite::CodeTableNames();
  options.now = [&system] { return system.Now(); };
  options.hostPath = [&system](std::string_view path) { return system.ToHostPath(path); };
  return engine::MakeEngine(options);
}

std::string TemporaryFile(const platform::OperatingSystem& system, std::int32_t user) {
  return suite::TemporaryFile(system, system.LocalRoot(), user);
}

void MakeTemporaryFile(const platform::OperatingSystem& system, std::int32_t user) {
  const fs::path file = system.ToHostPath(TemporaryFile(system, user));
  if (fs::exists(file)) return;
  std::error_code problem;
  fs::create_directories(file.parent_path(), problem);
  if (problem) throw FolderError("the folder " + file.parent_path().string() + " can't be made: " + problem.message());
  try {
    engine::CreateDataFile(file.string(), suite::TablesOf(suite::DataFile::Temporary), true);
  } catch (const platform::Error& failure) {
    if (failure.Number() != platform::error::number::FileExists) throw;  // another program has just made it, whole
  }
}

}  // namespace library
