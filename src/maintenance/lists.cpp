#include "records/lists.h"
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

}  // namespace

void frmCustMain::SQLData(int Tab) {
  ResumeNext on("frmCustMain.SQLData");
  platform::DataControl& customers = data[tab::Customers];
  const int card = mCardNumber;
  App().MousePointer(platform::pointer::Hourglass);
  App().DoEvents();

  std::int32_t acct = 0;
  on([&] {
    if (HasRecords(customers)) acct = CLng(customers.Recordset()->Field("AcctNum"));
  });

  const int leftCol = grid[tab::Customers].LeftCol(1);
  std::string sql = Record(Tab).Statement(acct);
  const std::string desc = Record(Tab).optOrder[1].Value() ? " DESC" : "";
  sql += " ORDER BY " + fraOrder[Tab].Tag() + desc + ";";

  data[Tab].RecordSource(sql);
  Record(Tab).mListOf = acct;
  const bool refreshed = Reopen(on, Record(Tab), card);
  on([&] { data[Tab].UpdateControls(); });
  App().DoEvents();

  if (Tab == tab::Customers) {
    grid[tab::Customers].LeftCol(1, leftCol);
    bool hasCustomers = false;
    on([&] { hasCustomers = HasRecords(customers); });
    // A card that came up in a yield has set by itself what can be reached.
    for (int other = 0; other < tab::Count; ++other)
      if (other != Tab && !Record(other).Design().assigns && !CardCameUp(card)) SSIndexTab1.TabEnabled(other, hasCustomers);
    FollowCustomer();
  }
  App().DoEvents();
  if (!CardCameUp(card)) TestRecordcount();
  // A list that could not be built leaves the hourglass as a sign.
  if (refreshed) App().MousePointer(platform::pointer::Default);
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
  const platform::RecordsetRef rs = data[tab::Customers].Recordset();
  const std::string title = TrimmedField(rs, "Title");
  const std::string firstName = TrimmedField(rs, "FirstName");
  std::string name = firstName.empty() ? title : title + " " + firstName;
  if (!name.empty()) name += " ";
  lblCustomer.Caption(name + TrimmedField(rs, "LastName"));
}

/// A non-billable customer has neither alternate addresses nor credit cards.
void frmCustMain::CloseTabsOfNonBillable() {
  if (!data[tab::Customers].OnRecord()) return;
  const Value nonBillable = data[tab::Customers].Recordset()->Field("NonBillable");
  const bool billable = nonBillable.IsNull() || !platform::CBool(nonBillable);
  for (int other = 0; other < tab::Count; ++other)
    if (Record(other).Design().billableOnly) SSIndexTab1.TabEnabled(other, billable);
}

std::string frmCustMain::FilterText() const {
  if (gQuerySQL.empty()) return "";
  return gQueryText.empty() ? "Query" : "Query: " + gQueryText;
}

void frmCustMain::grid_LostFocus(int Index) {
  if (!grid[Index].DataChanged() || !data[Index].OnRecord()) return;
  data[Index].Recordset()->Edit();
  data[Index].Recordset()->Update();
}

}  // namespace orcussch
