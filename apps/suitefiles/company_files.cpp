#include "suitefiles/company_files.h"

#include <unistd.h>

#include <algorithm>

#include "platform/convert.h"
#include "suitefiles/command_line.h"
#include "suitefiles/session.h"

namespace suitefiles {

namespace fs = std::filesystem;

namespace {

std::string FullPath(const std::string& folder) {
  if (folder.empty()) throw UsageError("the name of a folder is empty");
  std::string path = fs::absolute(folder).lexically_normal().string();
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

}  // namespace

DataFolder::DataFolder(const std::string& folder) : system_(suite::MakeNativeSystem("/")), folder_(FullPath(folder)) {}

std::string DataFolder::File(int company, suite::DataFile file) const {
  return system_->ToHostPath(suite::CompanyFile(*system_, folder_, company, file));
}

std::string DataFolder::CompanyFolder(int company) const { return suite::CompanyFolder(*system_, folder_, company); }

std::string DataFolder::IniFile(int company) const { return folder_ + "/orv" + std::to_string(company) + ".ini"; }

std::string DataFolder::TemporaryFile(int user) const { return suite::TemporaryFile(*system_, folder_, user); }

std::vector<int> DataFolder::Companies() const {
  Session session;
  const auto rows = session.Open(Dat())->OpenRecordset("SELECT CompID FROM Company ORDER BY CompID");
  std::vector<int> companies;
  for (; !rows->Eof(); rows->MoveNext()) {
    if (!rows->Field(0).IsNull()) companies.push_back(platform::CLng(rows->Field(0)));
  }
  return companies;
}

bool IsTaken(const fs::path& path) {
  std::error_code problem;
  const auto status = fs::symlink_status(path, problem);
  if (status.type() == fs::file_type::not_found) return false;
  return status.type() != fs::file_type::directory || !fs::is_empty(path, problem) || problem;
}

StagingFolder::StagingFolder(fs::path target) : target_(std::move(target)) {
  path_ = target_;
  path_ += ".unfinished-" + std::to_string(::getpid());
  std::error_code problem;
  fs::create_directories(target_.parent_path(), problem);
  if (!fs::create_directory(path_, problem)) throw CommandError(path_.string() + " can't be made: " + problem.message());
}

StagingFolder::~StagingFolder() {
  std::error_code ignored;
  if (!path_.empty()) fs::remove_all(path_, ignored);
}

void StagingFolder::MoveToTarget() {
  if (IsTaken(target_)) throw CommandError(target_.string() + " already exists");
  std::error_code problem;
  fs::rename(path_, target_, problem);  // fails when something was put there meanwhile
  if (problem) throw CommandError(target_.string() + " can't be made: " + problem.message());
  path_.clear();
}

}  // namespace suitefiles
