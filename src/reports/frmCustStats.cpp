#include "reports/frmCustStats.h"

#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "records/fields.h"
#include "session/ModCustSch.h"
#include "session/failures.h"

namespace orcussch {

using platform::RecordsetRef;
using platform::Value;

namespace screens {
platform::ScreenRef<orcussch::frmCustStats> frmCustStats{App};
}  // namespace screens

namespace {

constexpr platform::Shortcut kShortcuts[] = {{"miClose", "Escape", ""}};
constexpr const char* kDateMask = "_/_/____";

std::string TrimmedField(const RecordsetRef& Customer, const char* Field) { return platform::Trim(TextOf(Customer, Field)); }

/// An amount that nobody has kept leaves the box as it was designed.
void ShowAmount(platform::CurrencyEdit& Box, const Value& Amount) {
  if (!Amount.IsNull()) Box.Value(platform::CCur(Amount));
}

/// A day that has not come yet empties the box.
void ShowDate(platform::DateEdit& Box, const Value& Day) { Box.Value(Day.IsNull() ? Value("") : Day); }

const char* StatusText(const Value& Status) { return IsNumber(Status, 1) ? "Inactive" : IsNumber(Status, 2) ? "Prospect" : "Active"; }

}  // namespace

frmCustStats::frmCustStats(platform::Application& application)
    : Screen(application, "frmCustStats", "Customer Statistics"),
      lblCustomer(*this, "lblCustomer"),
      lblAcctNum(*this, "lblAcctNum"),
      lblStatus(*this, "lblStatus"),
      txtCurrBalance(*this, "txtCurrBalance"),
      txtCurrFinanceCharge(*this, "txtCurrFinanceCharge"),
      txtPaidThisMonth(*this, "txtPaidThisMonth"),
      txtPaidToDate(*this, "txtPaidToDate"),
      txtPaidThisYear(*this, "txtPaidThisYear"),
      txtPaidLastYear(*this, "txtPaidLastYear"),
      txtEntryDate(*this, "txtEntryDate"),
      txtLastTrans(*this, "txtLastTrans"),
      txtLastOrdDate(*this, "txtLastOrdDate"),
      txtLastStateDate(*this, "txtLastStateDate"),
      txtLastPayDate(*this, "txtLastPayDate"),
      miClose(*this, "miClose", "Close") {
  Shortcuts(kShortcuts);
  for (platform::CurrencyEdit* Box :
       {&txtCurrBalance, &txtCurrFinanceCharge, &txtPaidThisMonth, &txtPaidToDate, &txtPaidThisYear, &txtPaidLastYear}) {
    Box->Value(platform::Currency{});
    Box->Locked(true);
  }
  for (platform::DateEdit* Box : {&txtEntryDate, &txtLastTrans, &txtLastOrdDate, &txtLastStateDate, &txtLastPayDate}) {
    Box->Mask(kDateMask);
    Box->Locked(true);
  }
  miClose.Click = [this] { App().Unload(*this); };
}

void frmCustStats::Form_Load() {
  Trap("frmCustStats.Form_Load", [this] {
    App().DoEvents();
    if (!Loaded()) return;
    lblCustomer.Each([](platform::Label& Line, int) { Line.Caption(""); });
    const frmCustMain& Main = *screens::frmCustMain;
    const RecordsetRef Customer = Main.data[tab::Customers].Recordset();
    if (Customer->Bof() || Customer->Eof()) {
      lblStatus.Caption("");
      return;
    }
    lblCustomer[0].Caption(Main.lblCustomer.Caption());
    lblAcctNum.Caption(TextOf(Customer, "AcctNum"));
    ShowAddress(Customer);
    ShowFigures(Customer);
    App().DoEvents();
  });
}

/// Without empty lines between. Without a city its line is left out, state and ZIP with it.
void frmCustStats::ShowAddress(const RecordsetRef& Customer) {
  int Line = 0;
  const auto Add = [&](const std::string& Text) {
    if (!Text.empty()) lblCustomer[++Line].Caption(Text);
  };
  Add(TrimmedField(Customer, "Addr1"));
  Add(TrimmedField(Customer, "Addr2"));
  const std::string City = TrimmedField(Customer, "City");
  if (!City.empty()) Add(City + ", " + TrimmedField(Customer, "State") + "  " + TrimmedField(Customer, "Zip"));
  lblCustomer[4].Caption(TrimmedField(Customer, "Country"));
}

void frmCustStats::ShowFigures(const RecordsetRef& Customer) {
  ShowAmount(txtCurrBalance, Customer->Field("CurrBalance"));
  ShowAmount(txtCurrFinanceCharge, Customer->Field("CurrFinanceCharge"));
  ShowAmount(txtPaidThisMonth, Customer->Field("PaidThisMonth"));
  ShowAmount(txtPaidToDate, Customer->Field("PaidToDate"));
  ShowAmount(txtPaidThisYear, Customer->Field("PaidThisYear"));
  ShowAmount(txtPaidLastYear, Customer->Field("PaidLastYear"));
  // Every customer has a day of entry; one without it is a failure that someone should look into.
  txtEntryDate.Value(Customer->Field("EntryDate"));
  ShowDate(txtLastTrans, Customer->Field("LastTrans"));
  ShowDate(txtLastOrdDate, Customer->Field("LastOrdDate"));
  ShowDate(txtLastStateDate, Customer->Field("LastStateDate"));
  ShowDate(txtLastPayDate, Customer->Field("LastPayDate"));
  lblStatus.Caption(StatusText(Customer->Field("Status")));
}

/// The next time shows the customer of then.
void frmCustStats::Form_Unload() { screens::frmCustStats.release(); }

}  // namespace orcussch
