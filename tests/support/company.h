#pragma once

#include <filesystem>
#include <string>

#include "engine/data_file.h"
#include "suite/company_schema.h"
#include "suitefiles/company/company_maker.h"

namespace test_support {

/// The files of company 1, dat.zdb and the temporary file of user 1, without a customer.
inline void MakeCompany(const std::filesystem::path& folder) {
  std::filesystem::create_directories(folder / "data/orv1");
  suitefiles::MakeCompanyFiles((folder / "data/orv1").string(), 2025);
  std::filesystem::create_directories(folder / "orvTEMP");
  engine::CreateDataFile((folder / "orvTEMP/orvTemp1.zdb").string(), suite::TablesOf(suite::DataFile::Temporary), true);
  suitefiles::CompanyRecord company;
  company.name = "Company 1";
  suitefiles::AddCompanyRow((folder / "dat.zdb").string(), company);
}

}  // namespace test_support
