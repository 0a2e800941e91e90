#include "suitefiles/company_maker.h"

#include <filesystem>

#include "engine/data_file.h"
#include "platform/convert.h"
#include "suite/clock.h"
#include "suite/company_schema.h"
#include "suitefiles/session.h"
#include "suitefiles/setup_rows.h"
#include "suitefiles/table_writer.h"

namespace suitefiles {

namespace {

platform::Value TextOrNull(const std::string& text) { return text.empty() ? platform::Value(platform::Null) : platform::Value(text); }

bool HasRow(const std::string& datFile, int company) {
  Session session;
  const auto rows = session.Open(datFile)->OpenRecordset("SELECT CompID FROM Company WHERE CompID=" + std::to_string(company));
  return rows->RecordCount() > 0;
}

}  // namespace

void MakeCompanyFiles(const std::string& folder, int year) {
  for (const auto file : suite::kCompanyFiles) engine::CreateDataFile(folder + "/" + suite::FileName(file), suite::TablesOf(file));
  AddBuiltInRows(folder + "/" + suite::FileName(suite::DataFile::Customer));
  AddReportRows(folder + "/" + suite::FileName(suite::DataFile::Customer));
  AddLedgerRows(folder + "/" + suite::FileName(suite::DataFile::Ledger), year);
}

CompanyRow AddCompanyRow(const std::string& datFile, const CompanyRecord& company) {
  if (!std::filesystem::exists(datFile)) engine::CreateDataFile(datFile, suite::TablesOf(suite::DataFile::Dat));
  if (HasRow(datFile, company.number)) return CompanyRow::WasThere;
  TableWriter rows(datFile, "Company",
                   {"CompID", "AccountingEntity", "BeginningMonth", "CompName", "Addr1", "City", "State", "Zip", "Phone", "Fax"});
  rows.Row(std::int32_t{company.number}, std::uint8_t{0}, std::int16_t{1}, company.name, TextOrNull(company.address),
           TextOrNull(company.city), TextOrNull(company.state), TextOrNull(company.zip), TextOrNull(company.phone),
           TextOrNull(company.fax));
  rows.Finish();
  return CompanyRow::Added;
}

int ThisYear() { return platform::CalendarOf(suite::Clock().Today()).year; }

}  // namespace suitefiles
