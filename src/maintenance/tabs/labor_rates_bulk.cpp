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
  bool departmental = false;
  on([&] { departmental = IsDepartmental(); });
  if (!departmental) return;
  // The customer and the list that the user sees now; a yield may show others.
  std::int32_t acct = 0;
  if (!on([&] { acct = LongOf(Customer(), "AcctNum"); })) return;
  const platform::RecordsetRef Rates = Rows();
  const int card = s.mCardNumber;
  cmdAddAllDepts.Enabled(false);
  s.App().MousePointer(platform::pointer::Hourglass);
  s.App().DoEvents();

  std::string remembered = FixedDept("");
  const bool stands = on([&] {
    if (Rates->HasRows()) remembered = FixedDept(TextOf(Rates, "Dept"));
  });
  if (txtAdjustAllDept.Text().empty()) txtAdjustAllDept.Value(0.0);

  bool done = stands;
  if (optAllDept[0].Value())
    AddAllDepartments(on, acct);
  else if (stands)
    done = ApplyAdjustment(on, Rates);
  if (done) StandOnDepartment(on, remembered);
  s.KeepCard(*this, card);

  cmdAddAllDepts.Enabled(true);
  s.App().MousePointer(platform::pointer::Default);
  s.App().DoEvents();
}

/// One statement, run where the departments lie. A department that the customer has already is left out by the table's key.
void LaborRatesTab::AddAllDepartments(ResumeNext& on, std::int32_t Acct) {
  const std::string sql = "INSERT INTO CustLaborRates ( AcctNum, Dept, Adjustment )" + InFile(gCustomerPath) + " SELECT " +
                          std::to_string(Acct) + " AS AcctNum, Departments.DeptNumber, " + platform::CStr(txtAdjustAllDept.Value()) +
                          " AS Adjustment FROM Departments;";
  bool errorFlag = false;
  ExecuteSQLStmt(dbGL, sql, false, errorFlag);
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
  const double adjustment = txtAdjustAllDept.Value();
  bool more = on([&] { Rates->MoveFirst(); });
  while (more) {
    RowWrite row(on);
    row.Must([&] { Rates->Edit(); });
    row([&] { Rates->SetField("Adjustment", adjustment); });
    if (row.Going()) UpdateOrDrop(on, Rates);
    more = on([&] { Rates->MoveNext(); });
    s.App().DoEvents();
    if (more && !on([&] { more = !Rates->Eof(); })) return false;
  }
  return true;
}

void LaborRatesTab::StandOnDepartment(ResumeNext& on, const std::string& Dept) {
  const platform::RecordsetRef Rs = Rows();
  bool records = false;
  on([&] { records = Rs->HasRows(); });
  if (!records) return;
  bool found = false;
  if (Dept != FixedDept(""))
    on([&] {
      Rs->FindFirst("[Dept]='" + Dept + "'");
      found = !Rs->NoMatch();
    });
  if (!found) on([&] { Rs->MoveFirst(); });
}

}  // namespace orcussch
