#pragma once

#include <string>

#include "maintenance/frmCustMain.h"
#include "maintenance/record_tab.h"
#include "maintenance/tabs/customer_taxes.h"
#include "platform/controls/combo.h"
#include "platform/controls/text_box.h"
#include "platform/values/convert.h"
#include "records/card_fields.h"
#include "records/fields.h"
#include "session/ModCustSch.h"

namespace orcussch {

/// What stands on a customer's card, in tab order, and its fields. A plain field is a control and a line of the list, both here.
class CustomerCard {
 public:
  template <class T, std::size_t N>
  using Array = platform::ControlArray<T, N>;

  explicit CustomerCard(frmCustMain& screen);

  /// The comment box takes over the space of its neighbours while it has the focus.
  void ShowComment(bool alone);

 private:
  void LoadTerms(ResumeNext& on, const std::string& Terms, const platform::Value& Bound);
  void LoadStatus(ResumeNext& on, const platform::RecordsetRef& Row);
  void LoadSalesRate(ResumeNext& on, const platform::RecordsetRef& Row);
  void LoadSalesRatePer(ResumeNext& on, const platform::RecordsetRef& Row);
  void LoadLaborRate(ResumeNext& on, const platform::RecordsetRef& Row);
  void LoadMapCode(ResumeNext& on, const platform::RecordsetRef& Row);
  void LoadExpiry(ResumeNext& on, const platform::RecordsetRef& Row);
  void AttachHandlers();
  void txtZip_LostFocus();
  void optLaborRate_Click(int Index);
  void cmdMapCode_Click();

  using Source = const platform::RecordsetRef&;
  using Maybe = std::optional<platform::Value>;
  frmCustMain& s;

 public:
  platform::TextBox txtLastName{s, "txtLastName", 30}, txtFirstName{s, "txtFirstName", 15}, txtTitle{s, "txtTitle", 5};
  platform::TextBox txtAddr1{s, "txtAddr1", 30}, txtAddr2{s, "txtAddr2", 30};
  platform::TextBox txtCity{s, "txtCity", 25}, txtState{s, "txtState", 2}, txtZip{s, "txtZip", 10}, txtCountry{s, "txtCountry", 30};
  platform::ComboBox cboTerms{s, "cboTerms"};
  platform::CurrencyEdit txtCreditLimit{s, "txtCreditLimit"};
  platform::CheckBox chkHoldCredit{s, "chkHoldCredit", "Hold Credit"};
  platform::Frame fraStatus{s, "fraStatus", "Customer Status:"};
  Array<platform::OptionButton, 3> optStatus{s, "optStatus"};
  platform::Frame fraBillingStatus{s, "fraBillingStatus", "Billing Status:"};
  Array<platform::OptionButton, 2> optBillingStatus{s, "optBillingStatus"};
  platform::CheckBox chkAgeMethod{s, "chkAgeMethod", "Age from invoice date"};
  platform::CheckBox chkOmitFinChg{s, "chkOmitFinChg", "Omit Finance Charges"};
  platform::TextBox txtEMail{s, "txtEMail", 40}, txtWebSite{s, "txtWebSite", 40};
  platform::ComboBox cboSalesRate{s, "cboSalesRate"};
  platform::CommandButton cmdPlusMinus{s, "cmdPlusMinus", "+"};
  platform::NumberEdit txtSalesRatePer{s, "txtSalesRatePer"};
  platform::Frame fraLaborRate{s, "fraLaborRate", "Default Customer Labor Rate:"};
  Array<platform::OptionButton, 3> optLaborRate{s, "optLaborRate"};
  platform::CurrencyEdit txtLaborRate{s, "txtLaborRate"};
  platform::CommandButton cmdMapCode{s, "cmdMapCode", "Lookup"};
  Array<platform::Label, 2> lblMapCode{s, "lblMapCode"};
  platform::Frame fraTax{s, "fraTax", "Tax Exemption:"};
  platform::TextBox txtTaxID{s, "txtTaxID", 15};
  platform::DateEdit txtExemptExpireDate{s, "txtExemptExpireDate"};
  CustomerTaxes taxes{s};
  platform::Frame fraComment{s, "fraComment", "Comment:"};
  platform::TextBox txtComment{s, "txtComment"};

