#include <iostream>

#include "engine/data_file.h"
#include "suitefiles/company/company_files.h"
#include "suitefiles/company/company_links.h"
#include "suitefiles/program/command_line.h"
#include "suitefiles/program/commands.h"

namespace suitefiles {

int RunRelink(const std::vector<std::string>& words, const Console& console) {
  const CommandLine line(words, {{"--company", true}});
  line.ExpectOperands({"DIR"});
  const auto only = line.Number("--company", 1, 2147483647);
  const DataFolder folder(line.Operands()[0]);
  const auto companies = only ? std::vector{static_cast<int>(*only)} : folder.Companies();

  int status = kDone;
  for (const int company : companies) {
    const std::string customer = folder.File(company, suite::DataFile::Customer);
    const std::string name = "company " + std::to_string(company);
    if (!engine::DataFileExists(customer)) {
      console.err << "suitefiles: " << name << " has no " << customer << "\n";
      status = kFailed;
      continue;
    }
    const auto left = PointCompanyLinks(
        customer, [&](suite::DataFile file) { return folder.File(company, file); }, [](const std::string&) { return std::string(); });
    console.out << name << ": the links of " << customer << " lead to its own files.\n";
    for (const std::string& sentence : left) console.out << name << ": " << sentence << ".\n";
  }
  return status;
}

}  // namespace suitefiles
