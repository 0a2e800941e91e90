#include "maintenance/tabs/customer_card.h"

#include <cmath>

#include "maintenance/display_options.h"
#include "maintenance/openers.h"
#include "records/find.h"
#include "records/lists.h"

namespace orcussch {

using platform::Control;
using platform::CStr;
using platform::Currency;
using platform::Null;
using platform::RecordsetRef;
using platform::Value;

CustomerCard::CustomerCard(frmCustMain& screen) : s(screen) {
  CaptionOptions(optStatus, {"Active", "Inactive", "Prospect"});
  CaptionOptions(optBillingStatus, {"Billable Customer", "Non-Billable Work Location"});
  CaptionOptions(optLaborRate, {"None", "Customer", "Customer Departmental"});
  const auto in = [](Control& frame, std::initializer_list<Control*> controls) {
    for (Control* control : controls) control->Container(frame);
  };
  in(fraStatus, {&optStatus[0], &optStatus[1], &optStatus[2]});
  in(fraBillingStatus, {&optBillingStatus[0], &optBillingStatus[1]});
  in(fraLaborRate, {&optLaborRate[0], &optLaborRate[1], &optLaborRate[2], &txtLaborRate});
  in(fraTax, {&txtTaxID, &txtExemptExpireDate});
  in(fraComment, {&txtComment});
  txtComment.MultiLine(true);
  txtLaborRate.Enabled(false);  // as option 0 of the labor rates leaves it
  txtCreditLimit.ToolTipText("Enter -1 for No Limit.  Enter 0 for C.O.D.");
  chkHoldCredit.ToolTipText("Hold Customer Credit");
  cboTerms.FillFrom(s.DataTerms, "Terms", "Message", {{"Message", "", ""}});
  cboSalesRate.FillFrom(s.DataSalesRate, "SalesRate", "RateDescription", {{"RateDescription", "", ""}});
  AttachHandlers();
}

void CustomerCard::AttachHandlers() {
  static constexpr const char* kLaborRateHints[] = {
      "No default customer labor rate",
      "Single default customer labor rate",
      "Customer departmental labor rates are setup up on the 'Dept. Labor Rate' tab for the current customer",
  };
  optLaborRate.Each([this](platform::OptionButton& option, int i) {
    option.Click = [this, i] { optLaborRate_Click(i); };
    option.MouseMove = [this, i] { s.StatusBar1.Panel(1, kLaborRateHints[i]); };
  });
  fraLaborRate.MouseMove = [this] { s.StatusBar1.Panel(1, ""); };
  txtCreditLimit.MouseMove = [this] { s.StatusBar1.Panel(1, "Credit Limit:  Enter -1 for No Credit Limit.  Enter 0 for C.O.D."); };
  txtComment.GotFocus = [this] { ShowComment(true); };
  txtComment.LostFocus = [this] { ShowComment(false); };
  txtZip.LostFocus = [this] { txtZip_LostFocus(); };
  cmdPlusMinus.Click = [this] { cmdPlusMinus.Caption(cmdPlusMinus.Caption() == "+" ? "-" : "+"); };
  cmdMapCode.Click = [this] { cmdMapCode_Click(); };
}

void CustomerCard::ShowComment(bool alone) {
  for (Control* control :
       std::initializer_list<Control*>{&fraStatus, &fraBillingStatus, &taxes.fraTaxBasis, &fraTax, &chkAgeMethod, &chkOmitFinChg})
    control->Visible(!alone);
}

/// The table of customers is itself the zip book. Index "Zip" stays set; every use of the recordset sets its own first.
void CustomerCard::txtZip_LostFocus() {
  if (txtZip.Text().empty() || !txtCity.Text().empty()) return;
  rsCustomers->SetIndex("Zip");
  rsCustomers->Seek("=", {txtZip.Text()});
  if (rsCustomers->NoMatch()) return;
  txtCity.Text(TextOf(rsCustomers, "City"));
  if (txtState.Text().empty()) txtState.Text(TextOf(rsCustomers, "State"));
}

void CustomerCard::optLaborRate_Click(int Index) {
  txtLaborRate.Enabled(Index == 1);
  if (Index != 1) txtLaborRate.Value(Currency{0});
}

/// The tag tells the map code screen to offer selection instead of setup.
void CustomerCard::cmdMapCode_Click() {
  cmdMapCode.Enabled(false);
  cmdMapCode.Tag("Select");
  if (gMainOpeners.mapCodes) gMainOpeners.mapCodes(s);
  cmdMapCode.Enabled(true);
}

/// The terms' code and name; an unknown code or none leaves the combo empty.
void CustomerCard::LoadTerms(ResumeNext& on, const std::string& Terms, const Value& Bound) {
  EmptyCombo(cboTerms);
  bool records = false;
  on([&] { records = !Bound.IsNull() && HasRecords(s.DataTerms); });
  if (!records) return;
  on([&] { s.DataTerms.Recordset()->FindFirst("[Terms]=" + Terms); });
  if (s.DataTerms.Recordset()->NoMatch()) {
    on([&] { s.DataTerms.Recordset()->MoveFirst(); });
    return;
  }
  on([&] { SetCombo(cboTerms, Bound, TextOf(s.DataTerms.Recordset(), "Message")); });
}

void CustomerCard::LoadStatus(ResumeNext& on, const RecordsetRef& Row) {
  std::int16_t status = 0;
  on([&] {
    const Value value = Row->Field("Status");
    if (!value.IsNull()) status = platform::CInt(value);
  });
  optStatus[status == 1 || status == 2 ? status : 0].Value(true);
}

void CustomerCard::LoadExpiry(ResumeNext& on, const RecordsetRef& Row) {
  on([&] {
    const Value expires = Row->Field("ExemptExpireDate");
    if (expires.IsNull())
      txtExemptExpireDate.Text("");
    else
      txtExemptExpireDate.Value(expires);
  });
}

void CustomerCard::LoadMapCode(ResumeNext& on, const RecordsetRef& Row) {
  on([&] { lblMapCode[0].Caption(TextOf(Row, "MapCode")); });
  if (lblMapCode[0].Caption().empty()) {
    lblMapCode[1].Caption("");
    return;
  }
  if (Find(on, rsLocations, "MapCode", [this] { return Keys{lblMapCode[0].Caption()}; }) != Search::Found) {
    lblMapCode[1].Caption("");
    return;
  }
  on([&] { lblMapCode[1].Caption(TextOf(rsLocations, "Location")); });
}

/// The combo is filled only for a code that the table of rates lacks. A valid code leaves it empty, and a save does not write
/// an empty combo: that is how the customer's code survives an edit.
void CustomerCard::LoadSalesRate(ResumeNext& on, const RecordsetRef& Row) {
  EmptyCombo(cboSalesRate);
  std::string salesRate;
  on([&] { salesRate = TextOf(Row, "SalesRate"); });
  if (salesRate.empty()) return;
  bool Unknown = false;
  on([&] {
    s.DataSalesRate.Recordset()->FindFirst("[SalesRate]='" + salesRate + "'");
    Unknown = s.DataSalesRate.Recordset()->NoMatch();
  });
  if (!Unknown) return;
  on([&] { cboSalesRate.BoundValue(salesRate); });
  on([&] { cboSalesRate.Text(TextOf(s.DataSalesRate.Recordset(), "RateDescription")); });
}

void CustomerCard::LoadSalesRatePer(ResumeNext& on, const RecordsetRef& Row) {
  Value salesRatePer = Null;
  on([&] { salesRatePer = Row->Field("SalesRatePer"); });
  on([&] { txtSalesRatePer.Value(std::abs(platform::CDbl(salesRatePer))); });
  cmdPlusMinus.Caption(!salesRatePer.IsNull() && platform::CDbl(salesRatePer) < 0 ? "-" : "+");
}

void CustomerCard::LoadLaborRate(ResumeNext& on, const RecordsetRef& Row) {
  std::string type;
  on([&] { type = TextOf(Row, "LaborRateType"); });
  if (type == "C") {
    optLaborRate[1].Value(true);
    on([&] { txtLaborRate.Value(platform::CCur(Row->Field("LaborRate"))); });
    txtLaborRate.Enabled(true);
    return;
  }
  optLaborRate[type == "D" ? 2 : 0].Value(true);
  txtLaborRate.Value(Currency{0});
  txtLaborRate.Enabled(false);
}

}  // namespace orcussch
