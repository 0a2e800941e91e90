#include <algorithm>
#include <iostream>
#include <set>

#include "engine/data_file.h"
#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "suite/company_schema.h"
#include "suitefiles/company/company_files.h"
#include "suitefiles/company/data_access.h"
#include "suitefiles/company/reference_checks.h"
#include "suitefiles/program/command_line.h"
#include "suitefiles/program/commands.h"
#include "suitefiles/program/progress.h"

namespace suitefiles {

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

void CheckCompanyRows(const std::string& dat, Report& report) {
  DataAccess data;
  const auto rows = data.Open(dat)->OpenRecordset("SELECT CompID, BeginningMonth, AccountingEntity FROM Company");
  for (; !rows->Eof(); rows->MoveNext()) {
    const std::string company = "Company " + platform::CStr(rows->Field(0));
    const auto month = rows->Field(1);
    if (month.IsNull() || platform::CInt(month) < 1 || platform::CInt(month) > 12) {
      report.Add(dat, company + " has a first month that is not one of 1 to 12.");
    }
    const auto entity = rows->Field(2);
    if (entity.IsNull() || platform::CInt(entity) > 2) report.Add(dat, company + " has an accounting entity that is not 0, 1 or 2.");
  }
}

/// The files of these companies' rows, each once, and the rows themselves. The folder's own file need not be there when all companies
/// have another one.
void CheckDats(const DataFolder& folder, const std::vector<int>& companies, Report& report) {
  std::vector<std::string> dats;
  std::set<std::string> sound;
  const auto check = [&](const std::string& dat) {
    const auto known = std::ranges::find_if(dats, [&](const std::string& each) { return IsSameFile(each, dat); });
    if (known != dats.end()) return sound.contains(*known);
    dats.push_back(dat);
    if (!report.CheckFile(dat, suite::DataFile::Dat)) return false;
    CheckCompanyRows(dat, report);
    sound.insert(dat);
    return true;
  };
  if (companies.empty() || engine::DataFileExists(folder.Dat())) check(folder.Dat());
  for (const int company : companies) {
    const std::string dat = folder.File(company, suite::DataFile::Dat);
    if (check(dat) && !folder.HasRow(company)) report.Add("company " + std::to_string(company), "It has no row in " + dat + ".");
  }
}

/// As far as they can be found.
std::vector<int> CompaniesOf(const DataFolder& folder) {
  try {
    return folder.Companies();
  } catch (const platform::Error&) {
    return folder.CompaniesByFiles();  // what is wrong with the file of their rows is told by its check
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

}  // namespace

int RunCheck(const std::vector<std::string>& words, const Console& console) {
  const CommandLine line(words, {{"--company", true}});
  line.ExpectOperands({"DIR"});
  const auto only = line.Number("--company", 1, 2147483647);
  const DataFolder folder(line.Operands()[0]);

  Report report(console);
  const auto companies = only ? std::vector{static_cast<int>(*only)} : CompaniesOf(folder);
  CheckDats(folder, companies, report);
  if (companies.empty()) report.Add(folder.Dat(), "There is no company.");
  for (const int company : companies) CheckCompany(folder, company, report, console);
  for (const std::string& path : folder.TemporaryFiles()) report.CheckFile(path, suite::DataFile::Temporary);

  if (report.Findings() > 0) return kFailed;
  console.out << report.Files() << " files, nothing wrong.\n";
  return kDone;
}

}  // namespace suitefiles
