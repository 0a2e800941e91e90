#include "setup/tax/tax_tables.h"

#include "session/ModCustSch.h"
#include "setup/main_lists.h"

namespace orcussch {

void TaxTables::OpenLedger() {
  GL_Tb = dbGL->OpenRecordset("GL", platform::RecordsetType::Table);
  GLAccounts_Tb = dbGL->OpenRecordset("Accounts", platform::RecordsetType::Table);
  GLDepartments_Tb = dbGL->OpenRecordset("Departments", platform::RecordsetType::Table);
}

void TaxTables::OpenTaxes() {
  TaxGrid_Tb = dbCustomer->OpenRecordset("TaxGrid", platform::RecordsetType::Table);
  TaxTypes_Tb = dbCustomer->OpenRecordset("TaxTypes", platform::RecordsetType::Table);
  TaxEntities_Tb = dbCustomer->OpenRecordset("TaxEntities", platform::RecordsetType::Table);
}

void TaxTables::Close() {
  for (platform::RecordsetRef* table : {&TaxGrid_Tb, &TaxTypes_Tb, &TaxEntities_Tb, &GL_Tb, &GLAccounts_Tb, &GLDepartments_Tb})
    CloseTable(*table);
}

}  // namespace orcussch
