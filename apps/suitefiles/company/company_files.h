#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "suite/file_set.h"
#include "suite/operating_system.h"

namespace suitefiles {

/// The data folder that a command was given, with the rules that say where each file of a company lies. Relative
/// paths are taken from the working folder. In its place may stand what a settings file names as the place of a company on a server
/// ("postgresql://HOST/DATABASE/COMPANY/"): all files of the one company are there.
class DataFolder {
 public:
  explicit DataFolder(const std::string& folder);

  const std::string& Path() const { return folder_; }
  /// No folder of a library: nothing but data files can lie there.
  bool OnServer() const { return onServer_; }
  /// The file of the companies whose settings do not name another one.
  std::string Dat() const { return folder_ + "/dat.zdb"; }
  /// By the company's settings file where it says so, "dat.zdb" too.
  std::string File(int company, suite::DataFile file) const;
  /// The default place of the company's files.
  std::string CompanyFolder(int company) const;
  std::string IniFile(int company) const;
  /// With a company on a server a file of this desk all the same, where the programs of who runs the command look for it.
  std::string TemporaryFile(int user) const;
  /// Those of all users that are there.
  std::vector<std::string> TemporaryFiles() const;

  /// The companies' numbers, ascending: those that have a row in Dat(), and those with a settings file or a folder here that have a
  /// customer file, or a row in the dat.zdb of their own. Raises what opening Dat() raises, when it is there or when there is no company.
  std::vector<int> Companies() const;
  /// The same without the rows of Dat().
  std::vector<int> CompaniesByFiles() const;
  /// Whether the company has a row in its dat.zdb. Raises what opening that raises.
  bool HasRow(int company) const;

 private:
  std::unique_ptr<platform::OperatingSystem> system_;
  std::string folder_;
  bool onServer_ = false;
};

/// Whether two paths name one and the same file.
bool IsSameFile(const std::string& one, const std::string& other);

/// Whether something other than an empty folder stands there.
bool IsTaken(const std::filesystem::path& path);

}  // namespace suitefiles
