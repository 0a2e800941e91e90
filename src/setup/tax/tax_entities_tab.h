#pragma once

#include "setup/tax/tax_tab.h"

namespace orcussch {

/// Whom taxes are owed to.
class TaxEntitiesTab final : public TaxTab {
 public:
  explicit TaxEntitiesTab(frmTaxSetup& screen);

  platform::TextBox txtTaxEntity;

 private:
  const platform::RecordsetRef& Table() const override;
  platform::Control& FirstField() override { return txtTaxEntity; }
  bool Add() override;
  bool Edit() override;
  bool Complete() override;
  void Fill(const platform::RecordsetRef& row) override;
};

}  // namespace orcussch
