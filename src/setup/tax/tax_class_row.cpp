#include "setup/tax/tax_class_row.h"

#include "platform/values/convert.h"
#include "records/fields.h"
#include "session/ModCustSch.h"
#include "setup/tax/frmTaxSetup.h"
#include "setup/tax/ledger.h"

namespace orcussch {

namespace {
constexpr int kEnter = 13;
constexpr int kPercentDecimals = 4;
constexpr int kAccountDigits = 8;
}  // namespace

TaxClassRow::TaxClassRow(frmTaxSetup& screen, int index, const char* caption, const char* rate, const char* account)
    : lblGLTax(screen, "lblGLTax", index, caption),
      txtTax(screen, "txtTax", index, kPercentDecimals),
      txtGlTax(screen, "txtGlTax", index, kAccountDigits, "%%%%%-%%%"),
      cmdCOATax(screen, "cmdCOATax", index, "..."),
      lblGLTaxDesc(screen, "lblGLTaxDesc", index, ""),
      s(screen) {
  txtTax.Tag(rate);
  txtGlTax.Tag(account);
  lblGLTax.Tag(account);
  txtGlTax.Enabled(false);
  cmdCOATax.Enabled(false);
  txtTax.Change = [this] { txtTax_Change(); };
  txtGlTax.LostFocus = [this] { txtGlTax_LostFocus(); };
  txtGlTax.KeyPress = [this](int& KeyAscii) {
    if (KeyAscii == kEnter) txtGlTax_LostFocus();
  };
  cmdCOATax.Click = [this] { cmdCOATax_Click(); };
}

void TaxClassRow::Clear() {
  txtTax.Value(0.0);
  txtGlTax.Text(kNoAccount);
  lblGLTaxDesc.Caption("");
}

void TaxClassRow::Load(const platform::RecordsetRef& row) {
  txtTax.Value(platform::CDbl(row->Field(txtTax.Tag())));
  const LedgerAccount account = SplitAccount(TextOf(row, txtGlTax.Tag().c_str()));
  txtGlTax.Text(kNoAccount);
  // The row's own name goes, from the messages too, until the screen is closed: users know it so.
  lblGLTax.Caption("");
  std::string glDesc;
  if (!IsLiability(account, glDesc)) return;
  txtGlTax.Text(account.GLAcct + account.GLDept);
  lblGLTaxDesc.Caption(glDesc);
}

bool TaxClassRow::Complete() {
  if (txtTax.Text().empty()) {
    txtTax.Value(0.0);
    txtGlTax.Text(kNoAccount);
  }
  if (txtGlTax.Text().empty()) txtGlTax.Text(kNoAccount);
  if (txtTax.Value() <= 0) {
    txtGlTax.Text(kNoAccount);
    return true;
  }
  std::string glDesc;
  if (platform::Val(txtGlTax.Text()) != 0 && IsLiability(SplitAccount(txtGlTax.Text()), glDesc)) return true;
  s.Tell(
      "You must enter or select a valid " + lblGLTax.Caption() + " G/L Liability Account No.! in Accounting Year: " + s.txtActgYear.Text(),
      "Save Record");
  return false;
}

void TaxClassRow::txtTax_Change() {
  const bool taxed = txtTax.Value() != 0;
  txtGlTax.Enabled(taxed);
  cmdCOATax.Enabled(taxed);
}

/// The focus goes on even where the account is refused: the save tests it again.
void TaxClassRow::txtGlTax_LostFocus() {
  Trap("frmARSetup.txtGlTax_LostFocus", [this] {
    if (platform::Val(txtGlTax.Text()) == 0) return lblGLTaxDesc.Caption("");
    const LedgerAccount account = SplitAccount(txtGlTax.Text());
    std::string glDesc;
    if (IsLiability(account, glDesc)) {
      txtGlTax.Text(account.GLAcct + account.GLDept);
      lblGLTaxDesc.Caption(glDesc);
      return;
    }
    s.App().MsgBox(lblGLTax.Caption() + " No. " + txtGlTax.DisplayText() + " is not a valid G/L Liability Account in Accounting Year " +
                       std::to_string(s.ActgYear) + ".",
                   platform::box::Stop + platform::box::OkOnly, "Default G/L Account Validation");
  });
}

void TaxClassRow::cmdCOATax_Click() {
  Trap("frmArSetup.cmdCoa_Click", [this] {
    platform::AccountsLookup* lookup = s.App().Accounts();
    if (!lookup) return;
    const platform::AccountsLookupInput input = {gCompany.CompName, gUserID, gCompanyID, s.ActgYear, 2, false, false, 0, 0, 0, 0, false};
    const platform::ChosenAccount chosen = lookup->Run(input);
    if (!chosen.chosen || !s.Loaded()) return;
    txtGlTax.Text(chosen.account + chosen.department);
    lblGLTaxDesc.Caption(chosen.accountText + " - " + chosen.departmentText);
  });
}

bool TaxClassRow::IsLiability(const LedgerAccount& account, std::string& GLDesc) const {
  return ValidGL(s.tables.GL_Tb, s.tables.GLAccounts_Tb, s.tables.GLDepartments_Tb, s.ActgYear, account, GLDesc, kLiability);
}

}  // namespace orcussch
