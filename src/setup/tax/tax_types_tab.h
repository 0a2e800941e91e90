#pragma once

#include "setup/tax/tax_tab.h"

namespace orcussch {

/// The kinds of taxes, each of a class: sales tax, use tax, or other.
class TaxTypesTab final : public TaxTab {
 public:
  explicit TaxTypesTab(frmTaxSetup& screen);

  platform::TextBox txtTaxType;
  platform::ControlArray<platform::OptionButton, 3> optTaxType;

 private:
  const platform::RecordsetRef& Table() const override;
  platform::Control& FirstField() override { return txtTaxType; }
  bool Add() override;
  bool Edit() override;
  bool Complete() override;
  void Fill(const platform::RecordsetRef& row) override;
};

}  // namespace orcussch
