#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "queries/frmCustQueries.h"
#include "session/ModCustSch.h"
#include "session/failures.h"

// Loading, the start on the criterion that the user has chosen in his options, and the end.
namespace orcussch {

using namespace criteria;

namespace {

/// The user's row, on which SetUserStartup has put the recordset.
int UsersChoice(const char* Field) { return platform::CInt(rsUserStartup->Field(Field)); }

template <class T, std::size_t N>
T& Element(const platform::ControlArray<T, N>& controls, int Index) {
  if (Index < 0 || Index >= controls.size()) throw platform::error::SubscriptOutOfRange();
  return controls[Index];
}

}  // namespace

void frmCustQueries::Form_Load() {
  Trap("frmCustQueries.Form_Load", [this] {
    App().DoEvents();
    if (!Loaded()) return;
    Data.Each([](platform::DataControl& list, int) {
      list.DatabaseName(gCustomerPath);
      list.Refresh();
    });
    if (!SetUserStartup()) {
      mFocusWanted = false;
      SSTab1.Tab(Names);
      chkSelectAll.Value(1);
    } else {
      StartOnUsersCriterion();
    }
    TakeBillingStatus();
    App().DoEvents();
  });
}

void frmCustQueries::StartOnUsersCriterion() {
  mFocusWanted = true;
  chkSelectAll.Value(0);
  const int queryTab = UsersChoice("QueryTab");
  if (queryTab < 0 || queryTab >= kTabs) {  // the first tab, with nothing chosen and no entry that waits
    mFocusWanted = false;
    return;
  }
  SSTab1.Tab(queryTab);
  const int queryField = UsersChoice("QueryField");
  switch (queryTab) {
    case Names:
      return Element(chkSelectNameAdd, queryField).Value(1);
    case Misc:
      return Element(chkSelectMisc, queryField).Value(1);
    case Amounts:
      return Element(chkSelectAmount, queryField).Value(1);
    default:
      return Element(chkSelectDate, queryField).Value(1);
  }
}

/// A host that works with billable or non-billable customers alone has answered that question for the user.
void frmCustQueries::TakeBillingStatus() {
  if (gBillingStatus != "B" && gBillingStatus != "N") return;
  const bool billable = gBillingStatus == "B";
  Caption(billable ? "Billable Customers Queries" : "Non-Billable Customers");
  chkSelectAll.Caption(billable ? "Select All Billable Customers" : "Select All Non-Billable Customers");
  fraBillingStatus.Enabled(false);
  chkSelectMisc[Billing].Value(1);
  optBillingStatus[billable ? 0 : 1].Value(true);
}

void frmCustQueries::Form_Activate() {
  Trap("frmCustQueries.Form_Activate", [this] {
    if (!mFocusWanted || chkSelectAll.Value() != 0) return;
    mFocusWanted = false;
    FocusUsersCriterion(UsersChoice("QueryField"));
  });
}

void frmCustQueries::FocusUsersCriterion(int QueryField) {
  switch (SSTab1.Tab()) {
    case Names:
      return Element(txtNameAdd, QueryField).SetFocus();
    case Amounts:
      return Element(txtAmount, QueryField).SetFocus();
    case Dates:
      return Element(txtDate, QueryField).SetFocus();
    default:
      break;
  }
  switch (QueryField) {
    case Status:
      return optStatus[0].SetFocus();
    case InvoiceNo:
      return txtInvoiceNo.SetFocus();
    case CreditCard:
      return txtCreditCard.SetFocus();
    case KeyWords:
      return txtSearch[0].SetFocus();
    case CustomerTypes:
      return txtSearch[1].SetFocus();
    default:
      return;
  }
}

/// The next use begins with a fresh screen.
void frmCustQueries::Form_Unload() { screens::frmCustQueries.release(); }

void frmCustQueries::Form_MouseMove() { StatusBar1.Panel(1, ""); }

}  // namespace orcussch
