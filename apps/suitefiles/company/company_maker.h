#pragma once

#include <functional>
#include <string>

#include "suite/company_schema.h"

namespace suitefiles {

/// A row of the company table.
struct CompanyRecord {
  int number = 1;
  std::string name;
  std::string address;
  std::string city;
  std::string state;
  std::string zip;
  std::string phone;
  std::string fax;
};

/// Makes a company's four files, with the rows that every company begins with, in an empty folder.
void MakeCompanyFiles(const std::string& folder, int year);
/// The rows alone, in files that are still empty and lie where `placeOf` says.
void AddFirstRows(const std::function<std::string(suite::DataFile)>& placeOf, int year);

/// What AddCompanyRow found.
enum class CompanyRow { Added, WasThere };

/// Puts the company's row into dat.zdb, which is made when it is missing. A row that is there is left as it is.
CompanyRow AddCompanyRow(const std::string& datFile, const CompanyRecord& company);

/// The year that the machine's clock shows.
int ThisYear();

}  // namespace suitefiles
