#include "suitefiles/company/backup_plan.h"

#include <algorithm>
#include <filesystem>

#include "engine/data_file.h"
#include "platform/services/data_path.h"
#include "platform/values/text.h"
#include "suitefiles/company/report_files.h"
#include "suitefiles/program/command_line.h"

namespace suitefiles {

namespace fs = std::filesystem;

namespace {

/// What the programs read of a value in a settings file.
constexpr std::size_t kLongestSetting = 126;

std::string List(const std::vector<std::string>& words) {
  std::string list;
  for (const std::string& word : words) list += (list.empty() ? "" : ", ") + word;
  return list;
}

/// What lies on a server is copied by the server's own tool, in its own form.
std::string EndingFor(const std::string& path) { return platform::IsServerPath(path) ? ".dump" : ""; }

}  // namespace

BackupPlan::BackupPlan(const DataFolder& folder, std::string target)
    : target_(std::move(target)), companies_(folder.Companies()), library_(folder.OnServer() ? std::vector<std::string>{} : LibraryFilesIn(folder.Path())) {
  PlanDats(folder);
  for (const int company : companies_) PlanCompany(folder, company);
  if (!library_.empty())
    sentences_.push_back("the library's folder: " + std::to_string(library_.size()) + " report files and the like copied");
  TellWhatIsLeft(folder);
}

void BackupPlan::PlanDats(const DataFolder& folder) {
  struct Dat {
    std::string path;
    std::vector<int> companies;
  };
  std::vector<Dat> dats;
  for (const int company : companies_) {
    const std::string path = folder.File(company, suite::DataFile::Dat);
    auto dat = std::ranges::find_if(dats, [&](const Dat& each) { return IsSameFile(each.path, path); });
    if (dat == dats.end()) dat = dats.insert(dats.end(), {path, {}});
    dat->companies.push_back(company);
  }
  if (dats.empty()) dats.push_back({folder.Dat(), {}});
  // The one in its usual place keeps it; else the first.
  std::stable_partition(dats.begin(), dats.end(), [&](const Dat& dat) { return IsSameFile(dat.path, folder.Dat()); });

  for (const Dat& dat : dats) {
    std::vector<std::string> names;
    for (const int company : dat.companies) names.push_back(std::to_string(company));
    const std::string whose = "dat.zdb" + (names.empty() ? "" : " of company " + List(names));
    if (!engine::DataFileExists(dat.path)) {
      sentences_.push_back(whose + ": left, there is no " + dat.path);
      continue;
    }
    sentences_.push_back(whose + ": copied from " + dat.path);
    if (&dat == &dats.front()) {
      files_.push_back({dat.path, target_ + "/dat.zdb" + EndingFor(dat.path), suite::DataFile::Dat, 0});
      continue;
    }
    const std::string place = CompanyTarget(dat.companies.front()) + "/dat.zdb" + EndingFor(dat.path);
    if (platform::CharacterCount(place) > kLongestSetting)
      throw CommandError(place + " is too long for a settings file; choose a shorter TARGET. Nothing was copied");
    files_.push_back({dat.path, place, suite::DataFile::Dat, dat.companies.front()});
    if (platform::IsServerPath(dat.path)) continue;
    for (const std::string& name : names) settings_.emplace_back("orv" + name + ".ini", "[Databases]\ndat.zdb Path=" + place + "\n");
  }
}

void BackupPlan::PlanCompany(const DataFolder& folder, int company) {
  std::vector<std::string> copied;
  std::vector<std::string> left;
  for (const auto file : suite::kCompanyFiles) {
    const std::string from = folder.File(company, file);
    if (!engine::DataFileExists(from)) {
      left.push_back(suite::FileName(file) + " (there is no " + from + ")");
      continue;
    }
    files_.push_back({from, CompanyTarget(company) + "/" + suite::FileName(file) + EndingFor(from), file, company});
    copied.push_back(suite::FileName(file));
  }
  const std::string name = "company " + std::to_string(company) + ": ";
  if (copied.empty()) {
    sentences_.push_back(name + "left, it has no files");
  } else {
    sentences_.push_back(name + List(copied) + " copied" + (left.empty() ? "" : "; left: " + List(left)));
  }
  if (!folder.OnServer() && fs::is_regular_file(folder.IniFile(company)))
    sentences_.push_back(name + "its settings are kept as " + fs::path(folder.IniFile(company)).filename().string() + ".saved");
}

void BackupPlan::TellWhatIsLeft(const DataFolder& folder) {
  std::vector<std::string> folders = {folder.Path()};
  for (const int company : companies_) folders.push_back(folder.CompanyFolder(company));
  std::vector<std::string> left;
  for (const std::string& one : folders) {
    std::error_code problem;
    for (fs::directory_iterator entry(one, problem), end; !problem && entry != end; entry.increment(problem)) {
      if (entry->path().extension() == ".zdb" && PlaceOf(entry->path().string()).empty()) left.push_back(entry->path().string());
    }
  }
  std::ranges::sort(left);
  for (const std::string& path : left) sentences_.push_back(path + ": left, no company works with it");
  if (folder.OnServer()) return;
  if (const auto work = fs::path(folder.TemporaryFile(0)).parent_path(); fs::exists(work))
    sentences_.push_back(work.string() + ": left, the users' temporary files");
}

std::string BackupPlan::PlaceOf(const std::string& from) const {
  const auto file = std::ranges::find_if(files_, [&](const File& each) { return IsSameFile(each.from, from); });
  return file == files_.end() ? std::string() : file->place;
}

}  // namespace suitefiles
