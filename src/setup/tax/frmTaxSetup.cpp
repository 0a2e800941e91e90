#include "setup/tax/frmTaxSetup.h"

#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "session/ModCustSch.h"
#include "session/opened.h"
#include "setup/tax/frmTaxSetupQueries.h"

namespace orcussch {

namespace screens {
platform::ScreenRef<orcussch::frmTaxSetup> frmTaxSetup{App};
}  // namespace screens

namespace {

constexpr int kYearDigits = 4;

std::vector<platform::Toolbar::Key> WithQueries(std::vector<platform::Toolbar::Key> keys) {
  keys.push_back({"tb_Queries", "Show Queries", true});
  return keys;
}

/// How the message begins that refuses an emptied cell; "" where it may be empty. The caption follows at once, also where that
/// makes one word of two.
std::string EmptyRefusal(const std::string& field) {
  for (const char* text : {"TypeDescription", "EntityDescription", "Description"})
    if (field == text) return "You must enter a ";
  for (const char* rate : {"Mat", "Lab", "Oth"})
    if (field == rate) return "You must enter a numeric";
  return "";
}

}  // namespace

frmTaxSetup::frmTaxSetup(platform::Application& application)
    : SetupScreen(application, "frmTaxSetup", "Tax Setup", WithQueries(Keys())),
      SSIndexTab1(*this, "SSIndexTab1", std::vector<std::string>(taxtab::Count)),
      types(*this),
      entities(*this),
      rates(*this),
      txtActgYear(*this, "txtActgYear", kYearDigits, "%%%%"),
      cmdClose(*this, "cmdClose", "E&xit"),
      StatusBar1(*this, "StatusBar1") {
  for (int i = 0; i < taxtab::Count; ++i) {
    Attach(Record(i));
    OrdersByHeading(Record(i));
    Record(i).list.grid.BeforeColUpdate = [this, i](int ColIndex, const platform::Value& OldValue, bool& Cancel) {
      grid_BeforeColUpdate(i, ColIndex, OldValue, Cancel);
    };
  }
  SSIndexTab1.BeforeTabClick = [this](int, bool& Cancel) { Cancel = tb("tb_SaveRec").Enabled(); };
  SSIndexTab1.Click = [this](int) { SSIndexTab1_Click(); };
  txtActgYear.Change = [this] { txtActgYear_Change(); };
  txtActgYear.LostFocus = [this] { txtActgYear_LostFocus(); };
  cmdClose.Click = [this] { App().Unload(*this); };
}

TaxTab& frmTaxSetup::Record(int Index) {
  TaxTab* const tabs[taxtab::Count] = {&types, &entities, &rates};
  return *tabs[Index];
}

// The log is searched by these, also where they name another screen.
RecordLiterals frmTaxSetup::Literals() const {
  return {.Add = "RecordAdd", .Edit = "RecordEdit", .Save = "frmARSetup.RecordSave", .Cancel = "RecordCancel", .Delete = "RecordDelete"};
}

void frmTaxSetup::Form_Load() {
  Trap("Form_Load", [this] {
    tables.OpenLedger();
    RateWhere = "";
    for (int i = 0; i < taxtab::Count; ++i) {
      Record(i).list.data.DatabaseName(gCustomerPath);
      SQLData(i);
    }
    rates.OpenCombos(gCustomerPath);
    tables.OpenTaxes();
    FindActgYear();
    for (const char* key : {"tb_SaveRec", "tb_CancelRec", "tb_Search", "tb_Queries"}) tb(key).Enabled(false);
  });
}

/// The main screen's list of taxes is opened anew at every closing.
void frmTaxSetup::Form_Unload() {
  Ignore()([] {
    if (orcussch::frmCustMain* main = screens::frmCustMain.peek()) main->LoadTaxBasis(true);
  });
  tables.Close();
  screens::frmTaxSetup.release();
}

/// The company's own year, today's where it has none.
void frmTaxSetup::FindActgYear() {
  const Opened period(dbGL->OpenRecordset("AccountingPeriod"));
  platform::Value year = platform::Null;
  if (period->HasRows()) {
    period->MoveFirst();
    year = period->Field("Year");
  }
  ActgYear = platform::CInt(year.IsNull() ? platform::Value(App().ThisYear()) : year);
  txtActgYear.Text(std::to_string(ActgYear));
}

void frmTaxSetup::SQLData(int Index) {
  Trap("SQLData", [&] {
    App().MousePointer(platform::pointer::Hourglass);
    TaxTab& tab = Record(Index);
    const bool filtered = Index == taxtab::Rates;
    const int leftCol = tab.list.grid.LeftCol(0);
    tab.list.Open(tab.Select() + (filtered ? RateWhere : "") + tab.list.OrderBy());
    if (filtered && SSIndexTab1.Tab() == taxtab::Rates) tab.list.grid.LeftCol(0, leftCol);
    App().MousePointer(platform::pointer::Default);
  });
}

/// "tb_Refresh" and "tb_Queries" stay as they are beside a card.
void frmTaxSetup::ShowCard(bool editing) {
  CurrentRecord().list.grid.Enabled(!editing);
  for (int i = 0; i < taxtab::Count; ++i)
    if (i != SSIndexTab1.Tab()) SSIndexTab1.TabEnabled(i, !editing);
}

void frmTaxSetup::RunOwnKey(const std::string& Key) {
  if (Key == "tb_Queries" && SSIndexTab1.Tab() == taxtab::Rates) screens::frmTaxSetupQueries.Show();
}

/// What was added on the other tabs is in the combos of the rates from here on.
void frmTaxSetup::SSIndexTab1_Click() {
  tb("tb_Search").Enabled(!CurrentRecord().list.txtSearch.Text().empty());
  const bool onRates = SSIndexTab1.Tab() == taxtab::Rates;
  tb("tb_Queries").Enabled(onRates);
  if (onRates) rates.ReloadCombos();
  TestRecordcount();
}

/// What the field can't take is refused here, while the user stands in the cell, and not when he leaves the row.
void frmTaxSetup::grid_BeforeColUpdate(int Index, int ColIndex, const platform::Value& OldValue, bool& Cancel) {
  ResumeNext on("frmCustMain.grid_BeforeColUpdate");
  TaxTab& tab = Record(Index);
  platform::Grid& list = tab.list.grid;
  const platform::GridColumn& column = list.Column(ColIndex);
  std::string v;
  on([&] { v = platform::Trim(platform::CStr(platform::Concat("", list.ColumnValue(ColIndex)))); });
  const std::string stem = v.empty() ? EmptyRefusal(column.dataField) : "";
  if (stem.empty()) {
    Cancel = !on([&] { tab.TryField(column.dataField, list.ColumnValue(ColIndex)); });
    return;
  }
  on([&] { Tell(stem + column.caption + "!", SSIndexTab1.TabCaption(SSIndexTab1.Tab()) + "-  Invalid Grid Entry"); });
  Cancel = true;
  on([&] { list.ColumnValue(ColIndex, OldValue); });
}

void frmTaxSetup::txtActgYear_Change() {
  if (platform::Len(txtActgYear.Text()) == kYearDigits) ActgYear = platform::CInt(platform::Val(txtActgYear.Text()));
}

void frmTaxSetup::txtActgYear_LostFocus() {
  if (platform::Len(txtActgYear.Text()) == kYearDigits) return;
  App().MsgBox("You must enter a 4-digit Accounting Year!", platform::box::OkOnly, App().Title());
  if (Loaded()) txtActgYear.Text(std::to_string(ActgYear));
}

}  // namespace orcussch
