#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "suitefiles/company/company_files.h"

namespace suitefiles {

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

/// A company's files that are being made in a folder of their own, and then appear, all of them or none, where the programs look for
/// them. CommandError when one of the places is taken, at the start or at the end.
class NewCompanyFiles {
 public:
  NewCompanyFiles(const DataFolder& folder, int company);

  /// Where the files are made, under their usual names.
  std::string Folder() const { return staging_.Path(); }
  /// Where they go, for messages: the company's folder, or the customer file.
  const std::string& Place() const { return place_; }
  void MoveIntoPlace();

 private:
  struct Move {
    std::string name;
    std::string place;
  };
  std::vector<Move> moves_;  ///< empty: the whole folder is moved
  std::string place_;
  StagingFolder staging_;
};

}  // namespace suitefiles
