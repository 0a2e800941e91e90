#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/fields.h"
#include "session/ModCustSch.h"

// Small handlers of the customer card.
namespace orcussch {

namespace {

/// The comment box takes over the space of these while it has the focus.
std::array<platform::Control*, 6> GivesWay(frmCustMain& s) {
  return {&s.fraStatus, &s.fraBillingStatus, &s.fraTaxBasis, &s.fraTax, &s.chkAgeMethod, &s.chkOmitFinChg};
}

}  // namespace

void frmCustMain::txtComment_GotFocus() {
  for (platform::Control* control : GivesWay(*this)) control->Visible(false);
}

void frmCustMain::txtComment_LostFocus() {
  for (platform::Control* control : GivesWay(*this)) control->Visible(true);
}

/// The table of customers is itself the zip book. Index "Zip" stays set; every use of the recordset sets its own first.
void frmCustMain::txtZip_LostFocus() {
  if (txtZip.Text().empty() || !txtCity.Text().empty()) return;
  rsCustomers->SetIndex("Zip");
  rsCustomers->Seek("=", {txtZip.Text()});
  if (rsCustomers->NoMatch()) return;
  txtCity.Text(TextOf(rsCustomers, "City"));
  if (txtState.Text().empty()) txtState.Text(TextOf(rsCustomers, "State"));
}

/// A whole number typed into the area code, as it stands on a letter head, goes on into the number when that is empty. Ten
/// digits came at one go, or eleven with the 1 of a long-distance call in front; fewer stay what they are.
void frmCustMain::txtPhoneArea_KeyPress(int& KeyAscii) {
  constexpr std::size_t kArea = 3;
  constexpr std::size_t kWhole = 10;
  if (KeyAscii < '0' || KeyAscii > '9') {
    if (KeyAscii < ' ') mAreaDigits.clear();
    return;
  }
  // Typed somewhere else in the box, or after another text came into it: a new beginning.
  if (txtPhoneArea.Text() != mAreaDigits.substr(0, kArea)) mAreaDigits.clear();
  mAreaDigits += static_cast<char>(KeyAscii);
  const std::size_t lead = mAreaDigits.front() == '1' ? 1 : 0;
  if (mAreaDigits.size() < kWhole + lead) return;
  if (mAreaDigits.size() == kWhole + lead && txtPhone.Text().empty()) {
    txtPhoneArea.Text(mAreaDigits.substr(lead, kArea));
    txtPhone.Text(mAreaDigits.substr(lead + kArea));
    KeyAscii = 0;
  }
  mAreaDigits.clear();
}

void frmCustMain::cmdPlusMinus_Click() { cmdPlusMinus.Caption(cmdPlusMinus.Caption() == "+" ? "-" : "+"); }

void frmCustMain::txtCreditLimit_MouseMove() { StatusBar1.Panel(1, "Credit Limit:  Enter -1 for No Credit Limit.  Enter 0 for C.O.D."); }

void frmCustMain::optLaborRate_MouseMove(int Index) {
  static constexpr const char* kHints[] = {
      "No default customer labor rate",
      "Single default customer labor rate",
      "Customer departmental labor rates are setup up on the 'Dept. Labor Rate' tab for the current customer",
  };
  StatusBar1.Panel(1, kHints[Index]);
}

void frmCustMain::fraLaborRate_MouseMove() { StatusBar1.Panel(1, ""); }

}  // namespace orcussch
