#include "setup/tax/frmTaxSetupQueries.h"

#include "records/fields.h"
#include "session/ModCustSch.h"
#include "session/failures.h"
#include "setup/setup_shortcuts.h"
#include "setup/tax/frmTaxSetup.h"

namespace orcussch {

namespace screens {
platform::ScreenRef<orcussch::frmTaxSetupQueries> frmTaxSetupQueries{App};
}  // namespace screens

namespace {
constexpr int kAll = 0, kByType = 1, kByEntity = 2;
}

frmTaxSetupQueries::frmTaxSetupQueries(platform::Application& application)
    : Screen(application, "frmTaxSetupQueries", "Tax Rate Queries"),
      Toolbar1(*this, "Toolbar1", {{"tb_RunQuery", "Run Query"}, {"tb_Cancel", "Cancel Running Query"}}),
      DataTypes(*this, "DataTypes"),
      DataEntities(*this, "DataEntities"),
      chkSelect(*this, "chkSelect"),
      fraTypes(*this, "fraTypes", "Tax Types:"),
      cboTypes(*this, "cboTypes"),
      fraEntities(*this, "fraEntities", "Tax Entities:"),
      cboEntities(*this, "cboEntities") {
  Shortcuts(kTaxSetupQueriesShortcuts);
  DataTypes.RecordSource("TaxTypes");
  DataEntities.RecordSource("TaxEntities");
  cboTypes.FillFrom(DataTypes, "TaxType", "TypeDescription", {{"TypeDescription", "Tax Type", ""}});
  cboEntities.FillFrom(DataEntities, "TaxEntity", "EntityDescription", {{"EntityDescription", "Tax Entity", ""}});
  chkSelect[kAll].Caption("Select All");
  chkSelect[kByType].Caption("Select Type");
  chkSelect[kByEntity].Caption("Select Entity");
  chkSelect[kByType].Container(fraTypes);
  cboTypes.Container(fraTypes);
  chkSelect[kByEntity].Container(fraEntities);
  cboEntities.Container(fraEntities);
  cboTypes.Enabled(false);
  cboEntities.Enabled(false);
  chkSelect.Each([this](platform::CheckBox& box, int Index) { box.Click = [this, Index] { chkSelect_Click(Index); }; });
  // Choosing an entity wakes nothing: its box was clicked before, and did.
  cboTypes.Change = [this] { Toolbar1.Button("tb_RunQuery").Enabled(true); };
  Toolbar1.ButtonClick = [this](const std::string& Key) { Toolbar1_ButtonClick(Key); };
}

void frmTaxSetupQueries::Form_Load() {
  Trap("frmTaxSetupQueries.Form_Load", [this] {
    for (platform::DataControl* source : {&DataTypes, &DataEntities}) source->DatabaseName(gCustomerPath);
    for (platform::DataControl* source : {&DataTypes, &DataEntities}) {
      source->Refresh();
      source->UpdateControls();
    }
    Toolbar1.Button("tb_RunQuery").Enabled(false);
  });
}

/// Only its frame, or the end of the session, unloads it.
void frmTaxSetupQueries::Form_Unload() { screens::frmTaxSetupQueries.release(); }

void frmTaxSetupQueries::chkSelect_Click(int Index) {
  const bool on = chkSelect[Index].Value() != 0;
  if (Index == kByType) cboTypes.Enabled(on);
  if (Index == kByEntity) cboEntities.Enabled(on);
  if (on && Index == kAll) {
    for (const int other : {kByType, kByEntity}) chkSelect[other].Value(0);
  } else if (on) {
    chkSelect[kAll].Value(0);
  }
  Toolbar1.Button("tb_RunQuery").Enabled(true);
}

/// A box that is on with nothing chosen beside it asks for nothing.
std::string frmTaxSetupQueries::BuildWhere() const {
  if (chkSelect[kAll].Value() != 0) return "";
  std::string where;
  const auto ask = [&](int box, const char* field, const platform::ComboBox& combo) {
    const std::string value = BoundText(combo);
    if (chkSelect[box].Value() == 0 || value.empty()) return;
    where += std::string(where.empty() ? " WHERE " : " AND ") + "(TaxGrid." + field + " = " + value + ")";
  };
  ask(kByType, "TaxType", cboTypes);
  ask(kByEntity, "TaxEntity", cboEntities);
  return where;
}

void frmTaxSetupQueries::Toolbar1_ButtonClick(const std::string& Key) {
  Toolbar1.Enabled(false);
  orcussch::frmTaxSetup* const setup = screens::frmTaxSetup.peek();
  if (Key == "tb_RunQuery" && setup) {
    setup->RateWhere = BuildWhere();
    setup->SQLData(taxtab::Rates);
  }
  App().Hide(*this);
  Toolbar1.Enabled(true);
}

}  // namespace orcussch
