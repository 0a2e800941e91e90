#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/customer_card.h"
#include "maintenance/tabs/customer_columns.h"
#include "maintenance/tabs/customer_questions.h"
#include "records/find.h"
#include "session/ModCustSch.h"
#include "session/customers_title.h"
#include "session/opened.h"

namespace orcussch {

using platform::Currency;
using platform::Value;

namespace {

constexpr int kGreatestComment = 64'000;  ///< in bytes at two a character

TabDesign TheTab() {
  return {.caption = "  Customers  ",
          .record = "customer",
          .field = "LastName",
          .ascending = "Ascending Customer Last Name",
          .descending = "Descending Customer Last Name",
          .prompt = "Customer Last Name",
          .database = &gCustomerPath,
          .columns = CustomerColumns(),
          .setupKey = "tb_TaxSetup"};
}

class CustomersTab final : public RecordTab {
 public:
  explicit CustomersTab(frmCustMain& screen) : RecordTab(screen, tab::Customers, "AcctNum", TheTab()) { CardBeginsWith(c.txtLastName); }

  std::string Statement(std::int32_t Acct) override;
  std::optional<std::string> OrderBy(const platform::GridColumn& column, int ColIndex) override;
  TickList Ticks() override { return {&c.taxes.grdTaxBasis, &s.DataTaxBasis, 1}; }
  CustomerTaxes& Taxes() noexcept { return c.taxes; }
  CustomerCard& Card() noexcept { return c; }

  platform::Control& FirstField() override { return c.txtLastName; }
  bool KeepsEntry(const platform::Control& control) const override;
  std::vector<platform::Control*> CaptionEntries() override;
  std::optional<std::vector<Value>> TickedOnCard() const override { return c.taxes.Ticked(); }
  void TickOnCard(const std::vector<Value>& taxes) override { c.taxes.Tick(taxes); }
  std::string NameOnCard() const override { return c.txtLastName.Text(); }
  void Loading() override;

  bool Add(ResumeNext& on) override;
  void ReadAgain(ResumeNext& on) override;
  void Edit(ResumeNext& on) override;
  bool Save(ResumeNext& on, SaveState& state) override;
  void BackInList(const SaveState& state, bool records) override;
  bool MayDelete(ResumeNext& on, DeleteState& state) override;
  void Deleted() override;

 private:
  /// A new customer's card is opened on a row too, which its owner names: a customer is his own.
  Value RowOf(const CardRecord& card) const override { return card.Key.IsNull() ? card.Owner : card.Key; }
  bool Valid(ResumeNext& on, const SaveState& state) const;
  bool AskAboutDuplicates(ResumeNext& on, const SaveState& state, std::int16_t& TaxCount);
  void BeginAdd(RowWrite& row);
  bool BeginCustomer(RowWrite& row, SaveState& state);
  bool StandOnCustomer(RowWrite& row, const SaveState& state, std::int32_t Acct);
  void AskAboutLaborRates(ResumeNext& on, const SaveState& state, std::int32_t Acct);

