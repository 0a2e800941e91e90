#include "suitefiles/company/company_maker.h"

#include <filesystem>
#include <utility>

#include "engine/data_file.h"
#include "platform/services/data_path.h"
#include "platform/values/calendar.h"
#include "platform/values/error.h"
#include "platform/values/value.h"
#include "suite/clock.h"
#include "suitefiles/company/data_access.h"
#include "suitefiles/company/setup_rows.h"

namespace suitefiles {

namespace fs = std::filesystem;

namespace {

platform::Value TextOrNull(const std::string& text) { return text.empty() ? platform::Value(platform::Null) : platform::Value(text); }

}  // namespace

void MakeCompanyFiles(const std::string& folder, int year) {
  const auto placeOf = [&](suite::DataFile file) { return folder + "/" + suite::FileName(file); };
  for (const auto file : suite::kCompanyFiles) engine::CreateDataFile(placeOf(file), suite::TablesOf(file));
  AddFirstRows(placeOf, year);
}

void AddFirstRows(const std::function<std::string(suite::DataFile)>& placeOf, int year) {
  AddBuiltInRows(placeOf(suite::DataFile::Customer));
  AddReportRows(placeOf(suite::DataFile::Customer));
  AddLedgerRows(placeOf(suite::DataFile::Ledger), year);
}

CompanyRow AddCompanyRow(const std::string& datFile, const CompanyRecord& company) {
  try {
    if (!engine::DataFileExists(datFile)) {
      if (!platform::IsServerPath(datFile)) fs::create_directories(fs::path(datFile).parent_path());
      engine::CreateDataFile(datFile, suite::TablesOf(suite::DataFile::Dat));
    }
  } catch (const platform::Error& problem) {
    if (problem.Number() != platform::error::number::FileExists) throw;  // another program has just made it
  }
  DataAccess data;
  const auto rows = data.Open(datFile)->OpenRecordset("Company", platform::RecordsetType::Table);
  rows->AddNew();
  rows->SetField("CompID", std::int32_t{company.number});
  rows->SetField("AccountingEntity", std::uint8_t{0});
  rows->SetField("BeginningMonth", std::int16_t{1});
  const std::pair<const char*, const std::string&> texts[] = {
      {"CompName", company.name}, {"Addr1", company.address}, {"City", company.city}, {"State", company.state},
      {"Zip", company.zip},       {"Phone", company.phone},   {"Fax", company.fax}};
  for (const auto& [field, text] : texts) rows->SetField(field, TextOrNull(text));
  try {
    rows->Update();
  } catch (const platform::Error& problem) {
    if (problem.Number() != platform::error::number::DuplicateKey) throw;
    return CompanyRow::WasThere;
  }
  return CompanyRow::Added;
}

int ThisYear() { return platform::CalendarOf(suite::Clock().Today()).year; }

}  // namespace suitefiles
