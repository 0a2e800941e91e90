#pragma once

#include <array>
#include <string>

#include "platform/controls/combo.h"
#include "setup/tax/tax_class_row.h"
#include "setup/tax/tax_tab.h"

namespace orcussch {

/// The tax rates that customers and the price book are given: a percentage a class of sales, each with its liability account, of a
/// type and an entity, perhaps with a limit of what is taxed.
class TaxRatesTab final : public TaxTab {
 public:
  explicit TaxRatesTab(frmTaxSetup& screen);

  /// The combos' lists come from that file from now on.
  void OpenCombos(const std::string& path);
  void ReloadCombos();

  platform::DataControl DataTypes, DataEntities;
  platform::TextBox txtDescription;
  platform::ComboBox cboTypes, cboEntities;
  platform::TextBox txtTaxCode;
  std::array<TaxClassRow, 3> classes;
  platform::Frame SSFrame1;
  platform::CheckBox chkBaseLimit;
  platform::CurrencyEdit txtBaseLimit;
  platform::ControlArray<platform::OptionButton, 2> optLimitTransType;
  platform::TextBox txtComment;

 private:
  const platform::RecordsetRef& Table() const override;
  platform::Control& FirstField() override { return txtDescription; }
  bool Add() override;
  bool Edit() override;
  bool Complete() override;
  void Fill(const platform::RecordsetRef& row) override;
  const char* InUse(std::int32_t key) const override;

  bool TypeEntitiesSetup() const;
  void LoadParent(platform::ComboBox& combo, platform::DataControl& source, const char* key, const char* description);
  bool RequiresParent(platform::ComboBox& combo, const char* message);
  void ShowLimit(platform::Currency limit, bool eachJob);
  void LoadLimit();
  bool RequiresLimit();
  void chkBaseLimit_Click();
};

}  // namespace orcussch
