#pragma once

#include <string>

#include "platform/controls/buttons.h"
#include "platform/controls/label.h"
#include "platform/controls/text_box.h"
#include "platform/data/data.h"

namespace orcussch {

class frmTaxSetup;
struct LedgerAccount;

/// A class of sales on the card of a tax rate: its percentage and the liability account that takes its tax. An account needs a rate.
class TaxClassRow {
 public:
  /// `rate` and `account` are the row's fields in the table.
  TaxClassRow(frmTaxSetup& screen, int index, const char* caption, const char* rate, const char* account);
  TaxClassRow(const TaxClassRow&) = delete;
  TaxClassRow& operator=(const TaxClassRow&) = delete;

  void Clear();
  /// An account that is not valid in the accounting year shows as none, under the description that was there.
  void Load(const platform::RecordsetRef& row);
  /// Makes the row ready to be written: a rate above 0 needs a valid account, any other has none. False: the user was told.
  bool Complete();

  platform::Label lblGLTax;
  platform::NumberEdit txtTax;  ///< percent
  platform::TextBox txtGlTax;
  platform::CommandButton cmdCOATax;
  platform::Label lblGLTaxDesc;

 private:
  void txtTax_Change();
  void txtGlTax_LostFocus();
  void cmdCOATax_Click();
  bool IsLiability(const LedgerAccount& account, std::string& GLDesc) const;

  frmTaxSetup& s;
};

}  // namespace orcussch
