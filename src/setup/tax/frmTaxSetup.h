#pragma once

#include <cstdint>
#include <string>

#include "platform/controls/form/tab_control.h"
#include "platform/host/screen_ref.h"
#include "setup/setup_screen.h"
#include "setup/tax/tax_entities_tab.h"
#include "setup/tax/tax_rates_tab.h"
#include "setup/tax/tax_tables.h"
#include "setup/tax/tax_types_tab.h"

namespace orcussch {

/// The taxes: their types, the entities that they are owed to, and the rates, each table on a tab with its list and its card. What
/// belongs to one table stands in its tab.
class frmTaxSetup final : public SetupScreen {
 public:
  explicit frmTaxSetup(platform::Application& application);
  void Form_Load() override;
  void Form_Unload() override;

  /// Opens the list of a tab in its order, the rates' under RateWhere.
  void SQLData(int Index);
  using SetupScreen::Tell;

  std::string RateWhere;      ///< clause of the rates' list, "" for all rates
  std::int16_t ActgYear = 0;  ///< in whose ledger accounts must be
  TaxTables tables;

  platform::TabControl SSIndexTab1;
  TaxTypesTab types;
  TaxEntitiesTab entities;
  TaxRatesTab rates;
  // Above the tabs, but the last stop: who opens the screen begins with a list.
  platform::TextBox txtActgYear;
  platform::CommandButton cmdClose;
  platform::StatusBar StatusBar1;

 private:
  TaxTab& Record(int Index);
  TaxTab& CurrentRecord() override { return Record(SSIndexTab1.Tab()); }
  RecordLiterals Literals() const override;
  void OpenList(SetupRecord&) override { SQLData(SSIndexTab1.Tab()); }
  void ShowCard(bool editing) override;
  void TurnTo(bool card) override { SSIndexTab1.Page(card ? 1 : 0); }
  platform::CommandButton& CloseButton() override { return cmdClose; }
  platform::StatusBar& Hints() override { return StatusBar1; }
  void RunOwnKey(const std::string& Key) override;

  void FindActgYear();
  void SSIndexTab1_Click();
  void grid_BeforeColUpdate(int Index, int ColIndex, const platform::Value& OldValue, bool& Cancel);
  void txtActgYear_Change();
  void txtActgYear_LostFocus();
};

namespace screens {
extern platform::ScreenRef<orcussch::frmTaxSetup> frmTaxSetup;
}  // namespace screens

}  // namespace orcussch
