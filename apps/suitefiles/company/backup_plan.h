#pragma once

#include <string>
#include <utility>
#include <vector>

#include "suitefiles/company/company_files.h"

namespace suitefiles {

/// Which files of a data folder a backup copies, where each copy goes, and what it leaves. The copy is a data folder of the usual layout.
class BackupPlan {
 public:
  struct File {
    std::string from;
    std::string place;  ///< path of the copy, at its end
    suite::DataFile file = suite::DataFile::Dat;
    int company = 0;  ///< 0: a dat.zdb of several
  };

  /// Raises what finding the companies raises, 3024 and others when there is no dat.zdb, CommandError for a path that no settings
  /// file can hold.
  BackupPlan(const DataFolder& folder, std::string target);

  const std::vector<int>& Companies() const { return companies_; }
  const std::vector<File>& Files() const { return files_; }
  /// Settings files that the copy needs, by name: a company with a dat.zdb of its own keeps one.
  const std::vector<std::pair<std::string, std::string>>& Settings() const { return settings_; }
  /// Files of the library's folder, by name: without an office's reports the copy would not print what the original prints.
  const std::vector<std::string>& Library() const { return library_; }
  /// What is copied and what is left.
  const std::vector<std::string>& Sentences() const { return sentences_; }

  /// The copy's path for a file of the original, "" when it is not copied.
  std::string PlaceOf(const std::string& from) const;

 private:
  void PlanDats(const DataFolder& folder);
  void PlanCompany(const DataFolder& folder, int company);
  void TellWhatIsLeft(const DataFolder& folder);
  std::string CompanyTarget(int company) const { return target_ + "/data/orv" + std::to_string(company); }

  std::string target_;
  std::vector<int> companies_;
  std::vector<File> files_;
  std::vector<std::pair<std::string, std::string>> settings_;
  std::vector<std::string> library_;
  std::vector<std::string> sentences_;
};

}  // namespace suitefiles
