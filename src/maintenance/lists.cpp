#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "session/ModCustSch.h"

// What each list shows. A list is rebuilt as a whole from its statement.
namespace orcussch {

using platform::CLng;
using platform::Value;

namespace {

/// A field of the current row without Null and outer blanks.
std::string TrimmedField(const platform::RecordsetRef& Rs, const char* Name) {
  return platform::Trim(platform::CStr(platform::Concat("", Rs->Field(Name))));
}

std::string AssignFilter(const platform::ControlArray<platform::OptionButton, 3>& Display) {
  if (Display[1].Value()) return " AND (Assign=True)";
  if (Display[2].Value()) return " AND (Assign=False)";
  return "";
}

}  // namespace

void frmCustMain::SQLData(int Tab) {
  ResumeNext on("frmCustMain.SQLData");
  const auto n = static_cast<std::size_t>(Tab);
  platform::DataControl& customers = data[tab::Customers];
  orcussch::App().MousePointer(platform::pointer::Hourglass);
  orcussch::App().DoEvents();

  std::int32_t Acct = 0;
  on([&] {
    if (HasRecords(customers)) Acct = CLng(customers.Recordset()->Field("AcctNum"));
  });

  const int LeftCol = grid[tab::Customers].LeftCol(1);
  std::string SQL = ListStatement(Tab, Acct);
  const std::string Desc = optOrder(Tab)[1].Value() ? " DESC" : "";
  SQL += " ORDER BY " + fraOrder[n].Tag() + Desc + ";";

  data[n].RecordSource(SQL);
  const bool refreshed = on([&] { data[n].Refresh(); });
  on([&] { data[n].UpdateControls(); });
  orcussch::App().DoEvents();

  if (Tab == tab::Customers) {
    grid[tab::Customers].LeftCol(1, LeftCol);
    bool Customers = false;
    on([&] { Customers = HasRecords(customers); });
    for (int other = tab::Phones; other <= tab::LaborRates; ++other) SSIndexTab1.TabEnabled(other, Customers);
    FollowCustomer();
  }
  orcussch::App().DoEvents();
  TestRecordcount();
  // A list that could not be built leaves the hourglass as a sign.
  if (refreshed) orcussch::App().MousePointer(platform::pointer::Default);
}

std::string frmCustMain::ListStatement(int Tab, std::int32_t Acct) {
  const std::string acct = std::to_string(Acct);
  switch (Tab) {
    case tab::Phones:
      return "SELECT Phones.RecordID, Phones.AcctNum, Phones.Area, Phones.Phone, Phones.Ext, Phones.Type, PhoneTypes.TypeDescription, "
             "Phones.Comment"
             " FROM PhoneTypes INNER JOIN Phones ON PhoneTypes.Type = Phones.Type"
             " WHERE (AcctNum=" +
             acct + ")";
    case tab::Addresses:
      return "Select * From Addresses"
             " WHERE (Customer=" +
             acct + ")";
    case tab::CreditCards:
      return "SELECT CustCreditCards.CreditCardID, CustCreditCards.AcctNum, CustCreditCards.CCType, CreditCardTypes.CreditCardName, "
             "CustCreditCards.CCNumber, CustCreditCards.CCHolder, CustCreditCards.CCMonth, CustCreditCards.CCYear, "
             "CustCreditCards.CCLimit, CustCreditCards.CCComment"
             " FROM CreditCardTypes INNER JOIN CustCreditCards ON CreditCardTypes.CreditCardType = CustCreditCards.CCType"
             " WHERE (AcctNum=" +
             acct + ")";
    case tab::LaborRates:
      return "SELECT CustLaborRates.Dept, Departments.DeptDescription, Departments.DefaultLaborRate, CustLaborRates.Adjustment, "
             "[DefaultLaborRate]+([DefaultLaborRate]*[Adjustment]/100) AS [Adjusted Rate]"
             " FROM CustLaborRates INNER JOIN Departments ON CustLaborRates.Dept = Departments.DeptNumber"
             " WHERE (AcctNum=" +
             acct + ")";
    case tab::CustomerTypes:
      return "Select * From CU_AssignDataCodes"
             " WHERE (Instance=" +
             std::to_string(mInstance) + ")" + AssignFilter(optCustTypeDisp);
    case tab::KeyWords:
      return "Select * From CU_AssignKeyWords"
             " WHERE (Instance=" +
             std::to_string(mInstance) + ")" + AssignFilter(optKeyWordDisp);
    default:
      return CustomersStatement();
  }
}

/// While a query is in force it is the whole statement and keeps its caption; the host's billing status does not filter it.
std::string frmCustMain::CustomersStatement() {
  if (!gQuerySQL.empty()) return gQuerySQL;
  std::string SQL = "SELECT * FROM Customers";
  if (gBillingStatus == "B") {
    SQL += " WHERE (NonBillable = False)";
    grid[tab::Customers].Caption("All Billable Customers");
  } else if (gBillingStatus == "N") {
    SQL += " WHERE (NonBillable = True)";
    grid[tab::Customers].Caption("All Non-Billable Customers");
  } else {
    grid[tab::Customers].Caption("All Customers");
  }
  return SQL;
}

bool frmCustMain::SQLTaxBasis() {
  return Trap("frmCustMain.SQLTaxBasis", [this] {
    orcussch::App().DoEvents();
    const int LeftCol = HasRecords(DataTaxBasis) ? grdTaxBasis.LeftCol(0) : 0;
    std::string SQL = "SELECT * FROM CU_AssignTaxes WHERE (Instance = " + std::to_string(mInstance) + ")" + AssignFilter(optTaxDisp);
    SQL += " ORDER BY " + grdTaxBasis.Tag();
    DataTaxBasis.RecordSource(SQL);
    DataTaxBasis.Refresh();
    DataTaxBasis.UpdateControls();
    const bool Records = HasRecords(DataTaxBasis);
    tb("tb_SelectAll").Enabled(Records);
    miSelectAll.Enabled(Records);
    grdTaxBasis.LeftCol(0, LeftCol);
    orcussch::App().DoEvents();
  });
}

void frmCustMain::data_Reposition() {
  if (!mFormActive) return;
  ShowCustomerName();
  CloseTabsOfNonBillable();
}

/// Title, first and last name with single blanks between; without a title a first name keeps its leading blank.
void frmCustMain::ShowCustomerName() {
  if (!data[tab::Customers].OnRecord()) {
    lblCustomer.Caption("");
    return;
  }
  const platform::RecordsetRef Rs = data[tab::Customers].Recordset();
  const std::string Title = TrimmedField(Rs, "Title");
  const std::string FirstName = TrimmedField(Rs, "FirstName");
  std::string Name = FirstName.empty() ? Title : Title + " " + FirstName;
  if (!Name.empty()) Name += " ";
  lblCustomer.Caption(Name + TrimmedField(Rs, "LastName"));
}

/// A non-billable customer has neither alternate addresses nor credit cards.
void frmCustMain::CloseTabsOfNonBillable() {
  if (!data[tab::Customers].OnRecord()) return;
  const Value NonBillable = data[tab::Customers].Recordset()->Field("NonBillable");
  const bool Billable = NonBillable.IsNull() || !platform::CBool(NonBillable);
  SSIndexTab1.TabEnabled(tab::Addresses, Billable);
  SSIndexTab1.TabEnabled(tab::CreditCards, Billable);
}

void frmCustMain::grid_LostFocus(int Index) {
  const auto n = static_cast<std::size_t>(Index);
  if (!grid[n].DataChanged() || !data[n].OnRecord()) return;
  data[n].Recordset()->Edit();
  data[n].Recordset()->Update();
}

}  // namespace orcussch
