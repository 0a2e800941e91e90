#include <algorithm>
#include <filesystem>
#include <iostream>

#include "engine/data_file.h"
#include "platform/services/data_path.h"
#include "platform/values/error.h"
#include "suite/company_schema.h"
#include "suitefiles/company/company_files.h"
#include "suitefiles/company/report_files.h"
#include "suitefiles/program/command_line.h"
#include "suitefiles/program/commands.h"
#include "suitefiles/program/progress.h"

namespace suitefiles {

namespace fs = std::filesystem;

namespace {

/// A name beside the file that nobody has taken. On a server it is that of another file, since endings count nothing there.
std::string CopyOf(const std::string& path) {
  const bool server = platform::IsServerPath(path);
  const std::size_t dot = path.find('.', path.rfind('/') + 1);
  const std::size_t end = server ? std::min(dot, path.size()) : path.size();
  const std::string first = path.substr(0, end) + (server ? "_before_upgrade" : ".before-upgrade");
  const std::string ending = path.substr(end);
  std::string name = first + ending;
  for (int n = 2; server ? engine::DataFileExists(name) : fs::exists(name); ++n)
    name = first + (server ? "_" : "-") + std::to_string(n) + ending;
  return name;
}

/// Upgrades files, each once, and tells what came of it.
class Upgrader {
 public:
  explicit Upgrader(const Console& console) : console_(console), progress_(console) {}

  void Upgrade(const std::string& path, suite::DataFile file) {
    for (const std::string& known : done_)
      if (IsSameFile(known, path)) return;
    done_.push_back(path);
    try {
      Tell(path, file);
    } catch (const platform::Error& problem) {
      progress_.Clear();
      console_.err << "suitefiles: " << path << ": " << problem.Description() << " (error " << problem.Number() << ")\n";
      ++failed_;
    }
  }
  int Files() const { return static_cast<int>(done_.size()); }
  int Upgraded() const { return upgraded_; }
  int Failed() const { return failed_; }

 private:
  void Tell(const std::string& path, suite::DataFile file) {
    const std::string copy = CopyOf(path);
    const auto sentences =
        engine::UpgradeDataFile(path, suite::TablesOf(file), copy, [&](int done, int all) { progress_.Show(path, done, all); });
    progress_.Clear();
    if (sentences.empty()) return;
    for (const std::string& sentence : sentences) console_.out << path << ": " << sentence << "\n";
    console_.out << path << ": As it was it is kept as " << copy << ".\n";
    ++upgraded_;
  }

  const Console& console_;
  Progress progress_;
  std::vector<std::string> done_;
  int upgraded_ = 0;
  int failed_ = 0;
};

void UpgradeTemporaryFiles(const DataFolder& folder, Upgrader& upgrader) {
  for (const std::string& path : folder.TemporaryFiles()) upgrader.Upgrade(path, suite::DataFile::Temporary);
}

}  // namespace

int RunUpgrade(const std::vector<std::string>& words, const Console& console) {
  const CommandLine line(words, {{"--company", true}});
  line.ExpectOperands({"DIR"});
  const auto only = line.Number("--company", 1, 2147483647);
  const DataFolder folder(line.Operands()[0]);

  Upgrader upgrader(console);
  for (const int company : only ? std::vector{static_cast<int>(*only)} : folder.Companies()) {
    upgrader.Upgrade(folder.File(company, suite::DataFile::Dat), suite::DataFile::Dat);
    for (const auto file : suite::kCompanyFiles) upgrader.Upgrade(folder.File(company, file), file);
  }
  UpgradeTemporaryFiles(folder, upgrader);
  if (!folder.OnServer()) console.out << Told(PutReportFiles(folder.Path()));

  console.out << upgrader.Files() << " files, " << upgrader.Upgraded() << " upgraded";
  console.out << (upgrader.Failed() > 0 ? ", " + std::to_string(upgrader.Failed()) + " left as they were.\n" : ".\n");
  return upgrader.Failed() > 0 ? kFailed : kDone;
}

}  // namespace suitefiles
