#include "suitefiles/company/staging.h"

#include <unistd.h>

#include <algorithm>

#include "engine/data_file.h"
#include "platform/services/data_path.h"
#include "platform/values/error.h"
#include "suitefiles/company/company_maker.h"
#include "suitefiles/company/copying.h"
#include "suitefiles/program/command_line.h"

namespace suitefiles {

namespace fs = std::filesystem;

namespace {

bool LiesAsUsual(const DataFolder& folder, int company) {
  return std::ranges::all_of(suite::kCompanyFiles, [&](suite::DataFile file) {
    return fs::path(folder.File(company, file)) == fs::path(folder.CompanyFolder(company)) / suite::FileName(file);
  });
}

/// Within a file system a file takes its name at once; from another one it comes as a copy first.
bool MoveFile(const std::string& from, const std::string& to) {
  std::error_code problem;
  fs::create_directories(fs::path(to).parent_path(), problem);
  const fs::path beside = to + ".coming-" + std::to_string(::getpid());
  fs::rename(from, beside, problem);
  if (problem) CopyFile(from, beside.string());
  const bool moved = engine::MoveIntoPlace(beside.string(), to);
  if (!moved) fs::remove(beside, problem);
  return moved;
}

}  // namespace

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

NewCompanyFiles::NewCompanyFiles(const DataFolder& folder, int company)
    : place_(LiesAsUsual(folder, company) ? folder.CompanyFolder(company) : folder.File(company, suite::DataFile::Customer)) {
  const auto refuse = [](const std::string& place) { throw CommandError(place + " already exists; nothing was changed"); };
  if (place_ == folder.CompanyFolder(company) && !folder.OnServer()) {
    if (IsTaken(place_)) refuse(place_);
    staging_.emplace(place_);
    return;
  }
  // The customer file, which makes the company, comes last.
  for (const auto file : suite::kCompanyFiles) {
    const Move move{suite::FileName(file), folder.File(company, file)};
    std::vector<Move>& moves = platform::IsServerPath(move.place) ? onServer_ : moves_;
    moves.insert(moves.begin(), move);
  }
  for (const Move& move : moves_) {
    if (fs::exists(fs::symlink_status(move.place))) refuse(move.place);
  }
  for (const Move& move : onServer_) {
    if (engine::DataFileExists(move.place)) refuse(move.place);
  }
  if (!moves_.empty()) staging_.emplace(moves_.back().place);
}

NewCompanyFiles::~NewCompanyFiles() {
  for (const std::string& place : made_) {
    try {
      engine::RemoveDataFile(place);
    } catch (const platform::Error&) {
      // A server that is gone keeps what it has; the next run is told of it.
    }
  }
}

void NewCompanyFiles::Make(int year) {
  for (const auto file : suite::kCompanyFiles) {
    const std::string place = MakingPlaceOf(file);
    engine::CreateDataFile(place, suite::TablesOf(file));
    if (platform::IsServerPath(place)) made_.push_back(place);
  }
  AddFirstRows([&](suite::DataFile file) { return MakingPlaceOf(file); }, year);
}

std::string NewCompanyFiles::MakingPlaceOf(suite::DataFile file) const {
  const std::string name = suite::FileName(file);
  const auto there = std::ranges::find(onServer_, name, &Move::name);
  return there != onServer_.end() ? there->place : staging_->Path() + "/" + name;
}

void NewCompanyFiles::MoveIntoPlace() {
  if (moves_.empty() && onServer_.empty()) return staging_->MoveToTarget();
  std::vector<std::string> moved;
  try {
    for (const Move& move : moves_) {
      if (!MoveFile(staging_->Path() + "/" + move.name, move.place)) throw CommandError(move.place + " already exists");
      moved.push_back(move.place);
    }
  } catch (...) {
    std::error_code ignored;
    for (const std::string& place : moved) fs::remove(place, ignored);
    throw;
  }
  made_.clear();
}

}  // namespace suitefiles
