#include <cmath>

#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/fields.h"
#include "maintenance/tabs/record_tab.h"
#include "session/ModCustSch.h"
#include "session/opened.h"

namespace orcussch {

using platform::CBool;
using platform::CStr;
using platform::Currency;
using platform::Null;
using platform::RecordsetRef;
using platform::Val;
using platform::Value;

namespace {

constexpr int kGreatestComment = 64'000;  ///< in bytes at two a character
constexpr const char* kTaxFields[4] = {"TaxBasisA", "TaxBasisB", "TaxBasisC", "TaxBasisD"};

class CustomersTab final : public RecordTab {
 public:
  explicit CustomersTab(frmCustMain& screen)
      : RecordTab(screen, tab::Customers, "AcctNum"),
        mTexts{{{"LastName", &s.txtLastName},
                {"FirstName", &s.txtFirstName},
                {"Title", &s.txtTitle},
                {"Addr1", &s.txtAddr1},
                {"Addr2", &s.txtAddr2},
                {"City", &s.txtCity},
                {"State", &s.txtState},
                {"Zip", &s.txtZip},
                {"Country", &s.txtCountry}}} {}

  bool Add(ResumeNext& on) override;
  void Edit(ResumeNext& on) override;
  bool Save(ResumeNext& on, SaveState& state) override;
  bool MayDelete(ResumeNext& on, DeleteState& state) override;

 private:
  void ShowTerms(ResumeNext& on, const std::string& Terms, const Value& Bound);
  void ShowSalesRate(ResumeNext& on, const RecordsetRef& Row);
  void ShowLaborRate(ResumeNext& on, const RecordsetRef& Row);
  void ShowMapCode(ResumeNext& on, const RecordsetRef& Row);

  bool Valid(ResumeNext& on, const SaveState& state) const;
  bool AskAboutDuplicates(ResumeNext& on, const SaveState& state, std::int16_t& TaxCount);
  std::string CountDuplicates(ResumeNext& on, std::int16_t& Count);
  void BeginAdd(RowWrite& row);
  bool BeginCustomer(RowWrite& row, SaveState& state);
  bool StandOnCustomer(RowWrite& row, const SaveState& state, std::int32_t Acct);
  void AskAboutLaborRates(ResumeNext& on, const SaveState& state, std::int32_t Acct);
  void WriteFields(RowWrite& row);
  using Taxes = std::array<Value, 4>;
  bool ReadTaxes(ResumeNext& on, const Opened& Assigned, std::int16_t TaxCount, Taxes& taxes) const;
  void WriteTaxes(RowWrite& row, const Opened& Assigned, std::int16_t TaxCount);

