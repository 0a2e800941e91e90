#include "queries/frmCustQueries.h"

// Which criterion's controls are open: its check box alone switches them.
namespace orcussch {

using namespace criteria;
using platform::Control;

namespace {

constexpr int kOn = 1;

template <class T, std::size_t N>
void Disable(const platform::ControlArray<T, N>& controls) {
  controls.Each([](T& control, int) { control.Enabled(false); });
}

}  // namespace

std::vector<Control*> frmCustQueries::SwitchedByMisc(int Index) {
  switch (Index) {
    case Status:
      return {&optStatus[0], &optStatus[1], &optStatus[2]};
    case InvoiceNo:
      return {&optInvoiceNo[0], &optInvoiceNo[1], &txtInvoiceNo};
    case CreditCard:
      return {&cboSQL[kCardComparison], &txtCreditCard};
    case KeyWords:
      return {&txtSearch[0], &grid[0]};
    case CustomerTypes:
      return {&txtSearch[1], &grid[1]};
    case Billing:
      return {&optBillingStatus[0], &optBillingStatus[1]};
    case CheckNo:
      return {&txtCheckNo};
    case TaxID:
      return {&txtTaxID};
    default:
      return {&optOmitFinChg[0], &optOmitFinChg[1]};
  }
}

void frmCustQueries::chkSelectNameAdd_Click(int Index) {
  const bool on = chkSelectNameAdd[Index].Value() == kOn;
  if (on) chkSelectAll.Value(0);
  cboSQL[Index].Enabled(on);
  txtNameAdd[Index].Enabled(on);
  if (Index == kPhone) txtNameAdd[kPhoneNumber].Enabled(on);
  OfferRun();
}

void frmCustQueries::chkSelectMisc_Click(int Index) {
  const bool on = chkSelectMisc[Index].Value() == kOn;
  if (on) chkSelectAll.Value(0);
  // Where the host has fixed the billing status its choices stay as they are.
  if (Index != Billing || fraBillingStatus.Enabled())
    for (Control* control : SwitchedByMisc(Index)) control->Enabled(on);
  OfferRun();
}

void frmCustQueries::chkSelectAmount_Click(int Index) {
  const bool on = chkSelectAmount[Index].Value() == kOn;
  if (on) chkSelectAll.Value(0);
  txtAmount[Index].Enabled(on);
  OfferRun();
}

void frmCustQueries::chkSelectDate_Click(int Index) {
  const bool on = chkSelectDate[Index].Value() == kOn;
  if (on) chkSelectAll.Value(0);
  txtDate[Index].Enabled(on);
  OfferRun();
}

/// All customers: every criterion goes, but for the finance charge's, which stays as it is and means nothing then.
void frmCustQueries::chkSelectAll_Click() {
  if (chkSelectAll.Value() == kOn) {
    chkSelectNameAdd.Each([this](platform::CheckBox& box, int i) {
      box.Value(0);
      cboSQL[i].Enabled(false);
      txtNameAdd[i].Enabled(false);
    });
    txtNameAdd[kPhoneNumber].Enabled(false);
    for (int j = 0; j < FinanceCharge; ++j)
      if (j != Billing || fraBillingStatus.Enabled()) chkSelectMisc[j].Value(0);
    Disable(optStatus);
    Disable(optInvoiceNo);
    Disable(txtSearch);
    Disable(grid);
    for (Control* control : std::initializer_list<Control*>{&txtInvoiceNo, &cboSQL[kCardComparison], &txtCreditCard})
      control->Enabled(false);
    if (fraBillingStatus.Enabled()) {
      chkSelectMisc[Billing].Value(0);
      Disable(optBillingStatus);
    }
    chkSelectAmount.Each([](platform::CheckBox& box, int) { box.Value(0); });
    Disable(txtAmount);
    chkSelectDate.Each([](platform::CheckBox& box, int) { box.Value(0); });
    Disable(txtDate);
  }
  OfferRun();
}

/// The alternate number reaches the statement as it stands, so it is a number.
void frmCustQueries::optInvoiceNo_Click(int Index) {
  using Input = platform::ClassEdit::Input;
  txtInvoiceNo.Text("");
  txtInvoiceNo.InputClass(Index == 0 ? Input::AnyText : Input::Number);
  OfferRun();
}

}  // namespace orcussch
