#include "suitefiles/company/company_files.h"

#include <algorithm>
#include <charconv>
#include <set>

#include "engine/data_file.h"
#include "platform/services/data_path.h"
#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "suitefiles/company/data_access.h"
#include "suitefiles/program/command_line.h"

namespace suitefiles {

namespace fs = std::filesystem;

namespace {

std::string FullPath(const std::string& folder) {
  if (folder.empty()) throw UsageError("the name of a folder is empty");
  if (platform::IsServerPath(folder)) return folder.substr(0, folder.find_last_not_of('/') + 1);
  std::string path = fs::absolute(folder).lexically_normal().string();
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

/// The number in "orv<number>" and what follows; 0 for other names.
int CompanyIn(const std::string& name, const std::string& behind) {
  constexpr std::string_view kStart = "orv";
  if (!name.starts_with(kStart) || !name.ends_with(behind) || name.size() <= kStart.size() + behind.size()) return 0;
  int number = 0;
  const char* end = name.data() + name.size() - behind.size();
  const auto [stop, problem] = std::from_chars(name.data() + kStart.size(), end, number);
  return problem == std::errc{} && stop == end && number > 0 && name[kStart.size()] != '0' ? number : 0;
}

void AddCompaniesIn(const fs::path& folder, const std::string& behind, std::set<int>& companies) {
  std::error_code problem;
  for (fs::directory_iterator entry(folder, problem), end; !problem && entry != end; entry.increment(problem)) {
    if (const int company = CompanyIn(entry->path().filename().string(), behind); company != 0) companies.insert(company);
  }
}

}  // namespace

DataFolder::DataFolder(const std::string& folder) : system_(suite::MakeNativeSystem("/")), folder_(FullPath(folder)), onServer_(platform::IsServerPath(folder_)) {}

std::string DataFolder::File(int company, suite::DataFile file) const {
  if (onServer_) return folder_ + '/' + suite::FileName(file);
  return system_->ToHostPath(suite::CompanyFile(*system_, folder_, company, file));
}

std::string DataFolder::CompanyFolder(int company) const {
  return onServer_ ? folder_ : suite::CompanyFolder(*system_, folder_, company);
}

std::string DataFolder::IniFile(int company) const { return suite::SettingsFile(*system_, folder_, company); }

std::string DataFolder::TemporaryFile(int user) const {
  return suite::TemporaryFile(*system_, onServer_ ? suite::UserStateFolder() : folder_, user);
}

std::vector<std::string> DataFolder::TemporaryFiles() const {
  std::vector<std::string> files;
  if (onServer_) return files;
  std::error_code problem;
  for (fs::directory_iterator entry(fs::path(TemporaryFile(0)).parent_path(), problem), end; !problem && entry != end;
       entry.increment(problem)) {
    const auto& path = entry->path();
    if (path.extension() == ".zdb" && path.filename().string().starts_with("orvTemp")) files.push_back(path.string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

bool DataFolder::HasRow(int company) const {
  DataAccess data;
  const auto database = data.Open(File(company, suite::DataFile::Dat));
  return !database->OpenRecordset("SELECT CompID FROM Company WHERE CompID=" + std::to_string(company))->Eof();
}

std::vector<int> DataFolder::CompaniesByFiles() const {
  std::set<int> found;
  if (onServer_) return {};
  AddCompaniesIn(folder_, ".ini", found);
  AddCompaniesIn(fs::path(folder_) / "data", "", found);
  std::erase_if(found, [&](int company) {
    if (engine::DataFileExists(File(company, suite::DataFile::Customer))) return false;
    try {
      return !HasRow(company);
    } catch (const platform::Error&) {
      return true;
    }
  });
  return {found.begin(), found.end()};
}

std::vector<int> DataFolder::Companies() const {
  const auto byFiles = CompaniesByFiles();
  std::set<int> companies(byFiles.begin(), byFiles.end());
  if (companies.empty() || engine::DataFileExists(Dat())) {
    DataAccess data;
    const auto rows = data.Open(Dat())->OpenRecordset("SELECT CompID FROM Company");
    for (; !rows->Eof(); rows->MoveNext()) {
      if (!rows->Field(0).IsNull()) companies.insert(platform::CLng(rows->Field(0)));
    }
  }
  return {companies.begin(), companies.end()};
}

bool IsSameFile(const std::string& one, const std::string& other) {
  std::error_code problem;
  if (fs::weakly_canonical(one, problem) == fs::weakly_canonical(other, problem)) return true;
  return fs::equivalent(one, other, problem) && !problem;
}

bool IsTaken(const fs::path& path) {
  std::error_code problem;
  const auto status = fs::symlink_status(path, problem);
  if (status.type() == fs::file_type::not_found) return false;
  return status.type() != fs::file_type::directory || !fs::is_empty(path, problem) || problem;
}

}  // namespace suitefiles