  std::array<TextField, 9> mTexts;
};

bool CustomersTab::Add(ResumeNext& on) {
  s.txtComment_LostFocus();
  for (const TextField& text : mTexts) text.edit->Text("");
  ShowTerms(on, std::to_string(gDefaultTerms), gDefaultTerms > 0 ? Value(gDefaultTerms) : Value(Null));
  s.txtCreditLimit.Value(Currency{0});
  s.chkHoldCredit.Value(0);
  s.txtComment.Text("");
  s.optStatus[0].Value(true);
  // A host that demands one kind of customer has disabled the frame: it keeps the choice that it shows.
  if (s.fraBillingStatus.Enabled()) s.optBillingStatus[0].Value(true);
  s.txtEMail.Text("");
  s.txtWebSite.Text("");
  EmptyCombo(s.cboSalesRate);
  s.optLaborRate[0].Value(true);
  s.txtLaborRate.Value(Currency{0});
  s.txtTaxID.Text("");
  s.txtExemptExpireDate.Text("");
  s.chkAgeMethod.Value(1);
  s.chkOmitFinChg.Value(0);
  s.lblMapCode[0].Caption("");
  s.lblMapCode[1].Caption("");
  s.optTaxDisp[0].Value(true);
  s.grdTaxBasis.Tag("Description");
  s.LoadTaxBasis(false);
  return true;
}

/// The terms' code and name; an unknown code or none leaves the combo empty.
void CustomersTab::ShowTerms(ResumeNext& on, const std::string& Terms, const Value& Bound) {
  EmptyCombo(s.cboTerms);
  bool Records = false;
  on([&] { Records = !Bound.IsNull() && HasRecords(s.DataTerms); });
  if (!Records) return;
  on([&] { s.DataTerms.Recordset()->FindFirst("[Terms]=" + Terms); });
  if (s.DataTerms.Recordset()->NoMatch()) {
    on([&] { s.DataTerms.Recordset()->MoveFirst(); });
    return;
  }
  on([&] { SetCombo(s.cboTerms, Bound, TextOf(s.DataTerms.Recordset(), "Message")); });
}

void CustomersTab::Edit(ResumeNext& on) {
  s.txtComment_LostFocus();
  const RecordsetRef Row = Customer();
  for (const TextField& text : mTexts) on([&] { text.edit->Text(TextOf(Row, text.field)); });

  Value Terms = Null;
  on([&] { Terms = Row->Field("Terms"); });
  ShowTerms(on, Terms.IsNull() ? "" : CStr(Terms), Terms);

  std::int16_t Status = 0;
  on([&] {
    const Value value = Row->Field("Status");
    if (!value.IsNull()) Status = platform::CInt(value);
  });
  s.optStatus[Status == 1 || Status == 2 ? static_cast<std::size_t>(Status) : 0].Value(true);
  bool NonBillable = false;
  on([&] { NonBillable = IsTrue(Row->Field("NonBillable")); });
  s.optBillingStatus[NonBillable ? 1 : 0].Value(true);

  on([&] { s.txtComment.Text(TextOf(Row, "Comments")); });
  on([&] { s.txtTaxID.Text(TextOf(Row, "TaxID")); });
  on([&] {
    const Value expires = Row->Field("ExemptExpireDate");
    if (expires.IsNull())
      s.txtExemptExpireDate.Text("");
    else
      s.txtExemptExpireDate.Value(expires);
  });
  on([&] {
    const Value byInvoice = Row->Field("AgeMethod");
    s.chkAgeMethod.Value(byInvoice.IsNull() || CBool(byInvoice) ? 1 : 0);
  });
  on([&] { s.chkOmitFinChg.Value(IsTrue(Row->Field("OmitFinanceCharge")) ? 1 : 0); });
  on([&] { s.txtCreditLimit.Value(platform::CCur(Row->Field("Creditlimit"))); });
  on([&] { s.txtEMail.Text(TextOf(Row, "EMail")); });
  on([&] { s.txtWebSite.Text(TextOf(Row, "WebSite")); });
  ShowMapCode(on, Row);
  on([&] { s.chkHoldCredit.Value(IsTrue(Row->Field("CreditHold")) ? 1 : 0); });
  ShowSalesRate(on, Row);
  ShowLaborRate(on, Row);
  s.LoadTaxBasis(true);
}

void CustomersTab::ShowMapCode(ResumeNext& on, const RecordsetRef& Row) {
  on([&] { s.lblMapCode[0].Caption(TextOf(Row, "MapCode")); });
  if (s.lblMapCode[0].Caption().empty()) {
    s.lblMapCode[1].Caption("");
    return;
  }
  if (Find(on, rsLocations, "MapCode", [this] { return Keys{s.lblMapCode[0].Caption()}; }) != Search::Found) {
    s.lblMapCode[1].Caption("");
    return;
  }
  on([&] { s.lblMapCode[1].Caption(TextOf(rsLocations, "Location")); });
}

/// The combo is filled only for a code that the table of rates lacks. A valid code leaves it empty, and a save does not write
/// an empty combo: that is how the customer's code survives an edit.
void CustomersTab::ShowSalesRate(ResumeNext& on, const RecordsetRef& Row) {
  EmptyCombo(s.cboSalesRate);
  std::string SalesRate;
  on([&] { SalesRate = TextOf(Row, "SalesRate"); });
  if (!SalesRate.empty()) {
    bool Unknown = false;
    on([&] {
      s.DataSalesRate.Recordset()->FindFirst("[SalesRate]='" + SalesRate + "'");
      Unknown = s.DataSalesRate.Recordset()->NoMatch();
    });
    if (Unknown) {
      on([&] { s.cboSalesRate.BoundValue(SalesRate); });
      on([&] { s.cboSalesRate.Text(TextOf(s.DataSalesRate.Recordset(), "RateDescription")); });
    }
  }
  Value SalesRatePer = Null;
  on([&] { SalesRatePer = Row->Field("SalesRatePer"); });
  on([&] { s.txtSalesRatePer.Value(std::abs(platform::CDbl(SalesRatePer))); });
  s.cmdPlusMinus.Caption(!SalesRatePer.IsNull() && platform::CDbl(SalesRatePer) < 0 ? "-" : "+");
}

void CustomersTab::ShowLaborRate(ResumeNext& on, const RecordsetRef& Row) {
  std::string Type;
  on([&] { Type = TextOf(Row, "LaborRateType"); });
  if (Type == "C") {
    s.optLaborRate[1].Value(true);
    on([&] { s.txtLaborRate.Value(platform::CCur(Row->Field("LaborRate"))); });
    s.txtLaborRate.Enabled(true);
    return;
  }
  s.optLaborRate[Type == "D" ? 2 : 0].Value(true);
  s.txtLaborRate.Value(Currency{0});
  s.txtLaborRate.Enabled(false);
}

bool CustomersTab::Valid(ResumeNext& on, const SaveState& state) const {
  bool NoRate = false;
  on([&] { NoRate = s.optLaborRate[1].Value() && s.txtLaborRate.Value() == Currency{0}; });
  return Passes(
      state,
      {
          {s.txtLastName.Text().empty(), "You must enter the customer's last name!"},
          {NoRate, "You must enter the customer's default labor rate or select a different default labor rate option!"},
          {Val(BoundText(s.cboTerms)) < 1, "You must select the customer's default terms!"},
          {2 * platform::Len(s.txtComment.Text()) > kGreatestComment,
           "The customer comment has exceeded the maximum allowed length.  You must reduce the size of the comment field before you can "
           "save the customer record!"},
      });
}

bool CustomersTab::Save(ResumeNext& on, SaveState& state) {
  if (!Valid(on, state)) return false;

  Opened Assigned;
  on([&] {
    Assigned = dbTemp->OpenRecordset("Select * From CU_AssignTaxes Where (Assign=True) And (Instance = " + std::to_string(s.mInstance) +
                                     ") Order By TaxID;");
  });
  // One counter for the duplicates and for the places of the taxes: after a duplicate question the first tax goes to the
  // place behind the duplicates, as the suite's other modules have come to know it.
  std::int16_t TaxCount = 0;
  App().DoEvents();
  state.LeftCol = s.grid[tab::Customers].LeftCol(1);

  RowWrite row(on);
  if (Adding()) {
    if (!AskAboutDuplicates(on, state, TaxCount) || CardHasGone(state)) return false;
    BeginAdd(row);
  } else if (!BeginCustomer(row, state)) {
    return false;
  }
  WriteFields(row);
  if (row.Going()) WriteTaxes(row, Assigned, TaxCount);
  Store(row, rsCustomers, "AcctNum", state);
  return true;
}

/// True to go on.
bool CustomersTab::AskAboutDuplicates(ResumeNext& on, const SaveState& state, std::int16_t& TaxCount) {
  const std::string Message = CountDuplicates(on, TaxCount);
  return TaxCount == 0 || Ask(state.Title, Message);
}

/// The question about them. The address goes into the statement as it was typed: one with an apostrophe makes it fail, which is
/// reported, and the save goes on without the question.
std::string CustomersTab::CountDuplicates(ResumeNext& on, std::int16_t& Count) {
  Opened Same;
  const bool opened = on([&] {
    Same = dbCustomer->OpenRecordset("Select AcctNum, FirstName, LastName From Customers Where (Addr1 = '" + s.txtAddr1.Text() +
                                     "') AND (Addr2 = '" + s.txtAddr2.Text() + "') AND (City = '" + s.txtCity.Text() + "') AND (State = '" +
                                     s.txtState.Text() + "');");
  });
  App().DoEvents();
  if (!opened) return "";

  std::string Message;
  bool Records = false;
  on([&] { Records = Same->RecordCount() != 0; });
  if (Records) {
    std::string AcctNum, LastName, FirstName;
    on([&] { AcctNum = TextOf(Same, "AcctNum"); });
    on([&] { LastName = TextOf(Same, "LastName"); });
    on([&] { FirstName = TextOf(Same, "FirstName"); });
    on([&] { Same->MoveLast(); });
    on([&] { Count = platform::CInt(Same->RecordCount()); });
    Message = "The following Customer already exists with the same address:\r\r";
    Message += "  Account No " + AcctNum + "\r";
    Message += "  Last Name " + LastName + "\r";
    Message += "  First Name " + FirstName + "\r\r";
    if (Count > 1) Message += "There are also " + std::to_string(Count - 1) + " customers with the same address.\r\r";
    Message += "Are you sure you want to add another customer with the same address?";
  }
  return Message;
}

void CustomersTab::BeginAdd(RowWrite& row) {
  row.Must([] { rsCustomers->AddNew(); });
  row([] { rsCustomers->SetField("EntryDate", App().System().Today()); });
  for (const char* field : {"CurrFinanceCharge", "CurrBalance", "PaidThisYear", "PaidThisMonth", "PaidLastYear", "PaidToDate"})
    row([&] { rsCustomers->SetField(field, Currency{0}); });
  row([] { rsCustomers->SetField("DefaultBillTo", rsCustomers->Field("AcctNum")); });
  for (const char* field : {"DefaultShipAddress", "DefaultBillAddress", "DefaultPhoneNumber", "DefaultCreditCard", "Latitude", "Longitude"})
    row([&] { rsCustomers->SetField(field, std::int32_t{0}); });
}

bool CustomersTab::BeginCustomer(RowWrite& row, SaveState& state) {
  std::int32_t Acct = 0;
  if (CardHasGone(state)) return false;
  if (!row.Must([&] { Acct = platform::CLng(CardKey()); }) || !StandOnCustomer(row, state, Acct)) return false;
  state.Position = "[AcctNum]=" + std::to_string(Acct);
  if (!s.optLaborRate[2].Value()) {
    AskAboutLaborRates(row.Reports(), state, Acct);
    // The question and the yields behind it may have moved the table.
    if (CardHasGone(state) || !StandOnCustomer(row, state, Acct)) return false;
  }
  row.Must([] { rsCustomers->Edit(); });
  return true;
}

bool CustomersTab::StandOnCustomer(RowWrite& row, const SaveState& state, std::int32_t Acct) {
  const Search search = Find(row.Reports(), rsCustomers, "ByAcct", [Acct] { return Keys{Acct}; });
  if (search == Search::Missing)
    Refuse(state.Title, "The edited customer can no longer be found (Customer Account No. " + std::to_string(Acct) +
                            ").  The customer changes made can not be saved!");
  return search == Search::Found;
}

void CustomersTab::AskAboutLaborRates(ResumeNext& on, const SaveState& state, std::int32_t Acct) {
  Opened Rates;
  const bool opened =
      on([&] { Rates = dbCustomer->OpenRecordset("Select * From CustLaborRates Where (AcctNum=" + std::to_string(Acct) + ");"); });
  App().DoEvents();
  if (!opened) return;
  bool Records = false;
  on([&] { Records = Rates->RecordCount() != 0; });
  if (Records &&
      Ask(state.Title,
          "The department labor rate option has not beed selected and departmental labor rate records exist for the current customer.  "
          "Do you want to delete all deparmental labor rate records for the current customer?")) {
    on([&] { Rates->MoveFirst(); });
    bool More = false;
    on([&] { More = !Rates->Eof(); });
    while (More) {
      on([&] { Rates->Delete(); });
      More = on([&] { Rates->MoveNext(); });
      App().DoEvents();
      if (More) on([&] { More = !Rates->Eof(); });
    }
  }
}

void CustomersTab::WriteFields(RowWrite& row) {
  const auto write = [&](const char* field, const Value& value) { row([&] { rsCustomers->SetField(field, value); }); };
  // A figure can be one that no amount holds: it is reported here, and its field keeps what it held.
  const auto take = [&](const char* field, const auto& figure) { row([&] { rsCustomers->SetField(field, figure()); }); };
  for (const TextField& text : mTexts) write(text.field, text.edit->Text());
  write("Terms", s.cboTerms.BoundValue());
  write("Status", static_cast<std::int16_t>(s.optStatus[1].Value() ? 1 : s.optStatus[2].Value() ? 2 : 0));
  write("NonBillable", s.optBillingStatus[1].Value());
  write("Comments", s.txtComment.Text());
  write("TaxID", s.txtTaxID.Text());
  // Clearing the control keeps the old date.
  if (const auto expires = s.txtExemptExpireDate.Value()) write("ExemptExpireDate", *expires);
  write("AgeMethod", s.chkAgeMethod.Value() != 0);
  write("OmitFinanceCharge", s.chkOmitFinChg.Value() != 0);
  take("Creditlimit", [this] { return s.txtCreditLimit.Value(); });
  write("EMail", s.txtEMail.Text());
  write("WebSite", s.txtWebSite.Text());
  write("MapCode", s.lblMapCode[0].Caption());
  write("CreditHold", s.chkHoldCredit.Value() != 0);
  if (!BoundText(s.cboSalesRate).empty()) write("SalesRate", s.cboSalesRate.BoundValue());
  take("SalesRatePer", [this] { return s.txtSalesRatePer.Value(); });
  if (s.cmdPlusMinus.Caption() == "-")
    row([] { rsCustomers->SetField("SalesRatePer", platform::CDbl(rsCustomers->Field("SalesRatePer")) * -1); });
  write("LaborRateType", s.optLaborRate[1].Value() ? "C" : s.optLaborRate[2].Value() ? "D" : "N");
  take("LaborRate", [this] { return s.optLaborRate[1].Value() ? s.txtLaborRate.Value() : Currency{0}; });
}

/// The first four assigned taxes are kept, without a word about others. False when they could not be read.
bool CustomersTab::ReadTaxes(ResumeNext& on, const Opened& Assigned, std::int16_t TaxCount, Taxes& taxes) const {
  if (Assigned.IsNothing()) return false;
  bool More = false;
  if (!on([&] {
        More = Assigned->RecordCount() != 0;
        if (More) Assigned->MoveFirst();
      }))
    return false;
  while (More) {
    // Short like the number of duplicates: after the greatest one the addition is reported and no place is left either.
    on([&] { TaxCount = platform::CInt(std::int32_t{TaxCount} + 1); });
    if (TaxCount > 4) break;
    if (!on([&] {
          taxes[static_cast<std::size_t>(TaxCount - 1)] = Assigned->Field("TaxID");
          Assigned->MoveNext();
          More = !Assigned->Eof();
        }))
      return false;
  }
  return true;
}

/// A customer whose ticks could not be loaded or read keeps the taxes that the table holds.
void CustomersTab::WriteTaxes(RowWrite& row, const Opened& Assigned, std::int16_t TaxCount) {
  Taxes taxes;
  taxes.fill(std::int32_t{0});
  const bool Known = ReadTaxes(row.Reports(), Assigned, TaxCount, taxes) && s.mTaxesLoaded;
  if (!Known && !Adding()) return;
  for (std::size_t i = 0; i < taxes.size(); ++i) row([&] { rsCustomers->SetField(kTaxFields[i], taxes[i]); });
}

bool CustomersTab::MayDelete(ResumeNext& on, DeleteState& state) {
  std::string Acct;
  on([&] { Acct = std::to_string(LongOf(Rows(), "AcctNum")); });
  Opened Transactions;
  std::int32_t Count = 0;
  const bool opened = on([&] { Transactions = dbARTrans->OpenRecordset("Select * From Transactions Where (AcctNum = " + Acct + ");"); });
  App().DoEvents();
  if (opened) on([&] { Count = Transactions->RecordCount(); });
  if (Count > 0) {
    Refuse(state.Title,
           "Accounts Receivable Transactions exist for Customer Account No. " + Acct + " exist.  This Customer can not be deleted!");
    return false;
  }
  state.Position = "[AcctNum]>=" + Acct;
  return true;
}

}  // namespace

std::unique_ptr<RecordTab> MakeCustomersTab(frmCustMain& screen) { return std::make_unique<CustomersTab>(screen); }

}  // namespace orcussch
