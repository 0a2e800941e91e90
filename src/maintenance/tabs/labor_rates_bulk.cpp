#include "maintenance/tabs/labor_rates_tab.h"
#include "platform/values/convert.h"
#include "records/fields.h"
#include "records/lists.h"
#include "session/ModCustSch.h"

// The two acts on all rates of a customer.
namespace orcussch {

bool LaborRatesTab::IsDepartmental() {
  if (TextOf(Customer(), "LaborRateType") == "D") return true;
  s.App().MsgBox(
      "The current customer is not flagged to use Customer Departmental Default Labor Rates.  You can not add departmental labor rates for "
      "a customer unless the customer is flagged as using Customer Departmental Default Labor Rates.\r\rTo flag a customer for "
      "departmental labor rates edit the customer and select the Customer Departmental option under Default Customer Labor Rate.",
      platform::box::Information + platform::box::OkOnly, "Departmental Labor Rates");
  return false;
}

void LaborRatesTab::optAllDept_Click(int Index) { cmdAddAllDepts.Caption(Index == 0 ? "Add All Departments" : "Apply Adjustment %"); }

void LaborRatesTab::cmdAddAllDepts_Click() {
  ResumeNext on("frmCustMain.cmdAddAllDepts_Click");
  bool Departmental = false;
  on([&] { Departmental = IsDepartmental(); });
  if (!Departmental) return;
  // The customer and the list that the user sees now; a yield may show others.
  std::int32_t Acct = 0;
  if (!on([&] { Acct = LongOf(Customer(), "AcctNum"); })) return;
  const platform::RecordsetRef Rates = Rows();
  const int Card = s.mCardNumber;
  cmdAddAllDepts.Enabled(false);
  s.App().MousePointer(platform::pointer::Hourglass);
  s.App().DoEvents();

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
  s.KeepCard(*this, Card);

  cmdAddAllDepts.Enabled(true);
  s.App().MousePointer(platform::pointer::Default);
  s.App().DoEvents();
}

/// One statement, run where the departments lie. A department that the customer has already is left out by the table's key.
void LaborRatesTab::AddAllDepartments(ResumeNext& on, std::int32_t Acct) {
  const std::string SQL = "INSERT INTO CustLaborRates ( AcctNum, Dept, Adjustment )" + InFile(gCustomerPath) + " SELECT " +
                          std::to_string(Acct) + " AS AcctNum, Departments.DeptNumber, " + platform::CStr(txtAdjustAllDept.Value()) +
                          " AS Adjustment FROM Departments;";
  bool ErrorFlag = false;
  ExecuteSQLStmt(dbGL, SQL, false, ErrorFlag);
  s.App().DoEvents();
  on([&] { List().Refresh(); });
}

/// The percentage replaces the old one in every row. False when there is none, or when the list went away on the way: one that
/// was opened anew in a yield is reported once, and the rows that are left stay as they are.
bool LaborRatesTab::ApplyAdjustment(ResumeNext& on, const platform::RecordsetRef& Rates) {
  if (!Rates->HasRows()) {
    s.App().MsgBox("The current customer has no departmental labor rate records setup to apply the adjustment % to!",
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
    s.App().DoEvents();
    if (More && !on([&] { More = !Rates->Eof(); })) return false;
  }
  return true;
}

void LaborRatesTab::StandOnDepartment(ResumeNext& on, const std::string& Dept) {
  const platform::RecordsetRef Rs = Rows();
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