  CardFields mFields{
      card::Text("LastName", txtLastName),
      card::Text("FirstName", txtFirstName),
      card::Text("Title", txtTitle),
      card::Text("Addr1", txtAddr1),
      card::Text("Addr2", txtAddr2),
      card::Text("City", txtCity),
      card::Text("State", txtState),
      card::Text("Zip", txtZip),
      card::Text("Country", txtCountry),
      {"Terms",
       // A new customer's terms are the company's.
       [this](ResumeNext& on) {
         LoadTerms(on, std::to_string(gDefaultTerms), gDefaultTerms > 0 ? platform::Value(gDefaultTerms) : platform::Value(platform::Null));
       },
       [this](ResumeNext& on, Source row) {
         platform::Value terms = platform::Null;
         on([&] { terms = row->Field("Terms"); });
         LoadTerms(on, terms.IsNull() ? "" : platform::CStr(terms), terms);
       },
       [this] { return cboTerms.BoundValue(); }},
      {"Status", [this](ResumeNext&) { optStatus[0].Value(true); }, [this](ResumeNext& on, Source row) { LoadStatus(on, row); },
       [this] {
         return platform::Value(static_cast<std::int16_t>(optStatus[1].Value() ? 1 : optStatus[2].Value() ? 2 : 0));
       }},
      {"NonBillable",
       // A host that demands one kind of customer has disabled the frame: it keeps the choice that it shows.
       [this](ResumeNext&) {
         if (fraBillingStatus.Enabled()) optBillingStatus[0].Value(true);
       },
       [this](ResumeNext& on, Source row) {
         bool nonBillable = false;
         on([&] { nonBillable = IsTrue(row->Field("NonBillable")); });
         optBillingStatus[nonBillable ? 1 : 0].Value(true);
       },
       [this] { return platform::Value(optBillingStatus[1].Value()); }},
      card::Text("Comments", txtComment),
      card::Text("TaxID", txtTaxID),
      // Clearing the control keeps the old date.
      {"ExemptExpireDate", [this](ResumeNext&) { txtExemptExpireDate.Text(""); },
       [this](ResumeNext& on, Source row) { LoadExpiry(on, row); },
       [this]() -> Maybe {
         if (const auto expires = txtExemptExpireDate.Value()) return platform::Value(*expires);
         return {};
       }},
      card::Check("AgeMethod", chkAgeMethod, 1, 1),
      card::Check("OmitFinanceCharge", chkOmitFinChg, 0, 0),
      card::Amount("Creditlimit", txtCreditLimit),
      card::Text("EMail", txtEMail),
      card::Text("WebSite", txtWebSite),
      {"MapCode",
       [this](ResumeNext&) {
         lblMapCode[0].Caption("");
         lblMapCode[1].Caption("");
       },
       [this](ResumeNext& on, Source row) { LoadMapCode(on, row); }, [this] { return platform::Value(lblMapCode[0].Caption()); }},
      card::Check("CreditHold", chkHoldCredit, 0, 0),
      // A save does not write an empty combo.
      {"SalesRate", [this](ResumeNext&) { EmptyCombo(cboSalesRate); }, [this](ResumeNext& on, Source row) { LoadSalesRate(on, row); },
       [this]() -> Maybe {
         if (BoundText(cboSalesRate).empty()) return {};
         return cboSalesRate.BoundValue();
       }},
      {"SalesRatePer",
       {},
       [this](ResumeNext& on, Source row) { LoadSalesRatePer(on, row); },
       [this] { return platform::Value(txtSalesRatePer.Value()); }},
      // The sign is that of the button beside the figure, which has none of its own.
      card::Saved("SalesRatePer",
                  [this]() -> Maybe {
                    if (cmdPlusMinus.Caption() != "-") return {};
                    return platform::Value(platform::CDbl(rsCustomers->Field("SalesRatePer")) * -1);
                  }),
      {"LaborRateType", [this](ResumeNext&) { optLaborRate[0].Value(true); },
       [this](ResumeNext& on, Source row) { LoadLaborRate(on, row); },
       [this] {
         return platform::Value(optLaborRate[1].Value() ? "C" : optLaborRate[2].Value() ? "D" : "N");
       }},
      {"LaborRate",
       [this](ResumeNext&) { txtLaborRate.Value(platform::Currency{0}); },
       {},
       [this] { return platform::Value(optLaborRate[1].Value() ? txtLaborRate.Value() : platform::Currency{0}); }},
  };
};

}  // namespace orcussch
