#include "setup/tax/tax_rates_tab.h"

#include "records/columns.h"
#include "records/fields.h"
#include "setup/tax/frmTaxSetup.h"
#include "setup/tax/tax_rate_use.h"

namespace orcussch {

namespace {

using namespace column;

constexpr const char* kRate = "0.0000";
constexpr const char* kAccount = "#####-###";
constexpr int kDescriptionLength = 25, kCodeLength = 20, kCommentLength = 50, kAccountLength = 8;

platform::GridColumn Account(const char* caption, const char* field) {
  return Limited(Formatted(caption, field, kAccount), kAccountLength);
}

TaxTabDesign Design() {
  return {.caption = "  Tax Rates  ",
          // The right joins keep a rate whose type or entity has gone.
          .select =
              "SELECT TaxGrid.*, TaxTypes.TypeDescription, TaxEntities.EntityDescription FROM TaxEntities RIGHT JOIN (TaxTypes "
              "RIGHT JOIN TaxGrid ON TaxTypes.TaxType = TaxGrid.TaxType) ON TaxEntities.TaxEntity = TaxGrid.TaxEntity",
          .index = "Primary",
          .description = "Description",
          .noun = "tax rate",
          .gone = "The edited tax can no longer be found.  It may have been deleted by another user.  The record changes can not be saved!",
          .texts = {.name = "Tax Rate?", .deleteTitle = "Delete Tax Rate", .deleting = "Deleting record, please wait!", .saving = ""},
          .list = {.data = "Data",
                   .grid = "grid",
                   .options = "optOrder2",
                   .index = taxtab::Rates,
                   .field = "TaxID",
                   .prompt = "Tax ID",
                   .caption = "",
                   .columns = {Closed(Plain("Tax ID", "TaxID")), Limited(Plain("Description", "Description"), kDescriptionLength),
                               Closed(Plain("Tax Type", "TypeDescription")), Closed(Plain("Tax Entity", "EntityDescription")),
                               Formatted("Materail Rate %", "Mat", kRate), Formatted("Labor Rate %", "Lab", kRate),
                               Formatted("Other Rate %", "Oth", kRate), Account("Material G/L", "GLMat"), Account("Labor G/L", "GLLab"),
                               Account("Other G/L", "GLOth"), Money("Tax Base Limit", "Limit"),
                               Coded("Limit Transaction Type", "LimitTransType", {{"I", "Each Invoice"}, {"J", "Each Job"}}),
                               Limited(Plain("Tax Code", "TaxCode"), kCodeLength), Limited(Plain("Comment", "Comment"), kCommentLength)}}};
}

}  // namespace

TaxRatesTab::TaxRatesTab(frmTaxSetup& screen)
    : TaxTab(screen, taxtab::Rates, Design()),
      DataTypes(screen, "DataTypes"),
      DataEntities(screen, "DataEntities"),
      txtDescription(screen, "txtDescription", kDescriptionLength),
      cboTypes(screen, "cboTypes"),
      cboEntities(screen, "cboEntities"),
      txtTaxCode(screen, "txtTaxCode", kCodeLength),
      classes{TaxClassRow(screen, 0, "Materials:", "Mat", "GLMat"), TaxClassRow(screen, 1, "Labor:", "Lab", "GLLab"),
              TaxClassRow(screen, 2, "Other:", "Oth", "GLOth")},
      SSFrame1(screen, "SSFrame1", "Tax Base Limits:"),
      chkBaseLimit(screen, "chkBaseLimit", "Limit Tax Base      Limit:"),
      txtBaseLimit(screen, "txtBaseLimit"),
      optLimitTransType(screen, "optLimitTransType"),
      txtComment(screen, "txtComment", kCommentLength) {
  DataTypes.RecordSource("TaxTypes");
  DataEntities.RecordSource("TaxEntities");
  cboTypes.FillFrom(DataTypes, "TaxType", "TypeDescription", {{"TypeDescription", "Tax Type", ""}});
  cboEntities.FillFrom(DataEntities, "TaxEntity", "EntityDescription", {{"EntityDescription", "Tax Entity", ""}});
  optLimitTransType[0].Caption("Each Invoice");
  optLimitTransType[1].Caption("Each Job");
  optLimitTransType[0].Design(true);
  chkBaseLimit.Click = [this] { chkBaseLimit_Click(); };
  chkBaseLimit_Click();

  PutOnCard({&txtDescription, &cboTypes, &cboEntities, &txtTaxCode, &SSFrame1, &txtComment});
  for (TaxClassRow& row : classes) PutOnCard({&row.lblGLTax, &row.txtTax, &row.txtGlTax, &row.cmdCOATax, &row.lblGLTaxDesc});
  for (platform::Control* control :
       std::initializer_list<platform::Control*>{&chkBaseLimit, &txtBaseLimit, &optLimitTransType[0], &optLimitTransType[1]})
    control->Container(SSFrame1);
}

void TaxRatesTab::OpenCombos(const std::string& path) {
  DataTypes.DatabaseName(path);
  DataEntities.DatabaseName(path);
  ReloadCombos();
}

void TaxRatesTab::ReloadCombos() {
  for (platform::DataControl* source : {&DataTypes, &DataEntities}) {
    source->Refresh();
    source->UpdateControls();
  }
}

const platform::RecordsetRef& TaxRatesTab::Table() const { return s.tables.TaxGrid_Tb; }

/// A rate needs both parents. Where both are missing the user is told of the entities alone.
bool TaxRatesTab::TypeEntitiesSetup() const {
  std::string message;
  if (!s.types.list.HasRows())
    message =
        "All tax rate records must be assigned a tax type.  Currently no tax type records exist.  You must add a tax type before you can "
        "add or edit a tax rate record.\r\r";
  if (!s.entities.list.HasRows())
    message =
        "All tax rate records must be assigned a tax entity.  Currently no tax entity records exist.  You must add a tax entity before "
        "you can add or edit a tax rate record.";
  if (message.empty()) return true;
  s.Tell(message, "Tax Rate Record");
  return false;
}

bool TaxRatesTab::Add() {
  HideKey();
  if (!TypeEntitiesSetup()) return false;
  txtDescription.Text("");
  EmptyCombo(cboTypes);
  EmptyCombo(cboEntities);
  txtTaxCode.Text("");
  for (TaxClassRow& row : classes) row.Clear();
  ShowLimit({}, false);
  txtComment.Text("");
  return true;
}

bool TaxRatesTab::Edit() {
  ShowKey();
  if (!TypeEntitiesSetup()) return false;
  lblID.Caption(TextUnguarded(Rows(), "TaxID"));
  txtDescription.Text(TextUnguarded(Rows(), "Description"));
  LoadParent(cboTypes, DataTypes, "TaxType", "TypeDescription");
  LoadParent(cboEntities, DataEntities, "TaxEntity", "EntityDescription");
  txtTaxCode.Text(TextOf(Rows(), "TaxCode"));
  for (TaxClassRow& row : classes) row.Load(Rows());
  LoadLimit();
  txtComment.Text(TextOf(Rows(), "Comment"));
  return true;
}

/// A parent that has gone leaves the combo empty.
void TaxRatesTab::LoadParent(platform::ComboBox& combo, platform::DataControl& source, const char* key, const char* description) {
  EmptyCombo(combo);
  const platform::Value parent = Rows()->Field(key);
  if (parent.IsNull()) return;
  const platform::RecordsetRef parents = source.Recordset();
  parents->FindFirst("[" + std::string(key) + "]=" + platform::CStr(parent));
  if (!parents->NoMatch()) SetCombo(combo, parents->Field(key), TextUnguarded(parents, description));
}

void TaxRatesTab::ShowLimit(platform::Currency limit, bool eachJob) {
  chkBaseLimit.Value(limit > platform::Currency{} ? 1 : 0);
  txtBaseLimit.Value(limit);
  optLimitTransType[eachJob ? 1 : 0].Value(true);
}

void TaxRatesTab::LoadLimit() {
  const platform::Value limit = Rows()->Field("Limit");
  if (limit.IsNull() || platform::CCur(limit) <= platform::Currency{}) return ShowLimit({}, false);
  ShowLimit(platform::CCur(limit), TextOf(Rows(), "LimitTransType") == "J");
}

bool TaxRatesTab::Complete() {
  if (!Requires(txtDescription, "You must enter a tax description!")) return false;
  if (!RequiresParent(cboTypes, "You must select a tax type!")) return false;
  if (!RequiresParent(cboEntities, "You must select a tax entity!")) return false;
  if (!RequiresLimit()) return false;
  for (TaxClassRow& row : classes)
    if (!row.Complete()) return false;
  return true;
}

bool TaxRatesTab::RequiresParent(platform::ComboBox& combo, const char* message) {
  if (!BoundText(combo).empty()) return true;
  s.Tell(message, "Save Record");
  combo.SetFocus();
  return false;
}

bool TaxRatesTab::RequiresLimit() {
  if (chkBaseLimit.Value() == 0 || txtBaseLimit.Value() > platform::Currency{}) return true;
  s.Tell("You must enter a tax base limit greater than zero or uncheck the 'Limit Tax Base' check box!", "Save Record");
  txtBaseLimit.SetFocus();
  return false;
}

void TaxRatesTab::Fill(const platform::RecordsetRef& row) {
  row->SetField("Description", txtDescription.Text());
  row->SetField("TaxType", cboTypes.BoundValue());
  row->SetField("TaxEntity", cboEntities.BoundValue());
  row->SetField("TaxCode", txtTaxCode.Text());
  for (const TaxClassRow& one : classes) row->SetField(one.txtTax.Tag(), one.txtTax.Value());
  for (const TaxClassRow& one : classes) row->SetField(one.txtGlTax.Tag(), one.txtGlTax.Text());
  const bool limited = chkBaseLimit.Value() != 0;
  row->SetField("Limit", limited ? txtBaseLimit.Value() : platform::Currency{});
  row->SetField("LimitTransType", limited && optLimitTransType[1].Value() ? "J" : "I");
  row->SetField("Comment", txtComment.Text());
}

const char* TaxRatesTab::InUse(std::int32_t key) const {
  if (CustomersHaveTax(key)) return "it is in use by one or more customer records";
  if (FlatRateHasTax(key)) return "it is in use by one or more price book records in Flat Rate";
  return nullptr;
}

void TaxRatesTab::chkBaseLimit_Click() {
  const bool limited = chkBaseLimit.Value() != 0;
  txtBaseLimit.Enabled(limited);
  optLimitTransType.Each([limited](platform::OptionButton& option, int) { option.Enabled(limited); });
}

}  // namespace orcussch