  CustomerCard c{s};
};

/// While a query is in force it is the whole statement and keeps its caption; the host's billing status does not filter it.
std::string CustomersTab::Statement(std::int32_t) {
  if (!gQuerySQL.empty()) return gQuerySQL;
  s.grid[mTab].Caption(TitleOfCustomers("All"));
  std::string sql = "SELECT * FROM Customers";
  if (gBillingStatus == "B") sql += " WHERE (NonBillable = False)";
  if (gBillingStatus == "N") sql += " WHERE (NonBillable = True)";
  return sql;
}

std::optional<std::string> CustomersTab::OrderBy(const platform::GridColumn& column, int) {
  const std::string field = platform::UCase(column.dataField);
  if (field == "COMMENTS") {
    s.App().MsgBox("Customer records cannot be ordered by the comment field because it is a memo field in the database!",
                   platform::box::Information + platform::box::OkOnly, "Customer Order");
    return {};
  }
  // With its table's name, since a query may join other tables that have the field too.
  return field == "ACCTNUM" ? "Customers.AcctNum" : column.dataField;
}

/// Which taxes the list shows is no entry: which are ticked is.
bool CustomersTab::KeepsEntry(const platform::Control& control) const { return control.Container() != &c.taxes.fraTaxBasis; }

std::vector<platform::Control*> CustomersTab::CaptionEntries() { return {&c.cmdPlusMinus, &c.lblMapCode[0], &c.lblMapCode[1]}; }

void CustomersTab::Loading() {
  // A query outlives the screen: its list is entitled as the one before it was.
  if (!gQuerySQL.empty()) s.grid[mTab].Caption(TitleOfCustomers("Queried"));
  c.cboSalesRate.ColumnCaption(0, "Rate Type");
  // A host that works for one kind of customer only fixes the kind of new ones too.
  if (gBillingStatus == "B") {
    c.optBillingStatus[0].Value(true);
    c.fraBillingStatus.Enabled(false);
  } else if (gBillingStatus == "N") {
    c.optBillingStatus[1].Value(true);
    c.fraBillingStatus.Enabled(false);
  }
}

bool CustomersTab::Add(ResumeNext& on) {
  c.ShowComment(false);
  c.mFields.Clear(on);
  c.taxes.optTaxDisp[0].Value(true);
  c.taxes.grdTaxBasis.Tag("Description");
  c.taxes.Load(false);
  return true;
}

void CustomersTab::ReadAgain(ResumeNext& on) {
  on([this] { s.ShowCustomerName(); });
}

void CustomersTab::Edit(ResumeNext& on) {
  c.ShowComment(false);
  c.mFields.Load(on, Rows());
  c.taxes.Load(true);
}

bool CustomersTab::Valid(ResumeNext& on, const SaveState& state) const {
  bool noRate = false;
  on([&] { noRate = c.optLaborRate[1].Value() && c.txtLaborRate.Value() == Currency{0}; });
  return Passes(
      state,
      {
          {c.txtLastName.Text().empty(), "You must enter the customer's last name!"},
          {noRate, "You must enter the customer's default labor rate or select a different default labor rate option!"},
          {platform::Val(BoundText(c.cboTerms)) < 1, "You must select the customer's default terms!"},
          {2 * platform::Len(c.txtComment.Text()) > kGreatestComment,
           "The customer comment has exceeded the maximum allowed length.  You must reduce the size of the comment field before you can "
           "save the customer record!"},
      });
}

bool CustomersTab::Save(ResumeNext& on, SaveState& state) {
  if (!Valid(on, state)) return false;

  Opened assigned;
  on([&] { assigned = c.taxes.OpenTicked(); });
  // One counter for the duplicates and for the places of the taxes: after a duplicate question the first tax goes to the
  // place behind the duplicates, as the suite's other modules have come to know it.
  std::int16_t taxCount = 0;
  s.App().DoEvents();
  state.LeftCol = s.grid[mTab].LeftCol(1);

  RowWrite row(on);
  if (Adding()) {
    if (!AskAboutDuplicates(on, state, taxCount) || CardHasGone(state)) return false;
    BeginAdd(row);
  } else if (!BeginCustomer(row, state)) {
    return false;
  }
  c.mFields.Write(row, rsCustomers);
  if (row.Going()) c.taxes.Write(row, assigned, taxCount, Adding());
  Store(row, rsCustomers, state);
  return true;
}

/// True to go on.
bool CustomersTab::AskAboutDuplicates(ResumeNext& on, const SaveState& state, std::int16_t& TaxCount) {
  const std::string message =
      CountDuplicates(s.App(), on, {c.txtAddr1.Text(), c.txtAddr2.Text(), c.txtCity.Text(), c.txtState.Text()}, TaxCount);
  return TaxCount == 0 || Ask(state.Title, message);
}

void CustomersTab::BeginAdd(RowWrite& row) {
  row.Must([] { rsCustomers->AddNew(); });
  row([this] { rsCustomers->SetField("EntryDate", s.App().System().Today()); });
  for (const char* field : {"CurrFinanceCharge", "CurrBalance", "PaidThisYear", "PaidThisMonth", "PaidLastYear", "PaidToDate"})
    row([&] { rsCustomers->SetField(field, Currency{0}); });
  row([] { rsCustomers->SetField("DefaultBillTo", rsCustomers->Field("AcctNum")); });
  for (const char* field : {"DefaultShipAddress", "DefaultBillAddress", "DefaultPhoneNumber", "DefaultCreditCard", "Latitude", "Longitude"})
    row([&] { rsCustomers->SetField(field, std::int32_t{0}); });
}

bool CustomersTab::BeginCustomer(RowWrite& row, SaveState& state) {
  std::int32_t acct = 0;
  if (CardHasGone(state)) return false;
  if (!row.Must([&] { acct = platform::CLng(CardKey()); }) || !StandOnCustomer(row, state, acct)) return false;
  state.Position = "[AcctNum]=" + std::to_string(acct);
  if (!c.optLaborRate[2].Value()) {
    AskAboutLaborRates(row.Reports(), state, acct);
    // The question and the yields behind it may have moved the table.
    if (CardHasGone(state) || !StandOnCustomer(row, state, acct)) return false;
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
  const bool opened = on([&] { Rates = OpenLaborRates(Acct); });
  s.App().DoEvents();
  if (!opened) return;
  bool Records = false;
  on([&] { Records = Rates->RecordCount() != 0; });
  if (Records &&
      Ask(state.Title,
          "The department labor rate option has not beed selected and departmental labor rate records exist for the current customer.  "
          "Do you want to delete all deparmental labor rate records for the current customer?"))
    DeleteRates(s.App(), on, Rates);
}

void CustomersTab::BackInList(const SaveState& state, bool records) {
  s.grid[mTab].LeftCol(1, state.LeftCol);
  RecordTab::BackInList(state, records);
}

bool CustomersTab::MayDelete(ResumeNext& on, DeleteState& state) {
  std::string acct;
  on([&] { acct = std::to_string(LongOf(Rows(), "AcctNum")); });
  if (CountTransactions(s.App(), on, acct) > 0) {
    Refuse(state.Title,
           "Accounts Receivable Transactions exist for Customer Account No. " + acct + " exist.  This Customer can not be deleted!");
    return false;
  }
  state.Position = "[AcctNum]>=" + acct;
  return true;
}

void CustomersTab::Deleted() {
  s.FollowCustomer();
  RecordTab::Deleted();
}

}  // namespace

void frmCustMain::LoadTaxBasis(bool Customer) { dynamic_cast<CustomersTab&>(Record(tab::Customers)).Taxes().Load(Customer); }

void frmCustMain::ShowMapCode(const std::string& MapCode, const std::string& Location) {
  const auto& labels = dynamic_cast<CustomersTab&>(Record(tab::Customers)).Card().lblMapCode;
  labels[0].Caption(MapCode);
  labels[1].Caption(Location);
}

std::unique_ptr<RecordTab> MakeCustomersTab(frmCustMain& screen) { return std::make_unique<CustomersTab>(screen); }

}  // namespace orcussch
