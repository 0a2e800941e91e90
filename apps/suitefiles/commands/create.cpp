#include <iostream>

#include "platform/values/text.h"
#include "suitefiles/company/company_files.h"
#include "suitefiles/company/company_maker.h"
#include "suitefiles/company/report_files.h"
#include "suitefiles/company/staging.h"
#include "suitefiles/program/command_line.h"
#include "suitefiles/program/commands.h"

namespace suitefiles {

int RunCreate(const std::vector<std::string>& words, const Console& console) {
  const CommandLine line(words, {{"--company", true}, {"--name", true}, {"--year", true}});
  line.ExpectOperands({"DIR"});
  CompanyRecord company;
  company.number = static_cast<int>(line.RequiredNumber("--company", 1, 2147483647));
  const int year = static_cast<int>(line.Number("--year", 1900, 9999).value_or(ThisYear()));
  const auto name = platform::Normalise(line.Value("--name").value_or("Company " + std::to_string(company.number)));
  if (!name || platform::CharacterCount(*name) > 40) throw UsageError("option --name needs a text of at most 40 characters");
  company.name = *name;

  const DataFolder folder(line.Operands()[0]);
  NewCompanyFiles files(folder, company.number);
  files.Make(year);
  const std::string dat = folder.File(company.number, suite::DataFile::Dat);
  const auto row = AddCompanyRow(dat, company);
  files.MoveIntoPlace();
  const auto reports = folder.OnServer() ? PutReports{} : PutReportFiles(folder.Path());

  console.out << "Company " << company.number << " made in " << files.Place() << ".\n";
  if (row == CompanyRow::WasThere) console.out << "Its row in " << dat << " was there already and is unchanged.\n";
  console.out << Told(reports);
  return kDone;
}

}  // namespace suitefiles
