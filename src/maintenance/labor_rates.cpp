#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/fields.h"
#include "platform/values/convert.h"
#include "platform/values/currency.h"
#include "session/ModCustSch.h"

// Departmental labor rates: the panel of the card, and the two bulk actions of the list page.
namespace orcussch {

using platform::Currency;

bool frmCustMain::CustomerDeptLaborRate() {
  if (TextOf(data[tab::Customers].Recordset(), "LaborRateType") == "D") return true;
  orcussch::App().MsgBox(
      "The current customer is not flagged to use Customer Departmental Default Labor Rates.  You can not add departmental labor rates for "
      "a customer unless the customer is flagged as using Customer Departmental Default Labor Rates.\r\rTo flag a customer for "
      "departmental labor rates edit the customer and select the Customer Departmental option under Default Customer Labor Rate.",
      platform::box::Information + platform::box::OkOnly, "Departmental Labor Rates");
  return false;
}

void frmCustMain::DeptChange() {
  Trap("frmCustMain.DeptChange", [this] {
    txtDeptNo.Text("");
    txtDeptRate.Value(Currency{0});
    const std::string Bound = BoundText(cboDepts);
    if (!Bound.empty() && HasRecords(DataDepts)) {
      const platform::RecordsetRef Rs = DataDepts.Recordset();
      Rs->FindFirst("[DeptNumber]='" + Bound + "'");
      if (!Rs->NoMatch()) {
        txtDeptNo.Text(Bound + " - " + cboDepts.Text());
        const platform::Value Rate = Rs->Field("DefaultLaborRate");
        txtDeptRate.Value(Rate.IsNull() ? Currency{0} : platform::CCur(Rate));
      }
    }
    ShowAdjustedRate();
  });
}

void frmCustMain::txtRateAdjustment_Change() {
  Trap("frmCustMain.txtRateAdjustment_Change", [this] {
    txtDeptAdjust.Value(platform::CCur(txtRateAdjustment.Value()));
    ShowAdjustedRate();
  });
}

/// The product is formed in double precision, the quotient becomes currency and is added as currency.
void frmCustMain::ShowAdjustedRate() {
  const Currency Rate = txtDeptRate.Value();
  const Currency Part = platform::CCur(platform::CDbl(Rate) * txtRateAdjustment.Value() / 100);
  txtDeptAdjustRate.Value(Rate + Part);
}

void frmCustMain::optLaborRate_Click(int Index) {
  txtLaborRate.Enabled(Index == 1);
  if (Index != 1) txtLaborRate.Value(Currency{0});
}

void frmCustMain::optAllDept_Click(int Index) { cmdAddAllDepts.Caption(Index == 0 ? "Add All Departments" : "Apply Adjustment %"); }

void frmCustMain::cmdAddAllDepts_Click() {
  ResumeNext on("frmCustMain.cmdAddAllDepts_Click");
  bool Departmental = false;
  on([&] { Departmental = CustomerDeptLaborRate(); });
  if (!Departmental) return;
  // The customer and the list that the user sees now; a yield may show others.
  std::int32_t Acct = 0;
  if (!on([&] { Acct = LongOf(data[tab::Customers].Recordset(), "AcctNum"); })) return;
  const platform::RecordsetRef Rates = data[tab::LaborRates].Recordset();
  cmdAddAllDepts.Enabled(false);
  orcussch::App().MousePointer(platform::pointer::Hourglass);
  orcussch::App().DoEvents();

  std::string Remembered = FixedDept("");
  const bool Stands = on([&] {
    if (Rates->HasRows()) Remembered = FixedDept(TextOf(Rates, "Dept"));
  });
  if (txtAdjustAllDept.Text().empty()) txtAdjustAllDept.Value(0.0);

  bool Done = Stands;
  if (optAllDept[0].Value())
    AddAllDepartments(on, Acct);
  else if (Stands)
    Done = ApplyAdjustment(on, Rates);
  if (Done) StandOnDepartment(on, Remembered);

  cmdAddAllDepts.Enabled(true);
  orcussch::App().MousePointer(platform::pointer::Default);
  orcussch::App().DoEvents();
}

/// One statement, run where the departments lie. A department that the customer has already is left out by the table's key.
void frmCustMain::AddAllDepartments(ResumeNext& on, std::int32_t Acct) {
  const std::string SQL = "INSERT INTO CustLaborRates ( AcctNum, Dept, Adjustment )" + InFile(gCustomerPath) + " SELECT " +
                          std::to_string(Acct) + " AS AcctNum, Departments.DeptNumber, " + platform::CStr(txtAdjustAllDept.Value()) +
                          " AS Adjustment FROM Departments;";
  bool ErrorFlag = false;
  ExecuteSQLStmt(dbGL, SQL, false, ErrorFlag);
  orcussch::App().DoEvents();
  on([&] { data[tab::LaborRates].Refresh(); });
}

/// The percentage replaces the old one in every row. False when there is none, or when the list went away on the way: one that
/// was opened anew in a yield is reported once, and the rows that are left stay as they are.
bool frmCustMain::ApplyAdjustment(ResumeNext& on, const platform::RecordsetRef& Rates) {
  if (!Rates->HasRows()) {
    orcussch::App().MsgBox("The current customer has no departmental labor rate records setup to apply the adjustment % to!",
                           platform::box::Information + platform::box::OkOnly, cmdAddAllDepts.Caption());
    return false;
  }
  const double Adjustment = txtAdjustAllDept.Value();
  bool More = on([&] { Rates->MoveFirst(); });
  while (More) {
    RowWrite row(on);
    row.Must([&] { Rates->Edit(); });
    row([&] { Rates->SetField("Adjustment", Adjustment); });
    if (row.Going()) UpdateOrDrop(on, Rates);
    More = on([&] { Rates->MoveNext(); });
    orcussch::App().DoEvents();
    if (More && !on([&] { More = !Rates->Eof(); })) return false;
  }
  return true;
}

void frmCustMain::StandOnDepartment(ResumeNext& on, const std::string& Dept) {
  const platform::RecordsetRef Rs = data[tab::LaborRates].Recordset();
  bool Records = false;
  on([&] { Records = Rs->HasRows(); });
  if (!Records) return;
  bool Found = false;
  if (Dept != FixedDept(""))
    on([&] {
      Rs->FindFirst("[Dept]='" + Dept + "'");
      Found = !Rs->NoMatch();
    });
  if (!Found) on([&] { Rs->MoveFirst(); });
}

}  // namespace orcussch
