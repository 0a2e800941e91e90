#include <filesystem>
#include <iostream>
#include <optional>

#include "engine/data_file.h"
#include "platform/services/data_path.h"
#include "suitefiles/company/backup_plan.h"
#include "suitefiles/company/company_files.h"
#include "suitefiles/company/company_links.h"
#include "suitefiles/company/copying.h"
#include "suitefiles/company/server_dump.h"
#include "suitefiles/company/staging.h"
#include "suitefiles/program/command_line.h"
#include "suitefiles/program/commands.h"
#include "suitefiles/program/progress.h"

namespace suitefiles {

namespace fs = std::filesystem;

namespace {

/// Makes the copies in a folder. Through a local folder they are made there one by one and then only written to their place, where no
/// file is opened as a data file: a network folder can't hold open ones.
class Copier {
 public:
  Copier(const Console& console, std::string target, std::string staging, const std::string& through)
      : progress_(console), target_(std::move(target)), staging_(std::move(staging)) {
    if (!through.empty()) scratch_.emplace(through);
  }

  /// `copy.place` is the copy's later path.
  void Copy(const BackupPlan::File& copy, const BackupPlan& plan) {
    const std::string place = staging_ + copy.place.substr(target_.size());
    fs::create_directories(fs::path(place).parent_path());
    const std::string made = scratch_ ? scratch_->Path() + "/" + fs::path(place).filename().string() : place;
    if (platform::IsServerPath(copy.from)) {
      DumpFromServer(copy.from, made);
    } else {
      engine::BackupDataFile(copy.from, made, [&](int done, int all) { progress_.Show(copy.from, done, all); });
      progress_.Clear();
      if (copy.file == suite::DataFile::Customer) Relink(copy, made, plan);
    }
    if (scratch_) {
      CopyFile(made, place);
      fs::remove(made);
    }
  }
  const std::vector<std::string>& Left() const { return left_; }

 private:
  /// Files that will lie beside the copy are named as if they did already.
  void Relink(const BackupPlan::File& copy, const std::string& made, const BackupPlan& plan) {
    const auto sentences = PointCompanyLinks(
        made, [&](suite::DataFile file) { return (fs::path(made).parent_path() / suite::FileName(file)).string(); },
        [&](const std::string& path) { return plan.PlaceOf(path); });
    for (const std::string& sentence : sentences) left_.push_back("company " + std::to_string(copy.company) + ": " + sentence);
  }

  Progress progress_;
  std::string target_;
  std::string staging_;
  std::optional<ScratchFolder> scratch_;
  std::vector<std::string> left_;
};

/// The nearest folder above a path that is there.
std::string FolderAbove(const std::string& path) {
  fs::path folder = fs::path(path).parent_path();
  while (!fs::exists(folder) && folder.has_relative_path()) folder = folder.parent_path();
  return folder.string();
}

/// The local folder that copies go through, "" for none.
std::string Through(const CommandLine& line, const std::string& target) {
  const std::string above = fs::exists(target) ? target : FolderAbove(target);
  const auto told = line.Value("--through");
  const std::string folder = told ? DataFolder(*told).Path() : engine::LiesOnNetwork(above) ? fs::temp_directory_path().string() : "";
  if (!folder.empty() && !fs::is_directory(folder)) throw CommandError("there is no folder " + folder);
  if (!folder.empty() && engine::LiesOnNetwork(folder))
    throw CommandError(folder + " lies on a network file system; --through names a folder of a local disk");
  return folder;
}

void KeepSettings(const BackupPlan& plan, const DataFolder& folder, const std::string& staging) {
  for (const int company : plan.Companies()) {
    if (folder.OnServer()) continue;
    const fs::path settings = folder.IniFile(company);
    if (fs::is_regular_file(settings)) CopyFile(settings.string(), staging + "/" + settings.filename().string() + ".saved");
  }
  for (const auto& [name, content] : plan.Settings()) WriteFile(staging + "/" + name, content);
}

void KeepLibrary(const BackupPlan& plan, const DataFolder& folder, const std::string& staging) {
  for (const std::string& name : plan.Library()) CopyFile(folder.Path() + "/" + name, staging + "/" + name);
}

}  // namespace

int RunBackup(const std::vector<std::string>& words, const Console& console) {
  const CommandLine line(words, {{"--through", true}});
  line.ExpectOperands({"DIR", "TARGET"});
  const DataFolder folder(line.Operands()[0]);
  const std::string target = DataFolder(line.Operands()[1]).Path();
  if (IsTaken(target)) throw CommandError(target + " already exists and is not empty; nothing was copied");

  const BackupPlan plan(folder, target);
  StagingFolder staging(target);
  Copier copier(console, target, staging.Path(), Through(line, target));
  for (const auto& file : plan.Files()) copier.Copy(file, plan);
  KeepSettings(plan, folder, staging.Path());
  KeepLibrary(plan, folder, staging.Path());
  staging.MoveToTarget();

  for (const std::string& sentence : plan.Sentences()) console.out << sentence << ".\n";
  for (const std::string& sentence : copier.Left()) console.out << sentence << ".\n";
  console.out << plan.Files().size() << " data files copied to " << target << ".\n";
  return kDone;
}

}  // namespace suitefiles
