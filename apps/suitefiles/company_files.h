#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "suite/file_set.h"
#include "suite/operating_system.h"

namespace suitefiles {

/// The data folder that a command was given, with the rules that say where each file of a company lies. Relative
/// paths are taken from the working folder.
class DataFolder {
 public:
  explicit DataFolder(const std::string& folder);

  const std::string& Path() const { return folder_; }
  std::string Dat() const { return folder_ + "/dat.zdb"; }
  /// By the company's settings file where it says so.
  std::string File(int company, suite::DataFile file) const;
  /// The default place of the company's files.
  std::string CompanyFolder(int company) const;
  std::string IniFile(int company) const;
  std::string TemporaryFile(int user) const;
  /// Numbers of the companies that have a row in dat.zdb, ascending. Raises what opening dat.zdb raises.
  std::vector<int> Companies() const;

 private:
  std::unique_ptr<platform::OperatingSystem> system_;
  std::string folder_;
};

/// A folder under a name of its own, beside the place where it goes when all work on it is done. What is not moved
/// there is deleted.
class StagingFolder {
 public:
  explicit StagingFolder(std::filesystem::path target);
  ~StagingFolder();
  StagingFolder(const StagingFolder&) = delete;
  StagingFolder& operator=(const StagingFolder&) = delete;

  std::string Path() const { return path_.string(); }
  /// Moves it to its target, which must be missing or an empty folder. CommandError when it is neither.
  void MoveToTarget();

 private:
  std::filesystem::path target_;
  std::filesystem::path path_;
};

/// Whether something other than an empty folder stands there.
bool IsTaken(const std::filesystem::path& path);

}  // namespace suitefiles
