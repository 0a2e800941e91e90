#include "maintenance/frmCustMain.h"
#include "maintenance/tabs/fields.h"
#include "platform/convert.h"
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
      platform::Recordset& Rs = DataDepts.Recordset();
      Rs.FindFirst("[DeptNumber]='" + Bound + "'");
      if (!Rs.NoMatch()) {
        txtDeptNo.Text(Bound + " - " + cboDepts.Text());
        const platform::Value Rate = Rs.Field("DefaultLaborRate");
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
  txtDeptAdjustRate.Value(Currency{Rate.tenThousandths + Part.tenThousandths});
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
  cmdAddAllDepts.Enabled(false);
  orcussch::App().MousePointer(platform::pointer::Hourglass);
  orcussch::App().DoEvents();

  std::string Remembered = FixedDept("");
  on([&] {
    if (HasRecords(data[tab::LaborRates])) Remembered = FixedDept(TextOf(data[tab::LaborRates].Recordset(), "Dept"));
  });
  if (txtAdjustAllDept.Text().empty()) txtAdjustAllDept.Value(0.0);

  bool Done = true;
  if (optAllDept[0].Value())
    AddAllDepartments(on);
  else
    Done = ApplyAdjustment(on);
  if (Done) StandOnDepartment(on, Remembered);

  cmdAddAllDepts.Enabled(true);
  orcussch::App().MousePointer(platform::pointer::Default);
  orcussch::App().DoEvents();
}

/// One statement, run where the departments lie. A department that the customer has already is left out by the table's key.
void frmCustMain::AddAllDepartments(ResumeNext& on) {
  std::string SQL;
  on([&] {
    SQL = "INSERT INTO CustLaborRates ( AcctNum, Dept, Adjustment ) IN '" + gCustomerPath + "' SELECT " +
          std::to_string(LongOf(data[tab::Customers].Recordset(), "AcctNum")) + " AS AcctNum, Departments.DeptNumber, " +
          platform::CStr(txtAdjustAllDept.Value()) + " AS Adjustment FROM Departments;";
  });
  bool ErrorFlag = false;
  ExecuteSQLStmt(dbGL, SQL, false, ErrorFlag);
  orcussch::App().DoEvents();
  on([&] { data[tab::LaborRates].Refresh(); });
}

/// The percentage replaces the old one in every row. False when there is none.
bool frmCustMain::ApplyAdjustment(ResumeNext& on) {
  bool Records = false;
  on([&] { Records = data[tab::LaborRates].Recordset().RecordCount() != 0; });
  if (!Records) {
    orcussch::App().MsgBox("The current customer has no departmental labor rate records setup to apply the adjustment % to!",
                           platform::box::Information + platform::box::OkOnly, cmdAddAllDepts.Caption());
    return false;
  }
  platform::Recordset& Rs = data[tab::LaborRates].Recordset();
  bool More = on([&] { Rs.MoveFirst(); });
  while (More && !Rs.Eof()) {
    on([&] { Rs.Edit(); });
    on([&] { Rs.SetField("Adjustment", txtAdjustAllDept.Value()); });
    UpdateOrDrop(on, Rs);
    More = on([&] { Rs.MoveNext(); });
    orcussch::App().DoEvents();
  }
  return true;
}

void frmCustMain::StandOnDepartment(ResumeNext& on, const std::string& Dept) {
  bool Records = false;
  on([&] { Records = data[tab::LaborRates].Recordset().RecordCount() != 0; });
  if (!Records) return;
  platform::Recordset& Rs = data[tab::LaborRates].Recordset();
  bool Found = false;
  if (Dept != FixedDept(""))
    on([&] {
      Rs.FindFirst("[Dept]='" + Dept + "'");
      Found = !Rs.NoMatch();
    });
  if (!Found) on([&] { Rs.MoveFirst(); });
}

}  // namespace orcussch
