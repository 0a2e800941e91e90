#pragma once

#include <filesystem>
#include <optional>
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
/// them. On a server they are made in their places at once, and taken away again when the work isn't ended. CommandError when one of the
/// places is taken, at the start or at the end.
class NewCompanyFiles {
 public:
  NewCompanyFiles(const DataFolder& folder, int company);
  ~NewCompanyFiles();
  NewCompanyFiles(const NewCompanyFiles&) = delete;
  NewCompanyFiles& operator=(const NewCompanyFiles&) = delete;

  /// The empty files and the rows that every company begins with.
  void Make(int year);
  /// Where the file is made.
  std::string MakingPlaceOf(suite::DataFile file) const;
  /// Where they go, for messages: the company's folder, or the customer file.
  const std::string& Place() const { return place_; }
  void MoveIntoPlace();

 private:
  struct Move {
    std::string name;
    std::string place;
  };
  std::vector<Move> moves_;  ///< empty: the whole folder is moved
  std::vector<Move> onServer_;
  std::string place_;
  std::optional<StagingFolder> staging_;  ///< none where all of them are on a server
  std::vector<std::string> made_;         ///< on the server, by this object
};

}  // namespace suitefiles
