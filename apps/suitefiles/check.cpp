#include <filesystem>
#include <iostream>

#include "engine/data_file.h"
#include "platform/convert.h"
#include "platform/error.h"
#include "suite/company_schema.h"
#include "suitefiles/command_line.h"
#include "suitefiles/commands.h"
#include "suitefiles/company_files.h"
#include "suitefiles/progress.h"
#include "suitefiles/reference_checks.h"
#include "suitefiles/session.h"

namespace suitefiles {

namespace fs = std::filesystem;

namespace {

/// Prints each finding with the place it belongs to and counts them.
class Report {
 public:
  explicit Report(const Console& console) : console_(console) {}

  void Add(const std::string& place, const std::string& sentence) {
    console_.out << place << ": " << sentence << "\n";
    ++findings_;
  }
  /// False when something is wrong with the file itself, so that looking at its rows is of no use.
  bool CheckFile(const std::string& path, suite::DataFile file) {
    const int before = findings_;
    try {
      for (const auto& sentence : engine::CheckDataFile(path, suite::TablesOf(file))) Add(path, sentence);
    } catch (const platform::Error& problem) {
      Add(path, problem.Description());
    }
    ++files_;
    return findings_ == before;
  }
  int Findings() const { return findings_; }
  int Files() const { return files_; }

 private:
  const Console& console_;
  int findings_ = 0;
  int files_ = 0;
};

void CheckCompanyRows(const DataFolder& folder, Report& report) {
  Session session;
  const auto rows = session.Open(folder.Dat())->OpenRecordset("SELECT CompID, BeginningMonth, AccountingEntity FROM Company");
  for (; !rows->Eof(); rows->MoveNext()) {
    const std::string company = "Company " + platform::CStr(rows->Field(0));
    const auto month = rows->Field(1);
    if (month.IsNull() || platform::CInt(month) < 1 || platform::CInt(month) > 12) {
      report.Add(folder.Dat(), company + " has a first month that is not one of 1 to 12.");
    }
    const auto entity = rows->Field(2);
    if (entity.IsNull() || platform::CInt(entity) > 2)
      report.Add(folder.Dat(), company + " has an accounting entity that is not 0, 1 or 2.");
  }
}

void CheckCompany(const DataFolder& folder, int company, Report& report, const Console& console) {
  bool sound = true;
  for (const auto file : suite::kCompanyFiles) sound = report.CheckFile(folder.File(company, file), file) && sound;
  const std::string place = "company " + std::to_string(company);
  if (!sound) {
    report.Add(place, "The files are not as they should be; what their rows refer to was not looked at.");
    return;
  }
  Progress progress(console);
  std::int64_t tests = 0;
  const CheckedCompany files{folder.File(company, suite::DataFile::Customer), folder.File(company, suite::DataFile::Ledger),
                             folder.File(company, suite::DataFile::Transactions), folder.File(company, suite::DataFile::FlatRate)};
  constexpr std::int64_t kAbout = 30;
  const auto sentences = CheckReferences(files, [&](const std::string& what) { progress.Show(place + ", " + what, ++tests, kAbout); });
  progress.Clear();
  for (const auto& sentence : sentences) report.Add(place, sentence);
}

void CheckTemporaryFiles(const DataFolder& folder, Report& report) {
  const fs::path temporary = fs::path(folder.TemporaryFile(0)).parent_path();
  std::error_code problem;
  for (fs::directory_iterator entry(temporary, problem), end; !problem && entry != end; entry.increment(problem)) {
    const auto& path = entry->path();
    if (path.extension() == ".zdb" && path.filename().string().starts_with("orvTemp"))
      report.CheckFile(path.string(), suite::DataFile::Temporary);
  }
}

}  // namespace

int RunCheck(const std::vector<std::string>& words, const Console& console) {
  const CommandLine line(words, {{"--company", true}});
  line.ExpectOperands({"DIR"});
  const auto only = line.Number("--company", 1, 2147483647);
  const DataFolder folder(line.Operands()[0]);

  Report report(console);
  std::vector<int> companies;
  if (report.CheckFile(folder.Dat(), suite::DataFile::Dat)) {
    CheckCompanyRows(folder, report);
    companies = folder.Companies();
    if (companies.empty()) report.Add(folder.Dat(), "There is no company.");
  }
  if (only) companies = {static_cast<int>(*only)};
  for (const int company : companies) CheckCompany(folder, company, report, console);
  CheckTemporaryFiles(folder, report);

  if (report.Findings() > 0) return kFailed;
  console.out << report.Files() << " files, nothing wrong.\n";
  return kDone;
}

}  // namespace suitefiles
