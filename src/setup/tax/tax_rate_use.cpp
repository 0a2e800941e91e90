#include "setup/tax/tax_rate_use.h"

#include <string>

#include "session/ModCustSch.h"
#include "session/opened.h"

namespace orcussch {

bool CustomersHaveTax(std::int32_t TaxID) {
  const std::string key = std::to_string(TaxID);
  const Opened rows(dbCustomer->OpenRecordset("Select AcctNum FROM Customers WHERE (TaxBasisA = " + key + " or TaxBasisB = " + key +
                                              " or TaxBasisC = " + key + " or TaxBasisD = " + key + ");"));
  return rows->HasRows();
}

bool FlatRateHasTax(std::int32_t TaxID) {
  struct OpenedFile {
    platform::DatabaseRef file;
    ~OpenedFile() {
      Ignore()([this] { file->Close(); });
    }
  };
  const OpenedFile flatRate{App().Engine().WorkspaceAt(0)->OpenDatabase(GetDataPath(gCompanyID, "flatrate.zdb"))};
  const Opened rows(flatRate.file->OpenRecordset("Select FRTaxID FROM FRDeptTax WHERE (TaxID = " + std::to_string(TaxID) + ");"));
  return rows->HasRows();
}

}  // namespace orcussch
