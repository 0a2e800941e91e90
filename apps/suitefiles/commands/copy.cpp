#include <filesystem>
#include <iostream>

#include "engine/data_file.h"
#include "platform/services/data_path.h"
#include "platform/values/error.h"
#include "suitefiles/company/company_files.h"
#include "suitefiles/company/company_links.h"
#include "suitefiles/company/copied_file.h"
#include "suitefiles/program/command_line.h"
#include "suitefiles/program/commands.h"
#include "suitefiles/program/progress.h"

namespace suitefiles {
namespace {

/// Copies the files of one company, each in one transaction, and holds each copy against what was read for it.
class Mover {
 public:
  Mover(const Console& console, const DataFolder& from, const DataFolder& to, int company)
      : console_(console), progress_(console), from_(from), to_(to), company_(company) {}

  void Move(suite::DataFile file) {
    const std::string from = from_.File(company_, file);
    const std::string to = to_.File(company_, file);
    if (!engine::DataFileExists(from)) {
      console_.out << suite::FileName(file) << ": left, there is no " << from << ".\n";
      return;
    }
    if (IsSameFile(from, to)) throw UsageError("FROM and TO are the same place: " + from);
    const bool there = engine::DataFileExists(to);
    if (there && file == suite::DataFile::Dat) return KeepDat(to);
    if (!there && !platform::IsServerPath(to)) std::filesystem::create_directories(std::filesystem::path(to).parent_path());
    const auto read = there ? SumsOf(from, Teller(from)) : CopyDataFile(from, to, Teller(from));
    const auto differences = Differences(read, SumsOf(to, Teller(to)));
    progress_.Clear();
    Tell(to, there, read, differences);
    if (differences.empty() && file == suite::DataFile::Customer) TellLinks(from);
  }
  int Failed() const { return failed_; }

 private:
  /// It may hold other companies' rows, too.
  void KeepDat(const std::string& to) {
    const bool known = to_.HasRow(company_);
    (known ? console_.out : console_.err) << to << ": was there already and has " << (known ? "the" : "no") << " row of company " << company_
                                          << "; it is unchanged.\n";
    failed_ += known ? 0 : 1;
  }

  CopyProgress Teller(const std::string& path) {
    return [this, path](const std::string& table, std::int64_t done, std::int64_t all) { progress_.Show(path + ", " + table, done, all); };
  }

  void Tell(const std::string& to, bool there, const std::vector<TableSums>& read, const std::vector<std::string>& differences) {
    std::uint64_t rows = 0;
    for (const TableSums& table : read) rows += table.rows;
    for (const std::string& sentence : differences) console_.err << "suitefiles: " << to << ": " << sentence << "\n";
    if (!differences.empty()) {
      console_.err << "suitefiles: " << to << (there ? " was there already and holds something else; it is unchanged.\n" : " is not what was read.\n");
      ++failed_;
      return;
    }
    console_.out << to << ": " << read.size() << " tables, " << rows << " rows, " << (there ? "was there already and holds the same" : "copied")
                 << "; counts and sums agree.\n";
  }

  /// The screens make their links anew where a company has none.
  void TellLinks(const std::string& from) {
    for (const auto& link : engine::LinksOf(from))
      if (FileOfLink(link.name) == suite::DataFile::Customer)
        console_.out << from << ": the link " << link.name << " to " << link.path << " was not copied.\n";
  }

  const Console& console_;
  Progress progress_;
  const DataFolder& from_;
  const DataFolder& to_;
  int company_;
  int failed_ = 0;
};

}  // namespace

int RunCopy(const std::vector<std::string>& words, const Console& console) {
  const CommandLine line(words, {{"--company", true}});
  line.ExpectOperands({"FROM", "TO"});
  const int company = static_cast<int>(line.RequiredNumber("--company", 1, 2147483647));
  const DataFolder from(line.Operands()[0]);
  const DataFolder to(line.Operands()[1]);
  if (!engine::DataFileExists(from.File(company, suite::DataFile::Customer)))
    throw CommandError("company " + std::to_string(company) + " has no " + from.File(company, suite::DataFile::Customer));

  Mover mover(console, from, to, company);
  mover.Move(suite::DataFile::Dat);
  // The customer file, which makes the company, comes last.
  for (const auto file : {suite::DataFile::FlatRate, suite::DataFile::Ledger, suite::DataFile::Transactions, suite::DataFile::Customer})
    mover.Move(file);
  return mover.Failed() > 0 ? kFailed : kDone;
}

}  // namespace suitefiles
