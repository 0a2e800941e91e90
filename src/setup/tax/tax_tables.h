#pragma once

#include "platform/data/data.h"

namespace orcussch {

/// The tables through which the tax setup writes and tests, beside the lists' own recordsets.
struct TaxTables {
  /// The ledger's, read only. Raises when one can't be opened; those before it are open then.
  void OpenLedger();
  /// The customer file's.
  void OpenTaxes();
  void Close();

  platform::RecordsetRef GL_Tb, GLAccounts_Tb, GLDepartments_Tb;
  platform::RecordsetRef TaxGrid_Tb, TaxTypes_Tb, TaxEntities_Tb;
};

}  // namespace orcussch
