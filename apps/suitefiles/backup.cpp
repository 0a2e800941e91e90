#include <filesystem>
#include <iostream>

#include "engine/data_file.h"
#include "suitefiles/command_line.h"
#include "suitefiles/commands.h"
#include "suitefiles/company_files.h"
#include "suitefiles/progress.h"

namespace suitefiles {

namespace fs = std::filesystem;

namespace {

class Copier {
 public:
  explicit Copier(const Console& console) : progress_(console) {}

  void Copy(const std::string& from, const std::string& to) {
    engine::BackupDataFile(from, to, [&](int done, int all) { progress_.Show(from, done, all); });
    ++files_;
  }
  int Files() const { return files_; }

 private:
  Progress progress_;
  int files_ = 0;
};

void CopyCompany(const DataFolder& folder, int company, const fs::path& target, Copier& copier, const Console& console) {
  const fs::path companyTarget = target / "data" / ("orv" + std::to_string(company));
  fs::create_directories(companyTarget);
  for (const auto file : suite::kCompanyFiles) {
    const std::string from = folder.File(company, file);
    if (fs::exists(from)) {
      copier.Copy(from, (companyTarget / suite::FileName(file)).string());
    } else {
      console.err << "suitefiles: company " << company << " has no " << from << "; it is not in the copy\n";
    }
  }
  if (fs::is_regular_file(folder.IniFile(company))) {
    fs::copy_file(folder.IniFile(company), target / (fs::path(folder.IniFile(company)).filename().string() + ".saved"));
  }
}

}  // namespace

int RunBackup(const std::vector<std::string>& words, const Console& console) {
  const CommandLine line(words, {});
  line.ExpectOperands({"DIR", "TARGET"});
  const DataFolder folder(line.Operands()[0]);
  const std::string target = DataFolder(line.Operands()[1]).Path();
  if (IsTaken(target)) throw CommandError(target + " already exists and is not empty; nothing was copied");

  const auto companies = folder.Companies();
  StagingFolder staging(target);
  Copier copier(console);
  copier.Copy(folder.Dat(), staging.Path() + "/dat.zdb");
  for (const int company : companies) CopyCompany(folder, company, staging.Path(), copier, console);
  staging.MoveToTarget();
  console.out << copier.Files() << " files copied to " << target << ".\n";
  return kDone;
}

}  // namespace suitefiles
